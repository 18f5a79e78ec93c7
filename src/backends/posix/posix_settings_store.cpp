// The INI file through GLib's key files.
#include "backends/posix/posix_settings_store.h"

#include <glib.h>

#include <array>
#include <utility>

#include "backends/posix/files/posix_error.h"
#include "backends/posix/files/posix_path.h"
#include "backends/posix/settings_lock.h"
#include "backends/posix/settings_text.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr const char* kFileName = "/Kestrel v5.60.ini";
constexpr const char* kLockFolder = "/Kestrel v5.60.lock";

struct FreeKeyFile {
  void operator()(GKeyFile* file) const noexcept { g_key_file_free(file); }
};
struct FreeText {
  void operator()(gchar* text) const noexcept { g_free(text); }
};
using TextOwner = std::unique_ptr<gchar, FreeText>;

/// Turns a GLib error into ours and frees it.
[[noreturn]] void Throw(GError* error, int number, const std::string& fileName) {
  const std::string reason = error->message;
  g_error_free(error);
  throw RunTimeError(number, fileName + ": " + reason);
}

std::string ReadWhole(FileSystem& files, const std::string& name, FileIdentity& identity) {
  const auto file = files.OpenForReading(name);
  identity = file->Identity();
  if (identity.size > kLargestSettingsFile) {
    throw RunTimeError(error_number::kPathFileAccess, Text::kSettingsFileTooLarge, {name});
  }
  std::string bytes;
  std::array<char, 16384> buffer{};
  while (const std::size_t count = file->Read(buffer)) bytes.append(buffer.data(), count);
  return bytes;
}

}  // namespace

struct PosixSettingsStore::KeyFile {
  std::unique_ptr<GKeyFile, FreeKeyFile> file{g_key_file_new()};
  std::optional<FileIdentity> identity;  ///< of the file that was read last
};

PosixSettingsStore::PosixSettingsStore(FileSystem& files, const std::string& folder)
    : files_(files), folder_(folder), fileName_(folder + kFileName), keys_(std::make_unique<KeyFile>()) {}

PosixSettingsStore::~PosixSettingsStore() = default;

std::string PosixSettingsStore::UserFolder() {
  return g_get_user_config_dir();
}

void PosixSettingsStore::Refresh() {
  if (!files_.FileExists(fileName_)) {
    *keys_ = KeyFile{};
    return;
  }
  if (keys_->identity && files_.OpenForReading(fileName_)->Identity() == *keys_->identity) return;
  KeyFile fresh;
  FileIdentity identity;
  const auto skipped = [this](std::int64_t line, std::string_view text) {
    if (!lineSkipped) return;
    lineSkipped(FillIn(TextIn(Language::kEnglish, Text::kFileLinePlace), {fileName_, std::to_string(line)}) +
                FillIn(TextIn(Language::kEnglish, Text::kSettingsLineSkipped), {std::string(text)}));
  };
  const std::string bytes = ReadableSettings(ReadWhole(files_, fileName_, identity), skipped);
  GError* error = nullptr;
  // An empty file is an empty store; GLib would call it an error.
  if (!bytes.empty() && g_key_file_load_from_data(fresh.file.get(), bytes.data(), bytes.size(),
                                                  G_KEY_FILE_KEEP_COMMENTS, &error) == FALSE) {
    Throw(error, error_number::kPathFileAccess, fileName_);
  }
  fresh.identity = identity;
  *keys_ = std::move(fresh);
}

std::optional<std::string> PosixSettingsStore::Read(std::string_view section, std::string_view key) {
  const std::string group(section);
  const std::string name(key);
  if (const auto waiting = unsaved_.find({group, name}); waiting != unsaved_.end()) return waiting->second;
  Refresh();
  TextOwner text(g_key_file_get_value(keys_->file.get(), group.c_str(), name.c_str(), nullptr));
  if (!text) return std::nullopt;
  // A value typed by hand may have single backslashes: it is then used unchanged.
  if (IsTypedWindowsPath(text.get())) return std::string(text.get());
  TextOwner decoded(g_key_file_get_string(keys_->file.get(), group.c_str(), name.c_str(), nullptr));
  if (decoded) text = std::move(decoded);
  return std::string(text.get());
}

void PosixSettingsStore::Write(std::string_view section, std::span<const StoredSetting> settings) {
  const bool patient = unsaved_.empty();  // who has just waited in vain does not wait again
  for (const StoredSetting& setting : settings) unsaved_[{std::string(section), setting.key}] = setting.value;
  files_.MakeFolder(folder_);
  const SettingsLock lock(PosixPath(folder_) + kLockFolder, patient);
  Refresh();
  for (const auto& [place, value] : unsaved_) {
    g_key_file_set_string(keys_->file.get(), place.first.c_str(), place.second.c_str(), value.c_str());
  }
  // The next access reads the disk again, also when this store fails.
  keys_->identity.reset();
  gsize length = 0;
  const TextOwner text(g_key_file_to_data(keys_->file.get(), &length, nullptr));
  // A link stays a link, and the file keeps its rights.
  const auto fresh = files_.MakeSideFile({.target = files_.ResolveLink(fileName_), .ending = ".new"});
  const auto output = fresh->OpenForWriting();
  output->Write(WithoutGaps({text.get(), length}));
  output->FlushAndClose();
  fresh->ReplaceTarget();
  unsaved_.clear();
}

}  // namespace chartproject
