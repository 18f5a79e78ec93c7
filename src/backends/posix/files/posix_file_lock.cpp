// A writer's exclusive right to a file's name, by a locked marker file beside it. Its first line identifies the
// marker, and all may read it: a stale one of another user is locked again, and a file of somebody else is left alone.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <utility>

#include "backends/posix/files/open_file.h"
#include "backends/posix/files/posix_error.h"
#include "backends/posix/files/posix_file_system.h"
#include "backends/posix/files/posix_path.h"

namespace chartproject {

namespace {

constexpr int kMostOpened = 100;  // some file systems return a new inode number on every stat
constexpr int kMarkerNames = 10;
constexpr std::string_view kEnding = ".lock";
constexpr std::string_view kMark = "chart file lock\n";
constexpr mode_t kReadableByAll = 0644;

class PosixFileLock : public FileLock {
 public:
  PosixFileLock(Descriptor file, std::string marker) : file_(std::move(file)), marker_(std::move(marker)) {}
  PosixFileLock(const PosixFileLock&) = delete;
  PosixFileLock& operator=(const PosixFileLock&) = delete;
  ~PosixFileLock() override {
    if (HoldsMarker()) unlink(marker_.c_str());
  }

  /// False when the marker was taken away, and perhaps made again, between the opening and the lock.
  [[nodiscard]] bool HoldsMarker() const {
    struct stat own {};
    struct stat named {};
    return fstat(file_.Number(), &own) == 0 && lstat(marker_.c_str(), &named) == 0 && own.st_dev == named.st_dev &&
           own.st_ino == named.st_ino;
  }

 private:
  Descriptor file_;
  std::string marker_;
};

/// Whether an open file is a marker. One that is just being made is empty for a moment.
bool IsMarker(const Descriptor& file) {
  constexpr int kPatience = 5;
  constexpr timespec kMoment{0, 10'000'000};
  struct stat status {};
  for (int tries = 0; tries < kPatience; ++tries) {
    if (fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    if (status.st_size > 0) break;
    nanosleep(&kMoment, nullptr);
  }
  std::array<char, kMark.size()> begin{};
  const ssize_t count = pread(file.Number(), begin.data(), begin.size(), 0);
  return count == static_cast<ssize_t>(kMark.size()) && std::string_view(begin.data(), begin.size()) == kMark;
}

/// False when another program has the lock. A file system without locks keeps nobody away.
bool TryLock(const Descriptor& file) {
  return flock(file.Number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

Descriptor OpenMarker(const std::string& marker, int flags) {
  return Descriptor(open(marker.c_str(), flags | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, kReadableByAll));
}

/// What was found beside the file.
struct Markers {
  LockAttempt attempt;   ///< a stale marker that was locked, or the one that another writer holds
  std::string freeName;  ///< the first name that nobody has
};

Markers LookForMarkers(const std::string& path) {
  Markers found;
  for (int n = 0; n < kMarkerNames; ++n) {
    std::string marker = SideFileName(path, kEnding, n);
    Descriptor file = OpenMarker(marker, O_RDONLY);
    if (file.Number() < 0) {
      if (errno == ENOENT && found.freeName.empty()) found.freeName = std::move(marker);
      continue;
    }
    if (!IsMarker(file)) continue;
    if (!TryLock(file)) return {{nullptr, marker}, {}};
    if (found.attempt.lock) continue;
    auto lock = std::make_unique<PosixFileLock>(std::move(file), marker);
    if (lock->HoldsMarker()) found.attempt.lock = std::move(lock);
  }
  return found;
}

}  // namespace

LockAttempt PosixFileSystem::Lock(const std::string& name) {
  const std::string path = PosixPath(name);
  for (int opened = 1;; ++opened) {
    Markers found = LookForMarkers(path);
    if (found.attempt.lock || !found.attempt.heldBy.empty()) return std::move(found.attempt);
    const std::string marker = found.freeName.empty() ? SideFileName(path, kEnding, 0) : found.freeName;
    Descriptor file = OpenMarker(marker, O_RDWR | O_CREAT | O_EXCL);
    if (file.Number() < 0 && (errno == EINTR || (errno == EEXIST && opened < kMostOpened))) continue;
    if (file.Number() < 0) throw FileError(errno, errno == EEXIST ? marker : name);
    if (!TryLock(file)) return {nullptr, marker};
    if (write(file.Number(), kMark.data(), kMark.size()) != static_cast<ssize_t>(kMark.size())) {
      const int reason = errno;
      unlink(marker.c_str());
      throw FileError(reason, name);
    }
    [[maybe_unused]] const int set = fchmod(file.Number(), kReadableByAll);  // regardless of the umask
    auto lock = std::make_unique<PosixFileLock>(std::move(file), marker);
    if (lock->HoldsMarker() || opened == kMostOpened) return {std::move(lock), {}};
  }
}

}  // namespace chartproject
