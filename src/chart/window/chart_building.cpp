// The chart's properties and data, in the order in which they depend on each other.
#include "chart/window/chart_building.h"

namespace chartproject {
namespace {

constexpr PenNumber kNoPen = 0;
constexpr PenNumber kSolidPen = 1;
constexpr PenNumber kWallPen = 6;
/// A pale yellow.
constexpr Color kBackdropColor{255, 255, 230};

}  // namespace

void BuildChart(ChartControl& chart, const Slice& slice, const ChartSettings& settings) {
  chart.ResetToDefaults();
  chart.SetChartType(settings.chartType);
  chart.SetTitles("", "", "");
  chart.SetColumnCount(settings.series);
  chart.SetRowCount(slice.RowCount());
  // The swatches beside the series' names tell them apart.
  chart.SetLegendVisible(false);
  ShowGrid(chart, false);
  chart.SetWallPen(kWallPen);
  chart.SetBackdrop(kBackdropColor, FrameStyle::kDouble);
  chart.SetCategoryScale({false, settings.pointsPerDivision, settings.pointsPerDivision, true});
  chart.SetFirstRowLabel(std::int64_t{1} + slice.startLine - settings.firstLine);
  for (int column = 0; column < settings.series; ++column) {
    const auto k = static_cast<std::size_t>(column);
    std::vector<double> values = slice.values[k];
    if (settings.scales[k] != 1) {
      for (double& value : values) value *= settings.scales[k];
    }
    chart.SetColumn(column, std::move(values));
  }
}

void ShowGrid(ChartControl& chart, bool show) {
  for (const ChartAxis axis : {ChartAxis::kX, ChartAxis::kY, ChartAxis::kSecondY}) {
    chart.SetGridPen(axis, show ? kSolidPen : kNoPen);
  }
}

void ShowLines(ChartControl& chart, bool show) {
  for (int column = 0; column < chart.ColumnCount(); ++column) chart.SetShowLine(column, show);
}

void ShowMarkers(ChartControl& chart, bool show) {
  for (int column = 0; column < chart.ColumnCount(); ++column) chart.SetShowMarker(column, show);
}

}  // namespace chartproject
