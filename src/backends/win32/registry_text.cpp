// Reading texts of any length out of the registry, and writing them.
#include "backends/win32/registry_text.h"

#include "backends/win32/handles.h"

namespace chartproject::win32 {

std::optional<std::wstring> ReadRegistryText(HKEY key, const std::wstring& name) {
  DWORD type = 0;
  DWORD bytes = 0;
  if (RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS || type != REG_SZ) {
    return std::nullopt;
  }
  std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
  bytes = static_cast<DWORD>(text.size()) * DWORD{sizeof(wchar_t)};
  if (RegQueryValueExW(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &bytes) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  text.resize(text.find(L'\0'));  // a stored text may lack its end mark; the buffer always has one more place
  return text;
}

std::optional<std::wstring> ReadRegistryText(HKEY root, const std::wstring& path, const std::wstring& name) {
  OwnedKey key;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, key.Receive()) != ERROR_SUCCESS) return std::nullopt;
  return ReadRegistryText(key.Get(), name);
}

LSTATUS WriteRegistryText(HKEY key, const std::wstring& name, const std::wstring& value) {
  return RegSetValueExW(key, name.empty() ? nullptr : name.c_str(), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(value.c_str()),
                        static_cast<DWORD>(value.size() + 1) * DWORD{sizeof(wchar_t)});
}

}  // namespace chartproject::win32
