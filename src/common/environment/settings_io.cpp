// Sections of the store to settings and back, row by row.
#include "common/environment/settings_io.h"

#include <vector>

#include "common/environment/environment.h"
#include "common/environment/settings_table.h"

namespace chartproject {

namespace {

void ReadSection(Environment& environment, const SettingsSection& section) {
  const NumberFormat& format = environment.ports.locale.Numbers();
  for (const SettingRow& row : section.rows) {
    const std::optional<std::string> stored = environment.ports.settings.Read(section.name, row.key);
    SetSetting(environment.settings, {section, row}, stored ? std::string_view(*stored) : row.defaultText, format);
    environment.knownSettings[row.key] = {stored, SettingText(environment.settings, row)};
  }
}

/// True when a key is written to the store: this process changed it, or no other process did.
bool IsToBeSaved(Environment& environment, std::string_view section, const std::string& key, const std::string& value) {
  const auto known = environment.knownSettings.find(key);
  if (known == environment.knownSettings.end() || known->second.value != value) return true;
  return environment.ports.settings.Read(section, key) == known->second.stored;
}

void SaveSection(Environment& environment, const SettingsSection& section) {
  std::vector<StoredSetting> values;
  for (const SettingRow& row : section.rows) {
    const std::string value = SettingText(environment.settings, row);
    if (IsToBeSaved(environment, section.name, row.key, value)) values.push_back({row.key, value});
  }
  environment.ports.settings.Write(section.name, values);
  for (const StoredSetting& saved : values) environment.knownSettings[saved.key] = {saved.value, saved.value};
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
