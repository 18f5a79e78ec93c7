// Counting, and looking at the rows' own times where nothing better is known.
#include "publish/row_moments.h"

#include <cmath>

#include "chart/plain/point_range.h"
#include "common/values/calendar.h"
#include "platform/run_time_error.h"

namespace chartproject {
namespace {

/// Rows have whole seconds, and a recording that keeps its pace may be a second late.
constexpr std::int64_t kAhead = 2000;
/// With longer intervals a time of day does not say which day it is.
constexpr std::int64_t kLongestFollowed = kMillisecondsPerDay / 4;

}  // namespace

RowMoments::RowMoments(const ChartHeader& header, const PointTimes* realTimes, const Locale& locale,
                       const TimeZone& zone, const std::string& fileName)
    : clock_(header, realTimes, locale), local_(zone) {
  const auto first = FirstMoment(clock_, zone);
  if (!clock_.Known() || !first) {
    throw RunTimeError(error_number::kInvalidFileFormat, Text::kPublishWithoutTimes, {fileName});
  }
  begin_ = anchor_ = {1, *first};
  interval_ = std::llround(clock_.ElapsedAt(2));
  followsRows_ = (realTimes == nullptr || !realTimes->Known()) && interval_ <= kLongestFollowed;
}

std::int64_t RowMoments::At(std::int64_t point, std::string_view time) {
  if (!followsRows_) return begin_.moment + std::llround(clock_.ElapsedAt(static_cast<double>(point)));
  std::int64_t moment = anchor_.moment + (point - anchor_.point) * interval_;
  if (time == lastTime_) return moment;
  lastTime_ = time;
  const auto seconds = SecondsOfClockText(time);
  if (!seconds) return moment;
  constexpr std::int64_t kHalfADay = kMillisecondsPerDay / 2;
  const std::int64_t local = local_.Local(moment);
  std::int64_t ahead =
      std::llround(*seconds * 1000) - (local - StepsBelow(local, kMillisecondsPerDay) * kMillisecondsPerDay);
  if (ahead <= -kHalfADay) ahead += kMillisecondsPerDay;
  if (ahead < kAhead || ahead > kHalfADay) return moment;
  moment += ahead;
  anchor_ = {point, moment};
  return moment;
}

void RowMoments::Restore(const Anchor& anchor) {
  anchor_ = anchor;
  lastTime_.clear();
}

}  // namespace chartproject
