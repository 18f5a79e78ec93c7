// Files, folders and disk space of Windows.
#pragma once

#include "platform/file_system.h"

namespace chartproject::win32 {

class Win32FileSystem : public FileSystem {
 public:
  [[nodiscard]] bool FileExists(const std::string& name) override;
  [[nodiscard]] bool FolderExists(const std::string& name) override;
  [[nodiscard]] std::unique_ptr<InputFile> OpenForReading(const std::string& name) override;
  /// Waits up to a second for another program (a copy, a backup) to let go of the file. A part that fitted on a full
  /// disk is taken back.
  void Append(const std::string& name, std::string_view bytes) override;
  [[nodiscard]] std::unique_ptr<SideFile> MakeSideFile(const SideFileRequest& request) override;
  [[nodiscard]] std::string ResolveLink(const std::string& name) override;
  void CheckReplaceable(const std::string& name) override;
  /// A side file takes the access rights of its target itself.
  [[nodiscard]] FileRights RightsOf(const std::string& /*name*/) override { return {}; }
  void CheckOwned(const std::string& name) override;
  [[nodiscard]] LockAttempt Lock(const std::string& name) override;
  void Delete(const std::string& name) override;
  [[nodiscard]] std::vector<std::string> FilesIn(const std::string& folder) override;
  void MakeFolder(const std::string& name) override;
  [[nodiscard]] std::string CurrentFolder() override;
  void ChangeFolder(const std::string& name) override;
  [[nodiscard]] std::string TemporaryFolder() override;
  [[nodiscard]] std::string CacheFolder() override;
  [[nodiscard]] DiskSpace SpaceFor(const std::string& name) override;
};

}  // namespace chartproject::win32
