// What people type into a settings file by hand, made readable.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace chartproject {

/// Larger files are not settings; every access reads the whole file.
inline constexpr std::uint64_t kLargestSettingsFile = 4'000'000;

/// The text of a settings file without a byte order mark, and with every line that is not an empty line, a comment, a
/// section or "key=value" within a section made a comment, so that it survives the next writing.
/// @param skipped called for each such line with its number, from 1, and its text
[[nodiscard]] std::string ReadableSettings(
    std::string_view bytes, const std::function<void(std::int64_t line, std::string_view text)>& skipped);

/// The text of a settings file without the empty lines between two keys of a section: a new key is written after the
/// line that separates its section from the next one.
[[nodiscard]] std::string WithoutGaps(std::string_view text);

/// True for a path of Windows with single backslashes, which are not escapes: C:\new, \\server\share.
[[nodiscard]] bool IsTypedWindowsPath(std::string_view value);

}  // namespace chartproject
