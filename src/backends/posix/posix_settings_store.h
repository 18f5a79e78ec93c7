// The settings store away from Windows: one INI file in the user's configuration folder.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/file_system.h"
#include "platform/settings_store.h"

namespace chartproject {

/// File "Kestrel v5.60.ini", UTF-8, "[section]" and "key=value". A backslash in a value is written "\\", a leading
/// blank "\s", a line end "\n"; comments and the keys of others are kept. Every Write replaces the file in one atomic
/// step. The file is read again whenever another program has changed it. Settings whose Write failed are kept, and
/// stored with the next one.
class PosixSettingsStore : public SettingsStore {
 public:
  /// @param folder where the file is kept; made with the first Write
  explicit PosixSettingsStore(FileSystem& files, const std::string& folder);
  ~PosixSettingsStore() override;
  PosixSettingsStore(const PosixSettingsStore&) = delete;
  PosixSettingsStore& operator=(const PosixSettingsStore&) = delete;

  [[nodiscard]] std::optional<std::string> Read(std::string_view section, std::string_view key) override;
  void Write(std::string_view section, std::span<const StoredSetting> settings) override;

  [[nodiscard]] const std::string& FileName() const noexcept { return fileName_; }
  [[nodiscard]] const std::string& Folder() const noexcept { return folder_; }
  /// $XDG_CONFIG_HOME, or .config in the user's home folder.
  [[nodiscard]] static std::string UserFolder();

  /// Called with a sentence for each line of the file that is not understood; the rest of the file holds. May be empty.
  std::function<void(const std::string& sentence)> lineSkipped;

 private:
  struct KeyFile;
  void Refresh();

  FileSystem& files_;
  std::string folder_;
  std::string fileName_;
  std::unique_ptr<KeyFile> keys_;
  /// By section and key: what could not be stored, and is tried again with the next Write.
  std::map<std::pair<std::string, std::string>, std::string> unsaved_;
};

}  // namespace chartproject
