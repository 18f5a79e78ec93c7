// Small text routines shared by the readers of all file kinds, and the joining of folder and file names.
#pragma once

#include <string>
#include <string_view>

namespace chartproject {

/// Ends each line of the files and texts that other programs of the host read.
inline constexpr const char* kLineEnd = "\r\n";

/// Without the blanks (spaces) at both ends, or at the start only. Other white space stays.
[[nodiscard]] std::string_view Trim(std::string_view text);
[[nodiscard]] std::string_view TrimStart(std::string_view text);

/// Everything to the right of the first "=" of a line; empty when there is none.
[[nodiscard]] std::string_view AfterEquals(std::string_view line);

/// ASCII letters only.
[[nodiscard]] std::string ToUpperAscii(std::string_view text);

/// A value from elsewhere (a name, a line of a file, a reply) as one line: each control character is written as "\x1B",
/// so that it can neither control a terminal nor begin a new record.
[[nodiscard]] std::string VisibleText(std::string_view value);

/// The same of a whole text of several lines: tabs, LF and CR LF stay.
[[nodiscard]] std::string VisibleLines(std::string_view text);

/// Joins a folder and a name in the folder's own style: "\" for an empty folder and for one written with "\" or a
/// drive letter, "/" for a folder that holds "/".
[[nodiscard]] std::string JoinPath(std::string_view folder, std::string_view name);

/// The name without its folder.
[[nodiscard]] std::string_view BaseName(std::string_view path);

}  // namespace chartproject
