// A library that is preloaded into the program: a disk on which one call fails. CHARTPROJECT_FAULT is KIND:N, the N-th
// call of that kind (from 1) on a file below CHARTPROJECT_FAULT_FOLDER: write, short (half of the bytes, then a full
// disk), sync, close, rename, open, space (little is free from there on), or budget (N bytes in all). Of these the N-th
// row is the moment: away (the folder is moved away, and back when six openings in it have failed), moved (it stays
// away), readonly (six openings for writing fail), remounted (all later ones do), forth and back (the clock jumps by
// 13 hours), stop (SIGSTOP, until somebody sends SIGCONT).
// CHARTPROJECT_FAULT_LOG receives one byte for each row that was written whole.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <csignal>

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <string_view>

namespace {

struct Fault {
  std::string kind;
  long at = 0;
  long calls = 0;
  long rows = 0;
  long refused = 0;  ///< openings since the moment
  std::string folder;
  int log = -1;
};

template <typename Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

Fault& TheFault() {
  static Fault fault = [] {
    Fault made;
    const char* text = std::getenv("CHARTPROJECT_FAULT");
    const char* folder = std::getenv("CHARTPROJECT_FAULT_FOLDER");
    const char* log = std::getenv("CHARTPROJECT_FAULT_LOG");
    if (text == nullptr || folder == nullptr || log == nullptr) return made;
    const std::string_view all(text);
    made.kind = all.substr(0, all.find(':'));
    made.at = std::atol(text + made.kind.size() + 1);
    made.folder = folder;
    made.log = Real<int(const char*, int, ...)>("open")(log, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    return made;
  }();
  return fault;
}

bool IsBelow(const char* path) {
  return !TheFault().folder.empty() && std::string_view(path).starts_with(TheFault().folder);
}

std::string PathOf(int file) {
  std::string path(PATH_MAX, '\0');
  const ssize_t length = readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), path.data(), path.size());
  path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return path;
}

/// Whether this call is the one that fails.
bool Fails(const char* kind, const std::string& path) {
  Fault& fault = TheFault();
  return fault.kind == kind && IsBelow(path.c_str()) && ++fault.calls == fault.at;
}

bool IsPast(const char* kind) {
  return TheFault().kind == kind && TheFault().rows >= TheFault().at;
}

void MoveFolder(bool back) {
  static auto* const real = Real<int(const char*, const char*)>("rename");
  const std::string& folder = TheFault().folder;
  const std::string away = folder + ".away";
  real((back ? away : folder).c_str(), (back ? folder : away).c_str());
}

/// A row was written; the moment of some faults.
void NoteRow() {
  Fault& fault = TheFault();
  if (++fault.rows != fault.at) return;
  if (fault.kind == "away" || fault.kind == "moved") MoveFolder(false);
  if (fault.kind == "stop") raise(SIGSTOP);
}

/// Whether an opening fails for a while or for good.
bool IsRefused(const char* path, int flags) {
  constexpr long kWhile = 6;
  if (!IsBelow(path)) return false;
  if (IsPast("away") && ++TheFault().refused == kWhile) MoveFolder(true);
  const bool writing = (flags & O_ACCMODE) != O_RDONLY;
  if (writing && IsPast("remounted")) return true;
  return writing && IsPast("readonly") && ++TheFault().refused <= kWhile;
}

}  // namespace

extern "C" {

ssize_t write(int file, const void* bytes, size_t count) {
  static auto* const real = Real<ssize_t(int, const void*, size_t)>("write");
  Fault& fault = TheFault();
  const std::string path = PathOf(file);
  if (!IsBelow(path.c_str())) return real(file, bytes, count);
  if (Fails("write", path)) return errno = EIO, -1;
  if (Fails("short", path)) {
    fault.kind = "budget";
    fault.at = static_cast<long>(count / 2);
    fault.calls = 0;
  }
  if (fault.kind == "budget") {
    const long left = fault.at - fault.calls;
    if (left <= 0) return errno = ENOSPC, -1;
    count = static_cast<long>(count) > left ? static_cast<size_t>(left) : count;
    fault.calls += static_cast<long>(count);
  }
  const ssize_t written = real(file, bytes, count);
  const bool rows = path.find(".tcf") != std::string::npos || path.find(".recording") != std::string::npos;
  if (rows && written > 0 && std::string_view(static_cast<const char*>(bytes), count).ends_with("##\r\n")) {
    real(fault.log, "r", 1);
    NoteRow();
  }
  return written;
}

int fdatasync(int file) {
  return Fails("sync", PathOf(file)) ? (errno = EIO, -1) : Real<int(int)>("fdatasync")(file);
}

int fsync(int file) {
  return Fails("sync", PathOf(file)) ? (errno = EIO, -1) : Real<int(int)>("fsync")(file);
}

int close(int file) {
  static auto* const real = Real<int(int)>("close");
  const bool fails = TheFault().kind == "close" && Fails("close", PathOf(file));
  const int result = real(file);
  return fails ? (errno = EIO, -1) : result;
}

int rename(const char* from, const char* to) {
  return Fails("rename", to) ? (errno = EIO, -1) : Real<int(const char*, const char*)>("rename")(from, to);
}

int open(const char* path, int flags, ...) {
  static auto* const real = Real<int(const char*, int, ...)>("open");
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if (IsRefused(path, flags)) return errno = EROFS, -1;
  if (TheFault().kind == "open" && Fails("open", path)) return errno = EIO, -1;
  return real(path, flags, mode);
}

int clock_gettime(clockid_t clock, struct timespec* now) {
  constexpr time_t kJump = 13 * 3600;
  static auto* const real = Real<int(clockid_t, struct timespec*)>("clock_gettime");
  const int result = real(clock, now);
  if (clock == CLOCK_REALTIME && IsPast("forth")) now->tv_sec += kJump;
  if (clock == CLOCK_REALTIME && IsPast("back")) now->tv_sec -= kJump;
  return result;
}

int fstatvfs(int file, struct statvfs* disk) {
  const int result = Real<int(int, struct statvfs*)>("fstatvfs")(file, disk);
  Fault& fault = TheFault();
  if (fault.kind == "space" && IsBelow(PathOf(file).c_str()) && ++fault.calls >= fault.at) disk->f_bfree = 1;
  return result;
}
}
