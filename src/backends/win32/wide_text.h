// Texts of the core (UTF-8) and of the system (UTF-16).
#pragma once

#include <string>
#include <string_view>

namespace chartproject::win32 {

/// A malformed sequence becomes the replacement character.
[[nodiscard]] std::wstring ToWide(std::string_view text);
[[nodiscard]] std::string ToUtf8(std::wstring_view text);

}  // namespace chartproject::win32
