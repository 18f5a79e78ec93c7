// The recording as the dialog runs it: arming, the event watch, sampling ticks, Esc, finishing.
#include <algorithm>

#include "acquire/acquire_form.h"
#include "acquire/input_rules.h"
#include "acquire/run_texts.h"
#include "common/environment/language.h"
#include "common/message_box.h"
#include "common/sounds.h"
#include "common/values/numbers.h"
#include "forms/flag_scope.h"
#include "forms/form_host.h"
#include "recording/trigger_events.h"

namespace chartproject {

namespace {

constexpr int kProgressSteps = 10000;
constexpr int kSecondTick = 1000;  // milliseconds
constexpr int kEscReleaseMilliseconds = 100;

}  // namespace

std::optional<RunPlan> AcquireForm::PrepareRun() {
  if (run_.State() != RunState::kIdle || MissingField() || !InputsHold()) return std::nullopt;
  const NumberFormat& format = component_.ports.locale.Numbers();
  RunPlan plan;
  plan.fileName = rtfFileName.Text();
  plan.driveAddress = ToInteger16(component_.selectedDriveAddress, format);
  plan.parameterCount = ParameterCount();
  plan.numberOfPoints = ToInteger32(txtNumberOfPoints.Text(), format);
  std::size_t column = 0;
  for (const ComboBox* list : ParameterLists()) {
    plan.columns[column++] = list->ListIndex() < 0 ? std::int16_t{kUnusedParameter} : ToInteger16(list->Text(), format);
  }
  // A folder that takes no file is told now, not after hours of sampling.
  if (!run_.Reserve(plan.fileName)) {
    Warn(FillIn(LoadMessage(component_, Text::kFileBeingRecorded), {plan.fileName}));
    return std::nullopt;
  }
  FillChartHeader(plan);
  if (cboTimeBetweenPointsUnit.ListIndex() == time_unit::kHoursMinutesSeconds) {
    stopwatchTarget_ = ClockTimeSeconds(mebTimeBetweenPoints.Text());
  }
  return plan;
}

void AcquireForm::FillChartHeader(const RunPlan& plan) {
  ChartHeader& header = component_.chartHeader;
  header = ChartHeader{};
  header.DriveAddress = component_.selectedDriveAddress;
  header.NumberOfParameters = cboNumberOfParameters.Text();
  const std::array columns{&header.PXXX1, &header.PXXX2, &header.PXXX3, &header.PXXX4};
  for (std::size_t column = 0; column < columns.size(); ++column) {
    const bool inUse = static_cast<int>(column) < plan.parameterCount && plan.columns[column] != kUnusedParameter;
    if (inUse) *columns[column] = FormatDigits(plan.columns[column], 3);
  }
  header.ScanTime = component_.timeText;
  header.Unit = UnitWord(cboTimeBetweenPointsUnit.ListIndex());
  header.NumberOfPoints = txtNumberOfPoints.Text();
  const int mode = cboTriggerMode.ListIndex();
  if (mode >= 0) header.TriggerMode = mode == kTriggerByEvent ? "Event" : "Manual";
  header.Event = EventCode(cboEvent.ListIndex());
  header.PXXX = cboPXXX.Text();
  header.Content = txtContent.Text();
}

void AcquireForm::WatchEsc() {
  (void)component_.ports.keyboard.EscapePressed();  // an Esc from before the run is not meant for it
  tmrMonitorEsc.SetEnabled(true);
}

int AcquireForm::SamplingInterval() const {
  return cboTimeBetweenPointsUnit.ListIndex() == time_unit::kHoursMinutesSeconds
             ? kSecondTick
             : static_cast<int>(MillisecondsBetweenPoints());
}

void AcquireForm::cmdStart_Click() {
  const auto plan = PrepareRun();
  if (!plan) return;
  run_.Arm(*plan);
  WatchEsc();
  BeginSampling();
}

void AcquireForm::cmdTrigger_Click() {
  const auto plan = PrepareRun();
  if (!plan) return;
  const NumberFormat& format = component_.ports.locale.Numbers();
  watchedEvent_ = {cboEvent.ListIndex()};
  if (IsCompareEvent(watchedEvent_.position)) {
    watchedEvent_.parameter = ToInteger16(cboPXXX.Text(), format);
    watchedEvent_.content = ToTypedDecimal(component_.contentText, format);
  }
  run_.Arm(*plan);
  imgTrigger1.SetVisible(true);
  LockSetupFields(false);
  WatchEsc();
  tmrEventTrigger.SetInterval(SamplingInterval());
  tmrEventTrigger.SetEnabled(true);
}

void AcquireForm::BeginSampling() {
  PlayWave(component_, kClosingSound);
  LockSetupFields(false);
  ShowProgressArea(true);
  prgProgress.SetRange(0, kProgressSteps);
  prgProgress.SetValue(0);
  SetPointer(MousePointer::kHourglass);
  run_.BeginSampling();
  tmrAcquire.SetInterval(SamplingInterval());
  stopwatch_.Reset();
  lblElapsedTime.SetCaption(stopwatch_.Text());
  samplingBegan_ = component_.ports.clock.Now();
  lastPointAt_ = samplingBegan_;
  shownSeconds_ = -1;
  ShowRunTimes();
  tmrAcquire.SetEnabled(true);
}

void AcquireForm::ShowProgressArea(bool visible) {
  if (picProgress.Visible() == visible) return;
  picProgress.SetVisible(visible);
  SetHeight(visible ? kSamplingHeight : kSetUpHeight);
  LayoutChanged();
}

/// A link that waits for its drive with a message loop lets the timers through, also those of a run begun meanwhile.
bool AcquireForm::LinkInUse() const {
  return testingEvent_ || run_.Reading();
}

bool AcquireForm::PointIsDue() {
  if (cboTimeBetweenPointsUnit.ListIndex() != time_unit::kHoursMinutesSeconds) return true;
  if (stopwatch_.AddSecond()) {
    (void)component_.ports.dialogs.ShowMessageBox(
        {std::to_string(stopwatch_.Days()) + " day(s) have gone by since u started the stopwatch.",
         box_style::kInformation,
         "Days That Have Gone By",
         {},
         0});
    if (run_.State() != RunState::kSampling) return false;  // ended while the box was up
  }
  const std::string elapsed = stopwatch_.Text();
  const bool due = ClockTimeSeconds(elapsed) >= stopwatchTarget_;
  if (due) stopwatch_.Reset();
  lblElapsedTime.SetCaption(due ? stopwatch_.Text() : elapsed);
  return due;
}

void AcquireForm::tmrAcquire_Tick() {
  if (run_.State() != RunState::kSampling || LinkInUse()) return;
  if (PointIsDue()) {
    const std::uint32_t run = run_.Serial();
    run_.TakePoint();
    if (run_.State() == RunState::kIdle || run_.Serial() != run) return;  // stopped while the drive was read
    lastPointAt_ = component_.ports.clock.Now();
    ShowProgress();
    if (pointTaken) pointTaken(run_);
  }
  ShowRunTimes();
  if (run_.State() == RunState::kFinished) {
    StopTimers();
    ReportEnd();
    FinishRun();
  }
}

void AcquireForm::ShowProgress() {
  const std::int64_t counter = run_.Counter();
  const std::int64_t step = counter * kProgressSteps / run_.Plan().numberOfPoints;
  prgProgress.SetValue(static_cast<double>(step));
  lblProgress.SetCaption(std::to_string(counter));  // a caption that does not differ is not shown again
}

void AcquireForm::ShowRunTimes() {
  const Instant now = component_.ports.clock.Now();
  const std::int64_t seconds = std::chrono::duration_cast<std::chrono::seconds>(now - samplingBegan_).count();
  if (seconds == shownSeconds_) return;
  shownSeconds_ = seconds;
  // Counted from the last point, so that the end stands still between two of them.
  const std::int64_t sinceLast = std::chrono::duration_cast<std::chrono::milliseconds>(now - lastPointAt_).count();
  const std::int64_t left =
      MillisecondsBetweenPoints() * (std::int64_t{run_.Plan().numberOfPoints} - run_.Counter()) - sinceLast;
  const DateTime today = component_.ports.clock.LocalNow();
  const std::int64_t remaining = (std::max(left, std::int64_t{0}) + today.millisecond + 500) / 1000;
  lblRunTimes.SetCaption(
      FillIn(LoadMessage(component_, Text::kElapsedAndEnd),
             {DurationText(seconds), MomentText(LaterBy(today, remaining), today, component_.ports.locale)}));
}

void AcquireForm::tmrEventTrigger_Tick() {
  if (run_.State() != RunState::kArmed || LinkInUse()) return;
  const std::uint32_t run = run_.Serial();
  std::int16_t code = watch_code::kNotYet;
  component_.currentDrive = run_.Plan().driveAddress;
  try {
    const FlagScope testing(testingEvent_);
    code = TestEvent(component_, watchedEvent_);
  } catch (const RunTimeError&) {
    // The link itself failed; the same error at every tick helps nobody.
    if (run_.Serial() == run) EndRun(RunEnd::kFailed);
    throw;
  }
  if (run_.State() != RunState::kArmed || run_.Serial() != run) return;  // stopped meanwhile
  if (code == watch_code::kOccurred) {
    imgTrigger1.SetVisible(false);
    tmrEventTrigger.SetEnabled(false);
    BeginSampling();
    return;
  }
  if (code == watch_code::kNoAnswer) {
    const std::int16_t answer = ShowMessage(
        component_,
        LoadMessage(component_, Text::kCommunicationError) + " " + LoadMessage(component_, Text::kContinueEvenSo),
        box_style::kYesNo + box_style::kQuestion, component_.helpFile);
    if (run_.State() != RunState::kArmed) return;  // Esc ended the watch while the question was up
    if (answer != box_answer::kYes) {
      EndRun(RunEnd::kStopped);
      return;
    }
  }
  imgTrigger1.SetVisible(!imgTrigger1.Visible());
}

void AcquireForm::tmrMonitorEsc_Tick() {
  // The elapsed time goes on when the points lie far apart.
  if (run_.State() == RunState::kSampling) ShowRunTimes();
  if (!component_.ports.keyboard.EscapePressed()) return;
  // The same key would press the dialog's cancel button as soon as the button is usable again.
  cmdOK.SetCancel(false);
  tmrEscReleased.SetInterval(kEscReleaseMilliseconds);
  tmrEscReleased.SetEnabled(true);
  StopRun();
}

void AcquireForm::tmrEscReleased_Tick() {
  if (component_.ports.keyboard.EscapePressed()) return;
  tmrEscReleased.SetEnabled(false);
  cmdOK.SetCancel(true);
}

void AcquireForm::StopRun() {
  if (!run_.Active()) return;
  PlayWave(component_, kCompleteSound);
  EndRun(RunEnd::kStopped);
}

void AcquireForm::StopTimers() {
  for (Timer* timer : {&tmrMonitorEsc, &tmrAcquire, &tmrEventTrigger}) timer->SetEnabled(false);
}

void AcquireForm::EndRun(RunEnd reason) {
  if (!run_.Active()) return;
  StopTimers();
  run_.Stop(reason);
  FinishRun();
}

void AcquireForm::ReportEnd() {
  if (run_.End() == RunEnd::kDiskSpace) {
    Warn(LoadMessage(component_, Text::kTooLittleSpace) + BytesText(static_cast<double>(run_.FreeSpace())));
    PlayWave(component_, kCompleteSound);
  }
}

void AcquireForm::FinishRun() {
  StopTimers();
  imgTrigger1.SetVisible(false);
  // The fields stay locked until the file is written: a long one is copied with the window awake.
  SetPointer(MousePointer::kHourglass);
  lblProgress.SetCaption(LoadMessage(component_, Text::kSaving));
  lastRun_ = {run_.End(), run_.Counter(), run_.Plan().fileName, run_.Close([this] { Host().KeepAlive(); })};
  lblProgress.SetCaption("");
  LockSetupFields(true);
  ShowProgressArea(false);
  SetPointer(MousePointer::kDefault);
  PlayWave(component_, kCompleteSound);
  ReportWriting(lastRun_.written);
  UpdateViewChartButton();
  if (runEnded) runEnded(lastRun_);
}

void AcquireForm::ReportWriting(const ChartWriteResult& result) {
  // Said only now: while a box waits for its answer, points that stand in memory would not be safe.
  if (run_.End() == RunEnd::kFailed && !run_.FailureReason().empty()) Warn(run_.FailureReason());
  const std::string kept =
      result.keptFile.empty() ? std::string() : LoadMessage(component_, Text::kPointsSavedOn) + result.keptFile;
  if (result.kind == ChartWriteResult::Kind::kRowsInSpool) {
    Warn(LoadMessage(component_, Text::kTooLittleSpace) + BytesText(static_cast<double>(result.freeSpace)) + kept);
  } else if (result.kind == ChartWriteResult::Kind::kFailed) {
    Warn(result.reason + kept);
  }
}

}  // namespace chartproject
