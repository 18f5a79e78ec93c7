// Moving the slice over the file: scroll bar, points per division, keys and wheel over the chart.
#include <algorithm>

#include "chart/window/chart_form.h"
#include "chart/window/scroll_range.h"
#include "common/values/numbers.h"
#include "forms/flag_scope.h"

namespace chartproject {
namespace {

/// Sets a step of the scroll bar; one that it refuses becomes 1.
template <typename Setter>
void SetStep(HScrollBar& bar, Setter setter, int step) {
  try {
    (bar.*setter)(step);
  } catch (const RunTimeError& error) {
    if (error.Number() != error_number::kInvalidPropertyValue) throw;
    (bar.*setter)(1);
  }
}

}  // namespace

void ChartForm::PrepareScrollBar() {
  const FlagScope quiet(settingScrollBar_);
  const ScrollRange range = ComputeScrollRange(points_, pointsPerDivision_);
  hsbGraph.SetMinimum(0);
  if (range.usable) {
    hsbGraph.SetMaximum(range.maximum);
    SetStep(hsbGraph, &HScrollBar::SetSmallChange, range.smallChange);
    SetStep(hsbGraph, &HScrollBar::SetLargeChange, range.largeChange);
  }
  for (Control* control : std::initializer_list<Control*>{&hsbGraph, &sldPointsPerDivision}) {
    control->SetEnabled(range.usable);
    control->SetVisible(range.usable);
  }
  lblPointsPerDivision.SetVisible(range.usable);
}

void ChartForm::hsbGraph_Change() {
  if (settingScrollBar_ || reading_) return;
  bool moved = true;
  while (moved) {
    const int value = hsbGraph.Value();
    sliceStart_ = SliceStart(source_.FirstLine(), points_, pointsPerDivision_, value, hsbGraph.Maximum());
    sliceEnd_ = CheckedInteger32(std::int64_t{sliceStart_} + LengthOfSlice());
    // The bar may go on moving while a far slice is looked for.
    moved = !readingDeferred_ && LoadSlice() && hsbGraph.Value() != value;
  }
}

void ChartForm::ReturnToShownSlice() {
  const FlagScope quiet(settingScrollBar_);
  const FlagScope stay(walkingDown_);
  pointsPerDivision_ = shownPointsPerDivision_;
  sldPointsPerDivision.SetValue(pointsPerDivision_);
  ShowPointsPerDivision();
  PrepareScrollBar();
  sliceStart_ = slice_.startLine;
  sliceEnd_ = slice_.endLine;
  const int value = ScrollValue(sliceStart_ - source_.FirstLine(), points_, pointsPerDivision_, hsbGraph.Maximum());
  hsbGraph.SetValue(std::clamp(value, 0, std::max(0, hsbGraph.Maximum())));
}

void ChartForm::ShowPointsPerDivision() {
  lblPointsPerDivision.SetCaption(
      FillIn(LoadMessage(component_, Text::kPointsPerDivision), {std::to_string(pointsPerDivision_)}));
}

void ChartForm::sldPointsPerDivision_Change() {
  if (walkingDown_ || reading_ || sldPointsPerDivision.Value() == pointsPerDivision_) return;
  {
    // Step by step to what fits into the file. Each step raises this event again; those calls leave the walk to this
    // one, for a thousand nested calls would ask much of a small stack.
    const FlagScope walking(walkingDown_);
    while (sldPointsPerDivision.Value() > 1 && std::int64_t{sldPointsPerDivision.Value()} * kDivisions > points_) {
      sldPointsPerDivision.SetValue(sldPointsPerDivision.Value() - 1);
    }
  }
  if (sldPointsPerDivision.Value() == pointsPerDivision_) return;
  pointsPerDivision_ = CheckedInteger16(sldPointsPerDivision.Value());
  ShowPointsPerDivision();
  const std::int64_t lastStart = std::int64_t{source_.FirstLine()} + points_ - LengthOfSlice();
  sliceStart_ = CheckedInteger32(std::min<std::int64_t>(sliceStart_, lastStart));
  sliceEnd_ = CheckedInteger32(std::int64_t{sliceStart_} + LengthOfSlice());
  PrepareScrollBar();
  {
    const FlagScope deferred(readingDeferred_);
    hsbGraph.SetValue(ScrollValue(sliceStart_ - source_.FirstLine(), points_, pointsPerDivision_, hsbGraph.Maximum()));
  }
  LoadSlice();
}

void ChartForm::ScrollTo(std::int64_t startLine) {
  if (reading_ || !source_.HasPoints() || !hsbGraph.Enabled()) return;
  const std::int64_t first = source_.FirstLine();
  const std::int64_t last = first + std::max(points_ - LengthOfSlice(), 0);
  const std::int32_t start = CheckedInteger32(std::clamp(startLine, first, last));
  if (start == sliceStart_) return;
  sliceStart_ = start;
  sliceEnd_ = CheckedInteger32(std::int64_t{start} + LengthOfSlice());
  {
    // The bar follows as near as its units allow; the slice stays exact.
    const FlagScope quiet(settingScrollBar_);
    hsbGraph.SetValue(ScrollValue(start - source_.FirstLine(), points_, pointsPerDivision_, hsbGraph.Maximum()));
  }
  LoadSlice();
}

void ChartForm::ScrollToEnd() {
  const std::int32_t known = points_;
  ScrollTo(std::int64_t{source_.FirstLine()} + points_);
  // Points behind those of the header are seen only there.
  if (points_ > known) ScrollTo(std::int64_t{source_.FirstLine()} + points_);
  // A recording that was stopped early ends before the points that its header names.
  const bool fileIsShorter = slice_.endOfFile && slice_.RowCount() < LengthOfSlice();
  if (fileIsShorter) ScrollTo(slice_.lastLine + 1 - LengthOfSlice());
}

bool ChartForm::ScrollByKey(Key key) {
  const std::int64_t page = std::int64_t{pointsPerDivision_} * (kDivisions - 1);
  switch (key) {
    case Key::kLeft:
      ScrollTo(std::int64_t{sliceStart_} - pointsPerDivision_);
      return true;
    case Key::kRight:
      ScrollTo(std::int64_t{sliceStart_} + pointsPerDivision_);
      return true;
    case Key::kPageUp:
      ScrollTo(sliceStart_ - page);
      return true;
    case Key::kPageDown:
      ScrollTo(sliceStart_ + page);
      return true;
    case Key::kHome:
      ScrollTo(source_.FirstLine());
      return true;
    case Key::kEnd:
      ScrollToEnd();
      return true;
    default:
      return false;
  }
}

}  // namespace chartproject
