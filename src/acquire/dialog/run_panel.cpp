// Start, Trigger and their hints; the lamp of the watch; the area that shows a recording's progress.
#include "acquire/dialog/run_panel.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "forms/form_host.h"

namespace chartproject {

namespace {

constexpr int kProgressSteps = 10000;
constexpr const char* kCurveKey = "Curve";

}  // namespace

RunPanel::RunPanel(Form& form, Component& component, Dialog dialog)
    : Section(form, component),
      curve(component.makeLiveChart ? component.makeLiveChart(component, form) : nullptr),
      dialog_(std::move(dialog)) {
  cmdStart.SetTag(TextNumber(Text::kStartAcquisition));
  cmdStart.SetToolTipText(TextNumber(Text::kStartAcquisition));
  cmdTrigger.SetTag(TextNumber(Text::kTrigger));
  cmdTrigger.SetToolTipText(TextNumber(Text::kTrigger));
  for (Label* label : {&lblStart, &lblTrigger}) label->SetTag(TextNumber(Text::kEscCancelsTip));
  lblAcquiring.SetTag(TextNumber(Text::kAcquiringData));
  lblTimeBetweenPointsPB.SetTag(TextNumber(Text::kTimeAmongPoints));
  for (Label* label : {&lblHint, &lblEstimate, &lblNotice, &lblStart, &lblTrigger}) label->SetWordWrap(true);
  lblNotice.SetVisible(false);
  cmdCurve.SetVisible(curve != nullptr);
  Connect(cmdCurve.click, cmdCurve, "Click", this, &RunPanel::cmdCurve_Click);
  imgTrigger1.SetVisible(false);
  picProgress.SetVisible(false);
  lblTrouble.SetVisible(false);
  lblTrouble.SetWordWrap(true);
  // Enter presses the one that is visible.
  cmdStart.SetDefault(true);
  cmdTrigger.SetDefault(true);
  HideStartButtons(false);
}

// Start and Trigger, and their words, share one place: only one of each is ever visible.
LayoutBox RunPanel::WordsLayout() {
  return Column({Cell(lblEstimate, 1), Cell(lblHint, 1), Collapsing(Cell(lblNotice, 1)),
                 Stack({Cell(lblStart, 1), Cell(lblTrigger, 1)})});
}

LayoutBox RunPanel::ButtonsLayout() {
  return Row({Stack({Cell(cmdStart), Cell(cmdTrigger)}), Cell(imgTrigger1)});
}

LayoutBox RunPanel::ProgressLayout() {
  constexpr double kAllRoom = 100;  // beside the dialog's empty room, whose share is 1
  std::vector<LayoutBox> lines{
      Row({Cell(lblAcquiring), Cell(lblProgress, 1)}), Cell(prgProgress, 1),
      Row({Cell(lblRunTimes, 1), Cell(lblTimeBetweenPointsPB), Cell(lblElapsedTime), Collapsing(Cell(cmdCurve))}),
      Cell(lblTrouble, 1)};
  if (curve) lines.push_back(Collapsing(Cell(curve->Control(), 1, kAllRoom)));
  return Collapsing(Group(picProgress, Column(std::move(lines))));
}

void RunPanel::Prepare() {
  cmdCurve.SetCaption(Say(Text::kCurve));
  cmdCurve.SetToolTipText(Say(Text::kCurveTip));
  curveOpen_ = curve && component_.ports.settings.Read(form_.Name(), kCurveKey) == "Yes";
}

void RunPanel::Save() {
  component_.ports.settings.Write(form_.Name(), std::array{StoredSetting{kCurveKey, curveOpen_ ? "Yes" : "No"}});
}

void RunPanel::cmdCurve_Click() {
  curveOpen_ = !curveOpen_;
  curve->Control().SetVisible(curveOpen_);
  TakeHeight();
}

void RunPanel::HideStartButtons(bool visible) {
  ShowStartButtons(visible, visible);
}

void RunPanel::ShowStartButtons(bool byHand, bool byEvent) {
  cmdStart.SetVisible(byHand);
  lblStart.SetVisible(byHand);
  cmdTrigger.SetVisible(byEvent);
  lblTrigger.SetVisible(byEvent);
}

void RunPanel::ShowStopwatchField(bool visible) {
  lblElapsedTime.SetVisible(visible);
  lblTimeBetweenPointsPB.SetVisible(visible);
}

void RunPanel::ShowArmed() {
  dialog_.lockSetupFields(false);
}

void RunPanel::ShowWatch(const std::string& text) {
  lblHint.SetCaption(text);
}

void RunPanel::ShowLamp(bool lit) {
  imgTrigger1.SetVisible(lit);
}

bool RunPanel::LampLit() const {
  return imgTrigger1.Visible();
}

void RunPanel::ShowSampling(const RunPlan& plan) {
  dialog_.lockSetupFields(false);
  lblHint.SetCaption("");
  ShowTrouble({});
  if (curve) {
    curve->Begin(plan.driveAddress, std::span(plan.columns).first(static_cast<std::size_t>(plan.parameterCount)));
    curve->Control().SetVisible(curveOpen_);
  }
  ShowProgressArea(true);
  prgProgress.SetRange(0, kProgressSteps);
  prgProgress.SetValue(0);
  form_.SetPointer(MousePointer::kHourglass);
}

void RunPanel::ShowProgress(std::int64_t counter, std::int64_t total) {
  prgProgress.SetValue(static_cast<double>(counter * kProgressSteps / total));
  lblProgress.SetCaption(std::to_string(counter));  // an unchanged caption is not shown again
}

void RunPanel::ShowPoint(const AcquisitionRun& run) {
  if (!curve) return;
  FailedColumns failed{};
  for (std::size_t k = 0; k < failed.size(); ++k) failed[k] = run.Failed()[k].LastPoint() == run.Counter();
  curve->Take(run.Counter(), run.LastPoint(), failed);
}

void RunPanel::ShowStopwatch(const std::string& elapsed) {
  lblElapsedTime.SetCaption(elapsed);
}

void RunPanel::ShowRunTimes(const std::string& text) {
  lblRunTimes.SetCaption(text);
}

/// The line takes room only while there is something to say.
void RunPanel::ShowTrouble(const std::string& text) {
  const bool otherLines = std::ranges::count(text, '\n') != std::ranges::count(lblTrouble.Caption(), '\n');
  const bool appears = lblTrouble.Visible() == text.empty();
  lblTrouble.SetCaption(text);
  if (!appears && !otherLines) return;
  lblTrouble.SetVisible(!text.empty());
  form_.LayoutChanged();
}

void RunPanel::ShowNotice(const std::string& text) {
  lblNotice.SetCaption(text);
  const bool visible = !text.empty();
  if (lblNotice.Visible() == visible) return;
  lblNotice.SetVisible(visible);
  form_.LayoutChanged();
}

void RunPanel::ShowSaving() {
  form_.SetPointer(MousePointer::kHourglass);
  lblProgress.SetCaption(Say(Text::kSaving));
}

/// Keeps the window responsive while a long file is copied.
void RunPanel::KeepAwake() {
  form_.Host().KeepAlive();
}

void RunPanel::ShowIdle() {
  ShowNotice({});
  lblProgress.SetCaption("");
  dialog_.lockSetupFields(true);
  dialog_.showHint();
  ShowProgressArea(false);
  form_.SetPointer(MousePointer::kDefault);
}

void RunPanel::HoldEsc(bool held) {
  dialog_.holdEsc(held);
}

void RunPanel::ShowProgressArea(bool visible) {
  if (picProgress.Visible() == visible) return;
  picProgress.SetVisible(visible);
  TakeHeight();
}

void RunPanel::TakeHeight() {
  const bool curveShown = picProgress.Visible() && curveOpen_;
  form_.SetHeight(!picProgress.Visible() ? kSetUpHeight : curveShown ? kCurveHeight : kSamplingHeight);
  form_.LayoutChanged();
  // On a small screen the dialog makes room for the curve above itself, and comes down again after it.
  const double lowest = std::max(0.0, form_.Host().ScreenSize().height - form_.Height());
  if (curveShown && form_.Top() > lowest) {
    if (!topBefore_) topBefore_ = form_.Top();
    form_.SetTop(lowest);
  } else if (!curveShown && topBefore_) {
    form_.SetTop(*std::exchange(topBefore_, std::nullopt));
  }
}

}  // namespace chartproject
