// Pointer and cursors over the chart.
#include "chart/window/sections/readout_section.h"

#include <algorithm>
#include <cmath>

#include "common/environment/language.h"
#include "common/values/numbers.h"

namespace chartproject {

ReadoutSection::ReadoutSection(ChartControl& chart, Environment& environment, ChartView& view,
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

PointReading ReadoutSection::Point(const Slice& slice, int row) const {
  PointReading point = ReadPoint(slice, row, view_.FirstLine(), view_.SeriesCount());
  for (int s = 0; s < view_.SeriesCount(); ++s) {
    const auto failure = view_.Facts().Failure(s, point.number);
    point.failures.push_back(failure ? FailureText(env_.language, *failure) : std::string());
  }
  return point;
}

void ReadoutSection::PointerRowChanged() {
  const auto row = chart_.PointerRow();
  if (!row || *row >= view_.Shown().RowCount()) return;
  const Slice& slice = view_.Shown();
  chart_.SetReadout(slice.pointsPerRow > 1 ? RangeReadout(*row) : PointReadout(env_, Point(slice, *row), Names()));
}

std::vector<ReadoutLine> ReadoutSection::RangeReadout(int row) const {
  const Slice& slice = view_.Shown();
  const int pair = row - row % 2;
  const std::int64_t first = std::int64_t{1} + slice.startLine - view_.FirstLine() + pair * slice.pointsPerRow;
  const std::int64_t last = std::min<std::int64_t>(first + 2 * slice.pointsPerRow - 1, view_.Points());
  std::vector<ReadoutLine> lines{
      {FillIn(LoadMessage(env_, Text::kReadoutPoints), {std::to_string(first), std::to_string(last)})}};
  const NumberFormat& format = env_.ports.locale.Numbers();
  const std::vector<std::string> names = Names();
  for (std::size_t s = 0; s < names.size(); ++s) {
    const std::vector<double>& values = slice.values[s];
    const double least = values[static_cast<std::size_t>(pair)];
    const double greatest = values[std::min(static_cast<std::size_t>(pair) + 1, values.size() - 1)];
    const std::string text = std::isnan(least) ? "--"
                                               : FillIn(LoadMessage(env_, Text::kValueSpan),
                                                        {DoubleText(least, format), DoubleText(greatest, format)});
    lines.push_back({names[s] + ": " + text, static_cast<int>(s)});
  }
  return lines;
}

void ReadoutSection::CursorsChanged() {
  for (const MeasuringCursor which : {MeasuringCursor::kFirst, MeasuringCursor::kSecond}) {
    auto& cursor = cursors_[static_cast<std::size_t>(which)];
    const auto label = chart_.CursorLabel(which);
    // A point that was scrolled away is remembered as it was read.
    if (label && cursor && cursor->number == *label) continue;
    cursor.reset();
    const auto row = chart_.CursorRow(which);
    if (!row || *row >= view_.Shown().RowCount()) continue;
    if (view_.Shown().pointsPerRow == 1) {
      cursor = Point(view_.Shown(), *row);
    } else if (const Slice alone = view_.PointAlone(*label); alone.RowCount() > 0) {
      cursor = Point(alone, 0);
    }
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
  return CursorReadout(env_, header_, cursors_, Names(), view_.Facts().RealTimes());
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
