// Shading of the points whose readings failed.
#pragma once

#include "chart/picture/geometry/chart_model.h"
#include "chart/picture/geometry/plot.h"
#include "chart/picture/geometry/scene.h"

namespace chartproject {

/// Over the back wall a pale red band where any series failed, and at its top edge a strip for each of these series in
/// its colour, so that one sees which. Nothing for a model without failed rows.
void DrawFailedRows(const ChartModel& model, const Plot& plot, Scene& scene);

}  // namespace chartproject
