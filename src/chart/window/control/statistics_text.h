// The statistics between the measuring cursors as lines of a box and as a text for other programs.
#pragma once

#include <string>
#include <vector>

#include "chart/measure/range_statistics.h"
#include "chart/window/control/chart_overlay.h"
#include "common/environment/environment.h"

namespace chartproject {

/// A table: a line with the series' names, then a line for each number, a column a series. Numbers have six digits.
/// @param names of the series, as many as there are statistics
[[nodiscard]] std::vector<ReadoutLine> StatisticsLines(const Environment& environment,
                                                       const std::vector<std::string>& names,
                                                       const std::vector<SeriesStatistics>& statistics);

/// The same table with all the digits; cells are separated by tabulators, lines end with carriage return and line feed.
[[nodiscard]] std::string StatisticsText(const Environment& environment, const std::vector<std::string>& names,
                                         const std::vector<SeriesStatistics>& statistics);

}  // namespace chartproject
