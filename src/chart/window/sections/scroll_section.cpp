// From the scroll bar's numbers to lines of the file, and back.
#include "chart/window/sections/scroll_section.h"

#include <algorithm>

#include "common/environment/language.h"
#include "common/values/numbers.h"

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

ScrollSection::ScrollSection(Form& form, Environment& environment, ChartView& view, const ReadingSection& reading)
    : hsbGraph(form, "hsbGraph"),
      lblPointsPerDivision(form, "lblPointsPerDivision"),
      sldPointsPerDivision(form, "sldPointsPerDivision"),
      env_(environment),
      view_(view),
      reading_(reading) {
  Connect(hsbGraph.change, hsbGraph, "Change", this, &ScrollSection::hsbGraph_Change);
  Connect(sldPointsPerDivision.change, sldPointsPerDivision, "Change", this,
          &ScrollSection::sldPointsPerDivision_Change);
}

void ScrollSection::Restart() {
  const FlagScope quiet(quiet_);
  hsbGraph.SetToolTipText(LoadMessage(env_, Text::kScrollTip));
  sldPointsPerDivision.SetMaximum(kMostPointsPerDivision);
  sldPointsPerDivision.SetMinimum(1);
  ShowPointsPerDivision();
  Prepare();
  hsbGraph.SetValue(0);
}

void ScrollSection::Prepare() {
  const FlagScope quiet(quiet_);
  const ScrollRange range = view_.Range();
  hsbGraph.SetMinimum(0);
  if (range.usable) {
    hsbGraph.SetMaximum(std::max<int>(range.maximum, 0));  // the whole file may be less than a slice
    SetStep(hsbGraph, &HScrollBar::SetSmallChange, range.smallChange);
    SetStep(hsbGraph, &HScrollBar::SetLargeChange, range.largeChange);
  }
  for (Control* control : std::initializer_list<Control*>{&hsbGraph, &sldPointsPerDivision}) {
    control->SetEnabled(range.usable);
    control->SetVisible(range.usable);
  }
  const bool appears = lblPointsPerDivision.Visible() != range.usable;
  lblPointsPerDivision.SetVisible(range.usable);
  if (appears) hsbGraph.Owner().LayoutChanged();  // the chart takes the room, or gives it back
}

void ScrollSection::Follow() {
  const FlagScope quiet(quiet_);
  ShowPointsPerDivision();
  Prepare();
  hsbGraph.SetValue(std::clamp<int>(view_.BarValue(hsbGraph.Maximum()), 0, std::max(0, hsbGraph.Maximum())));
}

void ScrollSection::ShowPointsPerDivision() {
  const FlagScope quiet(quiet_);
  sldPointsPerDivision.SetValue(view_.PointsPerDivision());
  lblPointsPerDivision.SetCaption(
      FillIn(LoadMessage(env_, Text::kPointsPerDivision), {std::to_string(view_.Division())}));
}

void ScrollSection::hsbGraph_Change() {
  if (quiet_ || reading_.Busy()) return;
  bool moved = true;
  while (moved) {
    const int value = hsbGraph.Value();
    view_.ScrollToBarValue(value, hsbGraph.Maximum());
    // The bar may go on moving while a far slice is looked for.
    moved = !deferred_ && load() && hsbGraph.Value() != value && hsbGraph.Value() != view_.BarValue(hsbGraph.Maximum());
  }
}

void ScrollSection::sldPointsPerDivision_Change() {
  Slider& slider = sldPointsPerDivision;
  if (quiet_ || reading_.Busy() || slider.Value() == view_.PointsPerDivision()) return;
  {
    // Step by step to what fits into the file. Each step raises this event again; those calls return at
    // once, because a thousand nested calls could overflow a small stack.
    const FlagScope walking(quiet_);
    while (slider.Value() > 1 && std::int64_t{slider.Value()} * kDivisions > view_.Points()) {
      slider.SetValue(slider.Value() - 1);
    }
  }
  if (slider.Value() == view_.PointsPerDivision()) return;
  view_.SetPointsPerDivision(CheckedInteger16(slider.Value()));
  ShowPointsPerDivision();
  Prepare();
  {
    const FlagScope deferred(deferred_);
    hsbGraph.SetValue(view_.BarValue(hsbGraph.Maximum()));
  }
  load();
}

void ScrollSection::ShowDivisions(std::int64_t startLine, std::int64_t division) {
  if (reading_.Busy() || !view_.HasPoints() || !hsbGraph.Enabled()) return;
  view_.SetDivision(division);
  const std::int64_t first = view_.FirstLine();
  view_.ScrollTo(std::clamp(startLine, first, first + std::max<std::int64_t>(view_.Points() - view_.Span(), 0)));
  Follow();
  load();
}

void ScrollSection::ScrollTo(std::int64_t startLine) {
  if (reading_.Busy() || !view_.HasPoints() || !hsbGraph.Enabled()) return;
  const std::int64_t first = view_.FirstLine();
  const std::int64_t last = first + std::max<std::int64_t>(view_.Points() - view_.Span(), 0);
  const std::int64_t start = std::clamp(startLine, first, last);
  if (start == view_.StartLine()) return;
  view_.ScrollTo(start);
  {
    // The bar follows as near as its units allow; the slice stays exact.
    const FlagScope quiet(quiet_);
    hsbGraph.SetValue(view_.BarValue(hsbGraph.Maximum()));
  }
  load();
}

void ScrollSection::ScrollToEnd() {
  const std::int32_t known = view_.Points();
  ScrollTo(std::int64_t{view_.FirstLine()} + view_.Points());
  // Points after those of the header are discovered only there.
  if (view_.Points() > known) ScrollTo(std::int64_t{view_.FirstLine()} + view_.Points());
}

void ScrollSection::Offer(ChartActions& actions) {
  const auto usable = [this] { return hsbGraph.Enabled(); };
  const auto offer = [&](ChartAction action, std::function<void()> run) {
    actions.Set(action, {std::move(run), usable});
  };
  offer(ChartAction::kDivisionBack, [this] { ScrollBy(-view_.Division()); });
  offer(ChartAction::kDivisionOn, [this] { ScrollBy(view_.Division()); });
  offer(ChartAction::kPageBack, [this] { ScrollBy(-Page()); });
  offer(ChartAction::kPageOn, [this] { ScrollBy(Page()); });
  offer(ChartAction::kFirstPoint, [this] { ScrollTo(view_.FirstLine()); });
  offer(ChartAction::kLastPoint, [this] { ScrollToEnd(); });
}

void ScrollSection::ScrollByWheel(int notches) {
  constexpr int kDivisionsPerNotch = 3;
  ScrollTo(std::int64_t{view_.StartLine()} - std::int64_t{notches} * kDivisionsPerNotch * view_.Division());
}

}  // namespace chartproject
