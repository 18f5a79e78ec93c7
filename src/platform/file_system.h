// Port: files, folders and free disk space.
// Names are UTF-8; contents are bytes. A back end on a system with "/" reads "\" in a name as "/".
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace chartproject {

/// What tells one state of a file from another: a file that grew keeps volume and index; a replaced one does not.
struct FileIdentity {
  std::uint64_t volume = 0;
  std::uint64_t index = 0;
  std::uint64_t size = 0;          ///< bytes
  std::int64_t modifiedNanos = 0;  ///< time of the last change, any fixed epoch
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// Sizes of the disk that holds a file, in bytes.
struct DiskSpace {
  std::uint64_t total = 0;
  std::uint64_t totalFree = 0;        ///< free bytes of the whole disk
  std::uint64_t availableToUser = 0;  ///< free bytes that the calling user may use
};

/// A file open for reading. Closes itself.
class InputFile {
 public:
  virtual ~InputFile() = default;
  /// Reads up to buffer.size() bytes; 0 at the end of the file. Throws RunTimeError 57 on a device error.
  [[nodiscard]] virtual std::size_t Read(std::span<char> buffer) = 0;
  /// Moves to a byte offset from the start of the file.
  virtual void Seek(std::uint64_t offset) = 0;
  [[nodiscard]] virtual FileIdentity Identity() = 0;
};

/// A file open for writing. Close() reports what went wrong; the destructor closes in silence.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// Writes all the bytes. Throws RunTimeError 61 on a full disk, 57 on a device error.
  virtual void Write(std::string_view bytes) = 0;
  /// Moves to a byte offset from the start of the file.
  virtual void Seek(std::uint64_t offset) = 0;
  /// Hands everything written to the disk (survives a power cut) and closes. Throws as Write does.
  virtual void FlushAndClose() = 0;
};

/// A file's name taken by one writer; given back when the object goes.
class FileLock {
 public:
  FileLock() = default;
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  virtual ~FileLock() = default;
};

/// Every operation throws RunTimeError: 53 no such file, 61 disk full, 70 no permission, 75 path/file access,
/// 76 no such folder; the description names the file and the system's reason.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// True when a plain file (not a folder) of that name exists; an empty name never does. Never throws.
  [[nodiscard]] virtual bool FileExists(const std::string& name) = 0;
  [[nodiscard]] virtual bool FolderExists(const std::string& name) = 0;
  /// Folders are refused with 75.
  [[nodiscard]] virtual std::unique_ptr<InputFile> OpenForReading(const std::string& name) = 0;
  /// Makes the file or empties an existing one.
  [[nodiscard]] virtual std::unique_ptr<OutputFile> Create(const std::string& name) = 0;
  /// Opens (makes) the file, appends the bytes in one write, and closes it again: the bytes are with the system when
  /// the call returns, so a crash of the program afterwards loses none of them.
  virtual void Append(const std::string& name, std::string_view bytes) = 0;
  /// Append, then SpaceFor the same file: in one go where the system answers that for the file while it is open.
  virtual DiskSpace AppendAndMeasure(const std::string& name, std::string_view bytes) {
    Append(name, bytes);
    return SpaceFor(name);
  }
  /// Takes a file's name for one writer among all that ask, in this program and in others; null when another has it.
  /// A marker file beside it (name + ".lock") stands there meanwhile and frees itself when its program dies.
  [[nodiscard]] virtual std::unique_ptr<FileLock> Lock(const std::string& name) = 0;
  virtual void Delete(const std::string& name) = 0;
  /// Gives a file another name in one atomic step, replacing a file that has that name.
  virtual void Rename(const std::string& from, const std::string& to) = 0;
  /// Makes a folder and the folders above it; no error when it is there.
  virtual void MakeFolder(const std::string& name) = 0;
  [[nodiscard]] virtual std::string CurrentFolder() = 0;
  virtual void ChangeFolder(const std::string& name) = 0;
  /// The disk that holds the named file (its folder when the file is not there yet).
  [[nodiscard]] virtual DiskSpace SpaceFor(const std::string& name) = 0;
};

}  // namespace chartproject
