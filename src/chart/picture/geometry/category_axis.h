// The category axis: where it has a tick and where a label, so that labels never touch.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "chart/picture/geometry/chart_model.h"
#include "platform/locale.h"

namespace chartproject {

struct CategoryLabel {
  double position = 0;  ///< in rows from the axis' start; the middle of row r is r + 0.5
  std::string text;
  std::string date{};  ///< under the text: where an axis of times begins, and where midnight passes
};

struct CategoryAxis {
  std::vector<double> ticks;  ///< positions as those of labels
  std::vector<CategoryLabel> labels;
};

/// The room that the axis has.
struct CategoryRoom {
  double rowWidth = 1;   ///< pixels from one row to the next
  double leftRoom = 0;   ///< pixels that a label may reach out to the left of the axis' start
  double rightRoom = 0;  ///< and to the right of its end
  std::function<double(std::string_view)> textWidth;
  NumberFormat numbers{};  ///< of times
};

/// One tick at each division, and one label where the labels fit; otherwise every second, third, ... one evenly. Where
/// the model counts times, see LayOutTimeAxis.
[[nodiscard]] CategoryAxis LayOutCategoryAxis(const ChartModel& model, const CategoryRoom& room);

}  // namespace chartproject
