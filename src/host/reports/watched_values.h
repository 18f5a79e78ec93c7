// Values read again and again: read --watch.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/session/session.h"

namespace chartproject {

struct WatchPlan {
  std::vector<std::int16_t> parameters;
  std::chrono::seconds every{1};
  int times = 0;  ///< 0: until Ctrl-C
};

/// Reads over the component's link, which is open, and shows each parameter with its age and failures: on a terminal
/// one screen that is written over, elsewhere a line a reading. @return kRunTimeError when the last reading of a
/// parameter failed
[[nodiscard]] ExitCode WatchValues(Session& session, Component& component, const WatchPlan& plan);

}  // namespace chartproject
