// A few hundred rows, the oldest division given away when they are full.
#include "chart/live/live_points.h"

#include <limits>

#include "chart/view/scroll_range.h"

namespace chartproject {
namespace {

constexpr std::size_t kMostPoints = static_cast<std::size_t>(kDivisions) * LivePoints::kMostPerDivision;

std::vector<RowRange> RangesOf(const std::vector<FailedColumns>& failed, std::size_t column) {
  std::vector<RowRange> ranges;
  for (std::size_t row = 0; row < failed.size(); ++row) {
    if (!failed[row][column]) continue;
    const bool goesOn = row > 0 && failed[row - 1][column];
    if (!goesOn) ranges.push_back({static_cast<int>(row), 0});
    ranges.back().last = static_cast<int>(row);
  }
  return ranges;
}

}  // namespace

void LivePoints::Restart(int series) {
  series_ = series;
  last_ = 0;
  for (auto& values : values_) values.clear();
  failed_.clear();
}

void LivePoints::Take(std::int32_t point, const std::array<double, kColumnCount>& values, const FailedColumns& failed) {
  if (point <= last_) return;
  if (failed_.size() == kMostPoints) {
    for (auto& kept : values_) kept.erase(kept.begin(), kept.begin() + kMostPerDivision);
    failed_.erase(failed_.begin(), failed_.begin() + kMostPerDivision);
  }
  for (std::size_t k = 0; k < values_.size(); ++k) values_[k].push_back(values[k]);
  failed_.push_back(failed);
  last_ = point;
}

std::int16_t LivePoints::PointsPerDivision() const noexcept {
  constexpr std::array<std::int16_t, 4> kSteps{1, 2, 4, 10};
  for (const std::int16_t points : kSteps) {
    if (failed_.size() <= static_cast<std::size_t>(points) * kDivisions) return points;
  }
  return kMostPerDivision;
}

ChartModel LivePoints::Model() const {
  const std::int16_t perDivision = PointsPerDivision();
  const auto rows = static_cast<std::size_t>(perDivision) * kDivisions;
  Slice slice;
  slice.startLine = static_cast<std::int32_t>(last_ - static_cast<std::int32_t>(failed_.size()) + 1);
  slice.columnsRead = slice.columnsInUse = series_;
  slice.times.resize(rows);
  slice.values = values_;
  // The room for the points to come: the axis rests.
  for (auto& values : slice.values) values.resize(rows, std::numeric_limits<double>::quiet_NaN());
  ChartModel model = BuildChart(slice, {.series = series_, .rowsPerDivision = perDivision, .firstLine = 1}, {});
  for (std::size_t s = 0; s < model.series.size(); ++s) model.series[s].failed = RangesOf(failed_, s);
  return model;
}

}  // namespace chartproject
