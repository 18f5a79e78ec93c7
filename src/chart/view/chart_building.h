// Builds the chart of a slice, the same on screen, on paper and in a picture file.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "chart/file/slice_reader.h"
#include "chart/picture/geometry/chart_model.h"

namespace chartproject {

/// The ground of every chart: a pale yellow.
inline constexpr Color kChartBackdrop{255, 255, 230};

/// How a chart looks: what the window's controls, the options of a command and the printed page all fill.
struct ChartLook {
  ChartKind kind = ChartKind::k2dLine;
  bool grid = false;
  bool lines = true;
  bool markers = false;
  CategoryUnit axis = CategoryUnit::kPoints;  ///< points where the file does not have the times
  bool lanes = false;                         ///< one value axis a series
  bool legend = false;                        ///< names of the series beside the plot
  std::array<bool, kColumnCount> hidden{};    ///< series that are not drawn
  std::optional<ValueRange> valueRange{};     ///< of the common axis; nothing for that of the data
  std::array<std::optional<ValueRange>, kColumnCount> laneRanges{};  ///< of the lanes
  bool failures = true;                                              ///< readings that failed are shaded
  std::array<std::int16_t, kColumnCount> scales{1, 1, 1, 1};         ///< multipliers of the series, 1 to 32767
};

/// What a chart shows of its slice.
struct ChartExtent {
  int series = 0;  ///< 1 to 4, or 0 for an empty chart
  std::int16_t rowsPerDivision = 1;
  std::int32_t firstLine = 0;  ///< line of the file's first point
};

/// The rows are labelled by the points' numbers in the file; their values are multiplied by the scales.
[[nodiscard]] ChartModel BuildChart(const Slice& slice, const ChartExtent& extent, const ChartLook& look);

// The three switches over a chart.
// -------------------------------------------------------------------------------------
void ShowGrid(ChartModel& model, bool show);
void ShowLines(ChartModel& model, bool show);
void ShowMarkers(ChartModel& model, bool show);

}  // namespace chartproject
