// Row by row into one text, which is handed on when it is large enough.
#include "chart/plain/plain_table.h"

#include <algorithm>
#include <cmath>

#include "chart/plain/moment_text.h"
#include "recording/file/point_reader.h"

namespace chartproject {
namespace {

constexpr std::size_t kPiece = std::size_t{256} * 1024;
constexpr std::int64_t kLinesBetweenProgress = 4096;

std::vector<std::string> HeadsOf(const PlainTable& table) {
  std::vector<std::string> heads;
  for (const PlainColumn& column : table.columns) heads.push_back(column.head);
  MakeHeadsUnique(heads);
  return heads;
}

/// The points of one table.
class Points {
 public:
  Points(const PlainTable& table, const NumberFormat& numbers, const CodePage& codePage, const TimeZone& zone)
      : table_(table),
        numbers_(numbers),
        codePage_(codePage),
        heads_(HeadsOf(table)),
        line_(table.format, heads_),
        moments_(zone),
        timed_(table.firstMoment.has_value() && table.clock.Known()) {
    for (const PlainColumn& column : table.columns) failed_.emplace_back(column.failed);
  }

  void AppendHead(GrowingText& text) const { line_.AppendHead(text, heads_); }

  void AppendPoint(GrowingText& text, const ChartRow& row, std::int64_t point) {
    line_.Begin(text);
    if (timed_) {
      line_.BeginTime(text);
      moments_.Append(text, *table_.firstMoment + std::llround(table_.clock.ElapsedAt(static_cast<double>(point))));
      line_.EndTime(text);
    } else {
      line_.AppendTime(text, codePage_.Decode(row.time));
    }
    for (std::size_t column = 0; column < table_.columns.size(); ++column) {
      line_.NextColumn(text);
      AppendValue(text, row.values[column], column, point);
    }
    line_.End(text);
  }

 private:
  void AppendValue(GrowingText& text, std::string_view field, std::size_t column, std::int64_t point) {
    const std::size_t begin = text.Size();
    PlainKind kind = AppendPlainNumber(text, field, numbers_);
    const auto isZero = [&] {
      const std::string_view number = text.View().substr(begin);
      return std::all_of(number.begin(), number.end(), [](char c) { return c == '0' || c == '-' || c == '.'; });
    };
    if (kind == PlainKind::kNumber && failed_[column].Known() && failed_[column].Failed(point, isZero() ? 0 : 1)) {
      text.CutTo(begin);
      kind = PlainKind::kNothing;
    }
    if (kind == PlainKind::kText) line_.AppendText(text, codePage_.Decode(field));
    if (kind == PlainKind::kNothing) line_.AppendNothing(text);
  }

  const PlainTable& table_;
  const NumberFormat& numbers_;
  const CodePage& codePage_;
  std::vector<std::string> heads_;
  PlainLine line_;
  MomentText moments_;
  bool timed_;
  std::vector<PlainFailures> failed_;
};

}  // namespace

bool PlainFailures::Failed(std::int64_t point, double number) {
  if (column_ == nullptr) return false;
  const std::vector<FailedRange>& ranges = column_->Ranges();
  while (at_ < ranges.size() && ranges[at_].last < point) ++at_;
  if (at_ == ranges.size() || ranges[at_].first > point) return false;
  const bool whole = ranges[at_].failed == ranges[at_].last - ranges[at_].first + 1;
  return whole || number == 0;
}

PlainTableReport ForEachPlainPoint(InputFile& file, const PointRange& range, const PlainPointTaker& take,
                                   const PlainProgress& progress) {
  PlainTableReport report;
  const std::uint64_t total = file.Identity().size;
  const auto first = LocateRows(file);
  if (!first) return report;
  PointReader points(file, *first);
  const auto skipping = [&](std::uint64_t offset) { return !progress || progress(offset, total); };
  report.givenUp = !points.SkipTo(first->line + range.first - 1, skipping);
  for (PointLine line; !report.givenUp && points.Next(line);) {
    const std::int64_t point = line.number - first->line + 1;
    if (point > range.last) break;
    if (line.kind == LineKind::kPoint) {
      take(line.row, point);
      ++report.points;
    } else if (line.kind == LineKind::kMalformed && report.malformed++ == 0) {
      report.firstMalformed = line.number;
    }
    if (progress && line.number % kLinesBetweenProgress == 0) report.givenUp = !progress(line.offset, total);
  }
  return report;
}

PlainTableReport PlainTableWriter::Write(InputFile& file, const Sink& sink, const PlainProgress& progress) {
  Points rows(table_, numbers_, codePage_, zone_);
  GrowingText text;
  rows.AppendHead(text);
  const auto take = [&](const ChartRow& row, std::int64_t point) {
    rows.AppendPoint(text, row, point);
    if (text.Size() < kPiece) return;
    sink(text.View());
    text.CutTo();
  };
  const PlainTableReport report = ForEachPlainPoint(file, table_.range, take, progress);
  if (report.points > 0 && !report.givenUp) sink(text.View());  // nothing of a table without points
  return report;
}

}  // namespace chartproject
