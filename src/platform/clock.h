// Port: time of day and a steady clock for timers.
#pragma once

#include <chrono>
#include <functional>

namespace chartproject {

/// A moment on the steady clock, from an arbitrary start; never goes back.
using Instant = std::chrono::microseconds;

/// Local date and time of day.
struct DateTime {
  int year = 2000;
  int month = 1;  ///< 1 to 12
  int day = 1;    ///< 1 to 31
  int hour = 0;   ///< 0 to 23
  int minute = 0;
  int second = 0;
  int millisecond = 0;
  friend bool operator==(const DateTime&, const DateTime&) = default;
};

class Clock {
 public:
  virtual ~Clock() = default;
  /// The user's local time.
  [[nodiscard]] virtual DateTime LocalNow() = 0;
  [[nodiscard]] virtual Instant Now() = 0;
};

/// Waits until a moment of a clock: a virtual clock jumps there, a real one sleeps.
using WaitUntil = std::function<void(Instant moment)>;

}  // namespace chartproject
