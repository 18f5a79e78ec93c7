// Sections of the store to settings and back, row by row.
#include "common/environment/settings_io.h"

#include <optional>

#include "common/environment/environment.h"
#include "common/environment/settings_table.h"

namespace chartproject {

namespace {

void ReadSection(Environment& environment, const SettingsSection& section) {
  const NumberFormat& format = environment.ports.locale.Numbers();
  for (const SettingRow& row : section.rows) {
    const std::optional<std::string> stored = environment.ports.settings.Read(section.name, row.key);
    SetSetting(environment.settings, {section, row}, stored ? std::string_view(*stored) : row.defaultText, format);
  }
}

void SaveSection(Environment& environment, const SettingsSection& section) {
  std::vector<StoredSetting> values;
  for (const SettingRow& row : section.rows) values.push_back({row.key, SettingText(environment.settings, row)});
  environment.ports.settings.Write(section.name, values);
}

}  // namespace

void ReadConfSettings(Environment& environment) {
  ReadSection(environment, ConfSection());
}

void ReadProjectSettings(Environment& environment) {
  ReadSection(environment, ProjectSection());
}

void ReadFolderSettings(Environment& environment) {
  ReadSection(environment, FolderSection());
}

void SaveConfSettings(Environment& environment) {
  SaveSection(environment, ConfSection());
}

void SaveProjectSettings(Environment& environment) {
  SaveSection(environment, ProjectSection());
}

void SaveFolderSettings(Environment& environment) {
  SaveSection(environment, FolderSection());
}

}  // namespace chartproject
