// The stopwatch that spaces the points of a recording whose time between points is typed as hh:mm:ss.
#pragma once

#include <cstdint>
#include <string>

namespace chartproject {

/// Counts seconds into minutes, hours and days.
class Stopwatch {
 public:
  void Reset() { *this = Stopwatch{}; }
  /// Adds one second; true when it completed a day.
  bool AddSecond();
  /// Seconds counted, without the days.
  [[nodiscard]] int Seconds() const noexcept { return (hours_ * 60 + minutes_) * 60 + seconds_; }
  [[nodiscard]] int Days() const noexcept { return days_; }
  /// "hh:mm:ss", without the days.
  [[nodiscard]] std::string Text() const;

 private:
  int seconds_ = 0;
  int minutes_ = 0;
  int hours_ = 0;
  int days_ = 0;
};

}  // namespace chartproject
