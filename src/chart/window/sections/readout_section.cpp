// Pointer and cursors over the chart.
#include "chart/window/sections/readout_section.h"

namespace chartproject {

ReadoutSection::ReadoutSection(ChartControl& chart, Environment& environment, const ChartView& view,
                               const ChartHeader& header)
    : chart_(chart), env_(environment), view_(view), header_(header) {
  Connect(chart.pointerRowChanged, chart, "PointerRowChanged", this, &ReadoutSection::PointerRowChanged);
  Connect(chart.cursorsChanged, chart, "CursorsChanged", this, &ReadoutSection::CursorsChanged);
}

std::vector<std::string> ReadoutSection::Names() const {
  std::vector<std::string> names;
  for (int s = 0; s < view_.SeriesCount(); ++s) {
    const std::string number = view_.Series(s).number;
    names.push_back(number.empty() ? std::to_string(s + 1) : number);
  }
  return names;
}

PointReading ReadoutSection::Point(int row) const {
  PointReading point = ReadPoint(view_.Shown(), row, view_.FirstLine(), view_.SeriesCount());
  for (int s = 0; s < view_.SeriesCount(); ++s) {
    const auto failure = view_.Failure(s, point.number);
    point.failures.push_back(failure ? FailureText(env_.language, *failure) : std::string());
  }
  return point;
}

void ReadoutSection::PointerRowChanged() {
  const auto row = chart_.PointerRow();
  if (!row || *row >= view_.Shown().RowCount()) return;
  chart_.SetReadout(PointReadout(env_, Point(*row), Names()));
}

void ReadoutSection::CursorsChanged() {
  for (const MeasuringCursor which : {MeasuringCursor::kFirst, MeasuringCursor::kSecond}) {
    auto& cursor = cursors_[static_cast<std::size_t>(which)];
    const auto label = chart_.CursorLabel(which);
    // A point that was scrolled away is remembered as it was read.
    if (label && cursor && cursor->number == *label) continue;
    cursor.reset();
    const auto row = chart_.CursorRow(which);
    if (row && *row < view_.Shown().RowCount()) cursor = Point(*row);
  }
  std::vector<ReadoutLine> lines = CursorLines();
  const std::vector<ReadoutLine> other = instead ? instead() : std::vector<ReadoutLine>();
  if (!other.empty()) {
    std::erase_if(lines, [](const ReadoutLine& line) { return line.series >= 0; });
    lines.insert(lines.end(), other.begin(), other.end());
  }
  chart_.SetCursorReadout(std::move(lines));
}

std::vector<ReadoutLine> ReadoutSection::CursorLines() const {
  return CursorReadout(env_, header_, cursors_, Names(), view_.RealTimes());
}

void ReadoutSection::Offer(ChartActions& actions) {
  const auto any = [this] {
    return chart_.CursorLabel(MeasuringCursor::kFirst) || chart_.CursorLabel(MeasuringCursor::kSecond);
  };
  actions.Set(ChartAction::kRemoveCursors, {[this] { ForgetCursors(); }, any});
}

void ReadoutSection::ForgetCursors() {
  chart_.SetCursor(MeasuringCursor::kFirst, std::nullopt);
  chart_.SetCursor(MeasuringCursor::kSecond, std::nullopt);
}

}  // namespace chartproject
