// Numbers in columns.
#include "chart/report/report_tables.h"

#include <cmath>

#include "common/environment/language.h"
#include "common/values/measured_text.h"

namespace chartproject {
namespace {

constexpr int kDigits = 10;  // a 32-bit value has no more

/// "P002 Motor speed, rpm".
std::string SeriesName(const ChartView& view, int series) {
  const ViewedSeries viewed = view.Series(series);
  std::string name = viewed.number.empty() ? std::to_string(series + 1) : viewed.number;
  if (viewed.name && !viewed.name->empty()) name += " " + *viewed.name;
  if (!viewed.unit.empty()) name += ", " + viewed.unit;
  return name;
}

/// The points of the cursors that are set and in the file.
struct CursorPoint {
  std::int64_t number = 0;
  Slice slice;
};

std::string ValueAt(const Environment& environment, const ChartView& view, const CursorPoint& point, int series) {
  const double value = point.slice.values.at(static_cast<std::size_t>(series)).front();
  const std::string text = NumberText(value, kDigits, environment.ports.locale.Numbers());
  if (!view.Facts().Failure(series, point.number)) return text;
  return text + " (" + LoadMessage(environment, Text::kReportNotRead) + ")";
}

std::string Signed(double difference, const NumberFormat& format) {
  return (difference > 0 ? "+" : "") + NumberText(difference, kDigits, format);
}

std::string TimeBetween(const Environment& environment, const ChartView& view, const CursorPoint& first,
                        const CursorPoint& second) {
  if (!view.Facts().Clock().Known()) return "--";
  constexpr double kSecond = 1000;
  const double elapsed = view.Facts().Clock().ElapsedAt(static_cast<double>(second.number)) -
                         view.Facts().Clock().ElapsedAt(static_cast<double>(first.number));
  return TimeText(elapsed / kSecond, environment.ports.locale.Numbers());
}

void AddDifferences(const Environment& environment, const ChartView& view, const std::vector<CursorPoint>& points,
                    ReportTable& table) {
  const NumberFormat& format = environment.ports.locale.Numbers();
  table.heads.push_back(LoadMessage(environment, Text::kReportDifference));
  table.rows[0].cells.push_back(Signed(static_cast<double>(points[1].number - points[0].number), format));
  table.rows[1].cells.push_back(TimeBetween(environment, view, points[0], points[1]));
  constexpr double kFinest = 1e9;  // digits that the subtraction of decimals in binary brings along are after it
  for (std::size_t s = 0; s + 2 < table.rows.size(); ++s) {
    const auto failed = [&](const CursorPoint& point) {
      return view.Facts().Failure(static_cast<int>(s), point.number).has_value();
    };
    if (failed(points[0]) || failed(points[1])) {
      table.rows[s + 2].cells.emplace_back("--");
      continue;
    }
    const double difference = points[1].slice.values[s].front() - points[0].slice.values[s].front();
    table.rows[s + 2].cells.push_back(Signed(std::round(difference * kFinest) / kFinest, format));
  }
}

}  // namespace

ReportTable StatisticsTable(const Environment& environment, const ChartView& view,
                            const std::vector<SeriesStatistics>& statistics) {
  const NumberFormat& format = environment.ports.locale.Numbers();
  ReportTable table{LoadMessage(environment, Text::kReportStatistics), {}, {}};
  for (const Text head : {Text::kFindSeries, Text::kStatMinimum, Text::kStatMaximum, Text::kStatMean, Text::kReportRms,
                          Text::kReportNoValue}) {
    table.heads.push_back(LoadMessage(environment, head));
  }
  for (const SeriesStatistics& series : statistics) {
    const int number = static_cast<int>(table.rows.size());
    ReportTable::Row row{number, {SeriesName(view, number)}};
    for (const double value : {series.minimum, series.maximum, series.mean, series.rms}) {
      row.cells.push_back(NumberText(value, kDigits, format));
    }
    row.cells.push_back(std::to_string(series.leftOut));
    table.rows.push_back(std::move(row));
  }
  return table;
}

ReportTable CursorTable(const Environment& environment, ChartView& view,
                        const std::array<std::optional<std::int64_t>, 2>& cursors) {
  ReportTable table{LoadMessage(environment, Text::kReportCursors), {""}, {}};
  std::vector<CursorPoint> points;
  for (std::size_t which = 0; which < cursors.size(); ++which) {
    if (!cursors[which]) continue;
    CursorPoint point{*cursors[which], view.PointAlone(*cursors[which])};
    if (point.slice.RowCount() == 0) continue;
    table.heads.push_back(FillIn(LoadMessage(environment, Text::kReportCursor), {std::to_string(which + 1)}));
    points.push_back(std::move(point));
  }
  if (points.empty()) return table;
  table.rows.push_back({-1, {LoadMessage(environment, Text::kReportPointNumber)}});
  table.rows.push_back({-1, {LoadMessage(environment, Text::kReportTime)}});
  for (int s = 0; s < view.SeriesCount(); ++s) table.rows.push_back({s, {SeriesName(view, s)}});
  for (const CursorPoint& point : points) {
    table.rows[0].cells.push_back(std::to_string(point.number));
    table.rows[1].cells.push_back(environment.ports.codePage.Decode(point.slice.times.front()));
    for (int s = 0; s < view.SeriesCount(); ++s) {
      table.rows[static_cast<std::size_t>(s) + 2].cells.push_back(ValueAt(environment, view, point, s));
    }
  }
  if (points.size() == 2) AddDifferences(environment, view, points, table);
  return table;
}

}  // namespace chartproject
