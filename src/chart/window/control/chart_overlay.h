// What lies over a chart while it is read: the pointer's line, the measuring cursors, and boxes with their values.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "chart/picture/chart_scene.h"

namespace chartproject {

/// One line of a box that the chart shows over itself.
struct ReadoutLine {
  std::string text;
  int series = -1;                   ///< column whose colour is shown before the text; -1 for none
  std::vector<std::string> cells{};  ///< columns of a table after the text, to the right; lines with cells share widths
};

struct ChartOverlay {
  std::optional<int> pointerRow;
  std::array<std::optional<int>, 2> cursorRows;
  std::vector<ReadoutLine> readout;        ///< beside the pointer's line
  std::vector<ReadoutLine> cursorReadout;  ///< in a corner, away from the pointer
  std::optional<int> markRow{};
  std::string markText{};     ///< in a box at the mark's line
  std::optional<Rect> box{};  ///< that the user drags
};

/// The overlay's shapes, for a chart that is already painted. Boxes stay inside the chart; one that is larger than the
/// chart is left out, and the cursors' box gives way to the pointer's.
[[nodiscard]] Scene BuildOverlay(const ChartOverlay& overlay, const ChartModel& model, const ChartScene& chart,
                                 const Canvas& canvas);

}  // namespace chartproject
