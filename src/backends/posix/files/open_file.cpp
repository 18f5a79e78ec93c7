// Reading, writing and appending by the system's own calls: what is reported as written was taken by the system.
#include "backends/posix/files/open_file.h"

#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "backends/posix/files/posix_error.h"
#include "backends/posix/files/posix_path.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr mode_t kFileMode = 0666;  // the user's umask takes its share
constexpr std::size_t kWriteBuffer = 65536;

/// Bytes written; fewer than asked only with errno set.
std::size_t WriteSome(int file, std::string_view bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = write(file, bytes.data() + done, bytes.size() - done);
    if (count > 0) {
      done += static_cast<std::size_t>(count);
    } else if (count == 0 || errno != EINTR) {
      if (count == 0) errno = ENOSPC;
      break;
    }
  }
  return done;
}

FileIdentity IdentityOf(const struct stat& status) {
  constexpr std::int64_t kNanosPerSecond = 1'000'000'000;
  return FileIdentity{static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino),
                      static_cast<std::uint64_t>(status.st_size),
                      status.st_mtim.tv_sec * kNanosPerSecond + status.st_mtim.tv_nsec};
}

class PosixInputFile : public InputFile {
 public:
  PosixInputFile(Descriptor file, std::string name) : file_(std::move(file)), name_(std::move(name)) {}

  std::size_t Read(std::span<char> buffer) override {
    for (;;) {
      const ssize_t count = read(file_.Number(), buffer.data(), buffer.size());
      if (count >= 0) return static_cast<std::size_t>(count);
      if (errno != EINTR) throw DeviceError(errno, name_);
    }
  }
  void Seek(std::uint64_t offset) override {
    if (lseek(file_.Number(), static_cast<off_t>(offset), SEEK_SET) < 0) throw DeviceError(errno, name_);
  }
  FileIdentity Identity() override {
    struct stat status {};
    if (fstat(file_.Number(), &status) != 0) throw DeviceError(errno, name_);
    return IdentityOf(status);
  }

 private:
  Descriptor file_;
  std::string name_;
};

class PosixOutputFile : public OutputFile {
 public:
  PosixOutputFile(Descriptor file, std::string name) : file_(std::move(file)), name_(std::move(name)) {
    buffer_.reserve(kWriteBuffer);
  }
  PosixOutputFile(const PosixOutputFile&) = delete;
  PosixOutputFile& operator=(const PosixOutputFile&) = delete;
  ~PosixOutputFile() override {
    if (file_.Number() >= 0) WriteSome(file_.Number(), buffer_);
  }

  void Write(std::string_view bytes) override {
    if (buffer_.size() + bytes.size() > kWriteBuffer) Flush();
    if (bytes.size() > kWriteBuffer) {
      WriteAll(bytes);
    } else {
      buffer_.append(bytes);
    }
  }
  void Seek(std::uint64_t offset) override {
    Flush();
    if (lseek(file_.Number(), static_cast<off_t>(offset), SEEK_SET) < 0) throw DeviceError(errno, name_);
  }
  void FlushAndClose() override {
    Flush();
    if (fsync(file_.Number()) != 0 && errno != EINVAL && errno != ENOTSUP) throw DeviceError(errno, name_);
    if (file_.Close() != 0) throw DeviceError(errno, name_);
  }

 private:
  void Flush() {
    // Emptied first: bytes that the disk refused are not written again when the object goes.
    const std::string bytes = std::exchange(buffer_, {});
    WriteAll(bytes);
    buffer_.reserve(kWriteBuffer);
  }
  void WriteAll(std::string_view bytes) {
    if (WriteSome(file_.Number(), bytes) < bytes.size()) throw DeviceError(errno, name_);
  }

  Descriptor file_;
  std::string name_;
  std::string buffer_;
};

/// Why a name could not be opened. Some devices and all sockets refuse to be opened at all.
[[noreturn]] void ThrowOpenError(int reason, const std::string& name, int flags) {
  struct stat status {};
  if (stat(PosixPath(name).c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) {
    throw NotARegularFile(name);
  }
  if (reason == ELOOP && (flags & O_NOFOLLOW) != 0) {
    throw RunTimeError(error_number::kPathFileAccess, Text::kLinkNotFollowed, {name});
  }
  throw FileError(reason, name);
}

}  // namespace

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

Descriptor::~Descriptor() {
  if (number_ >= 0) close(number_);
}

Descriptor Descriptor::Duplicate(const std::string& name) const {
  Descriptor copy(fcntl(number_, F_DUPFD_CLOEXEC, 0));
  if (copy.Number() < 0) throw FileError(errno, name);
  return copy;
}

int Descriptor::Close() noexcept {
  return close(std::exchange(number_, -1));
}

Descriptor OpenRegular(const std::string& name, int flags) {
  struct stat status {};
  return OpenRegular(name, flags, status);
}

Descriptor OpenRegular(const std::string& name, int flags, struct stat& status) {
  int number = -1;
  do {
    number = open(PosixPath(name).c_str(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, kFileMode);
  } while (number < 0 && errno == EINTR);
  if (number < 0) ThrowOpenError(errno, name, flags);
  Descriptor file(number);
  if (fstat(number, &status) != 0) throw FileError(errno, name);
  if (S_ISDIR(status.st_mode)) throw FileError(EISDIR, name);
  if (!S_ISREG(status.st_mode)) throw NotARegularFile(name);
  return file;
}

void AppendWhole(const Descriptor& file, std::string_view bytes, const std::string& name) {
  const std::size_t done = WriteSome(file.Number(), bytes);
  if (done == bytes.size()) return;
  const int reason = errno;
  struct stat status {};
  if (done > 0 && fstat(file.Number(), &status) == 0) {
    // When even that fails, the part stays: nothing better can be done on a broken device.
    [[maybe_unused]] const int result = ftruncate(file.Number(), status.st_size - static_cast<off_t>(done));
  }
  throw DeviceError(reason, name);
}

std::unique_ptr<InputFile> MakeInputFile(Descriptor file, std::string name) {
  return std::make_unique<PosixInputFile>(std::move(file), std::move(name));
}

std::unique_ptr<OutputFile> MakeOutputFile(Descriptor file, std::string name) {
  return std::make_unique<PosixOutputFile>(std::move(file), std::move(name));
}

void SyncFolder(const std::string& folder) {
  const Descriptor file(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (file.Number() >= 0 && fsync(file.Number()) != 0 && errno == EIO) throw DeviceError(errno, folder);
}

DiskSpace SpaceOfOpenFile(const Descriptor& file, const std::string& name) {
  struct statvfs disk {};
  if (fstatvfs(file.Number(), &disk) != 0) throw DeviceError(errno, name);
  const std::uint64_t unit = disk.f_frsize;
  return DiskSpace{unit * disk.f_blocks, unit * disk.f_bfree, unit * disk.f_bavail};
}

}  // namespace chartproject
