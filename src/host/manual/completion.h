// Scripts by which a shell completes the program's commands, options and values. Like the manual, they are made from
// the options themselves. What depends on the project (addresses, parameters) a script asks the program for:
// `chartproject describe`.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace chartproject {

/// For bash, to be loaded by the bash-completion package. @param program all options and commands
[[nodiscard]] std::string BashCompletion(const CLI::App& program);
/// For zsh: the function _chartproject of its completion system.
[[nodiscard]] std::string ZshCompletion(const CLI::App& program);

}  // namespace chartproject
