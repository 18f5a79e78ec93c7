// What a user can choose of a recording: all of it, the slice that is shown, or what is between the cursors.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "chart/plain/point_range.h"
#include "chart/view/chart_view.h"
#include "chart/window/control/chart_control.h"
#include "common/environment/environment.h"

namespace chartproject {

/// One entry of the choice.
struct RangeEntry {
  std::string text;  ///< "Between the cursors: 10 to 20"
  PointRange range;
};

/// The entries in the order all, visible slice, between the cursors; one that is the same as the one before is left
/// out, and so is one that cannot be. None for a recording without points.
[[nodiscard]] std::vector<RangeEntry> OfferRanges(const Environment& environment, const ChartView& view,
                                                  const ChartControl& chart);

/// The points of both cursors, the first one first; nothing unless both are set.
[[nodiscard]] std::optional<PointRange> CursorRange(const ChartControl& chart);

}  // namespace chartproject
