// The typed fields: each new text is accepted, corrected, or put back.
#include "acquire/acquire_form.h"
#include "acquire/input_rules.h"
#include "common/environment/language.h"
#include "common/message_box.h"
#include "common/values/numbers.h"
#include "recording/trigger_events.h"

namespace chartproject {

namespace {}  // namespace

void AcquireForm::Warn(const std::string& text) {
  ShowMessage(component_, text, box_style::kExclamation, component_.helpFile);
}

void AcquireForm::Refuse(Text message) {
  Warn(LoadMessage(component_, message));
}

std::string AcquireForm::BytesText(double bytes) const {
  return FormatGrouped(bytes, component_.ports.locale.Numbers()) + " bytes";
}

void AcquireForm::txtNumberOfPoints_Change() {
  if (component_.strChartFileName.empty()) return;
  const NumberCheck check = CheckNumberOfPoints(txtNumberOfPoints.Text(), component_.ports.locale.Numbers());
  if (check.verdict == Verdict::kAccept) {
    const std::string whole = std::to_string(check.value);
    if (txtNumberOfPoints.Text() != whole) {
      txtNumberOfPoints.SetText(whole);  // comes back here
      return;
    }
    if (puttingBack_ || RoomFor(check.value)) {
      lastAcceptedPoints_ = whole;
    } else {
      txtNumberOfPoints.SetFocus();
      PutBack(txtNumberOfPoints, lastAcceptedPoints_);
    }
  } else {
    if (check.verdict == Verdict::kOutOfRange) Refuse(Text::kOutOfRange);
    PutBack(txtNumberOfPoints, lastAcceptedPoints_);
  }
  UpdateStartButtons();
}

void AcquireForm::PutBack(TextControl& field, const std::string& text) {
  if (puttingBack_) return;
  puttingBack_ = true;
  field.SetText(text);
  puttingBack_ = false;
}

bool AcquireForm::RoomFor(std::int32_t points) {
  if (typingFileName_) return true;  // a box at every letter helps nobody; Start asks again
  const double required = EstimateBytes(points, ParameterCount());
  double free = 0;
  try {
    free = static_cast<double>(component_.ports.files.SpaceFor(rtfFileName.Text()).totalFree);
  } catch (const RunTimeError&) {
    return true;  // a name half typed has no disk yet; Start asks for the file itself
  }
  if (free - static_cast<double>(kReservedSpace) > required) return true;
  Warn(LoadMessage(component_, Text::kTooLittleSpace) + BytesText(free) +
       LoadMessage(component_, Text::kRequiredSpace) + BytesText(required));
  return false;
}

void AcquireForm::SetUpTimeFields() {
  if (cboTimeBetweenPointsUnit.ListCount() > 0) cboTimeBetweenPointsUnit.Clear();
  for (int unit = 0; unit <= time_unit::kHoursMinutesSeconds; ++unit) {
    cboTimeBetweenPointsUnit.AddItem(std::string(UnitWord(unit)));
  }
  cboTimeBetweenPointsUnit.SetListIndex(time_unit::kSeconds);
}

void AcquireForm::cboTimeBetweenPointsUnit_Click() {
  struct UnitFields {
    Text rangeMessage;
    const char* initialText;
  };
  constexpr std::array<UnitFields, 3> kUnits{
      {{Text::kMillisecondsRange, "1000"}, {Text::kSecondsRange, "1"}, {Text::kHoursMinutesSeconds, "00:00:01"}}};
  const int unit = cboTimeBetweenPointsUnit.ListIndex();
  if (unit < 0) return;
  const UnitFields& fields = kUnits[static_cast<std::size_t>(unit)];
  const bool masked = unit == time_unit::kHoursMinutesSeconds;
  lblTimeBetweenPointsRange.SetCaption(LoadMessage(component_, fields.rangeMessage));
  // What was accepted in another unit must not come back in this one.
  if (!masked) lastAcceptedTime_ = fields.initialText;
  TextControl& field = masked ? static_cast<TextControl&>(mebTimeBetweenPoints) : txtTimeBetweenPoints;
  field.SetText(fields.initialText);
  component_.timeText = fields.initialText;
  txtTimeBetweenPoints.SetVisible(!masked);
  mebTimeBetweenPoints.SetVisible(masked);
  lblElapsedTime.SetVisible(masked);
  lblTimeBetweenPointsPB.SetVisible(masked);
  UpdateStartButtons();
}

void AcquireForm::txtTimeBetweenPoints_Change() {
  const int unit = cboTimeBetweenPointsUnit.ListIndex();
  if (unit == time_unit::kHoursMinutesSeconds) return;  // hidden, the masked box holds the time
  if (!emptyingTime_) {
    const NumberCheck check =
        CheckTimeBetweenPoints(txtTimeBetweenPoints.Text(), unit, component_.ports.locale.Numbers());
    if (check.verdict == Verdict::kAccept || check.verdict == Verdict::kLetStand) {
      const std::string whole = std::to_string(check.value);
      if (txtTimeBetweenPoints.Text() != whole) {
        txtTimeBetweenPoints.SetText(whole);  // comes back here
        return;
      }
      if (check.verdict == Verdict::kAccept) lastAcceptedTime_ = whole;
    } else {
      if (check.verdict == Verdict::kOutOfRange) Refuse(Text::kOutOfRange);
      txtTimeBetweenPoints.SetFocus();
      PutBack(txtTimeBetweenPoints, lastAcceptedTime_);
    }
  }
  component_.timeText = txtTimeBetweenPoints.Text();
  UpdateStartButtons();
}

void AcquireForm::txtTimeBetweenPoints_LostFocus() {
  if (cboTimeBetweenPointsUnit.ListIndex() != time_unit::kMilliseconds || txtTimeBetweenPoints.Text().empty()) return;
  const NumberCheck check =
      CheckTimeBetweenPoints(txtTimeBetweenPoints.Text(), time_unit::kMilliseconds, component_.ports.locale.Numbers());
  if (check.verdict == Verdict::kAccept) return;
  // Emptied first: whatever happens while the message is up, the refused value can no longer be started with.
  emptyingTime_ = true;
  txtTimeBetweenPoints.SetText("");
  emptyingTime_ = false;
  Refuse(Text::kOutOfRange);
}

void AcquireForm::mebTimeBetweenPoints_Change() {
  if (cboTimeBetweenPointsUnit.ListIndex() != time_unit::kHoursMinutesSeconds) return;
  component_.timeText = mebTimeBetweenPoints.Text();
  UpdateStartButtons();
}

void AcquireForm::mebTimeBetweenPoints_LostFocus() {
  if (cboTimeBetweenPointsUnit.ListIndex() == time_unit::kHoursMinutesSeconds) CheckMaskedTime();
}

bool AcquireForm::CheckMaskedTime() {
  const ClockTimeFault fault = CheckClockTime(mebTimeBetweenPoints.Text());
  if (fault == ClockTimeFault::kNone) return true;
  Refuse(fault == ClockTimeFault::kFormat ? Text::kBadClockTime : Text::kOutOfRange);
  mebTimeBetweenPoints.SetFocus();
  return false;
}

void AcquireForm::txtContent_Change() {
  if (!ContentAcceptable(txtContent.Text(), component_.ports.locale.Numbers())) {
    txtContent.SetText("");  // comes back here
    return;
  }
  component_.contentText = txtContent.Text();
  UpdateStartButtons();
}

bool AcquireForm::InputsHold() {
  const NumberFormat& format = component_.ports.locale.Numbers();
  const NumberCheck points = CheckNumberOfPoints(txtNumberOfPoints.Text(), format);
  if (points.verdict != Verdict::kAccept) {
    Refuse(Text::kOutOfRange);
    txtNumberOfPoints.SetFocus();
    return false;
  }
  if (!RoomFor(points.value)) {
    txtNumberOfPoints.SetFocus();
    return false;
  }
  if (cboTimeBetweenPointsUnit.ListIndex() == time_unit::kHoursMinutesSeconds) {
    if (!CheckMaskedTime()) return false;
  } else {
    txtTimeBetweenPoints_LostFocus();
    if (txtTimeBetweenPoints.Text().empty()) return false;
  }
  const bool compares = cboTriggerMode.ListIndex() == kTriggerByEvent && IsCompareEvent(cboEvent.ListIndex());
  if (compares && !IsTypedDecimal(txtContent.Text(), format)) {
    Refuse(Text::kOutOfRange);
    txtContent.SetFocus();
    return false;
  }
  return true;
}

}  // namespace chartproject
