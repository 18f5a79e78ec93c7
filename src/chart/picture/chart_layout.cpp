// Sharing of the chart's area.
#include "chart/picture/chart_layout.h"

#include <algorithm>
#include <cmath>

#include "chart/picture/geometry/decimation.h"

namespace chartproject {
namespace {

constexpr double kTickSpacing = 2.0;          ///< least distance of value ticks, in text heights
constexpr double kWidestLabelsShare = 0.38;   ///< of the width before legend and depth, for the value labels
constexpr double kWidestLegendShare = 0.3;    ///< of the chart's width
constexpr double kHighestTitlesShare = 0.25;  ///< of the chart's height, for all the titles
constexpr double kLeastPlot = 24;             ///< pixels, below which labels make room
/// Direction of depth, for a unit of it: flat enough that rising ribbons seldom run along it.
constexpr double kDepthRight = 0.86;
constexpr double kDepthUp = 0.5;

double TextPoints(Size size) {
  const double width = std::min(size.width, size.height * 1.7);
  return width < 240 ? 7 : width < 420 ? 8 : 9;
}

ValueRange RangeOfSeries(const ChartModel& model) {
  ValueRange whole;
  for (const ChartSeries& series : model.series) {
    const ValueRange range = RangeOf(series.values);
    if (range.empty) continue;
    whole.Include(range.minimum);
    whole.Include(range.maximum);
  }
  return whole;
}

bool StandsOnZero(ChartKind kind) {
  return Flat(kind) == ChartKind::k2dBar || Flat(kind) == ChartKind::k2dArea;
}

/// Depth for a plot of a size: bars are about as deep as wide, in one row; the other types have one row a series.
double Depth(const ChartModel& model, double width, double height) {
  if (!Is3d(model.kind)) return 0;
  const double shorter = std::min(width, height);
  const auto count = static_cast<double>(std::max<std::size_t>(1, model.series.size()));
  if (model.kind != ChartKind::k3dBar) return std::floor(shorter * (0.10 + 0.05 * count));
  const double barWidth = width / (std::max(1, model.rowCount) * count);
  return std::floor(std::clamp(barWidth * 2, shorter * 0.05, shorter * 0.2));
}

std::optional<Rect> PlaceLegend(const ChartModel& model, Size size, const ChartLayout& layout, const Canvas& canvas) {
  if (!model.legendVisible || model.series.empty()) return std::nullopt;
  double widest = 0;
  for (const ChartSeries& series : model.series) {
    widest = std::max(widest, canvas.MeasureText(series.label, layout.font).width);
  }
  const double width = std::ceil(kSwatchSize + 6 + widest);
  const double height = static_cast<double>(model.series.size()) * (layout.textHeight + 4);
  const double top = layout.titleBottom + 4;
  if (width > size.width * kWidestLegendShare || top + height > size.height - layout.margin) return std::nullopt;
  return Rect{size.width - layout.margin - width, top, width, height};
}

/// The value axis for a height, and its texts.
void ChooseValues(const ChartModel& model, const NumberFormat& format, ChartLayout& layout) {
  Plot& plot = layout.plot;
  const int steps = std::clamp(static_cast<int>(plot.front.height / (layout.textHeight * kTickSpacing)), 1, 10);
  plot.axis = ChooseValueAxis(RangeOfSeries(model), StandsOnZero(model.kind), steps);
  layout.valueTexts.clear();
  if (plot.front.height / (plot.axis.TickCount() - 1) < layout.textHeight + 1) return;
  for (int i = 0; i < plot.axis.TickCount(); ++i) layout.valueTexts.push_back(TickText(plot.axis, i, format));
}

double WidestText(const std::vector<std::string>& texts, const Font& font, const Canvas& canvas) {
  double widest = 0;
  for (const std::string& text : texts) widest = std::max(widest, canvas.MeasureText(text, font).width);
  return std::ceil(widest);
}

}  // namespace

ChartLayout LayOutChart(const ChartModel& model, Size size, const Canvas& canvas, const NumberFormat& format) {
  ChartLayout layout;
  layout.font = {.family = {}, .points = TextPoints(size)};
  layout.titleFont = {.family = {}, .points = layout.font.points + 2, .bold = true};
  layout.textHeight = std::ceil(canvas.MeasureText("0", layout.font).height);
  layout.margin = std::clamp(std::round(std::min(size.width, size.height) * 0.025), 5.0, 12.0);

  double title = model.title.empty() ? 0 : std::ceil(canvas.MeasureText(model.title, layout.titleFont).height) + 2;
  double valueTitle = model.valueTitle.empty() ? 0 : layout.textHeight + 4;
  double categoryTitle = model.categoryTitle.empty() ? 0 : layout.textHeight + 2;
  layout.hasTitles = title + valueTitle + categoryTitle <= size.height * kHighestTitlesShare;
  if (!layout.hasTitles) title = valueTitle = categoryTitle = 0;
  layout.titleBottom = layout.margin + title;
  // Half of the topmost value label is above the plot.
  const double top = layout.titleBottom + valueTitle + std::ceil(layout.textHeight / 2);
  layout.legend = PlaceLegend(model, size, layout, canvas);
  const double right = layout.legend ? layout.legend->x - layout.margin : size.width - layout.margin;
  const double labelBand = kTickLength + kTickGap + layout.textHeight;
  layout.hasCategoryLabels = size.height - top - labelBand - layout.margin >= kLeastPlot;
  const double bottom = size.height - layout.margin - categoryTitle - (layout.hasCategoryLabels ? labelBand : 0);

  Plot& plot = layout.plot;
  plot.rows = model.rowCount;
  const double depth = std::max(0.0, Depth(model, right - layout.margin, bottom - top));
  plot.depthX = std::round(depth * kDepthRight);
  plot.depthY = std::round(depth * kDepthUp);
  plot.front.y = std::round(top + plot.depthY);
  plot.front.height = std::max(1.0, std::floor(bottom - plot.front.y));
  ChooseValues(model, format, layout);
  double labels = WidestText(layout.valueTexts, layout.font, canvas);
  if (labels > (right - plot.depthX) * kWidestLabelsShare) layout.valueTexts.clear();
  if (layout.valueTexts.empty()) labels = 0;
  plot.front.x = std::round(layout.margin + (labels > 0 ? labels + kTickLength + kTickGap : 0));
  plot.front.width = std::max(1.0, std::floor(right - plot.depthX - plot.front.x));

  const auto textWidth = [&](std::string_view text) { return canvas.MeasureText(text, layout.font).width; };
  const double rightRoom = size.width - 2 - plot.front.Right();
  layout.categories = LayOutCategoryAxis(model, {plot.RowWidth(), plot.front.x - 2, rightRoom, textWidth});
  if (!layout.hasCategoryLabels) layout.categories.labels.clear();
  return layout;
}

}  // namespace chartproject
