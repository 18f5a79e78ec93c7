// The last points of a recording that runs, as the rows of a chart.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "chart/view/chart_building.h"
#include "recording/file/live_chart.h"

namespace chartproject {

/// A slice of 25 divisions. It grows until a division has kMostPerDivision points; then it moves on by a whole division
/// at a time, so that the axis rests in between.
class LivePoints {
 public:
  static constexpr int kMostPerDivision = 20;

  /// @param series 1 to 4
  void Restart(int series);
  /// @param point its number, from 1; one that is not after the last point is left out
  /// @param values NaN is a gap
  void Take(std::int32_t point, const std::array<double, kColumnCount>& values, const FailedColumns& failed);

  /// Number of the last point; 0 before the first.
  [[nodiscard]] std::int32_t Last() const noexcept { return last_; }
  [[nodiscard]] int SeriesCount() const noexcept { return series_; }
  /// The chart as the chart window shows it, failed readings shaded.
  [[nodiscard]] ChartModel Model() const;

 private:
  [[nodiscard]] std::int16_t PointsPerDivision() const noexcept;

  int series_ = 1;
  std::int32_t last_ = 0;
  std::array<std::vector<double>, kColumnCount> values_;  ///< by column; the last one is of the last point
  std::vector<FailedColumns> failed_;
};

}  // namespace chartproject
