// Pieces that grow with the points.
#include "recording/companion/point_times.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace chartproject {

PointTimes::PointTimes(std::vector<TimeKnot> knots, std::int64_t within)
    : tolerance_(within), within_(within), knots_(std::move(knots)) {
  if (knots_.empty()) return;
  last_ = knots_.back();
  if (knots_.size() > 1) knots_.pop_back();
}

void PointTimes::Add(const TimeKnot& knot) {
  Extend(knot);
  if (knots_.size() >= kMostTimeKnots) Coarsen();
}

void PointTimes::Extend(const TimeKnot& knot) {
  const auto begin = [this](const TimeKnot& from) {
    knots_.push_back(from);
    slowest_ = std::numeric_limits<double>::max();
    fastest_ = 0;
  };
  if (knots_.empty()) {
    begin(knot);
    last_ = knot;
    return;
  }
  const auto spacing = [&](std::int64_t elapsed) {
    const TimeKnot& from = knots_.back();
    return static_cast<double>(elapsed - from.elapsed) / static_cast<double>(knot.point - from.point);
  };
  const double straight = spacing(knot.elapsed);
  if (straight < fastest_ || straight > slowest_) begin(last_);
  fastest_ = std::max(fastest_, spacing(knot.elapsed - tolerance_));
  slowest_ = std::min(slowest_, spacing(knot.elapsed + tolerance_));
  last_ = knot;
}

void PointTimes::Coarsen() {
  const std::vector<TimeKnot> finer = Knots();
  knots_.clear();
  tolerance_ *= 2;
  within_ += tolerance_;
  for (const TimeKnot& knot : finer) Extend(knot);
}

std::vector<TimeKnot> PointTimes::Knots() const {
  std::vector<TimeKnot> all = knots_;
  if (!all.empty() && all.back().point != last_.point) all.push_back(last_);
  return all;
}

double PointTimes::ElapsedAt(double point) const {
  const auto place = std::ranges::upper_bound(knots_, point, {}, [](const TimeKnot& knot) { return knot.point; });
  const auto at = static_cast<std::size_t>(std::max<std::ptrdiff_t>(place - knots_.begin() - 1, 0));
  const TimeKnot& from = knots_[at];
  const TimeKnot& to = at + 1 < knots_.size() ? knots_[at + 1] : last_;
  if (to.point == from.point) return static_cast<double>(from.elapsed);
  const double share = (point - from.point) / static_cast<double>(to.point - from.point);
  return static_cast<double>(from.elapsed) + share * static_cast<double>(to.elapsed - from.elapsed);
}

}  // namespace chartproject
