// When which timer ticks: an absolute schedule, turned by the back end's loop.
#pragma once

#include <optional>
#include <vector>

#include "platform/clock.h"

namespace chartproject {

class Timer;

/// The schedule of all armed timers. A timer armed at t0 with interval i is due at t0 + i, t0 + 2i, ...: a late tick
/// moves no later one. A tick that comes late is raised once; due times that passed meanwhile are left out.
class TimerQueue {
 public:
  explicit TimerQueue(Clock& clock) : clock_(clock) {}

  /// Starts a timer's schedule at this moment, replacing the one it had.
  void Arm(Timer& timer);
  void Disarm(Timer& timer);
  /// When the next tick is due; nothing when no timer is armed. @param endless false leaves out endless timers
  [[nodiscard]] std::optional<Instant> NextDue(bool endless = true) const;
  /// Raises the tick of the one timer that is due longest, if any is due now. True when one was raised.
  bool FireOne();

 private:
  struct Entry {
    Timer* timer;
    Instant due;
    Instant interval;
  };
  Clock& clock_;
  std::vector<Entry> entries_;
};

}  // namespace chartproject
