// The ready project: drives, driver files, folders, sounds, pictures and help, with the settings that point at them.
#pragma once

#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/file_system.h"
#include "platform/run_time_error.h"
#include "platform/settings_store.h"

namespace chartproject {

/// A stored setting that had another value of the user's before.
struct ReplacedSetting {
  std::string name;  ///< section, full stop, key
  std::string before;
  std::string now;
};

/// What making a project did. File names are full names.
struct ProjectReport {
  std::string folder;                     ///< the project's folder, absolute
  std::vector<std::string> written;       ///< files that were not there
  std::vector<std::string> unchanged;     ///< files that were there with the same contents
  std::vector<std::string> kept;          ///< files that were there with other contents: the user's, left as they are
  std::vector<ReplacedSetting> replaced;  ///< settings of another project that now point at this one
};

/// The project's folder, or one in it, is a link or belongs to another user.
class ForeignFolder : public RunTimeError {
 public:
  explicit ForeignFolder(const RunTimeError& reason) : RunTimeError(reason) {}
};

enum class DrivesOfProject {
  kSimulated,  ///< one of each simulated model
  kNone        ///< the user adds drives; driver files of the shipped models are there
};

/// The settings of a project's folders.
/// @param folder the project's, absolute
[[nodiscard]] std::vector<StoredSetting> FolderSettings(const std::string& folder);

/// Makes the project in a folder, which need not exist, and stores the settings. No file that is there is written over.
/// Settings are stored last: when a file cannot be written they stay as they were. Throws RunTimeError;
/// ForeignFolder before anything was written.
/// @param folder absolute, or seen from the current folder
ProjectReport MakeProject(FileSystem& files, SettingsStore& settings, const CodePage& codePage,
                          const std::string& folder, DrivesOfProject drives = DrivesOfProject::kSimulated);

}  // namespace chartproject
