// Port: files, folders and free disk space.
// Names are UTF-8; contents are bytes. A back end on a system with "/" reads "\" in a name as "/".
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/side_file.h"

namespace chartproject {

/// Distinguishes two states of a file. A file that grew keeps volume and index; a replaced one does not.
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

/// The answer to a request for a lock.
struct LockAttempt {
  std::unique_ptr<FileLock> lock;  ///< null when another writer has the name
  std::string heldBy;              ///< the marker file of that other writer
};

/// Every operation throws RunTimeError: 53 no such file, 61 disk full, 70 no permission, 75 path/file access,
/// 76 no such folder; the description names the file and the system's reason.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// True when something other than a folder has that name; an empty name never does. Never throws.
  [[nodiscard]] virtual bool FileExists(const std::string& name) = 0;
  [[nodiscard]] virtual bool FolderExists(const std::string& name) = 0;
  /// Opens without waiting. What is not a regular file (device, pipe, socket) throws NotARegularFile, a folder 75.
  [[nodiscard]] virtual std::unique_ptr<InputFile> OpenForReading(const std::string& name) = 0;
  /// Appends to a file that is shared with other programs, in one write, and closes it again; makes the file when it is
  /// not there. A link is refused with 75, as is a file of several names: either may lead out of its folder.
  virtual void Append(const std::string& name, std::string_view bytes) = 0;

  /// Makes a new file beside another one. Errors name the target where several names may be tried, else the name.
  [[nodiscard]] virtual std::unique_ptr<SideFile> MakeSideFile(const SideFileRequest& request) = 0;
  /// The name of the file that a symbolic link leads to, whether that file exists or not; any other name as it is.
  /// Throws NotARegularFile for a device, pipe or socket, and 70 for a stranger's link in a shared folder.
  [[nodiscard]] virtual std::string ResolveLink(const std::string& name) = 0;
  /// Throws when there is something of that name that a new file cannot take the place of: NotARegularFile, 75 for a
  /// folder, 70 for a file that the system protects.
  virtual void CheckReplaceable(const std::string& name) = 0;
  /// The rights of a file; not known without one. Never throws.
  [[nodiscard]] virtual FileRights RightsOf(const std::string& name) = 0;
  /// Throws 70 when the name is a symbolic link or belongs to another user; nothing when it is not there.
  virtual void CheckOwned(const std::string& name) = 0;
  /// Takes a file's name for one writer among all that ask, in this program and in others. A marker file beside it
  /// (name + ".lock", or ".lock1" ... when that file is not such a marker) is there meanwhile; one left by a program
  /// that died holds nothing.
  [[nodiscard]] virtual LockAttempt Lock(const std::string& name) = 0;
  virtual void Delete(const std::string& name) = 0;
  /// The names, without the folder and in order, of the files of a folder; the folders in it are left out.
  [[nodiscard]] virtual std::vector<std::string> FilesIn(const std::string& folder) = 0;
  /// Makes a folder and the folders above it; no error when it is there.
  virtual void MakeFolder(const std::string& name) = 0;
  [[nodiscard]] virtual std::string CurrentFolder() = 0;
  virtual void ChangeFolder(const std::string& name) = 0;
  /// The system's folder for temporary files.
  [[nodiscard]] virtual std::string TemporaryFolder() = 0;
  /// The user's folder for what programs can make again at any time; it may not be there yet. Empty where the user has
  /// none.
  [[nodiscard]] virtual std::string CacheFolder() = 0;
  /// The disk that holds the named file (its folder when the file is not there yet).
  [[nodiscard]] virtual DiskSpace SpaceFor(const std::string& name) = 0;
};

}  // namespace chartproject
