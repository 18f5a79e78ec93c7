// Reads and writes text values below Software\VB and VB Program Settings.
#include "backends/win32/win32_settings_store.h"

#include <utility>
#include <vector>

#include "backends/win32/handles.h"
#include "backends/win32/registry_text.h"
#include "backends/win32/system_error.h"
#include "backends/win32/wide_text.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

namespace {

[[noreturn]] void ThrowStoreError(LSTATUS status, std::string_view section) {
  throw RunTimeError(error_number::kPathFileAccess,
                     "settings " + std::string(section) + ": " + SystemMessage(static_cast<DWORD>(status)));
}

/// A value of any type as it was before it was written.
class FormerValue {
 public:
  FormerValue(HKEY key, std::wstring name) : key_(key), name_(std::move(name)) {
    DWORD size = 0;
    if (RegQueryValueExW(key_, name_.c_str(), nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS) return;
    bytes_.resize(size);
    there_ = RegQueryValueExW(key_, name_.c_str(), nullptr, &type_, bytes_.data(), &size) == ERROR_SUCCESS;
  }
  void PutBack() const {
    if (there_) {
      RegSetValueExW(key_, name_.c_str(), 0, type_, bytes_.data(), static_cast<DWORD>(bytes_.size()));
    } else {
      RegDeleteValueW(key_, name_.c_str());
    }
  }

 private:
  HKEY key_;
  std::wstring name_;
  std::vector<BYTE> bytes_;
  DWORD type_ = REG_NONE;
  bool there_ = false;
};

}  // namespace

Win32SettingsStore::Win32SettingsStore(std::string_view application)
    : root_(L"Software\\VB and VB Program Settings\\" + ToWide(application)) {}

std::wstring Win32SettingsStore::SectionPath(std::string_view section) const {
  return root_ + L"\\" + ToWide(section);
}

std::optional<std::string> Win32SettingsStore::Read(std::string_view section, std::string_view key) {
  OwnedKey sectionKey;
  const LSTATUS status =
      RegOpenKeyExW(HKEY_CURRENT_USER, SectionPath(section).c_str(), 0, KEY_READ, sectionKey.Receive());
  if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
  if (status != ERROR_SUCCESS) ThrowStoreError(status, section);
  const auto text = ReadRegistryText(sectionKey.Get(), ToWide(key));
  if (!text) return std::nullopt;
  return ToUtf8(*text);
}

void Win32SettingsStore::Write(std::string_view section, std::span<const StoredSetting> settings) {
  OwnedKey sectionKey;
  const LSTATUS opened = RegCreateKeyExW(HKEY_CURRENT_USER, SectionPath(section).c_str(), 0, nullptr, 0,
                                         KEY_READ | KEY_WRITE, nullptr, sectionKey.Receive(), nullptr);
  if (opened != ERROR_SUCCESS) ThrowStoreError(opened, section);

  // The registry cannot write several values in one step: after a failure the former values are restored.
  std::vector<FormerValue> before;
  for (const StoredSetting& setting : settings) {
    const std::wstring key = ToWide(setting.key);
    before.emplace_back(sectionKey.Get(), key);
    const LSTATUS status = WriteRegistryText(sectionKey.Get(), key, ToWide(setting.value));
    if (status == ERROR_SUCCESS) continue;
    for (const FormerValue& value : before) value.PutBack();
    ThrowStoreError(status, section);
  }
}

}  // namespace chartproject::win32
