// Builds the chart of a slice in the chart control, the same on screen, on paper and in a picture file.
#pragma once

#include <array>
#include <cstdint>

#include "chart/file/slice_reader.h"
#include "chart/window/chart_control.h"

namespace chartproject {

/// Everything that a chart shows besides the slice's values.
struct ChartSettings {
  int chartType = 3;  ///< 0 to 7
  int series = 0;     ///< 1 to 4, or 0 for an empty chart
  std::int16_t pointsPerDivision = 1;
  std::int32_t firstLine = 0;  ///< the file's first point stands there
  std::array<std::int16_t, kColumnCount> scales{1, 1, 1, 1};
};

/// Builds the chart anew. The rows are labelled by the points' numbers in the file; their values are multiplied by the
/// scales.
void BuildChart(ChartControl& chart, const Slice& slice, const ChartSettings& settings);

// The three switches over a chart.
// -------------------------------------------------------------------------------------
void ShowGrid(ChartControl& chart, bool show);
void ShowLines(ChartControl& chart, bool show);
void ShowMarkers(ChartControl& chart, bool show);

}  // namespace chartproject
