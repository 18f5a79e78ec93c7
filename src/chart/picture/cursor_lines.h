// The lines of the measuring cursors, the same over the chart on screen and on paper.
#pragma once

#include <array>
#include <cstddef>

#include "chart/picture/chart_scene.h"

namespace chartproject {

inline constexpr std::array<Color, 2> kCursorColors = {Color{20, 92, 160}, Color{168, 84, 16}};

/// A line over all lanes with the cursor's number at its top. @param which 0 or 1; @param row of the chart
void DrawCursorLine(std::size_t which, int row, const ChartScene& chart, const Canvas& canvas, Scene& scene);

}  // namespace chartproject
