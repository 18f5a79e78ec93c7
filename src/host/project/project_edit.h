// Drives of the user's own in the current project: added and removed one by one.
#pragma once

#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/file_system.h"
#include "platform/settings_store.h"

namespace chartproject {

struct NewDrive {
  int address = 0;  ///< 1 to 30
  std::string model;
  std::string firmwareVersion;  ///< empty: the one that the model's driver files are for
  std::string tag;
};

struct AddedDrive {
  std::string driveFile;                 ///< full name
  std::vector<std::string> driverFiles;  ///< written with it, because there were none for the firmware
  std::string firmwareVersion;
};

/// Where the current project keeps its things.
class ProjectEdit {
 public:
  /// @param files,store,codePage outlive the edit
  ProjectEdit(FileSystem& files, SettingsStore& store, const CodePage& codePage)
      : files_(files), store_(store), codePage_(codePage) {}

  /// True when the settings name a project.
  [[nodiscard]] bool HasProject();
  /// Writes the drive's file and names it in the settings. A model that ships gets the driver files that it lacks;
  /// another one needs its own. Throws RunTimeError for an address that is taken, a model without a driver file and a
  /// file that cannot be written; then the settings are as they were.
  AddedDrive Add(const NewDrive& drive);
  /// Takes the drive out of the settings; its files stay. @return the drive's file. Throws RunTimeError when there is
  /// no drive at the address.
  std::string Remove(int address);

 private:
  [[nodiscard]] std::string DriveFileAt(int address);
  [[nodiscard]] bool HasDriverFile(const std::string& folder, const NewDrive& drive);
  [[nodiscard]] std::string FreeName(const std::string& folder, int address);
  void WriteNew(const std::string& name, const std::string& bytes);

  FileSystem& files_;
  SettingsStore& store_;
  const CodePage& codePage_;
};

}  // namespace chartproject
