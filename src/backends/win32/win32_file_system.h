// Files, folders and disk space of Windows.
#pragma once

#include "platform/file_system.h"

namespace chartproject::win32 {

class Win32FileSystem : public FileSystem {
 public:
  [[nodiscard]] bool FileExists(const std::string& name) override;
  [[nodiscard]] bool FolderExists(const std::string& name) override;
  [[nodiscard]] std::unique_ptr<InputFile> OpenForReading(const std::string& name) override;
  [[nodiscard]] std::unique_ptr<OutputFile> Create(const std::string& name) override;
  /// Waits up to a second for another program (a copy, a backup) to let go of the file. A part that fitted on a full
  /// disk is taken back.
  void Append(const std::string& name, std::string_view bytes) override;
  [[nodiscard]] std::unique_ptr<FileLock> Lock(const std::string& name) override;
  void Delete(const std::string& name) override;
  /// Waits as Append does: a scanner may look at a file that was just written.
  void Rename(const std::string& from, const std::string& to) override;
  void MakeFolder(const std::string& name) override;
  [[nodiscard]] std::string CurrentFolder() override;
  void ChangeFolder(const std::string& name) override;
  [[nodiscard]] DiskSpace SpaceFor(const std::string& name) override;
};

}  // namespace chartproject::win32
