// Lines, steps and areas of more rows than pixels.
#pragma once

#include "chart/picture/geometry/chart_model.h"
#include "chart/picture/geometry/plot.h"
#include "chart/picture/geometry/scene.h"

namespace chartproject {

/// Draws the flat lines, steps or areas of a dense plot column by column, without markers. Where a series is calm it
/// is a smooth line; where it is not, its columns are filled from the least to the greatest value.
void DrawDenseLines(const ChartModel& model, const Plot& plot, Scene& scene);

}  // namespace chartproject
