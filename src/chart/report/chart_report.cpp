// A report is read from the file in passes: how many points there are, their statistics, their chart.
#include "chart/report/chart_report.h"

#include <algorithm>

#include "chart/measure/range_statistics.h"
#include "chart/report/report_facts.h"
#include "chart/report/report_tables.h"
#include "common/environment/language.h"
#include "platform/run_time_error.h"

namespace chartproject {
namespace {

/// The time of a point as its row has it; empty for a line that is not a point.
std::string TimeOf(const Environment& environment, ChartView& view, std::int64_t point) {
  const Slice alone = view.PointAlone(point);
  return alone.RowCount() == 0 ? std::string() : environment.ports.codePage.Decode(alone.times.front());
}

std::string RangeText(const Environment& environment, ChartView& view, const PointRange& range, std::int64_t points) {
  std::string text = FillIn(LoadMessage(environment, Text::kReportRange),
                            {std::to_string(range.first), std::to_string(range.last), std::to_string(points)});
  const std::string first = TimeOf(environment, view, range.first);
  const std::string last = TimeOf(environment, view, range.last);
  if (!first.empty() && !last.empty()) {
    text += ", " + FillIn(LoadMessage(environment, Text::kValueSpan), {first, last});
  }
  return text;
}

}  // namespace

std::optional<ChartReport> MakeReport(const Component& component, const ChartView& shown, const ReportRequest& request,
                                      const ScanProgress& progress) {
  ChartView view(shown);  // another one of the same file: the window's own slice stays where it is
  const auto count = view.Source().Count(progress);
  if (!count) return std::nullopt;
  const std::int64_t held = view.HasPoints() ? count->lastLine - view.FirstLine() + 1 : 0;
  PointRange range = request.range;
  range.last = std::min(range.last, held);
  if (range.last < range.first) throw RunTimeError(error_number::kInvalidProcedureCall, Text::kNoPointOfRange);
  const auto statistics = MeasureRange(
      view.Source(), {range.first, range.last, view.SeriesCount(), &view.Facts().Clock(), view.Facts().Failed()},
      component.ports.locale.Numbers(), progress);
  if (!statistics || !view.LoadRange(range, progress)) return std::nullopt;

  ChartReport report;
  report.title = request.title;
  report.remark = request.remark;
  report.recording = RecordingFacts(component, view, held);
  report.drive = DriveFacts(component, view);
  report.more = FurtherFacts(component, view);
  report.range = RangeText(component, view, range, held);
  report.chart = view.Model(request.look);
  report.cursors = request.cursors;
  report.statistics = StatisticsTable(component, view, *statistics);
  report.cursorValues = CursorTable(component, view, request.cursors);
  return report;
}

}  // namespace chartproject
