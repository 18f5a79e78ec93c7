// One pass over the points: into the sheets, and thinned into the copy for the charts.
#include "host/reports/xlsx_export.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "backends/posix/posix_time_zone.h"
#include "backends/spreadsheet/xlsx_file.h"
#include "chart/plain/local_moments.h"
#include "chart/plain/plain_value.h"
#include "chart/plain/thinned_points.h"
#include "common/environment/language.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "platform/run_time_error.h"
#include "recording/companion/companion_texts.h"
#include "recording/file/field_value.h"

namespace chartproject {
namespace {

/// Points of the range that the file has.
std::int64_t CountOf(ChartView& view, const PointRange& range) {
  const auto count = view.Source().Count({});
  const std::int64_t held = count ? count->lastLine - view.FirstLine() + 1 : 0;
  return std::max<std::int64_t>(std::min(held, range.last) - range.first + 1, 0);
}

class XlsxExport {
 public:
  XlsxExport(Component& component, ChartView& view, const PlainTable& table)
      : component_(component),
        view_(view),
        table_(table),
        moments_(zone_),
        dated_(table.clock.Known() && table.firstMoment.has_value()),
        points_(CountOf(view, table.range)) {
    for (const PlainColumn& column : table.columns) failed_.emplace_back(column.failed);
  }

  PlainTableReport Run(const std::string& output, const FileRights& rights, const PlainProgress& progress) {
    PlainTableReport report;
    if (points_ == 0) return report;
    RequireSpace(output);
    XlsxFile file(output, rights, Plan());
    values_.resize(table_.columns.size());
    const auto copy = [&](const ThinnedPoint& point) {
      file.AddChartPoint(point.moment, std::span(point.values).first(table_.columns.size()));
    };
    ThinnedPoints thinned(points_, kXlsxChartPoints, copy);
    const auto input = component_.ports.files.OpenForReading(view_.FileName());
    const auto take = [&](const ChartRow& row, std::int64_t point) {
      ThinnedPoint shown{dated_ ? DateOf(point) : 0, {}};
      for (std::size_t column = 0; column < values_.size(); ++column) {
        values_[column] = ValueOf(row.values[column], column, point, shown.values[column]);
      }
      file.AddPoint(dated_ ? XlsxValue(shown.moment) : XlsxValue(component_.ports.codePage.Decode(row.time)), values_);
      if (dated_) thinned.Add(shown);
    };
    report = ForEachPlainPoint(*input, table_.range, take, progress);
    if (report.givenUp || report.points == 0) return report;
    thinned.Finish();
    file.Save();
    return report;
  }

 private:
  [[nodiscard]] double DateOf(std::int64_t point) {
    return SerialDate(
        moments_.Local(*table_.firstMoment + std::llround(table_.clock.ElapsedAt(static_cast<double>(point)))));
  }

  /// @param number its number, or NaN
  [[nodiscard]] XlsxValue ValueOf(std::string_view field, std::size_t column, std::int64_t point, double& number) {
    number = FieldValue(field, component_.ports.locale.Numbers());
    if (failed_[column].Failed(point, number)) {
      number = std::numeric_limits<double>::quiet_NaN();
      return std::monostate();
    }
    if (!std::isnan(number)) return number;
    if (IsOutOfRange(field)) return std::monostate();
    return component_.ports.codePage.Decode(field);
  }

  [[nodiscard]] XlsxPlan Plan() {
    XlsxPlan plan;
    plan.title = BaseName(view_.FileName());
    plan.dated = dated_;
    for (const PlainColumn& column : table_.columns) plan.heads.push_back(column.head);
    MakeHeadsUnique(plan.heads);
    for (const HeaderKey& line : kHeaderKeys) {
      plan.header.emplace_back(line.key.substr(0, line.key.size() - 1), component_.chartHeader.*line.field);
    }
    plan.header.emplace_back("Points", std::to_string(points_));
    const auto companion = view_.Facts().Readings();
    if (companion != nullptr) {
      for (const std::string& line :
           CompanionLines(component_.language, component_.ports.locale.Numbers(), *companion)) {
        plan.header.emplace_back("", line);
      }
    }
    if (!dated_) return plan;
    plan.firstDate = DateOf(table_.range.first);
    plan.lastDate = DateOf(table_.range.first + points_ - 1);
    return plan;
  }

  void RequireSpace(const std::string& output) const {
    const std::uint64_t cells = static_cast<std::uint64_t>(points_) * (table_.columns.size() + 1);
    const std::uint64_t needed = cells * kXlsxCellBytes;
    const std::uint64_t space = component_.ports.files.SpaceFor(output).availableToUser;
    if (needed <= space) return;
    const auto text = [this](std::uint64_t bytes) {
      return FileSizeText(static_cast<double>(bytes), component_.ports.locale.Numbers());
    };
    throw RunTimeError(error_number::kDiskFull, Text::kExportNeedsSpace, {text(needed), text(space)});
  }

  Component& component_;
  ChartView& view_;
  const PlainTable& table_;
  PosixTimeZone zone_;
  LocalMoments moments_;
  bool dated_;
  std::int64_t points_;
  std::vector<PlainFailures> failed_;
  std::vector<XlsxValue> values_;
};

}  // namespace

PlainTableReport WriteXlsx(Component& component, ChartView& view, const std::string& output, const FileRights& rights,
                           const PlainTable& table, const PlainProgress& progress) {
  return XlsxExport(component, view, table).Run(output, rights, progress);
}

}  // namespace chartproject
