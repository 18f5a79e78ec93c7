// The category axis in units of time: round moments, their places among the rows, and their texts.
#pragma once

#include <cstdint>
#include <string>

#include "chart/picture/geometry/category_axis.h"

namespace chartproject {

/// One tick and one label at each whole multiple of the smallest step (1, 2 or 5 times a power of ten of milliseconds;
/// of seconds and minutes also 10, 15 and 30, of hours 1, 2, 3, 6 and 12, of days as of milliseconds) whose labels fit.
/// Where the rows are unevenly spaced a label that would touch another one is left out. A time of day has its date
/// under the first label and where midnight passes. Nothing without two knots of the model's row times.
[[nodiscard]] CategoryAxis LayOutTimeAxis(const ChartModel& model, const CategoryRoom& room);

/// "01:02:03", or "12.5 s" on an axis that ends within a minute; with as many decimals as a step needs.
/// @param milliseconds since the first point; @param longest of the axis, which chooses the form
[[nodiscard]] std::string ElapsedText(std::int64_t milliseconds, std::int64_t longest, std::int64_t step,
                                      const NumberFormat& format);

/// "14:05", for a step of less than a minute "14:05:30", of less than a second with its decimals.
/// @param milliseconds since a midnight; whole days do not count
[[nodiscard]] std::string TimeOfDayText(std::int64_t milliseconds, std::int64_t step, const NumberFormat& format);

}  // namespace chartproject
