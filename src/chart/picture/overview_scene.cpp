// The strip is drawn as a dense chart of two rows a pixel: the least and the greatest value there.
#include "chart/picture/overview_scene.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "chart/picture/geometry/chart_model.h"
#include "chart/picture/geometry/plot.h"
#include "chart/picture/series/dense_lines.h"
#include "chart/picture/series/series_style.h"

namespace chartproject {
namespace {

constexpr double kMargin = 4;
constexpr double kLeastPlot = 8;  ///< pixels of height below which there is nothing to be seen
constexpr double kLeastFrame = 5;
constexpr Color kDimmed = {96, 96, 88, 56};
constexpr Color kFrameColor = {20, 92, 160};
constexpr Color kTextColor = {64, 64, 60};
constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();

std::int64_t PointAt(const OverviewModel& model, double share) {
  return std::llround(share * static_cast<double>(model.points));
}

/// Two rows a column: its least and its greatest value.
ChartModel ChartOf(const OverviewModel& model, int columns) {
  ChartModel chart;
  chart.kind = ChartKind::k2dLine;
  chart.backdrop = model.backdrop;
  chart.rowCount = 2 * columns;
  for (std::size_t s = 0; s < model.colors.size(); ++s) {
    ChartSeries& series = chart.series.emplace_back();
    series.color = model.colors[s];
    series.values.reserve(static_cast<std::size_t>(chart.rowCount));
    for (int c = 0; c < columns; ++c) {
      const std::int64_t first = model.points * c / columns;
      const std::int64_t end = std::max(first + 1, model.points * (c + 1) / columns);
      const ValueRange range = model.range(static_cast<int>(s), first, end);
      series.values.push_back(range.empty ? kNothing : range.minimum);
      series.values.push_back(range.empty ? kNothing : range.maximum);
    }
  }
  return chart;
}

ValueRange RangeOfAll(const ChartModel& chart) {
  ValueRange all;
  for (const ChartSeries& series : chart.series) {
    for (const double value : series.values) all.Include(value);
  }
  return all;
}

void DrawLabels(const OverviewModel& model, const Rect& plot, const Font& font, const Canvas& canvas, Scene& scene) {
  if (!model.label || model.points < 2) return;
  constexpr double kRoom = 2.5;  // in widths of a label
  const double width = canvas.MeasureText(model.label(model.points - 1), font).width;
  const int spaces = std::clamp(static_cast<int>(plot.width / (width * kRoom + 1)), 0, 10);
  for (int i = 0; spaces > 0 && i <= spaces; ++i) {
    const double share = static_cast<double>(i) / spaces;
    const std::int64_t point = std::min(PointAt(model, share), model.points - 1);
    const double x = plot.x + share * plot.width;
    scene.Line({std::floor(x) + 0.5, plot.Bottom()}, {std::floor(x) + 0.5, plot.Bottom() + 3}, {.color = kTextColor});
    const Align align = i == 0 ? Align::kLeft : i == spaces ? Align::kRight : Align::kCenter;
    scene.Text({model.label(point), {x, plot.Bottom() + 2}, font, kTextColor, align});
  }
}

}  // namespace

OverviewScene BuildOverview(const OverviewModel& model, Size size, const Canvas& canvas) {
  OverviewScene strip{.size = size, .plot = {}, .scene = {}};
  const Font font{.family = {}, .points = 8};
  const double textHeight = std::ceil(canvas.MeasureText("0", font).height);
  const double labels = model.label ? textHeight + 2 : kMargin;
  strip.plot = {kMargin, kMargin, std::floor(size.width - 2 * kMargin), std::floor(size.height - kMargin - labels)};
  strip.scene.FillRect({0, 0, size.width, size.height}, model.backdrop);
  if (model.points <= 0 || !model.range || strip.plot.width < 1 || strip.plot.height < kLeastPlot) return strip;
  const ChartModel chart = ChartOf(model, static_cast<int>(strip.plot.width));
  Plot plot;
  plot.front = strip.plot;
  plot.rows = chart.rowCount;
  const ValueRange all = RangeOfAll(chart);
  if (!all.empty) {
    constexpr int kSteps = 10;  // round enough to fill the height for any values
    plot.axis = ChooseValueAxis(all, false, kSteps);
    DrawDenseLines(chart, plot, strip.scene);
  }
  DrawLabels(model, strip.plot, font, canvas, strip.scene);
  return strip;
}

Scene BuildOverviewFrame(const OverviewModel& model, const OverviewScene& strip, std::int64_t first, std::int64_t end) {
  Scene scene;
  if (model.points <= 0) return scene;
  const Rect& plot = strip.plot;
  const auto at = [&](std::int64_t point) {
    const double share = static_cast<double>(point) / static_cast<double>(model.points);
    return plot.x + std::clamp(share, 0.0, 1.0) * plot.width;
  };
  const double width = std::max(at(end) - at(first), kLeastFrame);
  const double left = std::round(std::clamp((at(first) + at(end) - width) / 2, plot.x, plot.Right() - width));
  const double right = std::round(left + width);
  scene.FillRect({plot.x, plot.y, left - plot.x, plot.height}, kDimmed);
  scene.FillRect({right, plot.y, plot.Right() - right, plot.height}, kDimmed);
  const double top = plot.y - 1.5;
  const double bottom = plot.Bottom() + 0.5;
  scene.Polygon(
      std::array<PointF, 4>{{{left - 0.5, top}, {right + 0.5, top}, {right + 0.5, bottom}, {left - 0.5, bottom}}},
      {0, 0, 0, 0}, {.color = kFrameColor, .width = 1.5});
  return scene;
}

}  // namespace chartproject
