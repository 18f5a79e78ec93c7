// Drives of the user's own in the current project: added and removed one by one.
#pragma once

#include <string>
#include <vector>

#include "host/project/main_file.h"
#include "host/project/project_maker.h"
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

/// Where the current project keeps its things. The settings name its drives; a main file that this program made lists
/// them too, so that the project can be opened again after another one.
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
  /// Makes another project the current one. Throws RunTimeError for a file that is not the main file of a project that
  /// this program made; then the settings are as they were. @return the settings of a former project whose drives are
  /// not listed in a main file, so that nothing of it is lost
  std::vector<ReplacedSetting> Open(const std::string& mainFile);

 private:
  [[nodiscard]] std::string DriveFileAt(int address);
  /// 0 when there is no such drive.
  [[nodiscard]] int SelectedDrive();
  [[nodiscard]] std::optional<MainFile> ReadMainFile(const std::string& name);
  /// False when the project's main file is not one of this program, or not beside its drives.
  bool ListDrives(int address, const std::string& driveFile);
  [[nodiscard]] bool HasDriverFile(const std::string& folder, const NewDrive& drive);
  [[nodiscard]] std::string FreeName(const std::string& folder, int address);
  void WriteNew(const std::string& name, const std::string& bytes);

  FileSystem& files_;
  SettingsStore& store_;
  const CodePage& codePage_;
};

}  // namespace chartproject
