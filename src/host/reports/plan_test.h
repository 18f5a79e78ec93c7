// A recording's plan read once, to see how long its point takes: acquire --test.
#pragma once

#include "host/arguments/acquire_request.h"
#include "host/session/session.h"

namespace chartproject {

/// Reads each parameter of the plan and says how much of the time between points that takes. Nothing is recorded.
/// @return kRunTimeError when a reading failed or a point takes longer than its time. Throws as Command::Run does.
[[nodiscard]] ExitCode TestPlan(Session& session, const AcquireRequest& request);

}  // namespace chartproject
