// Side files on Windows.
#pragma once

#include "backends/win32/files/win32_open_file.h"
#include "platform/paced_file.h"

namespace chartproject::win32 {

/// Appended rows wait this long at most before the disk receives them.
inline constexpr ULONGLONG kFlushMilliseconds = 1000;

/// Known by volume and number, which the system does not give to another file soon.
class Win32SideFile : public SideFile, public PacedFile {
 public:
  /// Makes the file. Throws RunTimeError.
  explicit Win32SideFile(const SideFileRequest& request);
  Win32SideFile(const Win32SideFile&) = delete;
  Win32SideFile& operator=(const Win32SideFile&) = delete;
  ~Win32SideFile() override;

  [[nodiscard]] const std::string& Name() const override { return name_; }
  [[nodiscard]] bool HasItsName() const override;
  [[nodiscard]] std::unique_ptr<OutputFile> OpenForWriting() override;
  [[nodiscard]] std::unique_ptr<InputFile> OpenForReading() override;
  DiskSpace AppendAndMeasure(std::string_view bytes) override;
  [[nodiscard]] bool JustWritten() const noexcept override { return GetTickCount64() - written_ < kPaceMilliseconds; }
  void ReplaceTarget() override;
  [[nodiscard]] bool TakeTarget() override;
  void Keep() noexcept override { kept_ = true; }

 private:
  [[nodiscard]] OwnedFile OpenOwn(DWORD access, DWORD share) const;

  std::string target_;
  std::string name_;
  std::string shownName_;       ///< for errors
  FileIdentity own_;            ///< when it was made
  std::uint64_t appended_ = 0;  ///< bytes appended so far: the file's length
  ULONGLONG written_ = 0;       ///< moment of the last appending
  ULONGLONG flushed_ = 0;       ///< moment of the last flush; 0 before the first
  bool kept_ = false;
};

/// As FileSystem::CheckReplaceable.
void CheckReplaceableWin32(const std::string& name);

}  // namespace chartproject::win32
