// Start, Trigger and their hints; the lamp of the watch; the area that shows a recording's progress.
#include "acquire/dialog/run_panel.h"

#include "forms/form_host.h"

namespace chartproject {

namespace {

constexpr int kProgressSteps = 10000;

}  // namespace

RunPanel::RunPanel(Form& form, Component& component, Dialog dialog)
    : Section(form, component), dialog_(std::move(dialog)) {
  cmdStart.SetTag(TextNumber(Text::kStartAcquisition));
  cmdStart.SetToolTipText(TextNumber(Text::kStartAcquisition));
  cmdTrigger.SetTag(TextNumber(Text::kTrigger));
  cmdTrigger.SetToolTipText(TextNumber(Text::kTrigger));
  for (Label* label : {&lblStart, &lblTrigger}) label->SetTag(TextNumber(Text::kEscCancelsTip));
  lblAcquiring.SetTag(TextNumber(Text::kAcquiringData));
  lblTimeBetweenPointsPB.SetTag(TextNumber(Text::kTimeAmongPoints));
  for (Label* label : {&lblHint, &lblEstimate, &lblNotice, &lblStart, &lblTrigger}) label->SetWordWrap(true);
  lblNotice.SetVisible(false);
  imgTrigger1.SetVisible(false);
  picProgress.SetVisible(false);
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
  return Collapsing(
      Group(picProgress, Column({Row({Cell(lblAcquiring), Cell(lblProgress, 1)}), Cell(prgProgress, 1),
                                 Row({Cell(lblRunTimes, 1), Cell(lblTimeBetweenPointsPB), Cell(lblElapsedTime)})})));
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

void RunPanel::ShowSampling() {
  dialog_.lockSetupFields(false);
  lblHint.SetCaption("");
  ShowProgressArea(true);
  prgProgress.SetRange(0, kProgressSteps);
  prgProgress.SetValue(0);
  form_.SetPointer(MousePointer::kHourglass);
}

void RunPanel::ShowProgress(std::int64_t counter, std::int64_t total) {
  prgProgress.SetValue(static_cast<double>(counter * kProgressSteps / total));
  lblProgress.SetCaption(std::to_string(counter));  // an unchanged caption is not shown again
}

void RunPanel::ShowStopwatch(const std::string& elapsed) {
  lblElapsedTime.SetCaption(elapsed);
}

void RunPanel::ShowRunTimes(const std::string& text) {
  lblRunTimes.SetCaption(text);
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
  form_.SetHeight(visible ? kSamplingHeight : kSetUpHeight);
  form_.LayoutChanged();
}

}  // namespace chartproject
