// The chart's properties and data, in the order in which they depend on each other.
#include "chart/view/chart_building.h"

namespace chartproject {
namespace {

constexpr PenNumber kNoPen = 0;
constexpr PenNumber kSolidPen = 1;
constexpr PenNumber kWallPen = 6;

void SetCounts(ChartModel& model, int columns, int rows) {
  model.series.resize(static_cast<std::size_t>(columns));
  for (std::size_t column = 0; column < model.series.size(); ++column) {
    model.series[column].color = kSeriesColors[column % kSeriesColors.size()];
  }
  model.rowCount = rows;
}

void SetData(ChartModel& model, const Slice& slice, const ChartExtent& extent, const ChartLook& look) {
  model.firstRowLabel = std::int64_t{1} + slice.startLine - extent.firstLine;
  model.labelsPerRow = slice.pointsPerRow;
  for (std::size_t column = 0; column < model.series.size(); ++column) {
    std::vector<double>& values = model.series[column].values;
    values = slice.values[column];
    if (look.scales[column] == 1) continue;
    for (double& value : values) value *= look.scales[column];
  }
}

}  // namespace

ChartModel BuildChart(const Slice& slice, const ChartExtent& extent, const ChartLook& look) {
  ChartModel model;
  model.kind = look.kind;
  model.categoryTitle = model.valueTitle = model.title = "";
  SetCounts(model, extent.series, slice.RowCount());
  // The swatches beside the series' names distinguish them.
  model.legendVisible = false;
  ShowGrid(model, false);
  model.wallPen = kWallPen;
  model.backdrop = kChartBackdrop;
  model.backdropFilled = true;
  model.frame = FrameStyle::kDouble;
  model.categoryScale = {false, extent.rowsPerDivision, extent.rowsPerDivision, true};
  SetData(model, slice, extent, look);
  ShowGrid(model, look.grid);
  ShowMarkers(model, look.markers);
  ShowLines(model, look.lines);
  model.lanes = look.lanes;
  model.legendVisible = look.legend;
  model.valueRange = look.valueRange;
  for (std::size_t column = 0; column < model.series.size(); ++column) {
    model.series[column].visible = !look.hidden[column];
    model.series[column].range = look.laneRanges[column];
  }
  return model;
}

void ShowGrid(ChartModel& model, bool show) {
  model.categoryGrid = model.valueGrid = model.secondValueGrid = show ? kSolidPen : kNoPen;
}

void ShowLines(ChartModel& model, bool show) {
  for (ChartSeries& series : model.series) series.showLine = show;
}

void ShowMarkers(ChartModel& model, bool show) {
  for (ChartSeries& series : model.series) series.showMarker = show;
}

}  // namespace chartproject
