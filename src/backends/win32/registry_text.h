// Text values of a registry key.
#pragma once

#include <optional>
#include <string>

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

/// The value's text; nothing when the value is not there or holds no text. An empty name is the key's default value.
[[nodiscard]] std::optional<std::wstring> ReadRegistryText(HKEY key, const std::wstring& name);
[[nodiscard]] std::optional<std::wstring> ReadRegistryText(HKEY root, const std::wstring& path,
                                                           const std::wstring& name);

/// Returns the system's status, ERROR_SUCCESS when stored.
LSTATUS WriteRegistryText(HKEY key, const std::wstring& name, const std::wstring& value);

}  // namespace chartproject::win32
