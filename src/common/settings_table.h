// The settings of each section: one row a key, which reading, saving, listing and setting all go by.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "common/settings.h"

namespace chartproject {

struct NumberFormat;

inline constexpr std::string_view kConfSection = "MyConf";
inline constexpr std::string_view kProjectSection = "MyProject";
inline constexpr std::string_view kFolderSection = "MyKestrel";

/// Where a setting's value is kept; its type is the setting's type.
using SettingField = std::variant<std::string Settings::*, std::int16_t Settings::*, std::int32_t Settings::*>;

/// One key of a section.
struct SettingRow {
  std::string_view key;
  std::string_view defaultText;  ///< what a missing key reads as
  SettingField field;
};

/// Rows in the order in which they are read and saved. The 30 drive-file names follow the project's rows.
[[nodiscard]] std::span<const SettingRow> ConfSettingRows();
[[nodiscard]] std::span<const SettingRow> ProjectSettingRows();
[[nodiscard]] std::span<const SettingRow> FolderSettingRows();

/// What a missing drive-file key reads as.
inline constexpr std::string_view kDriveFileDefault = "0";
/// The key of a drive address (1 to 30): "strDriveFile" and two digits.
[[nodiscard]] std::string DriveFileKey(int address);

/// One setting as a list shows it.
struct SettingDescription {
  std::string section;
  std::string key;
  std::string_view type;  ///< "text", "16-bit" or "32-bit"
  std::string defaultText;
  std::string value;  ///< the current value as it would be saved
};

/// Every setting of the three sections in order, drive files included.
[[nodiscard]] std::vector<SettingDescription> DescribeSettings(const Settings& settings);

/// Gives the setting "section.key" a value. Throws RunTimeError 5 for an unknown name, 13 for an integer setting and a
/// text that is no number, 6 for a number that does not fit; the description names section and key.
/// @param format how numbers are written
void SetSetting(Settings& settings, std::string_view section, std::string_view key, std::string_view text,
                const NumberFormat& format);

}  // namespace chartproject
