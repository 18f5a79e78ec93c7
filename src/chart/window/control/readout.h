// What the chart says of a point under the mouse pointer, and of two points beside each other.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "chart/file/slice_reader.h"
#include "chart/window/control/chart_overlay.h"
#include "common/environment/environment.h"
#include "recording/companion/point_times.h"
#include "recording/file/chart_header.h"

namespace chartproject {

/// One point as it was measured: values without any scale; NaN is a gap.
struct PointReading {
  std::int64_t number = 0;  ///< counted from 1 in the file
  std::string time;         ///< as the file has it
  std::vector<double> values;
  std::vector<std::string> failures{};  ///< by series: why its reading failed; empty where it did not
};

/// The point of a row of the slice, counted from 0. @param firstLine line of the file's first point
[[nodiscard]] PointReading ReadPoint(const Slice& slice, int row, std::int32_t firstLine, int series);

/// Number and time of the point, then one line a series. @param names of the series, for example "P005"
[[nodiscard]] std::vector<ReadoutLine> PointReadout(const Environment& environment, const PointReading& point,
                                                    const std::vector<std::string>& names);

/// The cursors that are set; when both are, also the difference (second minus first) in points, in time (the real
/// one where `times` is known, else points times scan time) and in the value of each series.
[[nodiscard]] std::vector<ReadoutLine> CursorReadout(const Environment& environment, const ChartHeader& header,
                                                     const std::array<std::optional<PointReading>, 2>& cursors,
                                                     const std::vector<std::string>& names,
                                                     const PointTimes* times = nullptr);

}  // namespace chartproject
