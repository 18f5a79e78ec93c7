// Moments in local time, asked one after the other.
#pragma once

#include <cstdint>
#include <limits>

#include "platform/time_zone.h"

namespace chartproject {

/// Asks the time zone once for a quarter of an hour, within which no zone changes its distance from UTC.
class LocalMoments {
 public:
  /// Milliseconds from one question to the zone to the next.
  static constexpr std::int64_t kQuarter = 900'000;

  /// @param zone outlives this object
  explicit LocalMoments(const TimeZone& zone) : zone_(zone) {}

  /// Milliseconds since 1970-01-01 00:00 of local time. @param milliseconds since 1970-01-01 00:00 UTC
  [[nodiscard]] std::int64_t Local(std::int64_t milliseconds);
  /// Milliseconds that the last answer is ahead of UTC.
  [[nodiscard]] std::int64_t Ahead() const noexcept { return ahead_; }

 private:
  const TimeZone& zone_;
  std::int64_t quarter_ = std::numeric_limits<std::int64_t>::min();  ///< since 1970 UTC, whose distance is known
  std::int64_t ahead_ = 0;
};

/// The whole number of steps at or below a value, also of a negative one.
[[nodiscard]] constexpr std::int64_t StepsBelow(std::int64_t value, std::int64_t step) noexcept {
  return value / step - (value % step < 0 ? 1 : 0);
}

}  // namespace chartproject
