// Side files on a POSIX system, and the checks of the files that they will replace.
#pragma once

#include <sys/stat.h>

#include <chrono>

#include "backends/posix/files/open_file.h"
#include "platform/paced_file.h"

namespace chartproject {

/// Appended rows wait this long at most before the disk receives them.
inline constexpr std::chrono::seconds kFlushInterval{1};

/// Holds its file open all the time, so that no other file can come to have its number.
class PosixSideFile : public SideFile, public PacedFile {
 public:
  /// When the file comes to have a name.
  enum class Naming {
    kAtOnce,
    /// When it replaces its target: until then it goes however the program ends. At once on a file system that has no
    /// files without a name.
    kAtTheEnd,
  };
  /// Makes the file. Throws RunTimeError.
  explicit PosixSideFile(const SideFileRequest& request, Naming naming = Naming::kAtOnce);
  PosixSideFile(const PosixSideFile&) = delete;
  PosixSideFile& operator=(const PosixSideFile&) = delete;
  ~PosixSideFile() override;

  [[nodiscard]] const std::string& Name() const override { return name_; }
  [[nodiscard]] bool HasItsName() const override;
  [[nodiscard]] std::unique_ptr<OutputFile> OpenForWriting() override;
  [[nodiscard]] std::unique_ptr<InputFile> OpenForReading() override;
  DiskSpace AppendAndMeasure(std::string_view bytes) override;
  [[nodiscard]] bool JustWritten() const noexcept override;
  void ReplaceTarget() override;
  [[nodiscard]] bool TakeTarget() override;
  void Keep() noexcept override { kept_ = true; }

  /// A name that leads to the open file itself, for libraries that open by name; the file's name without /proc.
  [[nodiscard]] std::string PathOfOpenFile() const;
  /// Flushes everything written to the disk. Throws RunTimeError.
  void Flush() const;

 private:
  [[nodiscard]] bool IsOwn(const struct stat& status) const;
  void FlushNowAndThen(const Descriptor& file);
  /// Gives a file without a name the first one that is free.
  void TakeName();

  std::string target_;
  std::string ending_;
  std::string name_;       ///< empty before the file has one
  std::string shownName_;  ///< for errors
  struct stat own_ {};     ///< when it was made; set while file_ is
  Descriptor file_;
  off_t appended_ = 0;  ///< bytes appended so far: the file's length
  std::chrono::steady_clock::time_point flushed_{};
  std::chrono::steady_clock::time_point written_{};
  bool numbersLast_ = true;  ///< false on a file system that returns a new inode number on every stat
  bool kept_ = false;
};

/// As the operations of FileSystem of these names.
[[nodiscard]] std::string ResolveLinkPosix(const std::string& name);
void CheckReplaceablePosix(const std::string& name);
[[nodiscard]] FileRights RightsOfPosix(const std::string& name);

}  // namespace chartproject
