// The way of a series through the front plane: what lines, steps, areas and bars are drawn along.
#pragma once

#include <cmath>
#include <vector>

#include "chart/picture/geometry/chart_model.h"
#include "chart/picture/geometry/plot.h"

namespace chartproject {

using Path = std::vector<PointF>;

/// One path for each run of points without a gap. A line goes from point to point; a step holds a row's value over its
/// whole slot.
[[nodiscard]] std::vector<Path> SeriesPaths(const ChartSeries& series, ChartKind kind, const Plot& plot);

/// What a dense series covers of a column, from its greatest value to its least.
struct ColumnSpan {
  double left = 0;
  double right = 0;
  double top = 0;
  double bottom = 0;
  [[nodiscard]] double Middle() const noexcept { return (left + right) / 2; }
  friend bool operator==(const ColumnSpan&, const ColumnSpan&) = default;
};
/// Spans without a gap between them; each touches the one before it.
using SpanRun = std::vector<ColumnSpan>;

/// The plot's columns of about `columnWidth` pixels.
[[nodiscard]] int ColumnCount(const Plot& plot, double columnWidth);

/// True when several rows share a column: then a series is drawn by its spans, and the cost follows the columns.
[[nodiscard]] bool IsDense(const Plot& plot, double columnWidth);

/// A series' spans in all the columns. A gap shows where it fills a column.
[[nodiscard]] std::vector<SpanRun> SeriesSpans(const ChartSeries& series, const Plot& plot, double columnWidth);

/// Painting order of spans that share a column: taller ones first. Of those as tall as each other another one is last
/// from place to place, so that none hides another everywhere.
class DenseOrder {
 public:
  /// @param column of the plot, counted from its left edge
  DenseOrder(int column, int seriesCount) : turn_(column / kColumnsPerTurn), count_(seriesCount) {}
  /// Spans are painted in the order of this number.
  [[nodiscard]] int Key(int series, double height) const {
    constexpr double kAsTall = 2;  // pixels
    return -static_cast<int>(height / kAsTall) * count_ + (series + turn_) % count_;
  }

 private:
  static constexpr int kColumnsPerTurn = 4;
  int turn_;
  int count_;
};

/// Bars are side by side in the middle of their slot, with a gap between the groups. All have the same whole width
/// and whole edges, so that they look alike.
struct BarPlace {
  double width = 0;  ///< of one bar, pixels; 0 when they are too thin to be side by side
  double group = 0;  ///< of all the series' bars

  [[nodiscard]] double Left(const Plot& plot, int row, int column) const noexcept {
    return std::round(plot.X(row) - group / 2) + column * width;
  }
};
[[nodiscard]] BarPlace PlaceBars(const Plot& plot, int seriesCount);

/// What remains of bars that are too thin to be side by side: in one column, the span of each series.
struct BarSpan {
  int column = 0;  ///< the series
  double top = 0;  ///< y
  double bottom = 0;
};
struct BarColumn {
  double left = 0;
  double right = 0;
  std::vector<BarSpan> spans;  ///< in painting order, see DenseOrder
};
[[nodiscard]] std::vector<BarColumn> DenseBars(const ChartModel& model, const Plot& plot, double columnWidth);

}  // namespace chartproject
