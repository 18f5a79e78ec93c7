// Parts of a chart model.
#include "chart/picture/geometry/chart_model.h"

namespace chartproject {

std::vector<int> VisibleSeries(const ChartModel& model) {
  std::vector<int> columns;
  for (int column = 0; column < static_cast<int>(model.series.size()); ++column) {
    if (model.series[static_cast<std::size_t>(column)].visible) columns.push_back(column);
  }
  return columns;
}

ChartModel PartOf(const ChartModel& model, const std::vector<int>& columns) {
  ChartModel part;
  part.kind = model.kind;
  part.backdrop = model.backdrop;
  part.firstRowLabel = model.firstRowLabel;
  part.labelsPerRow = model.labelsPerRow;
  part.rowCount = model.rowCount;
  for (const int column : columns) {
    part.series.push_back(model.series[static_cast<std::size_t>(column)]);
    part.series.back().shape = column;
  }
  return part;
}

}  // namespace chartproject
