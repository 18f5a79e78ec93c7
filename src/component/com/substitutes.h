// What a build of the component puts in the place of the system's clock and printer.
#pragma once

#include "backends/win32/com/win32_environment.h"

namespace chartproject::win32 {

/// Each build defines it. The component that is shipped has no substitutes: nothing in its surroundings can give it
/// another clock or another file to print to. Throws RunTimeError when what a test asks for is not a time.
[[nodiscard]] Substitutes TheSubstitutes();

}  // namespace chartproject::win32
