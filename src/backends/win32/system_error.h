// The system's error codes as our run-time errors.
#pragma once

#include <string>

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

/// The system's own words for a code, in the user's language; without a line break at the end.
[[nodiscard]] std::string SystemMessage(DWORD code);

/// The run-time error number for a code of a file operation: 53, 57, 61, 70, 75 or 76.
[[nodiscard]] int FileErrorNumber(DWORD code) noexcept;

/// Throws the RunTimeError for a failed file operation; its description is "name: reason".
[[noreturn]] void ThrowFileError(DWORD code, const std::string& name);

}  // namespace chartproject::win32
