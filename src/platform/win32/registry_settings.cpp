// Reads and writes text values below Software\VB and VB Program Settings.
#include "platform/win32/registry_settings.h"

#include <vector>

#include "platform/run_time_error.h"
#include "platform/win32/handles.h"
#include "platform/win32/registry_text.h"
#include "platform/win32/system_error.h"
#include "platform/win32/wide_text.h"

namespace chartproject::win32 {

namespace {

[[noreturn]] void ThrowStoreError(LSTATUS status, std::string_view section) {
  throw RunTimeError(error_number::kPathFileAccess,
                     "settings " + std::string(section) + ": " + SystemMessage(static_cast<DWORD>(status)));
}

}  // namespace

RegistrySettings::RegistrySettings(std::string_view application)
    : root_(L"Software\\VB and VB Program Settings\\" + ToWide(application)) {}

std::wstring RegistrySettings::SectionPath(std::string_view section) const {
  return root_ + L"\\" + ToWide(section);
}

std::optional<std::string> RegistrySettings::Read(std::string_view section, std::string_view key) {
  OwnedKey sectionKey;
  const LSTATUS status =
      RegOpenKeyExW(HKEY_CURRENT_USER, SectionPath(section).c_str(), 0, KEY_READ, sectionKey.Receive());
  if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
  if (status != ERROR_SUCCESS) ThrowStoreError(status, section);
  const auto text = ReadRegistryText(sectionKey.Get(), ToWide(key));
  if (!text) return std::nullopt;
  return ToUtf8(*text);
}

void RegistrySettings::Write(std::string_view section, std::span<const StoredSetting> settings) {
  OwnedKey sectionKey;
  const LSTATUS opened = RegCreateKeyExW(HKEY_CURRENT_USER, SectionPath(section).c_str(), 0, nullptr, 0,
                                         KEY_READ | KEY_WRITE, nullptr, sectionKey.Receive(), nullptr);
  if (opened != ERROR_SUCCESS) ThrowStoreError(opened, section);

  // The registry has no step over several values: what was written before a failure is put back.
  std::vector<std::pair<std::wstring, std::optional<std::wstring>>> before;
  for (const StoredSetting& setting : settings) {
    const std::wstring key = ToWide(setting.key);
    before.emplace_back(key, ReadRegistryText(sectionKey.Get(), key));
    const LSTATUS status = WriteRegistryText(sectionKey.Get(), key, ToWide(setting.value));
    if (status == ERROR_SUCCESS) continue;
    for (const auto& [name, value] : before) {
      if (value) {
        WriteRegistryText(sectionKey.Get(), name, *value);
      } else {
        RegDeleteValueW(sectionKey.Get(), name.c_str());
      }
    }
    ThrowStoreError(status, section);
  }
}

}  // namespace chartproject::win32
