// The program from its arguments to its exit code.
#pragma once

#include <iosfwd>

namespace chartproject {

/// Parses the arguments, runs the command and reports failures on `err`. Never throws.
/// @return an ExitCode as a number
[[nodiscard]] int RunProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err) noexcept;

}  // namespace chartproject
