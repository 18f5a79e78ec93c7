// Port: the per-user settings store that the component shares with its host.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace chartproject {

/// One stored setting; values are always text.
struct StoredSetting {
  std::string key;
  std::string value;
};

/// Settings of the application "Kestrel v5.60", by section and key.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The stored text, or nothing when the key is not there. Throws RunTimeError when the store cannot be read.
  [[nodiscard]] virtual std::optional<std::string> Read(std::string_view section, std::string_view key) = 0;

  /// Stores all the given settings of one section in one step; keys that are not named stay as they are.
  /// Throws RunTimeError when the store cannot be written; then nothing of the step is stored.
  virtual void Write(std::string_view section, std::span<const StoredSetting> settings) = 0;
};

}  // namespace chartproject
