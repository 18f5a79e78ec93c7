// A clock that moves only by its calls, so that runs of hours take milliseconds.
#pragma once

#include "platform/clock.h"

namespace chartproject {

class VirtualClock : public Clock {
 public:
  /// @param start the local date and time at the moment 0
  explicit VirtualClock(const DateTime& start) : start_(start) {}
  [[nodiscard]] DateTime LocalNow() override;
  [[nodiscard]] Instant Now() override { return now_; }
  /// Moves forward to a moment; never back.
  void AdvanceTo(Instant moment) noexcept {
    if (moment > now_) now_ = moment;
  }
  void Advance(Instant duration) noexcept { AdvanceTo(now_ + duration); }

 private:
  DateTime start_;
  Instant now_{0};
};

}  // namespace chartproject
