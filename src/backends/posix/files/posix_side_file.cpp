// Made with O_EXCL, known by device and number afterwards.
#include "backends/posix/files/posix_side_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdio>
#include <utility>

#include "backends/posix/files/posix_error.h"
#include "backends/posix/files/posix_path.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr mode_t kDefaultMode = 0666;  // the user's umask takes its share
constexpr mode_t kOwnerOnly = 0600;
constexpr mode_t kRightsMask = 0777;
constexpr mode_t kSharedFolder = 0022;  // others than the owner may write
constexpr int kMostLinks = 40;

/// A new file under the first free name of the request.
Descriptor MakeFile(const SideFileRequest& request, const std::string& target, mode_t mode, std::string& name) {
  for (int n = 0;;) {
    name = SideFileName(target, request.ending, n);
    const int number = open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
    if (number >= 0) return Descriptor(number);
    if (errno == EINTR) continue;
    const int reason = errno;
    if (reason == EEXIST && ++n < request.names) continue;
    struct stat status {};
    const bool folder = request.names == 1 && stat(name.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    throw FileError(folder ? EISDIR : reason, request.names == 1 ? name : request.target);
  }
}

std::string PathOf(const Descriptor& file) {
  return "/proc/self/fd/" + std::to_string(file.Number());
}

/// A file without a name in the target's folder; a negative number where the system has none, or no way to open and
/// name one.
Descriptor MakeNamelessFile(const std::string& target, mode_t mode) {
  Descriptor file(open(FolderOf(target).c_str(), O_RDWR | O_TMPFILE | O_CLOEXEC, mode));
  return file.Number() >= 0 && access(PathOf(file).c_str(), W_OK) == 0 ? std::move(file) : Descriptor(-1);
}

/// Owner and group only as far as this user may give them; a group that stays another one gets what all others get.
void GiveRights(const Descriptor& file, const FileRights& rights, const struct stat& own) {
  mode_t mode = rights.mode & kRightsMask;
  if (rights.group != own.st_gid && fchown(file.Number(), static_cast<uid_t>(-1), rights.group) != 0) {
    constexpr mode_t kOthers = 07;
    constexpr unsigned kGroupShift = 3;
    mode = (mode & ~(kOthers << kGroupShift)) | (((mode >> kGroupShift) & mode & kOthers) << kGroupShift);
  }
  if (rights.owner != own.st_uid) {
    [[maybe_unused]] const int given = fchown(file.Number(), rights.owner, static_cast<gid_t>(-1));
  }
  // A file system without rights has none to keep.
  [[maybe_unused]] const int set = fchmod(file.Number(), mode);
}

RunTimeError Protected(const std::string& name, Text text) {
  return RunTimeError(error_number::kPermissionDenied, text, {name});
}

RunTimeError Replaced(const std::string& name) {
  return RunTimeError(error_number::kPathFileAccess, Text::kReplacedByAnother, {name});
}

/// Attributes that keep even the superuser from replacing a file.
bool IsFixed(int folder, const char* path, int flags) {
  struct statx status {};
  constexpr std::uint64_t kFixed = STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND;
  return statx(folder, path, flags, STATX_TYPE, &status) == 0 && (status.stx_attributes & kFixed) != 0;
}

}  // namespace

PosixSideFile::PosixSideFile(const SideFileRequest& request, Naming naming)
    : target_(PosixPath(request.target)), ending_(request.ending), file_([&] {
        const FileRights rights = request.rights.known ? request.rights : RightsOfPosix(target_);
        const mode_t mode = rights.known || request.ownerOnly ? kOwnerOnly : kDefaultMode;
        Descriptor nameless(naming == Naming::kAtTheEnd ? MakeNamelessFile(target_, mode) : Descriptor(-1));
        Descriptor file = nameless.Number() >= 0 ? std::move(nameless) : MakeFile(request, target_, mode, name_);
        if (fstat(file.Number(), &own_) == 0 && rights.known) GiveRights(file, rights, own_);
        return file;
      }()) {
  shownName_ = request.names == 1 ? name_ : request.target;
  struct stat named {};
  numbersLast_ = lstat(name_.c_str(), &named) != 0 || (named.st_dev == own_.st_dev && named.st_ino == own_.st_ino) ||
                 !S_ISREG(named.st_mode) || named.st_uid != own_.st_uid || named.st_nlink != 1 || named.st_size != 0;
}

PosixSideFile::~PosixSideFile() {
  if (!kept_ && HasItsName()) unlink(name_.c_str());
}

bool PosixSideFile::IsOwn(const struct stat& status) const {
  if (!S_ISREG(status.st_mode)) return false;
  if (numbersLast_) return status.st_dev == own_.st_dev && status.st_ino == own_.st_ino;
  return status.st_uid == own_.st_uid && status.st_nlink == 1;
}

bool PosixSideFile::HasItsName() const {
  struct stat status {};
  return lstat(name_.c_str(), &status) == 0 && IsOwn(status);
}

std::unique_ptr<OutputFile> PosixSideFile::OpenForWriting() {
  Descriptor copy = file_.Duplicate(shownName_);
  if (lseek(copy.Number(), 0, SEEK_SET) < 0) throw DeviceError(errno, shownName_);
  return MakeOutputFile(std::move(copy), shownName_);
}

std::unique_ptr<InputFile> PosixSideFile::OpenForReading() {
  Descriptor copy = file_.Duplicate(shownName_);
  if (lseek(copy.Number(), 0, SEEK_SET) < 0) throw DeviceError(errno, shownName_);
  return MakeInputFile(std::move(copy), shownName_);
}

DiskSpace PosixSideFile::AppendAndMeasure(std::string_view bytes) {
  struct stat status {};
  Descriptor file = [&] {
    try {
      return OpenRegular(name_, O_WRONLY | O_APPEND | O_NOFOLLOW, status);
    } catch (const RunTimeError& error) {
      if (!HasItsName()) throw SideFileLost(shownName_);
      throw SideFileAway(error);
    }
  }();
  if (!IsOwn(status) || status.st_size != appended_) throw SideFileLost(shownName_);
  AppendWhole(file, bytes, shownName_);
  appended_ += static_cast<off_t>(bytes.size());
  FlushNowAndThen(file);
  const DiskSpace space = SpaceOfOpenFile(file, shownName_);
  if (file.Close() != 0) throw DeviceError(errno, shownName_);
  return space;
}

void PosixSideFile::FlushNowAndThen(const Descriptor& file) {
  const auto now = std::chrono::steady_clock::now();
  written_ = now;
  const bool first = flushed_ == std::chrono::steady_clock::time_point{};
  if (!first && now - flushed_ < kFlushInterval) return;
  flushed_ = now;
  if (fdatasync(file.Number()) != 0 && errno != EINVAL && errno != ENOTSUP) throw DeviceError(errno, shownName_);
  if (first) SyncFolder(FolderOf(name_));
}

bool PosixSideFile::JustWritten() const noexcept {
  return std::chrono::steady_clock::now() - written_ < std::chrono::milliseconds(kPaceMilliseconds);
}

void PosixSideFile::TakeName() {
  for (int n = 0;;) {
    const std::string name = SideFileName(target_, ending_, n);
    if (linkat(AT_FDCWD, PathOf(file_).c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
      name_ = name;
      return;
    }
    if (errno != EEXIST || ++n == kMostSideNames) throw FileError(errno, shownName_);
  }
}

void PosixSideFile::ReplaceTarget() {
  CheckReplaceablePosix(target_);
  if (name_.empty()) TakeName();
  if (!HasItsName()) throw Replaced(name_);
  if (std::rename(name_.c_str(), target_.c_str()) != 0) throw FileError(errno, shownName_);
  kept_ = true;
  struct stat status {};
  if (lstat(target_.c_str(), &status) != 0 || !IsOwn(status)) throw Replaced(target_);
  SyncFolder(FolderOf(target_));
}

bool PosixSideFile::TakeTarget() {
  if (name_.empty()) {
    // A file without a name takes one that is free, or none.
    if (linkat(AT_FDCWD, PathOf(file_).c_str(), AT_FDCWD, target_.c_str(), AT_SYMLINK_FOLLOW) != 0) {
      if (errno == EEXIST) return false;
      throw FileError(errno, shownName_);
    }
    kept_ = true;
    SyncFolder(FolderOf(target_));
    return true;
  }
  if (!HasItsName()) throw SideFileLost(name_);
  if (renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) != 0) {
    if (errno == EEXIST) return false;
    if (errno != EINVAL && errno != ENOSYS) throw FileError(errno, shownName_);
    // A file system without that kind of renaming: a second name, then without the first.
    if (link(name_.c_str(), target_.c_str()) != 0) {
      if (errno == EEXIST) return false;
      throw FileError(errno, shownName_);
    }
    unlink(name_.c_str());
  }
  kept_ = true;
  SyncFolder(FolderOf(target_));
  return true;
}

std::string PosixSideFile::PathOfOpenFile() const {
  const std::string path = PathOf(file_);
  return access(path.c_str(), W_OK) == 0 ? path : name_;
}

void PosixSideFile::Flush() const {
  if (fsync(file_.Number()) != 0 && errno != EINVAL && errno != ENOTSUP) throw DeviceError(errno, shownName_);
}

std::string ResolveLinkPosix(const std::string& name) {
  std::string path = PosixPath(name);
  struct stat status {};
  if (stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) {
    throw NotARegularFile(name);
  }
  for (int links = 0; links < kMostLinks; ++links) {
    if (lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return links == 0 ? name : path;
    struct stat folder {};
    const bool shared = stat(FolderOf(path).c_str(), &folder) == 0 && (folder.st_mode & kSharedFolder) != 0;
    if (shared && status.st_uid != geteuid() && status.st_uid != 0 && status.st_uid != folder.st_uid) {
      throw RunTimeError(error_number::kPermissionDenied, Text::kLinkOfAnotherUser, {path});
    }
    std::string leadsTo(PATH_MAX, '\0');
    const ssize_t length = readlink(path.c_str(), leadsTo.data(), leadsTo.size());
    if (length < 0) throw FileError(errno, name);
    leadsTo.resize(static_cast<std::size_t>(length));
    path = leadsTo.starts_with('/') ? leadsTo : FolderOf(path).append("/").append(leadsTo);
  }
  throw FileError(ELOOP, name);
}

void CheckReplaceablePosix(const std::string& name) {
  const std::string path = PosixPath(name);
  // O_PATH: needs no right to the file, and neither waits for nor disturbs a device.
  const Descriptor file(open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
  if (file.Number() < 0) return;  // nothing there, or its making will say what is wrong
  struct stat status {};
  if (fstat(file.Number(), &status) != 0) throw FileError(errno, name);
  if (S_ISDIR(status.st_mode)) throw RunTimeError(error_number::kPathFileAccess, Text::kIsAFolder, {name});
  if (!S_ISREG(status.st_mode)) throw NotARegularFile(name);
  const std::string above = FolderOf(path);
  struct stat folder {};
  const bool sticky = stat(above.c_str(), &folder) == 0 && (folder.st_mode & S_ISVTX) != 0;
  const uid_t user = geteuid();
  if (sticky && user != 0 && status.st_uid != user && folder.st_uid != user) {
    throw Protected(name, Text::kKeptByStickyFolder);
  }
  if (IsFixed(file.Number(), "", AT_EMPTY_PATH)) throw Protected(name, Text::kMarkedImmutable);
  if (IsFixed(AT_FDCWD, above.c_str(), 0)) throw Protected(name, Text::kFolderMarkedImmutable);
}

FileRights RightsOfPosix(const std::string& name) {
  struct stat status {};
  if (name.empty() || stat(PosixPath(name).c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
  return {true, status.st_mode & kRightsMask, status.st_uid, status.st_gid};
}

}  // namespace chartproject
