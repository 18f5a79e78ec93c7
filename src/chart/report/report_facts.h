// What a report says of a recording as a whole, beside its points.
#pragma once

#include <cstdint>
#include <vector>

#include "chart/report/chart_report.h"

namespace chartproject {

/// Start, end, duration, and the interval that was asked for beside the real one. @param points of the recording
[[nodiscard]] std::vector<ReportItem> RecordingFacts(const Component& component, const ChartView& view,
                                                     std::int64_t points);
/// The nameplate of the drive as the project knows it.
[[nodiscard]] std::vector<ReportItem> DriveFacts(const Component& component, const ChartView& view);
/// Trigger, event, failed readings, and what casts a doubt on the values.
[[nodiscard]] std::vector<ReportItem> FurtherFacts(const Component& component, const ChartView& view);

}  // namespace chartproject
