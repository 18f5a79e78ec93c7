// The series of the three-dimensional chart types: shaded faces in the order from back to front.
#pragma once

#include "chart/picture/geometry/chart_model.h"
#include "chart/picture/geometry/plot.h"
#include "chart/picture/geometry/scene.h"

namespace chartproject {

struct DepthSpan {
  double front = 0;  ///< 0 is the front plane, 1 the back wall
  double back = 1;
};

/// The depth that a series of a line, area or step chart takes: its own row, with some room between the rows.
[[nodiscard]] DepthSpan DepthOfSeries(const Plot& plot, int column, int seriesCount) noexcept;

/// Rows of depth by the series' mean values, the lowest in front: in a dense plot a tall one would hide the others.
[[nodiscard]] std::vector<int> RowsByHeight(const ChartModel& model);

/// Bars are boxes, side by side as in the flat chart. Lines and steps are ribbons and areas are slabs, each series in
/// its own row of depth.
void DrawSolidSeries(const ChartModel& model, const Plot& plot, Scene& scene);

}  // namespace chartproject
