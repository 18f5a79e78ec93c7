// The tables of a report.
#pragma once

#include <vector>

#include "chart/measure/range_statistics.h"
#include "chart/report/chart_report.h"

namespace chartproject {

/// A row a series: least, greatest, mean, RMS and how many points have no value.
[[nodiscard]] ReportTable StatisticsTable(const Environment& environment, const ChartView& view,
                                          const std::vector<SeriesStatistics>& statistics);

/// The points of the cursors beside each other, and where both are set their difference. Throws RunTimeError when the
/// file cannot be read. @param view reads the points; it goes on showing its slice
[[nodiscard]] ReportTable CursorTable(const Environment& environment, ChartView& view,
                                      const std::array<std::optional<std::int64_t>, 2>& cursors);

}  // namespace chartproject
