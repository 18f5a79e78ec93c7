// Real drives of this build: by libmodbus, or none. One of two bodies, chosen by the build.
#pragma once

#include <memory>
#include <string>

#include "links/serial/serial_link.h"

namespace chartproject {

/// Makes ports of real lines. Throws RunTimeError in a build without them, and for a trace that cannot be written.
/// @param trace file of the trace, "-" for the standard error; empty for none @param clock outlives the ports
[[nodiscard]] LinePortMaker MakeLinePorts(const std::string& trace, Clock& clock);

}  // namespace chartproject
