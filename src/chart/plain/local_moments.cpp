// The distance from UTC, kept for a while.
#include "chart/plain/local_moments.h"

namespace chartproject {

std::int64_t LocalMoments::Local(std::int64_t milliseconds) {
  constexpr std::int64_t kMillisecondsPerSecond = 1000;
  const std::int64_t quarter = StepsBelow(milliseconds, kQuarter);
  if (quarter != quarter_) {
    ahead_ = zone_.OffsetAt(quarter * (kQuarter / kMillisecondsPerSecond)) * kMillisecondsPerSecond;
    quarter_ = quarter;
  }
  return milliseconds + ahead_;
}

}  // namespace chartproject
