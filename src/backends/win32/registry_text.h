// Text values of a registry key.
#pragma once

#include <optional>
#include <string>

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

/// The value's text; nothing when the value is not there. Numbers (REG_DWORD, REG_QWORD) give their decimal text,
/// signed; of several texts (REG_MULTI_SZ) the first counts; names of the environment in REG_EXPAND_SZ are replaced by
/// their values. Nothing for other bytes. An empty name is the key's default value.
[[nodiscard]] std::optional<std::wstring> ReadRegistryText(HKEY key, const std::wstring& name);
[[nodiscard]] std::optional<std::wstring> ReadRegistryText(HKEY root, const std::wstring& path,
                                                           const std::wstring& name);

/// Keeps the value's own type where that can hold the text; a value that reads as the text already is left as it is.
/// Returns the system's status, ERROR_SUCCESS when stored.
LSTATUS WriteRegistryText(HKEY key, const std::wstring& name, const std::wstring& value);

}  // namespace chartproject::win32
