// Reading texts of any length out of the registry, and writing them.
#include "backends/win32/registry_text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <vector>

#include "backends/win32/handles.h"

namespace chartproject::win32 {

namespace {

struct StoredValue {
  DWORD type = REG_NONE;
  std::vector<BYTE> bytes;

  template <typename Number>
  [[nodiscard]] Number As() const {
    Number number{};
    std::memcpy(&number, bytes.data(), std::min(sizeof number, bytes.size()));
    return number;
  }
};

std::optional<StoredValue> ReadValue(HKEY key, const std::wstring& name) {
  StoredValue value;
  DWORD size = 0;
  LSTATUS status = RegQueryValueExW(key, name.c_str(), nullptr, &value.type, nullptr, &size);
  do {  // the value may grow between the two calls
    if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) return std::nullopt;
    value.bytes.resize(size);
    status = RegQueryValueExW(key, name.c_str(), nullptr, &value.type, value.bytes.data(), &size);
  } while (status == ERROR_MORE_DATA);
  if (status != ERROR_SUCCESS) return std::nullopt;
  value.bytes.resize(size);
  return value;
}

/// A stored text may lack its end mark, and end in half a character.
std::wstring FirstText(const StoredValue& value) {
  std::wstring text(value.bytes.size() / sizeof(wchar_t) + 1, L'\0');
  std::memcpy(text.data(), value.bytes.data(), (text.size() - 1) * sizeof(wchar_t));
  text.resize(text.find(L'\0'));
  return text;
}

std::wstring Expanded(const std::wstring& text) {
  std::wstring expanded(ExpandEnvironmentStringsW(text.c_str(), nullptr, 0), L'\0');
  if (expanded.empty()) return text;
  ExpandEnvironmentStringsW(text.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
  expanded.resize(expanded.find(L'\0'));
  return expanded;
}

std::optional<std::wstring> TextOf(const StoredValue& value) {
  switch (value.type) {
    case REG_SZ:
    case REG_MULTI_SZ:
      return FirstText(value);
    case REG_EXPAND_SZ:
      return Expanded(FirstText(value));
    case REG_DWORD:
      return std::to_wstring(value.As<std::int32_t>());
    case REG_QWORD:
      return std::to_wstring(value.As<std::int64_t>());
    default:
      return std::nullopt;
  }
}

/// The decimal text of a whole number as that number; nothing for other texts.
std::optional<std::int32_t> WholeNumber(const std::wstring& text) {
  const auto number = static_cast<std::int32_t>(std::wcstol(text.c_str(), nullptr, 10));
  return std::to_wstring(number) == text ? std::optional(number) : std::nullopt;
}

LSTATUS Store(HKEY key, const std::wstring& name, DWORD type, const void* bytes, std::size_t size) {
  return RegSetValueExW(key, name.empty() ? nullptr : name.c_str(), 0, type, static_cast<const BYTE*>(bytes),
                        static_cast<DWORD>(size));
}

}  // namespace

std::optional<std::wstring> ReadRegistryText(HKEY key, const std::wstring& name) {
  const auto value = ReadValue(key, name);
  return value ? TextOf(*value) : std::nullopt;
}

std::optional<std::wstring> ReadRegistryText(HKEY root, const std::wstring& path, const std::wstring& name) {
  OwnedKey key;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, key.Receive()) != ERROR_SUCCESS) return std::nullopt;
  return ReadRegistryText(key.Get(), name);
}

LSTATUS WriteRegistryText(HKEY key, const std::wstring& name, const std::wstring& value) {
  const auto before = ReadValue(key, name);
  if (before && TextOf(*before) == value) return ERROR_SUCCESS;
  const auto number = WholeNumber(value);
  if (before && before->type == REG_DWORD && number) return Store(key, name, REG_DWORD, &*number, sizeof *number);
  // A sign of the environment in a text that is to stay itself would be replaced when it is read.
  const bool expands = before && before->type == REG_EXPAND_SZ && value.find(L'%') == std::wstring::npos;
  return Store(key, name, expands ? REG_EXPAND_SZ : REG_SZ, value.c_str(), (value.size() + 1) * sizeof(wchar_t));
}

}  // namespace chartproject::win32
