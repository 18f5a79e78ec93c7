// One recording at a time; files are examined when their turn comes.
#include "acquire/dialog/recovery_section.h"

#include "acquire/run/recovery_watch.h"
#include "acquire/run/run_notices.h"
#include "acquire/run/run_texts.h"
#include "common/message_box.h"
#include "common/values/numbers.h"
#include "forms/form.h"
#include "platform/dialogs.h"
#include "platform/run_time_error.h"
#include "recording/journal/recovery.h"

namespace chartproject {

RecoverySection::RecoverySection(Form& form, Component& component) : Section(form, component) {
  picInterrupted.SetVisible(false);
  lblInterrupted.SetWordWrap(true);
  lblInterrupted.SetBorderStyle(0);
  Connect(cmdRecover.click, cmdRecover, "Click", this, &RecoverySection::cmdRecover_Click);
  Connect(cmdLater.click, cmdLater, "Click", this, &RecoverySection::cmdLater_Click);
  Connect(cmdDiscard.click, cmdDiscard, "Click", this, &RecoverySection::cmdDiscard_Click);
}

LayoutBox RecoverySection::Layout() {
  return Collapsing(
      Group(picInterrupted, Row({Cell(lblInterrupted, 1), Cell(cmdRecover), Cell(cmdLater), Cell(cmdDiscard)})));
}

/// Buttons that are not shown have no captions: they would take access keys from the fields.
void RecoverySection::ShowCaptions(bool offered) {
  const std::pair<CommandButton*, std::pair<Text, Text>> buttons[] = {
      {&cmdRecover, {Text::kRecover, Text::kRecoverTip}},
      {&cmdLater, {Text::kRecoverLater, Text::kRecoverLaterTip}},
      {&cmdDiscard, {Text::kDiscard, Text::kDiscardTip}}};
  for (const auto& [button, texts] : buttons) {
    button->SetCaption(offered ? Say(texts.first) : std::string());
    button->SetToolTipText(offered ? Say(texts.second) : std::string());
  }
}

void RecoverySection::Look(const std::string& folder) {
  try {
    chartFiles_ = InterruptedChartFiles(component_.ports.files, folder);
  } catch (const RunTimeError&) {
    chartFiles_.clear();  // a project's folder that is not there holds no recording
  }
  ShowNext();
}

/// Shows the first one that is worth an offer: with points, and not being recorded.
void RecoverySection::ShowNext() {
  Ports& ports = component_.ports;
  for (; !chartFiles_.empty(); chartFiles_.erase(chartFiles_.begin())) {
    const std::string& chartFile = chartFiles_.front();
    points_ = 0;
    bool toTheEnd = true;
    std::string moment;
    for (const InterruptedRecording& one : FindBeside(ports.files, ports.codePage, chartFile, kGlanceBytes)) {
      points_ += one.rows.points;
      toTheEnd = toTheEnd && one.rows.toTheEnd;
      if (!moment.empty()) continue;
      moment = one.journal && one.journal->begun ? MomentText(*one.journal->begun, ports.clock.LocalNow(), ports.locale)
                                                 : one.rows.firstTime;
    }
    if (points_ == 0 || IsBeingRecorded(ports.files, chartFile)) continue;
    const Text text = toTheEnd ? Text::kRecordingWasCut : Text::kRecordingWasCutMore;
    lblInterrupted.SetCaption(FillIn(Say(text), {moment, FormatGrouped(static_cast<double>(points_), Numbers())}));
    lblInterrupted.SetToolTipText(chartFile);
    break;
  }
  const bool visible = !chartFiles_.empty();
  ShowCaptions(visible);
  if (picInterrupted.Visible() == visible) return;
  picInterrupted.SetVisible(visible);
  form_.LayoutChanged();
}

void RecoverySection::Done() {
  if (!chartFiles_.empty()) chartFiles_.erase(chartFiles_.begin());
  ShowNext();
}

void RecoverySection::cmdRecover_Click() {
  if (chartFiles_.empty()) return;
  std::string notice;
  try {
    const HourglassScope hourglass(form_);
    const std::string offer = lblInterrupted.Caption();
    RecoveryWatch watch(form_, component_, [this, &offer](const std::string& text) {
      lblInterrupted.SetCaption(text.empty() ? offer : text);
    });
    const auto results = RecoverBeside(component_.ports, chartFiles_.front(), {.progress = &watch.Progress()});
    if (results) notice = LeftoverNotice(component_, *results);
  } catch (const RecoveryGivenUp&) {
    return;  // it stays on offer
  } catch (const RunTimeError& error) {
    Warn(error.Description(component_.language));  // it stays on offer
    return;
  }
  Done();
  if (recovered) recovered();
  if (!notice.empty()) ShowMessage(component_, notice, box_style::kInformation, component_.helpFile);
}

void RecoverySection::cmdLater_Click() {
  Done();
}

void RecoverySection::cmdDiscard_Click() {
  if (chartFiles_.empty()) return;
  const std::string& chartFile = chartFiles_.front();
  const std::string question =
      FillIn(Say(Text::kDiscardQuestion), {FormatGrouped(static_cast<double>(points_), Numbers()), chartFile});
  if (ShowMessage(component_, question, box_style::kYesNo + box_style::kQuestion, component_.helpFile) !=
      box_answer::kYes) {
    return;
  }
  try {
    (void)DiscardBeside(component_.ports, chartFile);
  } catch (const RunTimeError& error) {
    Warn(error.Description(component_.language));
    return;
  }
  Done();
}

}  // namespace chartproject
