// What the program knows of its own command line, as other programs read it. All of it is made from the options that
// also make --help, so that all of them are up to date.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace chartproject {

/// The page of `man chartproject`, in troff's man macros. A paragraph of a footer whose first line ends in ":" becomes
/// a section of that name.
/// @param program all options, commands and footers @param version the release's number
[[nodiscard]] std::string ManualPage(const CLI::App& program, const std::string& version);

}  // namespace chartproject
