// What a recording in progress says of readings that fail and of points that come late.
#pragma once

#include <string>

#include "acquire/run/acquisition_run.h"

namespace chartproject {

/// One line a column with failed readings, and one while points come later than asked; empty when all is well.
/// @param now on the clock of the run
[[nodiscard]] std::string TroubleText(const Environment& environment, const AcquisitionRun& run, Instant now);

}  // namespace chartproject
