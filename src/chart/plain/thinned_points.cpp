// Group by group.
#include "chart/plain/thinned_points.h"

#include <cmath>
#include <limits>
#include <utility>

namespace chartproject {

ThinnedPoints::ThinnedPoints(std::int64_t points, std::int64_t most, Taker take)
    : groupSize_(points <= most ? 1 : (points + most / 2 - 1) / (most / 2)), take_(std::move(take)) {}

void ThinnedPoints::Add(const ThinnedPoint& point) {
  if (groupSize_ == 1) {
    take_(point);
    return;
  }
  if (count_ == 0) first_ = point.moment;
  if (count_ <= groupSize_ / 2) middle_ = point.moment;
  for (std::size_t series = 0; series < extremes_.size(); ++series) Note(extremes_[series], point.values[series]);
  if (++count_ == groupSize_) Finish();
}

void ThinnedPoints::Note(Extremes& extremes, double value) const {
  if (std::isnan(value)) return;
  if (!extremes.any) {
    extremes = {value, value, true, true};
  } else if (value < extremes.least) {
    extremes.least = value;
    extremes.leastFirst = false;
  } else if (value > extremes.greatest) {
    extremes.greatest = value;
    extremes.leastFirst = true;
  }
}

void ThinnedPoints::Finish() {
  if (count_ == 0) return;
  ThinnedPoint early{first_, {}};
  ThinnedPoint late{middle_, {}};
  for (std::size_t series = 0; series < extremes_.size(); ++series) {
    const Extremes& extremes = extremes_[series];
    const double gap = std::numeric_limits<double>::quiet_NaN();
    early.values[series] = !extremes.any ? gap : extremes.leastFirst ? extremes.least : extremes.greatest;
    late.values[series] = !extremes.any ? gap : extremes.leastFirst ? extremes.greatest : extremes.least;
  }
  take_(early);
  if (count_ > 1) take_(late);
  count_ = 0;
  extremes_ = {};
}

}  // namespace chartproject
