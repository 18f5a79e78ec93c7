// A whole recording as a low strip: what each series reached, with the time under it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "chart/picture/geometry/scene.h"
#include "chart/picture/geometry/value_axis.h"

namespace chartproject {

/// What a strip shows. Points are counted from 0.
struct OverviewModel {
  std::int64_t points = 0;
  std::vector<Color> colors;  ///< one a series
  Color backdrop = {255, 255, 255};
  /// What a series reaches among the points [first, end); empty where that is not known.
  std::function<ValueRange(int series, std::int64_t first, std::int64_t end)> range;
  std::function<std::string(std::int64_t point)> label;  ///< the time of a point; none where it is not known
};

struct OverviewScene {
  Size size;
  Rect plot;  ///< where the series are; its width is the whole recording
  Scene scene;
};

/// Works the strip out; `canvas` only measures texts. Each pixel column holds the extremes of its points. All series
/// share one range of values, as in the chart.
[[nodiscard]] OverviewScene BuildOverview(const OverviewModel& model, Size size, const Canvas& canvas);

/// The slice [first, end) as a frame; the rest of the recording is dimmed.
[[nodiscard]] Scene BuildOverviewFrame(const OverviewModel& model, const OverviewScene& strip, std::int64_t first,
                                       std::int64_t end);

}  // namespace chartproject
