// Files on a POSIX system.
#pragma once

#include "platform/file_system.h"

namespace chartproject {

/// Reads "\" in a name as "/". A row that Append could not write whole is taken back, so the file ends in a whole row.
class PosixFileSystem : public FileSystem {
 public:
  [[nodiscard]] bool FileExists(const std::string& name) override;
  [[nodiscard]] bool FolderExists(const std::string& name) override;
  [[nodiscard]] std::unique_ptr<InputFile> OpenForReading(const std::string& name) override;
  void Append(const std::string& name, std::string_view bytes) override;
  [[nodiscard]] std::unique_ptr<SideFile> MakeSideFile(const SideFileRequest& request) override;
  [[nodiscard]] std::string ResolveLink(const std::string& name) override;
  void CheckReplaceable(const std::string& name) override;
  [[nodiscard]] FileRights RightsOf(const std::string& name) override;
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

}  // namespace chartproject
