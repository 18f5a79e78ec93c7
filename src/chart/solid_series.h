// The series of the three-dimensional chart types: shaded faces in the order from back to front.
#pragma once

#include "chart/chart_model.h"
#include "chart/plot.h"
#include "chart/scene.h"

namespace chartproject {

/// Bars are boxes, side by side as in the flat chart. Lines and steps are ribbons and areas are slabs, each series in
/// its own row of depth, the first in front.
void DrawSolidSeries(const ChartModel& model, const Plot& plot, Scene& scene);

}  // namespace chartproject
