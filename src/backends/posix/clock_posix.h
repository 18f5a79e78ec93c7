// The real clock.
#pragma once

#include "platform/clock.h"

namespace chartproject {

class ClockPosix : public Clock {
 public:
  [[nodiscard]] DateTime LocalNow() override;
  [[nodiscard]] Instant Now() override;
};

/// Sleeps until a moment of ClockPosix; returns early when a signal arrives.
void SleepUntil(Instant moment);

}  // namespace chartproject
