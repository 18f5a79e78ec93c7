// Paths and bar places of series.
#include "chart/series_path.h"

#include "chart/decimation.h"

namespace chartproject {
namespace {

constexpr double kGroupGapShare = 0.2;  ///< of a slot, between two groups of bars

}  // namespace

std::vector<Path> SeriesPaths(const ChartSeries& series, ChartKind kind, const Plot& plot, int columns) {
  const bool steps = Flat(kind) == ChartKind::k2dStep && !IsDense(plot.rows, columns);
  std::vector<Path> paths;
  for (const SampleRun& run : Decimate(series.values, columns)) {
    Path path;
    path.reserve(run.size() * (steps ? 2 : 1));
    for (const Sample& sample : run) {
      const double y = plot.Y(sample.value);
      if (steps) {
        path.push_back({plot.Edge(sample.row), y});
        path.push_back({plot.Edge(sample.row + 1), y});
      } else {
        path.push_back({plot.X(sample.row), y});
      }
    }
    paths.push_back(std::move(path));
  }
  return paths;
}

Path AreaBelow(const Path& path, double baseY) {
  Path area;
  area.reserve(path.size() + 2);
  area.push_back({path.front().x, baseY});
  area.insert(area.end(), path.begin(), path.end());
  area.push_back({path.back().x, baseY});
  return area;
}

BarPlace PlaceBars(const Plot& plot, int seriesCount) {
  const int count = std::max(1, seriesCount);
  const double width = std::floor(plot.RowWidth() * (1 - kGroupGapShare) / count);
  return {width, width * count};
}

std::vector<BarColumn> DenseBars(const ChartModel& model, const Plot& plot) {
  const int columns = std::max(1, std::min(plot.rows, static_cast<int>(plot.front.width)));
  const double base = plot.BaseY();
  std::vector<BarColumn> bars;
  bars.reserve(static_cast<std::size_t>(columns));
  for (int step = 0; step < columns; ++step) {
    const int first = FirstRowOfColumn(step, plot.rows, columns);
    const int last = FirstRowOfColumn(step + 1, plot.rows, columns);
    BarColumn bar{std::round(plot.front.x + step * plot.front.width / columns),
                  std::round(plot.front.x + (step + 1) * plot.front.width / columns),
                  {}};
    for (std::size_t s = 0; s < model.series.size(); ++s) {
      Sample least;
      Sample greatest;
      if (!ColumnExtremes(model.series[s].values, first, last, least, greatest)) continue;
      bar.spans.push_back(
          {static_cast<int>(s), std::min(base, plot.Y(greatest.value)), std::max(base, plot.Y(least.value))});
    }
    std::stable_sort(bar.spans.begin(), bar.spans.end(),
                     [](const BarSpan& a, const BarSpan& b) { return a.bottom - a.top > b.bottom - b.top; });
    if (!bar.spans.empty()) bars.push_back(std::move(bar));
  }
  return bars;
}

}  // namespace chartproject
