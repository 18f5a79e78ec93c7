// Everything of a chart but its series: backdrop, walls, grid, axes, labels, titles, legend.
#pragma once

#include "chart/picture/chart_layout.h"
#include "chart/picture/geometry/scene.h"

namespace chartproject {

/// The parts that are painted before the series.
void DrawChartBackground(const ChartModel& model, const ChartLayout& layout, Size size, Scene& scene);

/// The axes' lines and ticks, which are painted in front of the series, and all the texts.
void DrawChartAxes(const ChartModel& model, const ChartLayout& layout, Size size, const Canvas& canvas, Scene& scene);

}  // namespace chartproject
