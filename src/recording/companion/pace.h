// The pace of a recording: the time between points that was asked for, and the real one.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/clock.h"
#include "recording/companion/point_times.h"

namespace chartproject {

/// Times between two points, in milliseconds. Nothing is known before the second point.
struct PaceSummary {
  std::int64_t asked = 0;
  std::int64_t shortest = 0;
  std::int64_t mean = 0;
  std::int64_t longest = 0;
  std::int64_t latest = 0;  ///< how much later than asked the latest point came, counted from the first
  [[nodiscard]] bool Known() const noexcept { return longest > 0; }
  /// A point came later than half the time between points, or than a second: the times of the points are not those
  /// that were asked for.
  [[nodiscard]] bool Slipped() const noexcept { return latest > Allowance(); }
  [[nodiscard]] std::int64_t Allowance() const noexcept { return std::min<std::int64_t>(asked / 2, 1000); }
  friend bool operator==(const PaceSummary&, const PaceSummary&) = default;
};

/// Follows a recording, point by point.
class Pace {
 public:
  Pace() = default;
  /// @param asked milliseconds between points; @param began when the sampling began, one interval before its first
  /// point
  Pace(std::int64_t asked, Instant began);

  /// @param number of the point, from 1; @param at when its reading began
  void Note(std::int32_t number, Instant at);

  [[nodiscard]] PaceSummary Summary() const;
  [[nodiscard]] const PointTimes& Times() const noexcept { return times_; }
  /// The time between points at present in milliseconds, when it is longer than asked; else 0. It follows the last
  /// points, and the wait for the next one.
  [[nodiscard]] std::int64_t LateInterval(Instant now) const;

 private:
  std::int64_t asked_ = 1;
  std::int32_t points_ = 0;
  Instant first_{0};
  Instant last_{0};
  Instant shortest_{0};
  Instant longest_{0};
  Instant latest_{0};
  double recent_ = 0;  ///< milliseconds between the last points, the later ones counting more
  PointTimes times_;
};

}  // namespace chartproject
