// Settings in the per-user area of the registry that the platform's setting functions use.
#pragma once

#include <string>

#include "platform/settings_store.h"

namespace chartproject::win32 {

class Win32SettingsStore : public SettingsStore {
 public:
  /// @param application the name under which the host keeps its settings
  explicit Win32SettingsStore(std::string_view application);

  [[nodiscard]] std::optional<std::string> Read(std::string_view section, std::string_view key) override;
  void Write(std::string_view section, std::span<const StoredSetting> settings) override;

 private:
  [[nodiscard]] std::wstring SectionPath(std::string_view section) const;
  std::wstring root_;
};

}  // namespace chartproject::win32
