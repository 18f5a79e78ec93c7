// The settings of each section: one row a key, which reading, saving, listing and setting all go by.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "common/environment/settings.h"

namespace chartproject {

struct NumberFormat;

/// Place of a drive-file name in Settings::strDriveFile.
struct DriveFileField {
  std::size_t index;
};

/// Where a setting's value is kept; its type is the setting's type.
using SettingField =
    std::variant<std::string Settings::*, std::int16_t Settings::*, std::int32_t Settings::*, DriveFileField>;

/// One key of a section.
struct SettingRow {
  std::string key;
  std::string_view defaultText;  ///< what a missing key reads as
  SettingField field;
};

/// A section and its keys, in the order in which they are read and saved.
struct SettingsSection {
  std::string_view name;
  std::vector<SettingRow> rows;
};

/// "MyConf", "MyProject" with the 30 drive-file names, and "MyKestrel", the folders.
[[nodiscard]] const SettingsSection& ConfSection();
[[nodiscard]] const SettingsSection& ProjectSection();
[[nodiscard]] const SettingsSection& FolderSection();

/// One setting of the three sections.
struct NamedSetting {
  const SettingsSection& section;
  const SettingRow& row;
  [[nodiscard]] std::string Name() const;  ///< "MyConf.strLanguage"
};

/// Every setting of the three sections, in order.
[[nodiscard]] std::vector<NamedSetting> AllSettings();

/// The current value of a setting as it is saved: text as it is, integers as decimal text.
[[nodiscard]] std::string SettingText(const Settings& settings, const SettingRow& row);

/// Gives a setting a value from its text. Throws RunTimeError 13 for an integer setting and a text that is not a
/// number, 6 for a number that does not fit; the description names section and key. @param format how numbers are
/// written
void SetSetting(Settings& settings, const NamedSetting& setting, std::string_view text, const NumberFormat& format);

}  // namespace chartproject
