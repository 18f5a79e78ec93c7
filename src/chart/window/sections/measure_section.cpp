// Statistics follow the cursors at once over a short range, and by a key over a long one.
#include "chart/window/sections/measure_section.h"

#include <algorithm>

#include "chart/window/control/statistics_text.h"
#include "chart/window/sections/range_offer.h"
#include "common/environment/language.h"
#include "common/values/numbers.h"

namespace chartproject {
namespace {

/// So many points are read while a key is held down: some milliseconds.
constexpr std::int64_t kMostAtOnce = 40'000;

}  // namespace

MeasureSection::MeasureSection(Environment& environment, ChartView& view, ChartControl& chart, ReadingSection& reading,
                               ReadoutSection& readout)
    : env_(environment), view_(view), chart_(chart), reading_(reading), readout_(readout) {
  readout.instead = [this] { return Lines(); };
}

void MeasureSection::Offer(ChartActions& actions) {
  const auto points = [this] { return view_.Shown().RowCount() > 0; };
  const std::initializer_list<std::tuple<ChartAction, MeasuringCursor, int>> moves{
      {ChartAction::kFirstCursorBack, MeasuringCursor::kFirst, -1},
      {ChartAction::kFirstCursorOn, MeasuringCursor::kFirst, 1},
      {ChartAction::kSecondCursorBack, MeasuringCursor::kSecond, -1},
      {ChartAction::kSecondCursorOn, MeasuringCursor::kSecond, 1}};
  for (const auto& [action, cursor, step] : moves) {
    actions.Set(action, {[this, cursor = cursor, step = step] { MoveCursor(cursor, step); }, points});
  }
  actions.Set(
      ChartAction::kStatistics,
      {[this] { ToggleStatistics(); }, [this] { return CursorRange(chart_).has_value(); }, [this] { return shown_; }});
  actions.Set(ChartAction::kCopyNumbers, {[this] { CopyNumbers(); }, [this] { return AnyCursor(); }});
}

void MeasureSection::Restart() {
  measured_.reset();
}

bool MeasureSection::AnyCursor() const {
  return chart_.CursorLabel(MeasuringCursor::kFirst) || chart_.CursorLabel(MeasuringCursor::kSecond);
}

/// A cursor that is not set appears under the pointer, or in the middle of the slice.
void MeasureSection::MoveCursor(MeasuringCursor which, int step) {
  if (reading_.Busy()) return;
  const ChartModel& model = chart_.Model();
  const auto label = chart_.CursorLabel(which);
  const std::int64_t start = model.LabelOf(chart_.PointerRow().value_or(model.rowCount / 2));
  const std::int64_t point =
      std::clamp<std::int64_t>(label ? *label + step : start, 1, std::max<std::int64_t>(1, view_.Points()));
  if (!model.RowOf(point)) show(point);
  chart_.SetCursor(which, point);
}

bool MeasureSection::IsMeasured() const {
  const auto range = CursorRange(chart_);
  return range && measured_ && measured_->first == range->first && measured_->last == range->last;
}

bool MeasureSection::Measure() {
  const auto range = CursorRange(chart_);
  if (!range || reading_.Busy()) return false;
  if (IsMeasured()) return true;
  const ReadingSection::Work measuring(reading_);
  auto series = MeasureRange(
      view_.Source(), {range->first, range->last, view_.SeriesCount(), &view_.Facts().Clock(), view_.Facts().Failed()},
      env_.ports.locale.Numbers(), [this](double part) { return reading_.ShowProgress(part, Text::kMeasuring); });
  if (!series) return false;
  measured_ = Measured{range->first, range->last, std::move(*series)};
  return true;
}

void MeasureSection::ToggleStatistics() {
  if (shown_ && IsMeasured()) {
    shown_ = false;
  } else {
    if (!Measure()) {
      reading_.Say(LoadMessage(env_, Text::kStoppedHere));
      return;
    }
    shown_ = true;
  }
  readout_.CursorsChanged();
}

std::vector<ReadoutLine> MeasureSection::Lines() {
  const auto range = CursorRange(chart_);
  if (!shown_ || !range) return {};
  const std::int64_t points = range->Count();
  if (!IsMeasured() && (points > kMostAtOnce || !Measure())) {
    const std::string count = FormatGrouped(static_cast<double>(points), env_.ports.locale.Numbers());
    return {{FillIn(LoadMessage(env_, Text::kStatPress), {count})}};
  }
  return StatisticsLines(env_, readout_.Names(), measured_->series);
}

void MeasureSection::CopyNumbers() {
  std::string text;
  for (const ReadoutLine& line : readout_.CursorLines()) text += line.text + "\r\n";
  if (CursorRange(chart_)) {
    if (!Measure()) {
      reading_.Say(LoadMessage(env_, Text::kStoppedHere));
      return;
    }
    text += StatisticsText(env_, readout_.Names(), measured_->series);
  }
  env_.ports.clipboard.SetText(text);
}

}  // namespace chartproject
