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

ValueRange RangeOfSeries(const ChartModel& model, const std::vector<int>& columns) {
  ValueRange whole;
  for (const int column : columns) {
    const ValueRange range = RangeOf(model.series[static_cast<std::size_t>(column)].values);
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
double Depth(const ChartModel& model, std::size_t seriesCount, double width, double height) {
  if (!Is3d(model.kind)) return 0;
  const double shorter = std::min(width, height);
  const auto count = static_cast<double>(std::max<std::size_t>(1, seriesCount));
  if (model.kind != ChartKind::k3dBar) return std::floor(shorter * (0.10 + 0.05 * count));
  const double barWidth = width / (std::max(1, model.rowCount) * count);
  return std::floor(std::clamp(barWidth * 2, shorter * 0.05, shorter * 0.2));
}

std::optional<Rect> PlaceLegend(const ChartModel& model, Size size, const ChartLayout& layout, const Canvas& canvas) {
  const std::vector<int> columns = VisibleSeries(model);
  if (!model.legendVisible || columns.empty()) return std::nullopt;
  double widest = 0;
  for (const int column : columns) {
    const ChartSeries& series = model.series[static_cast<std::size_t>(column)];
    widest = std::max(widest, canvas.MeasureText(series.label, layout.font).width);
  }
  const double width = std::ceil(kSwatchSize + 6 + widest);
  const double height = static_cast<double>(columns.size()) * (layout.textHeight + 4);
  const double top = layout.titleBottom + 4;
  if (width > size.width * kWidestLegendShare || top + height > size.height - layout.margin) return std::nullopt;
  return Rect{size.width - layout.margin - width, top, width, height};
}

/// The value axis for a height, and its texts.
void ChooseValues(const ChartModel& model, const NumberFormat& format, double textHeight, ChartLane& lane) {
  Plot& plot = lane.plot;
  const int steps = std::clamp(static_cast<int>(plot.front.height / (textHeight * kTickSpacing)), 1, 10);
  const auto fixed = model.lanes && !lane.series.empty()
                         ? model.series[static_cast<std::size_t>(lane.series.front())].range
                     : model.lanes ? std::nullopt
                                   : model.valueRange;
  plot.axis = fixed ? FixedValueAxis(*fixed, steps)
                    : ChooseValueAxis(RangeOfSeries(model, lane.series), StandsOnZero(model.kind), steps);
  lane.valueTexts.clear();
  if (plot.axis.TickCount() > 1 && plot.front.height / (plot.axis.TickCount() - 1) < textHeight + 1) return;
  for (int i = 0; i < plot.axis.TickCount(); ++i) lane.valueTexts.push_back(TickText(plot.axis, i, format));
}

/// The lanes of a model, without their places: one for all the series, or one for each.
std::vector<ChartLane> LanesOf(const ChartModel& model) {
  const std::vector<int> columns = VisibleSeries(model);
  std::vector<ChartLane> lanes(model.lanes ? std::max<std::size_t>(1, columns.size()) : 1);
  if (!model.lanes) {
    lanes.front().series = columns;
    return lanes;
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    lanes[i].series = {columns[i]};
    lanes[i].title = model.series[static_cast<std::size_t>(columns[i])].axisTitle;
  }
  return lanes;
}

/// Shares the height from `top` to `bottom`: each lane has a line for its title, its depth, and the same front.
void PlaceLanes(const ChartModel& model, double top, double bottom, double width, ChartLayout& layout) {
  std::vector<ChartLane>& lanes = layout.lanes;
  const auto count = static_cast<double>(lanes.size());
  // The lowest label of a lane reaches into the gap by half its height, the topmost of the next one into its title.
  double gap = std::ceil(layout.textHeight / 2);
  double title = model.lanes ? layout.textHeight + 2 : 0;
  if ((bottom - top - gap * (count - 1)) / count - title < kLeastPlot) {
    title = 0;
    gap = layout.textHeight;
  }
  const double share = (bottom - top - gap * (count - 1)) / count;
  const double depth = std::max(0.0, Depth(model, lanes.front().series.size(), width, share - title));
  double y = top;
  for (ChartLane& lane : lanes) {
    const double end = &lane == &lanes.back() ? bottom : y + share;
    Plot& plot = lane.plot;
    plot.rows = model.rowCount;
    plot.depthX = std::round(depth * kDepthRight);
    plot.depthY = std::round(depth * kDepthUp);
    plot.front.y = std::round(y + title + plot.depthY);
    plot.front.height = std::max(1.0, std::floor(end - plot.front.y));
    lane.titleY = std::round(y) - 1;
    if (title == 0) lane.title.clear();
    y = end + gap;
  }
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
  const int labelLines = model.categoryUnit == CategoryUnit::kTimeOfDay ? 2 : 1;
  const double labelBand = kTickLength + kTickGap + labelLines * layout.textHeight;
  layout.hasCategoryLabels = size.height - top - labelBand - layout.margin >= kLeastPlot;
  const double bottom = size.height - layout.margin - categoryTitle - (layout.hasCategoryLabels ? labelBand : 0);

  layout.lanes = LanesOf(model);
  PlaceLanes(model, top, bottom, right - layout.margin, layout);
  double labels = 0;
  for (ChartLane& lane : layout.lanes) {
    ChooseValues(model, format, layout.textHeight, lane);
    labels = std::max(labels, WidestText(lane.valueTexts, layout.font, canvas));
  }
  const double depthX = layout.lanes.front().plot.depthX;
  if (labels > (right - depthX) * kWidestLabelsShare) {
    for (ChartLane& lane : layout.lanes) lane.valueTexts.clear();
    labels = 0;
  }
  const double left = std::round(layout.margin + (labels > 0 ? labels + kTickLength + kTickGap : 0));
  for (ChartLane& lane : layout.lanes) {
    lane.plot.front.x = left;
    lane.plot.front.width = std::max(1.0, std::floor(right - depthX - left));
  }
  Plot& plot = layout.plot;
  plot = layout.lanes.front().plot;
  plot.front.height = layout.lanes.back().plot.front.Bottom() - plot.front.y;

  const auto textWidth = [&](std::string_view text) { return canvas.MeasureText(text, layout.font).width; };
  const double rightRoom = size.width - 2 - plot.front.Right();
  layout.categories = LayOutCategoryAxis(model, {plot.RowWidth(), plot.front.x - 2, rightRoom, textWidth, format});
  if (!layout.hasCategoryLabels) layout.categories.labels.clear();
  return layout;
}

}  // namespace chartproject
