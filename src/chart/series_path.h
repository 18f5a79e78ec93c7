// The way of a series through the front plane: what lines, steps and areas are drawn along.
#pragma once

#include <cmath>
#include <vector>

#include "chart/chart_model.h"
#include "chart/plot.h"

namespace chartproject {

using Path = std::vector<PointF>;

/// One path for each run of points without a gap. A line goes from point to point; a step holds a row's value over its
/// whole slot. Rows that are denser than `columns` are reduced to the columns' extremes.
[[nodiscard]] std::vector<Path> SeriesPaths(const ChartSeries& series, ChartKind kind, const Plot& plot, int columns);

/// A path closed down to the base height.
[[nodiscard]] Path AreaBelow(const Path& path, double baseY);

/// Bars stand side by side in the middle of their slot, with a gap between the groups. All have the same whole width
/// and whole edges, so that they look alike.
struct BarPlace {
  double width = 0;  ///< of one bar, pixels; 0 when they are too thin to stand side by side
  double group = 0;  ///< of all the series' bars

  [[nodiscard]] double Left(const Plot& plot, int row, int column) const noexcept {
    return std::round(plot.X(row) - group / 2) + column * width;
  }
};
[[nodiscard]] BarPlace PlaceBars(const Plot& plot, int seriesCount);

/// What remains of bars that are too thin to stand side by side: in one pixel column, the span of each series.
struct BarSpan {
  int column = 0;  ///< the series
  double top = 0;  ///< y
  double bottom = 0;
};
struct BarColumn {
  double left = 0;
  double right = 0;
  std::vector<BarSpan> spans;  ///< the tallest first, so that every one is seen
};
[[nodiscard]] std::vector<BarColumn> DenseBars(const ChartModel& model, const Plot& plot);

}  // namespace chartproject
