// Files and folders by the system's own calls: what is reported as written was taken by the system.
#include "backends/posix/file_system_posix.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

#include "backends/posix/posix_error.h"
#include "backends/posix/posix_path.h"

namespace chartproject {

namespace {

constexpr mode_t kFileMode = 0666;  // the user's umask takes its share
constexpr std::size_t kWriteBuffer = 65536;

/// Owns a file descriptor.
class Descriptor {
 public:
  explicit Descriptor(int number) noexcept : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  [[nodiscard]] int Number() const noexcept { return number_; }
  /// 0, or -1 with errno.
  int Close() noexcept { return close(std::exchange(number_, -1)); }

 private:
  int number_;
};

Descriptor Open(const std::string& name, int flags) {
  int number = -1;
  do {
    number = open(PosixPath(name).c_str(), flags | O_CLOEXEC, kFileMode);
  } while (number < 0 && errno == EINTR);
  if (number < 0) throw FileError(errno, name);
  return Descriptor(number);
}

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

class InputFilePosix : public InputFile {
 public:
  InputFilePosix(Descriptor file, std::string name) : file_(std::move(file)), name_(std::move(name)) {}

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

class OutputFilePosix : public OutputFile {
 public:
  OutputFilePosix(Descriptor file, std::string name) : file_(std::move(file)), name_(std::move(name)) {
    buffer_.reserve(kWriteBuffer);
  }
  OutputFilePosix(const OutputFilePosix&) = delete;
  OutputFilePosix& operator=(const OutputFilePosix&) = delete;
  ~OutputFilePosix() override {
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
    // Pipes and the like have nothing to hand to a disk.
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

/// Hands a folder's entries to the disk. Some file systems cannot, and some folders may not be opened: the entry is
/// made all the same.
void SyncFolder(const std::string& folder) {
  const Descriptor file(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (file.Number() >= 0 && fsync(file.Number()) != 0 && errno == EIO) throw DeviceError(errno, folder);
}

RunTimeError FolderError(int errorNumber, const std::string& name) {
  const RunTimeError error = FileError(errorNumber, name);
  return error.Number() == error_number::kFileNotFound ? RunTimeError(error_number::kPathNotFound, error.Description())
                                                       : error;
}

/// Appends the bytes in one write; a part that fitted is taken back when the rest did not.
Descriptor OpenAndAppend(const std::string& name, std::string_view bytes) {
  Descriptor file = Open(name, O_WRONLY | O_CREAT | O_APPEND);
  const std::size_t done = WriteSome(file.Number(), bytes);
  if (done < bytes.size()) {
    const int reason = errno;
    struct stat status {};
    if (done > 0 && fstat(file.Number(), &status) == 0) {
      // When even that fails, the part stays: nothing better can be done on a broken device.
      [[maybe_unused]] const int result = ftruncate(file.Number(), status.st_size - static_cast<off_t>(done));
    }
    throw DeviceError(reason, name);
  }
  return file;
}

DiskSpace SpaceOf(const struct statvfs& disk) {
  const std::uint64_t unit = disk.f_frsize;
  return DiskSpace{unit * disk.f_blocks, unit * disk.f_bfree, unit * disk.f_bavail};
}

}  // namespace

bool FileSystemPosix::FileExists(const std::string& name) {
  struct stat status {};
  return !name.empty() && stat(PosixPath(name).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

bool FileSystemPosix::FolderExists(const std::string& name) {
  struct stat status {};
  return !name.empty() && stat(PosixPath(name).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::unique_ptr<InputFile> FileSystemPosix::OpenForReading(const std::string& name) {
  Descriptor file = Open(name, O_RDONLY);
  struct stat status {};
  const bool known = fstat(file.Number(), &status) == 0;
  if (known && S_ISDIR(status.st_mode)) throw FileError(EISDIR, name);
  // A device may never end.
  if (known && (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode))) throw FileError(ENOTSUP, name);
  return std::make_unique<InputFilePosix>(std::move(file), name);
}

std::unique_ptr<OutputFile> FileSystemPosix::Create(const std::string& name) {
  return std::make_unique<OutputFilePosix>(Open(name, O_WRONLY | O_CREAT | O_TRUNC), name);
}

void FileSystemPosix::Append(const std::string& name, std::string_view bytes) {
  Descriptor file = OpenAndAppend(name, bytes);
  if (file.Close() != 0) throw DeviceError(errno, name);
}

DiskSpace FileSystemPosix::AppendAndMeasure(const std::string& name, std::string_view bytes) {
  Descriptor file = OpenAndAppend(name, bytes);
  struct statvfs disk {};
  if (fstatvfs(file.Number(), &disk) != 0) throw DeviceError(errno, name);
  if (file.Close() != 0) throw DeviceError(errno, name);
  return SpaceOf(disk);
}

void FileSystemPosix::Delete(const std::string& name) {
  if (unlink(PosixPath(name).c_str()) != 0) throw FileError(errno, name);
}

void FileSystemPosix::Rename(const std::string& from, const std::string& to) {
  const std::string target = PosixPath(to);
  if (rename(PosixPath(from).c_str(), target.c_str()) != 0) throw FileError(errno, to);
  SyncFolder(FolderOf(target));
}

void FileSystemPosix::MakeFolder(const std::string& name) {
  std::error_code error;
  std::filesystem::create_directories(PosixPath(name), error);
  if (error) throw FolderError(error.value(), name);
}

std::string FileSystemPosix::CurrentFolder() {
  std::error_code error;
  const auto folder = std::filesystem::current_path(error);
  if (error) throw FolderError(error.value(), ".");
  return folder.string();
}

void FileSystemPosix::ChangeFolder(const std::string& name) {
  if (chdir(PosixPath(name).c_str()) != 0) throw FolderError(errno, name);
}

DiskSpace FileSystemPosix::SpaceFor(const std::string& name) {
  struct statvfs disk {};
  std::string path = name.empty() ? "." : PosixPath(name);
  // The file, or the nearest folder above it that is there already.
  while (statvfs(path.c_str(), &disk) != 0) {
    const std::string above = FolderOf(path);
    if ((errno != ENOENT && errno != ENOTDIR) || above == path) throw FileError(errno, name);
    path = above;
  }
  return SpaceOf(disk);
}

}  // namespace chartproject
