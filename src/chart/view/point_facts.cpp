// Companion, journal and clock.
#include "chart/view/point_facts.h"

#include <algorithm>

#include "recording/journal/failure_notes.h"

namespace chartproject {

void PointFacts::Load(const Ports& ports, const std::string& fileName, const ChartHeader& header) {
  companion_.reset();
  clock_ = PointClock(header, nullptr, ports.locale);
  companion_ = LoadCompanion(ports.files, fileName, header);
  clock_ = PointClock(header, RealTimes(), ports.locale);
}

void PointFacts::LoadUnfinished(const Ports& ports, const UnfinishedRecording& recording, const ChartHeader& header) {
  failuresReadOf_ = {};
  companion_.emplace();
  companion_->parameters = ParametersOf(header);
  companion_->simulated = recording.journal.simulated;
  clock_ = PointClock(header, nullptr, ports.locale);
}

void PointFacts::Follow(const Ports& ports, const UnfinishedRecording& recording, std::int32_t points) {
  const auto journal = ports.files.OpenForReading(recording.journalFile);
  companion_->points = points;
  const bool unchanged = journal->Identity() == failuresReadOf_;
  const bool open =
      std::ranges::any_of(companion_->failed, [](const FailedColumn& column) { return column.Count() > 0; });
  if (unchanged && !open) return;  // a range that is still open grows with the points
  failuresReadOf_ = journal->Identity();
  companion_->failed = ReadFailureNotes(*journal, ports.codePage, points);
}

std::optional<ReadOutcome> PointFacts::Failure(int series, std::int64_t point) const {
  if (!companion_ || point > companion_->points) return std::nullopt;
  const FailedRange* const range =
      companion_->failed.at(static_cast<std::size_t>(series)).Find(static_cast<std::int32_t>(point));
  return range == nullptr ? std::nullopt : std::optional(range->reason);
}

std::vector<RowRange> PointFacts::FailedRows(std::size_t series, const Slice& slice, std::int64_t first) const {
  std::vector<RowRange> rows;
  if (!companion_ || slice.RowCount() == 0) return rows;
  const std::int64_t perRow = slice.pointsPerRow;
  const std::int64_t last = first + slice.RowCount() * perRow - 1;
  for (const FailedRange& range : companion_->failed.at(series).Ranges()) {
    const std::int64_t from = std::max<std::int64_t>(range.first, first);
    const std::int64_t to = std::min<std::int64_t>(range.last, last);
    if (from <= to)
      rows.push_back({static_cast<int>((from - first) / perRow), static_cast<int>((to - first) / perRow)});
  }
  return rows;
}

const PointTimes* PointFacts::RealTimes() const noexcept {
  return companion_ && companion_->times.Known() ? &companion_->times : nullptr;
}

CategoryUnit PointFacts::AxisFor(CategoryUnit wanted) const noexcept {
  if (wanted == CategoryUnit::kPoints || !clock_.Known()) return CategoryUnit::kPoints;
  return clock_.FirstOfDay() ? wanted : CategoryUnit::kElapsed;
}

void PointFacts::CountTimes(CategoryUnit unit, ChartModel& model) const {
  model.categoryUnit = unit;
  if (unit == CategoryUnit::kPoints) return;
  const auto first = static_cast<double>(model.firstRowLabel);
  const double origin = unit == CategoryUnit::kTimeOfDay ? clock_.FirstOfDay().value_or(0) : 0;
  const auto perRow = static_cast<double>(model.labelsPerRow);
  for (const ClockKnot& knot : clock_.Knots(first, first + std::max(1, model.rowCount - 1) * perRow)) {
    model.rowTimes.push_back({(knot.point - first) / perRow, knot.milliseconds + origin});
  }
  model.dateText = [clock = clock_](std::int64_t day) { return clock.DateText(day); };
}

}  // namespace chartproject
