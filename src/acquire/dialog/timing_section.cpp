// How many points a recording has, and the time between them.
#include "acquire/dialog/timing_section.h"

#include "acquire/run/run_texts.h"
#include "common/values/numbers.h"
#include "forms/flag_scope.h"

namespace chartproject {

TimingSection::TimingSection(Form& form, Component& component, const FileSection& file, const DriveSection& drive,
                             std::function<void()> changed)
    : Section(form, component, std::move(changed)), file_(file), drive_(drive) {
  lblNumberOfPoints.SetTag(TextNumber(Text::kNumberOfPoints));
  lblNumberOfPointsRange.SetTag(TextNumber(Text::kPointsRange));
  lblTimeBetweenPoints.SetTag(TextNumber(Text::kTimeAmongPoints));
  mebTimeBetweenPoints.SetVisible(false);
  Connect(txtNumberOfPoints.change, txtNumberOfPoints, "Change", this, &TimingSection::txtNumberOfPoints_Change);
  Connect(txtNumberOfPoints.lostFocus, txtNumberOfPoints, "LostFocus", this,
          &TimingSection::txtNumberOfPoints_LostFocus);
  Connect(txtTimeBetweenPoints.change, txtTimeBetweenPoints, "Change", this,
          &TimingSection::txtTimeBetweenPoints_Change);
  Connect(txtTimeBetweenPoints.lostFocus, txtTimeBetweenPoints, "LostFocus", this,
          &TimingSection::txtTimeBetweenPoints_LostFocus);
  Connect(mebTimeBetweenPoints.change, mebTimeBetweenPoints, "Change", this,
          &TimingSection::mebTimeBetweenPoints_Change);
  Connect(mebTimeBetweenPoints.lostFocus, mebTimeBetweenPoints, "LostFocus", this,
          &TimingSection::mebTimeBetweenPoints_LostFocus);
  Connect(cboTimeBetweenPointsUnit.click, cboTimeBetweenPointsUnit, "Click", this,
          &TimingSection::cboTimeBetweenPointsUnit_Click);
}

LayoutBox TimingSection::Layout() {
  // The two kinds of time fields share one place: only one of them is ever visible.
  return Group(
      picTime,
      Column({Row({LineStart(lblNumberOfPoints), Cell(txtNumberOfPoints), Cell(lblNumberOfPointsRange, 1)}),
              Row({LineStart(lblTimeBetweenPoints), Stack({Cell(txtTimeBetweenPoints), Cell(mebTimeBetweenPoints)}),
                   Cell(cboTimeBetweenPointsUnit), Cell(lblTimeBetweenPointsRange, 1), Cell(cmdTimePoint)})}));
}

void TimingSection::Translate() {
  cmdTimePoint.SetCaption(Say(Text::kTimePoint));
  cmdTimePoint.SetToolTipText(Say(Text::kTimePointTip));
}

void TimingSection::Reset() {
  constexpr std::string_view kPoints = "5";
  if (txtNumberOfPoints.Text() == kPoints) {
    txtNumberOfPoints_Change();  // the number of parameters or the disk may be another one
  } else {
    txtNumberOfPoints.SetText(kPoints);
  }
  SetUpTimeFields();
}

void TimingSection::ShowHeader(const ChartHeader& header) {
  SelectItem(cboTimeBetweenPointsUnit, header.Unit);
  const bool usable = !SpacedByStopwatch() || CheckClockTime(header.ScanTime) == ClockTimeFault::kNone;
  if (usable) TimeField().SetText(header.ScanTime);
  txtNumberOfPoints.SetText(header.NumberOfPoints);
}

void TimingSection::FillPlan(RunPlan& plan) const {
  plan.numberOfPoints = ToInteger32(txtNumberOfPoints.Text(), Numbers());
  plan.millisecondsBetweenPoints = MillisecondsBetweenPoints();
  plan.spacedByStopwatch = SpacedByStopwatch();
}

void TimingSection::FillHeader(ChartHeader& header) const {
  header.ScanTime = component_.timeText;
  header.Unit = cboTimeBetweenPointsUnit.Text();
  header.NumberOfPoints = txtNumberOfPoints.Text();
}

std::optional<TimeUnit> TimingSection::Unit() const {
  const int index = cboTimeBetweenPointsUnit.ListIndex();
  if (index < 0) return std::nullopt;
  return static_cast<TimeUnit>(index);
}

bool TimingSection::SpacedByStopwatch() const {
  return Unit() == TimeUnit::kClockTime;
}

TextControl& TimingSection::TimeField() {
  if (SpacedByStopwatch()) return mebTimeBetweenPoints;
  return txtTimeBetweenPoints;
}

NumberCheck TimingSection::CheckTime(const std::string& text) const {
  return CheckTimeBetweenPoints(text, Unit().value_or(TimeUnit::kSeconds), Numbers());
}

std::int64_t TimingSection::MillisecondsBetweenPoints() const {
  if (SpacedByStopwatch()) return std::int64_t{1000} * ClockTimeSeconds(mebTimeBetweenPoints.Text());
  const NumberCheck check = CheckTime(txtTimeBetweenPoints.Text());
  if (check.verdict != Verdict::kAccept && check.verdict != Verdict::kLetStand) return 0;
  return Unit() == TimeUnit::kSeconds ? std::int64_t{1000} * check.value : check.value;
}

std::string TimingSection::Estimate() const {
  const NumberCheck points = CheckNumberOfPoints(txtNumberOfPoints.Text(), Numbers());
  const bool timed = SpacedByStopwatch() ? CheckClockTime(mebTimeBetweenPoints.Text()) == ClockTimeFault::kNone
                                         : CheckTime(txtTimeBetweenPoints.Text()).verdict == Verdict::kAccept;
  if (points.verdict != Verdict::kAccept || !timed) return {};
  const std::int64_t seconds = (MillisecondsBetweenPoints() * points.value + 999) / 1000;
  return FillIn(Say(Text::kRunEstimate),
                {DurationText(seconds), FileSizeText(ExpectedBytes(points.value, drive_.ParameterCount()), Numbers())});
}

std::optional<std::string> TimingSection::Missing() const {
  const TextControl& time =
      SpacedByStopwatch() ? static_cast<const TextControl&>(mebTimeBetweenPoints) : txtTimeBetweenPoints;
  if (time.Text().empty()) return Say(Text::kHintTime);
  if (txtNumberOfPoints.Text().empty()) return Say(Text::kHintPoints);
  return std::nullopt;
}

bool TimingSection::Holds() {
  if (!PointsHold()) return false;
  if (SpacedByStopwatch()) return !TimeRefusedJustNow() && CheckMaskedTime();
  txtTimeBetweenPoints_LostFocus();
  return !txtTimeBetweenPoints.Text().empty();
}

/// The click on Start that made the field lose its focus arrives when the box that followed from that is closed.
bool TimingSection::TimeRefusedJustNow() const {
  constexpr Instant kSameClick = std::chrono::milliseconds(300);
  if (!timeRefusedAt_ || component_.ports.clock.Now() - *timeRefusedAt_ > kSameClick) return false;
  return CheckClockTime(mebTimeBetweenPoints.Text()) != ClockTimeFault::kNone;
}

bool TimingSection::PointsHold() {
  txtNumberOfPoints_LostFocus();
  const NumberCheck points = CheckNumberOfPoints(txtNumberOfPoints.Text(), Numbers());
  const bool inRange = points.verdict == Verdict::kAccept;
  if (!inRange) Warn(Say(Text::kOutOfRange));
  if (inRange && RoomFor(points.value)) return true;
  txtNumberOfPoints.SetFocus();
  return false;
}

bool TimingSection::CheckMaskedTime() {
  const ClockTimeFault fault = CheckClockTime(mebTimeBetweenPoints.Text());
  if (fault == ClockTimeFault::kNone) return true;
  Warn(Say(fault == ClockTimeFault::kFormat ? Text::kBadClockTime : Text::kOutOfRange));
  mebTimeBetweenPoints.SetFocus();
  mebTimeBetweenPoints.SelectAll();
  return false;
}

bool TimingSection::RoomFor(std::int32_t points) const {
  return file_.HasRoomFor(EstimateBytes(points, drive_.ParameterCount()));
}

void TimingSection::PutBack(TextControl& field, const std::string& text) {
  if (puttingBack_) return;
  const FlagScope puttingBack(puttingBack_);
  const bool strayLetter = !field.Text().empty() && !IsNumeric(field.Text(), Numbers());
  field.SetText(text);
  if (!strayLetter) field.SelectAll();  // the next digit begins a new number
}

/// Completes a number that was typed up to its decimal sign.
void TimingSection::Round(TextControl& field, const NumberCheck& check) {
  const bool number = check.verdict == Verdict::kAccept || check.verdict == Verdict::kLetStand;
  if (number) field.SetText(std::to_string(check.value));
}

void TimingSection::txtNumberOfPoints_Change() {
  if (component_.strChartFileName.empty()) return;
  const Instant now = component_.ports.clock.Now();
  const std::string typed = pointsEntry_.Typed(txtNumberOfPoints.Text(), now);
  const NumberCheck check = CheckNumberOfPoints(typed, Numbers());
  if (check.verdict == Verdict::kAccept) {
    const std::string whole = std::to_string(check.value);
    if (txtNumberOfPoints.Text() != whole && !EndsInDecimalSign(typed, Numbers())) {
      pointsEntry_.Round(typed, whole, now);
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
    if (check.verdict == Verdict::kOutOfRange) Warn(Say(Text::kOutOfRange));
    PutBack(txtNumberOfPoints, lastAcceptedPoints_);
  }
  Changed();
}

void TimingSection::txtNumberOfPoints_LostFocus() {
  Round(txtNumberOfPoints, CheckNumberOfPoints(txtNumberOfPoints.Text(), Numbers()));
}

void TimingSection::txtTimeBetweenPoints_Change() {
  if (SpacedByStopwatch()) return;  // hidden, the masked box holds the time
  std::string accepted = txtTimeBetweenPoints.Text();
  if (!emptyingTime_) {
    const Instant now = component_.ports.clock.Now();
    const std::string typed = timeEntry_.Typed(accepted, now);
    const NumberCheck check = CheckTime(typed);
    if (check.verdict == Verdict::kAccept || check.verdict == Verdict::kLetStand) {
      accepted = std::to_string(check.value);
      if (txtTimeBetweenPoints.Text() != accepted && !EndsInDecimalSign(typed, Numbers())) {
        timeEntry_.Round(typed, accepted, now);
        txtTimeBetweenPoints.SetText(accepted);  // comes back here
        return;
      }
      if (check.verdict == Verdict::kAccept) lastAcceptedTime_ = accepted;
    } else {
      if (check.verdict == Verdict::kOutOfRange) Warn(Say(Text::kOutOfRange));
      txtTimeBetweenPoints.SetFocus();
      PutBack(txtTimeBetweenPoints, lastAcceptedTime_);
      accepted = txtTimeBetweenPoints.Text();
    }
  }
  component_.timeText = accepted;
  Changed();
}

void TimingSection::txtTimeBetweenPoints_LostFocus() {
  if (!SpacedByStopwatch()) Round(txtTimeBetweenPoints, CheckTime(txtTimeBetweenPoints.Text()));
  if (Unit() != TimeUnit::kMilliseconds || txtTimeBetweenPoints.Text().empty()) return;
  if (CheckTime(txtTimeBetweenPoints.Text()).verdict == Verdict::kAccept) return;
  {
    // Emptied first, so that a start cannot use the refused value while the message is up.
    const FlagScope emptying(emptyingTime_);
    txtTimeBetweenPoints.SetText("");
  }
  Warn(Say(Text::kOutOfRange));
}

void TimingSection::mebTimeBetweenPoints_Change() {
  if (!SpacedByStopwatch()) return;
  component_.timeText = mebTimeBetweenPoints.Text();
  Changed();
}

void TimingSection::mebTimeBetweenPoints_LostFocus() {
  if (SpacedByStopwatch() && !CheckMaskedTime()) timeRefusedAt_ = component_.ports.clock.Now();
}

void TimingSection::SetUpTimeFields() {
  Refill(cboTimeBetweenPointsUnit, {"ms", "s", "hh:mm:ss"});
  cboTimeBetweenPointsUnit.SetListIndex(static_cast<int>(TimeUnit::kSeconds));
}

void TimingSection::cboTimeBetweenPointsUnit_Click() {
  struct UnitFields {
    Text range;
    const char* initialText;
  };
  constexpr std::array<UnitFields, 3> kUnits{
      {{Text::kMillisecondsRange, "1000"}, {Text::kSecondsRange, "1"}, {Text::kHoursMinutesSeconds, "00:00:01"}}};
  const auto unit = Unit();
  if (!unit) return;
  const UnitFields& fields = kUnits[static_cast<std::size_t>(*unit)];
  const bool masked = SpacedByStopwatch();
  lblTimeBetweenPointsRange.SetCaption(Say(fields.range));
  // A value accepted in another unit must not be restored in this one.
  if (!masked) lastAcceptedTime_ = fields.initialText;
  TimeField().SetText(fields.initialText);
  component_.timeText = fields.initialText;
  txtTimeBetweenPoints.SetVisible(!masked);
  mebTimeBetweenPoints.SetVisible(masked);
  Changed();
}

}  // namespace chartproject
