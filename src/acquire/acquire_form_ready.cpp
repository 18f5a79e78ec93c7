// When a recording can be started, what is missing when it cannot, and what it will take.
#include "acquire/acquire_form.h"
#include "acquire/input_rules.h"
#include "acquire/run_texts.h"
#include "common/values/numbers.h"
#include "recording/trigger_events.h"

namespace chartproject {

namespace {

bool LacksChoice(const ComboBox& list) {
  return list.Enabled() && list.ListIndex() < 0;
}

}  // namespace

std::optional<Text> AcquireForm::MissingField() const {
  if (cboDriveAddress.ListIndex() < 0) return Text::kHintDriveAddress;
  if (cboNumberOfParameters.ListIndex() < 0) return Text::kHintParameters;
  for (const ComboBox* list : {&cboPXXX1, &cboPXXX2, &cboPXXX3, &cboPXXX4}) {
    if (LacksChoice(*list)) return Text::kHintParameters;
  }
  if (rtfFileName.Text().empty()) return Text::kHintFileName;
  const bool masked = cboTimeBetweenPointsUnit.ListIndex() == time_unit::kHoursMinutesSeconds;
  if ((masked ? mebTimeBetweenPoints.Text() : txtTimeBetweenPoints.Text()).empty()) return Text::kHintTime;
  if (txtNumberOfPoints.Text().empty()) return Text::kHintPoints;
  if (LacksChoice(cboEvent)) return Text::kHintEvent;
  if (LacksChoice(cboPXXX)) return Text::kHintParameters;
  if (txtContent.Enabled() && txtContent.Text().empty()) return Text::kHintContent;
  return std::nullopt;
}

void AcquireForm::UpdateStartButtons() {
  const auto missing = MissingField();
  lblHint.SetCaption(missing ? LoadMessage(component_, *missing) : std::string());
  UpdateEstimate();
  if (missing) {
    HideStartButtons(false);
    return;
  }
  const bool byEvent = cboTriggerMode.ListIndex() == kTriggerByEvent;
  const bool byHand = cboTriggerMode.ListIndex() == kTriggerManual;
  cmdStart.SetVisible(byHand);
  lblStart.SetVisible(byHand);
  cmdTrigger.SetVisible(byEvent);
  lblTrigger.SetVisible(byEvent);
}

void AcquireForm::HideStartButtons(bool visible) {
  for (Control* control : std::initializer_list<Control*>{&cmdStart, &lblStart, &cmdTrigger, &lblTrigger}) {
    control->SetVisible(visible);
  }
}

void AcquireForm::LockSetupFields(bool enabled) {
  for (Control* group :
       std::initializer_list<Control*>{&fraFileName, &picDriveAddress, &picMode, &picNumberOfParameters, &picTime}) {
    group->SetEnabled(enabled);
  }
  (cboTriggerMode.ListIndex() == kTriggerByEvent ? cmdTrigger : cmdStart).SetEnabled(enabled);
  for (CommandButton* button : {&cmdOK, &cmdReset, &cmdViewChart}) button->SetEnabled(enabled);
}

std::int64_t AcquireForm::MillisecondsBetweenPoints() const {
  const int unit = cboTimeBetweenPointsUnit.ListIndex();
  if (unit == time_unit::kHoursMinutesSeconds)
    return std::int64_t{1000} * ClockTimeSeconds(mebTimeBetweenPoints.Text());
  const NumberCheck check =
      CheckTimeBetweenPoints(txtTimeBetweenPoints.Text(), unit, component_.ports.locale.Numbers());
  if (check.verdict != Verdict::kAccept && check.verdict != Verdict::kLetStand) return 0;
  return unit == time_unit::kSeconds ? std::int64_t{1000} * check.value : check.value;
}

void AcquireForm::UpdateEstimate() {
  const NumberFormat& format = component_.ports.locale.Numbers();
  const NumberCheck points = CheckNumberOfPoints(txtNumberOfPoints.Text(), format);
  const std::int64_t milliseconds = MillisecondsBetweenPoints();
  if (points.verdict != Verdict::kAccept || milliseconds == 0) {
    lblEstimate.SetCaption("");
    return;
  }
  const std::int64_t seconds = (milliseconds * points.value + 999) / 1000;
  lblEstimate.SetCaption(
      FillIn(LoadMessage(component_, Text::kRunEstimate),
             {DurationText(seconds), FileSizeText(EstimateBytes(points.value, ParameterCount()), format)}));
}

}  // namespace chartproject
