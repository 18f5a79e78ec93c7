// Paths, spans and bar places of series.
#include "chart/picture/series/series_path.h"

#include <algorithm>

#include "chart/picture/geometry/decimation.h"

namespace chartproject {
namespace {

constexpr double kGroupGapShare = 0.2;  ///< of a slot, between two groups of bars

/// Edges are whole pixels: neighbouring columns meet without a joint.
double ColumnEdge(const Plot& plot, int column, int columns) {
  return std::round(plot.front.x + column * plot.front.width / columns);
}

}  // namespace

std::vector<Path> SeriesPaths(const ChartSeries& series, ChartKind kind, const Plot& plot) {
  const bool steps = Flat(kind) == ChartKind::k2dStep;
  std::vector<Path> paths;
  bool inRun = false;
  for (int row = 0; row < plot.rows; ++row) {
    const double value = series.values[static_cast<std::size_t>(row)];
    const bool found = std::isfinite(value);
    if (found && !inRun) paths.emplace_back();
    inRun = found;
    if (!found) continue;
    const double y = plot.Y(value);
    if (steps) {
      paths.back().push_back({plot.Edge(row), y});
      paths.back().push_back({plot.Edge(row + 1), y});
    } else {
      paths.back().push_back({plot.X(row), y});
    }
  }
  return paths;
}

int ColumnCount(const Plot& plot, double columnWidth) {
  return std::max(1, std::min(plot.rows, static_cast<int>(plot.front.width / columnWidth)));
}

bool IsDense(const Plot& plot, double columnWidth) {
  return plot.rows > ColumnCount(plot, columnWidth);
}

std::vector<SpanRun> SeriesSpans(const ChartSeries& series, const Plot& plot, double columnWidth) {
  const int columns = ColumnCount(plot, columnWidth);
  std::vector<SpanRun> runs;
  bool inRun = false;
  for (int column = 0; column < columns; ++column) {
    const ValueRange range = ColumnRange(series.values, column, columns);
    if (!range.empty) {
      ColumnSpan span{ColumnEdge(plot, column, columns), ColumnEdge(plot, column + 1, columns), plot.Y(range.maximum),
                      plot.Y(range.minimum)};
      if (inRun) {
        const ColumnSpan& before = runs.back().back();
        span.top = std::min(span.top, before.bottom);
        span.bottom = std::max(span.bottom, before.top);
      } else {
        runs.emplace_back();
      }
      runs.back().push_back(span);
    }
    inRun = !range.empty;
  }
  return runs;
}

BarPlace PlaceBars(const Plot& plot, int seriesCount) {
  const int count = std::max(1, seriesCount);
  const double width = std::floor(plot.RowWidth() * (1 - kGroupGapShare) / count);
  return {width, width * count};
}

std::vector<BarColumn> DenseBars(const ChartModel& model, const Plot& plot, double columnWidth) {
  const int columns = ColumnCount(plot, columnWidth);
  const double base = plot.BaseY();
  std::vector<BarColumn> bars;
  bars.reserve(static_cast<std::size_t>(columns));
  for (int column = 0; column < columns; ++column) {
    BarColumn bar{ColumnEdge(plot, column, columns), ColumnEdge(plot, column + 1, columns), {}};
    for (std::size_t s = 0; s < model.series.size(); ++s) {
      const ValueRange range = ColumnRange(model.series[s].values, column, columns);
      if (range.empty) continue;
      bar.spans.push_back(
          {static_cast<int>(s), std::min(base, plot.Y(range.maximum)), std::max(base, plot.Y(range.minimum))});
    }
    const DenseOrder order(column, static_cast<int>(model.series.size()));
    std::sort(bar.spans.begin(), bar.spans.end(), [&order](const BarSpan& one, const BarSpan& other) {
      return order.Key(one.column, one.bottom - one.top) < order.Key(other.column, other.bottom - other.top);
    });
    if (!bar.spans.empty()) bars.push_back(std::move(bar));
  }
  return bars;
}

}  // namespace chartproject
