// A range is noted when it begins and when it ends: a drive that is silent for hours makes two lines.
#include "recording/journal/failure_notes.h"

#include <algorithm>

#include "common/values/line_reader.h"
#include "common/values/text.h"
#include "recording/companion/companion_reader.h"

namespace chartproject {

namespace {

/// The range of a note, and its column from 0.
struct NotedRange {
  std::size_t column = 0;
  FailedRange range;
};

std::optional<NotedRange> RangeIn(std::string_view line) {
  const ChartHeader none;
  CompanionReader reader(none);
  if (!reader.TakeLine(kFailedSection) || !reader.TakeLine(line)) return std::nullopt;
  const FailedReadings& failed = reader.SoFar().failed;
  const auto* const column = std::ranges::find_if(failed, [](const FailedColumn& one) { return one.Count() > 0; });
  if (column == failed.end()) return std::nullopt;
  return NotedRange{static_cast<std::size_t>(column - failed.begin()), column->Ranges().front()};
}

/// Adds the part of a range that is after those so far, up to a point.
void AddUpTo(std::int32_t points, FailedRange range, FailedColumn& column) {
  range.first = std::max(range.first, column.LastPoint() + 1);
  range.last = std::min(range.last, points);
  if (range.first > range.last) return;
  range.failed = std::min(range.failed, range.last - range.first + 1);
  column.Append(std::move(range));
}

}  // namespace

std::string FailureNotes::Lines(const FailedReadings& failed, const std::array<int, kColumnCount>& parameters,
                                std::int32_t point) {
  std::string lines;
  for (std::size_t column = 0; column < failed.size(); ++column) {
    const auto& ranges = failed[column].Ranges();
    auto range = ranges.end();
    while (range != ranges.begin() && (range - 1)->last > closed_[column]) --range;
    for (; range != ranges.end(); ++range) {
      const bool open = range->last >= point;
      if (open && open_[column] == range->first) continue;
      FailedRange noted = *range;
      if (open) {
        noted.last = noted.first;
        noted.failed = 1;
      }
      (open ? open_ : closed_)[column] = open ? range->first : range->last;
      lines.append(open ? failure_note::kOpen : failure_note::kClosed);
      lines.append(FailedRangeLine(column, parameters[column], noted)).append(kLineEnd);
    }
  }
  return lines;
}

void NotedFailures::Take(std::string_view line) {
  const bool opens = line.starts_with(failure_note::kOpen);
  if (!opens && !line.starts_with(failure_note::kClosed)) return;
  const auto noted = RangeIn(codePage_.Decode(AfterEquals(line)));
  if (!noted) return;
  open_[noted->column].reset();
  if (opens) {
    open_[noted->column] = noted->range;
  } else {
    AddUpTo(points_, noted->range, failed_[noted->column]);
  }
}

bool NotedFailures::Failed(std::size_t column, std::int32_t point, bool zero) const {
  const auto& open = open_[column];
  if (open && point >= open->first) return true;
  const FailedRange* const range = failed_[column].Find(point);
  return range != nullptr && (zero || range->failed == range->last - range->first + 1);
}

FailedReadings NotedFailures::UpToNow() const {
  FailedReadings failed = failed_;
  for (std::size_t column = 0; column < open_.size(); ++column) {
    if (!open_[column]) continue;
    FailedRange range = *open_[column];
    range.last = points_;
    range.failed = points_ - range.first + 1;
    AddUpTo(points_, range, failed[column]);
  }
  return failed;
}

FailedReadings ReadFailureNotes(InputFile& file, const CodePage& codePage, std::int32_t points) {
  NotedFailures noted(codePage, points);
  LineReader lines(file, kLongestCompanionLine);
  for (TextLine line; lines.Next(line);) {
    if (!line.cut) noted.Take(line.text);
  }
  return noted.UpToNow();
}

}  // namespace chartproject
