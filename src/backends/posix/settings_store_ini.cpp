// The INI file through GLib's key files.
#include "backends/posix/settings_store_ini.h"

#include <fcntl.h>
#include <glib.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "backends/posix/posix_error.h"
#include "backends/posix/settings_text.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr const char* kFileName = "/Kestrel v5.60.ini";
constexpr int kFileMode = 0644;

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

/// Keeps other programs of the user from storing settings between our reading of the file and our writing. On a disk
/// that knows no locks the store works without.
class FolderLock {
 public:
  explicit FolderLock(const std::string& folder) : folder_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (folder_ < 0) return;
    while (flock(folder_, LOCK_EX) != 0 && errno == EINTR) {
    }
  }
  ~FolderLock() {
    if (folder_ >= 0) close(folder_);
  }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  int folder_;
};

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

struct SettingsStoreIni::KeyFile {
  std::unique_ptr<GKeyFile, FreeKeyFile> file{g_key_file_new()};
  std::optional<FileIdentity> identity;  ///< of the file that was read last
};

SettingsStoreIni::SettingsStoreIni(FileSystem& files, const std::string& folder)
    : files_(files), folder_(folder), fileName_(folder + kFileName), keys_(std::make_unique<KeyFile>()) {}

SettingsStoreIni::~SettingsStoreIni() = default;

std::string SettingsStoreIni::UserFolder() {
  return g_get_user_config_dir();
}

void SettingsStoreIni::Refresh() {
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

std::optional<std::string> SettingsStoreIni::Read(std::string_view section, std::string_view key) {
  Refresh();
  const std::string group(section);
  const std::string name(key);
  TextOwner text(g_key_file_get_value(keys_->file.get(), group.c_str(), name.c_str(), nullptr));
  if (!text) return std::nullopt;
  // A value typed by hand may hold single backslashes: it is then taken as it is.
  if (IsTypedWindowsPath(text.get())) return std::string(text.get());
  TextOwner decoded(g_key_file_get_string(keys_->file.get(), group.c_str(), name.c_str(), nullptr));
  if (decoded) text = std::move(decoded);
  return std::string(text.get());
}

void SettingsStoreIni::Write(std::string_view section, std::span<const StoredSetting> settings) {
  files_.MakeFolder(folder_);
  const FolderLock lock(folder_);
  Refresh();
  const std::string group(section);
  for (const StoredSetting& setting : settings) {
    g_key_file_set_string(keys_->file.get(), group.c_str(), setting.key.c_str(), setting.value.c_str());
  }
  // Whatever happens, the next access reads what the disk holds.
  keys_->identity.reset();
  gsize length = 0;
  const TextOwner text(g_key_file_to_data(keys_->file.get(), &length, nullptr));
  GError* error = nullptr;
  constexpr auto kHow =
      static_cast<GFileSetContentsFlags>(G_FILE_SET_CONTENTS_CONSISTENT | G_FILE_SET_CONTENTS_DURABLE);
  if (g_file_set_contents_full(fileName_.c_str(), text.get(), static_cast<gssize>(length), kHow, kFileMode, &error) ==
      FALSE) {
    const bool full = g_error_matches(error, G_FILE_ERROR, G_FILE_ERROR_NOSPC) != FALSE;
    Throw(error, full ? error_number::kDiskFull : error_number::kPermissionDenied, fileName_);
  }
}

}  // namespace chartproject
