// The real clock.
#pragma once

#include "platform/clock.h"

namespace chartproject {

class PosixClock : public Clock {
 public:
  [[nodiscard]] DateTime LocalNow() override;
  [[nodiscard]] Instant Now() override;
};

/// Sleeps until a moment of PosixClock; returns early when a signal arrives.
void SleepUntil(Instant moment);

}  // namespace chartproject
