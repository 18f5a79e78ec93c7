// Files on a POSIX system.
#pragma once

#include "platform/file_system.h"

namespace chartproject {

/// Reads "\" in a name as "/". A row that Append could not write whole is taken back, so the file ends in a whole row.
class FileSystemPosix : public FileSystem {
 public:
  [[nodiscard]] bool FileExists(const std::string& name) override;
  [[nodiscard]] bool FolderExists(const std::string& name) override;
  [[nodiscard]] std::unique_ptr<InputFile> OpenForReading(const std::string& name) override;
  [[nodiscard]] std::unique_ptr<OutputFile> Create(const std::string& name) override;
  void Append(const std::string& name, std::string_view bytes) override;
  [[nodiscard]] std::unique_ptr<FileLock> Lock(const std::string& name) override;
  void Delete(const std::string& name) override;
  /// The new name survives a power cut: the folder is handed to the disk too.
  void Rename(const std::string& from, const std::string& to) override;
  void MakeFolder(const std::string& name) override;
  [[nodiscard]] std::string CurrentFolder() override;
  void ChangeFolder(const std::string& name) override;
  DiskSpace AppendAndMeasure(const std::string& name, std::string_view bytes) override;
  [[nodiscard]] DiskSpace SpaceFor(const std::string& name) override;
};

}  // namespace chartproject
