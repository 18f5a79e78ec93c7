// The series of the two-dimensional chart types.
#pragma once

#include "chart/picture/geometry/chart_model.h"
#include "chart/picture/geometry/plot.h"
#include "chart/picture/geometry/scene.h"

namespace chartproject {

/// Bars side by side, lines, areas that let the ones below shine through, or steps, with their markers.
void DrawFlatSeries(const ChartModel& model, const Plot& plot, Scene& scene);

}  // namespace chartproject
