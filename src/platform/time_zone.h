// Port: how far local time is from UTC.
#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace chartproject {

class TimeZone {
 public:
  virtual ~TimeZone() = default;
  /// Seconds since 1970-01-01 00:00 UTC of a local time, milliseconds left out. A local time that came twice (clocks
  /// set back) may be either; one that never came (clocks set forward) is moved over the gap.
  [[nodiscard]] virtual std::int64_t UtcSeconds(const DateTime& local) const = 0;
  /// Seconds that local time is ahead of UTC at a moment, a whole number of minutes; west of Greenwich negative.
  [[nodiscard]] virtual std::int64_t OffsetAt(std::int64_t utcSeconds) const = 0;
};

}  // namespace chartproject
