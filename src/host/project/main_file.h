// The main file of a project that this program made: its name and its drives, so that it can be opened again.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace chartproject {

/// Drive files by address, 1 to 30: names without a folder, in the folder of the main file.
using DriveFiles = std::map<int, std::string>;

struct MainFile {
  std::string name;   ///< of the project
  DriveFiles drives;  ///< nothing when the file lists none
};

/// "Kestrel project", "Name=...", "Drives=2", "Drive01=drive01.drv" ...
[[nodiscard]] std::string MainFileText(std::string_view name, const DriveFiles& drives);
/// Nothing for a text that is not such a file. A drive's line that leads out of the folder is left out.
[[nodiscard]] std::optional<MainFile> ParseMainFile(std::string_view text);

}  // namespace chartproject
