// A writer's sole right to a file's name, by a locked marker file beside it.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "backends/posix/file_system_posix.h"
#include "backends/posix/posix_error.h"
#include "backends/posix/posix_path.h"

namespace chartproject {

namespace {

constexpr int kMostOpened = 100;  // some file systems number a file anew each time they are asked

class FileLockPosix : public FileLock {
 public:
  FileLockPosix(int file, std::string marker) : file_(file), marker_(std::move(marker)) {}
  FileLockPosix(const FileLockPosix&) = delete;
  FileLockPosix& operator=(const FileLockPosix&) = delete;
  ~FileLockPosix() override {
    if (HoldsMarker()) unlink(marker_.c_str());
    close(file_);
  }

  /// False when the marker was taken away, and perhaps made anew, between the opening and the lock.
  [[nodiscard]] bool HoldsMarker() const {
    struct stat own {};
    struct stat named {};
    return fstat(file_, &own) == 0 && stat(marker_.c_str(), &named) == 0 && own.st_dev == named.st_dev &&
           own.st_ino == named.st_ino;
  }

 private:
  int file_;
  std::string marker_;
};

}  // namespace

std::unique_ptr<FileLock> FileSystemPosix::Lock(const std::string& name) {
  const std::string marker = PosixPath(name) + ".lock";
  for (int opened = 1;; ++opened) {
    const int file = open(marker.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (file < 0 && errno == EINTR) continue;
    if (file < 0) throw FileError(errno, name);
    // A file system that knows no locks keeps nobody away.
    if (flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
      close(file);
      return nullptr;
    }
    auto lock = std::make_unique<FileLockPosix>(file, marker);
    if (lock->HoldsMarker() || opened == kMostOpened) return lock;
  }
}

}  // namespace chartproject
