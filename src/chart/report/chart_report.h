// A report of a recording: what is known of it, and of a range of its points, as texts and tables that are ready to be
// printed after the page of the chart.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "chart/view/chart_view.h"

namespace chartproject {

/// What is reported.
struct ReportRequest {
  PointRange range{};  ///< of the recording's points; cut where they end
  ChartLook look{};    ///< of the range's chart
  std::string title{};
  std::string remark{};                                  ///< may have several lines
  std::array<std::optional<std::int64_t>, 2> cursors{};  ///< points whose values are shown
};

/// "Start", "31/01/2026 08:00:00".
struct ReportItem {
  std::string label;
  std::string value;
};

struct ReportTable {
  struct Row {
    int series = -1;  ///< whose colour is shown; -1 for none
    std::vector<std::string> cells;
  };
  std::string title;
  std::vector<std::string> heads;  ///< of the columns; the first one names the rows
  std::vector<Row> rows;
};

struct ChartReport {
  std::string title;
  std::string remark;
  std::vector<ReportItem> recording;
  std::vector<ReportItem> drive;  ///< shown beside the recording
  std::vector<ReportItem> more;   ///< that may be long: trigger, failed readings, notices
  std::string range;              ///< "Points 1 to 400 of 400, 08:00:00 to 08:06:39"
  ChartModel chart;               ///< of the range
  std::array<std::optional<std::int64_t>, 2> cursors;
  ReportTable statistics;
  ReportTable cursorValues;  ///< without rows where no cursor is set
};

/// Reads what the report says; every value of the range counts. Nothing when the progress function gave it up. Throws
/// RunTimeError 5 when the recording has no point of the range, 321 at a line that is not a point, and as the file
/// system does. @param view has the file open and its series named; it shows the same slice as before afterwards
[[nodiscard]] std::optional<ChartReport> MakeReport(const Component& component, const ChartView& view,
                                                    const ReportRequest& request, const ScanProgress& progress = {});

}  // namespace chartproject
