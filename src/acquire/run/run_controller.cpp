// Conducts recordings: timers, the watch for the event, the stopwatch, Esc, the end.
#include "acquire/run/run_controller.h"

#include <algorithm>
#include <utility>

#include "acquire/run/recovery_watch.h"
#include "acquire/run/run_notices.h"
#include "acquire/run/run_texts.h"
#include "acquire/run/trouble_text.h"
#include "common/environment/language.h"
#include "common/message_box.h"
#include "common/sounds.h"
#include "common/values/numbers.h"
#include "forms/flag_scope.h"
#include "forms/form.h"
#include "forms/form_host.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr int kSecondTick = 1000;  // milliseconds
constexpr int kEscWatchMilliseconds = 100;
/// After a recording's own end: as long as somebody takes to see that the key was too late.
constexpr int kEscGraceMilliseconds = 700;

}  // namespace

RunController::RunController(Form& form, Component& component, RunDisplay& display)
    : tmrAcquire(form, "tmrAcquire"),
      tmrEventTrigger(form, "tmrEventTrigger"),
      tmrMonitorEsc(form, "tmrMonitorEsc"),
      tmrEscReleased(form, "tmrEscReleased"),
      form_(form),
      component_(component),
      display_(display),
      run_(component) {
  tmrMonitorEsc.SetInterval(kEscWatchMilliseconds);
  tmrEscReleased.SetInterval(kEscWatchMilliseconds);
  Connect(tmrAcquire.tick, tmrAcquire, "Timer", this, &RunController::tmrAcquire_Tick);
  Connect(tmrEventTrigger.tick, tmrEventTrigger, "Timer", this, &RunController::tmrEventTrigger_Tick);
  Connect(tmrMonitorEsc.tick, tmrMonitorEsc, "Timer", this, &RunController::tmrMonitorEsc_Tick);
  Connect(tmrEscReleased.tick, tmrEscReleased, "Timer", this, &RunController::tmrEscReleased_Tick);
  component_.linkWait.goOn = [this] { return ReadingIsWanted(); };
}

RunController::~RunController() {
  component_.linkWait.goOn = nullptr;
}

std::string RunController::Reserve(const std::string& fileName) {
  shownNotice_.clear();  // of the recording before
  const auto show = [this](const std::string& text) {
    display_.ShowNotice(text);
    if (noticed && shownNotice_.empty() && !text.empty()) noticed(text);
    shownNotice_ = text;
  };
  try {
    RecoveryWatch watch(form_, component_, show);
    return run_.Reserve(fileName, watch.Progress());
  } catch (const RecoveryGivenUp&) {
    display_.HoldEsc(true);
    tmrEscReleased.SetEnabled(form_.IsShown());
    show(FillIn(LoadMessage(component_, Text::kNotStarted), {fileName}));
    throw;
  }
}

void RunController::Start(const RunPlan& plan) {
  Arm(plan);
  BeginSampling();
}

void RunController::Watch(const RunPlan& plan, const WatchedEvent& event) {
  watchedEvent_ = event;
  Arm(plan);
  armedAt_ = component_.ports.clock.LocalNow();
  display_.ShowArmed();
  display_.ShowLamp(true);
  ShowWatch({});
  ShowNotice();
  tmrEventTrigger.SetInterval(SamplingInterval());
  tmrEventTrigger.SetEnabled(true);
}

std::optional<PlanTiming> RunController::Time(const RunPlan& plan) {
  if (run_.State() != RunState::kIdle || LinkInUse()) return std::nullopt;
  (void)component_.ports.keyboard.EscapePressed();  // one from before is not meant for it
  const FlagScope timing(timing_);
  timingWanted_ = true;
  PlanTiming result = TimePlan(component_, plan);
  return std::exchange(timingWanted_, false) ? std::optional(std::move(result)) : std::nullopt;
}

void RunController::Arm(const RunPlan& plan) {
  shownNotice_.clear();
  display_.ShowNotice({});
  run_.Arm(plan);
  (void)component_.ports.keyboard.EscapePressed();  // an Esc from before the run is not meant for it
  tmrEscReleased.SetEnabled(false);
  display_.HoldEsc(false);
  tmrMonitorEsc.SetEnabled(true);
}

int RunController::SamplingInterval() const {
  return run_.Plan().spacedByStopwatch ? kSecondTick : static_cast<int>(run_.Plan().millisecondsBetweenPoints);
}

void RunController::BeginSampling() {
  PlayWave(component_, kClosingSound);
  display_.ShowSampling(run_.Plan());
  run_.BeginSampling();
  tmrAcquire.SetInterval(SamplingInterval());
  stopwatch_.Reset();
  display_.ShowStopwatch(stopwatch_.Text());
  samplingBegan_ = component_.ports.clock.Now();
  lastPointAt_ = samplingBegan_;
  shownSeconds_ = -1;
  ShowRunTimes();
  ShowNotice();
  tmrAcquire.SetEnabled(true);
}

/// A link that waits for its drive with a message loop lets the timers through, also those of a run begun meanwhile.
bool RunController::LinkInUse() const {
  return testingEvent_ || timing_ || run_.Reading();
}

/// What a link that waits asks for: the user's input is taken meanwhile, and no timer ticks. Esc and the close box end
/// the recording at once; the link then gives its reading up.
bool RunController::ReadingIsWanted() {
  form_.Host().KeepAlive();
  const auto wanted = [this] { return timing_ ? timingWanted_ : run_.Active() && run_.Serial() == readingRun_; };
  if (wanted()) form_.RunHandler("LinkWait", [this] { WatchEsc(); });
  return wanted();
}

bool RunController::PointIsDue() {
  if (!run_.Plan().spacedByStopwatch) return true;
  if (stopwatch_.AddSecond()) {
    (void)component_.ports.dialogs.ShowMessageBox(
        {std::to_string(stopwatch_.Days()) + " day(s) have gone by since u started the stopwatch.",
         box_style::kInformation,
         "Days That Have Gone By",
         {},
         0});
    if (run_.State() != RunState::kSampling) return false;  // ended while the box was up
  }
  const bool due = std::int64_t{1000} * stopwatch_.Seconds() >= run_.Plan().millisecondsBetweenPoints;
  if (due) stopwatch_.Reset();
  display_.ShowStopwatch(stopwatch_.Text());
  return due;
}

void RunController::tmrAcquire_Tick() {
  if (run_.State() != RunState::kSampling || LinkInUse()) return;
  if (PointIsDue()) {
    const std::uint32_t run = readingRun_ = run_.Serial();
    run_.TakePoint();
    if (run_.State() == RunState::kIdle || run_.Serial() != run) return;  // stopped while the drive was read
    lastPointAt_ = component_.ports.clock.Now();
    display_.ShowProgress(run_.Kept(), run_.Plan().numberOfPoints);  // what is shown survives a crash
    if (run_.Counter() > 0) display_.ShowPoint(run_);
    display_.ShowTrouble(TroubleText(component_, run_, lastPointAt_));
    ShowNotice();
    if (pointTaken) pointTaken(run_);
  }
  ShowRunTimes();
  if (run_.State() == RunState::kFinished) {
    StopTimers();
    ReportEnd();
    Finish();
  }
}

void RunController::ShowRunTimes() {
  const Instant now = component_.ports.clock.Now();
  const std::int64_t seconds = std::chrono::duration_cast<std::chrono::seconds>(now - samplingBegan_).count();
  if (seconds == shownSeconds_) return;
  shownSeconds_ = seconds;
  // Counted from the last point, so that the end does not move between two of them.
  const std::int64_t sinceLast = std::chrono::duration_cast<std::chrono::milliseconds>(now - lastPointAt_).count();
  const RunPlan& plan = run_.Plan();
  const std::int64_t left =
      plan.millisecondsBetweenPoints * (std::int64_t{plan.numberOfPoints} - run_.Counter()) - sinceLast;
  const DateTime today = component_.ports.clock.LocalNow();
  const std::int64_t remaining = (std::max(left, std::int64_t{0}) + today.millisecond + 500) / 1000;
  display_.ShowRunTimes(
      FillIn(LoadMessage(component_, Text::kElapsedAndEnd),
             {DurationText(seconds), MomentText(LaterBy(today, remaining), today, component_.ports.locale)}));
  display_.ShowTrouble(TroubleText(component_, run_, now));
}

void RunController::ShowNotice() {
  std::string notice = RunNotice(component_, run_);
  if (notice == shownNotice_) return;
  shownNotice_ = std::move(notice);
  display_.ShowNotice(shownNotice_);
  if (noticed && !shownNotice_.empty()) noticed(shownNotice_);
}

void RunController::tmrEventTrigger_Tick() {
  if (run_.State() != RunState::kArmed || LinkInUse()) return;
  const std::uint32_t run = readingRun_ = run_.Serial();
  EventTest test;
  component_.currentDrive = run_.Plan().driveAddress;
  try {
    const FlagScope testing(testingEvent_);
    test = TestEvent(component_, watchedEvent_);
  } catch (const RunTimeError&) {
    // The link itself failed; the same error would come again at every tick.
    if (run_.Serial() == run) End(RunEnd::kFailed);
    throw;
  }
  if (run_.State() != RunState::kArmed || run_.Serial() != run) return;  // stopped meanwhile
  if (test.code == watch_code::kOccurred) {
    display_.ShowLamp(false);
    tmrEventTrigger.SetEnabled(false);
    BeginSampling();
    return;
  }
  ShowWatch(test.reading);
  if (test.code == watch_code::kNoAnswer && !KeepsWatching()) return;
  display_.ShowLamp(!display_.LampLit());
}

void RunController::ShowWatch(const std::string& reading) {
  const std::string event = EventWords(component_, watchedEvent_);
  const std::string since = MomentText(armedAt_, component_.ports.clock.LocalNow(), component_.ports.locale);
  display_.ShowWatch(reading.empty() ? FillIn(LoadMessage(component_, Text::kWaitingFor), {event, since})
                                     : FillIn(LoadMessage(component_, Text::kWaitingForNow), {event, reading, since}));
}

/// Asks what to do about a drive that does not answer.
bool RunController::KeepsWatching() {
  const std::string question =
      LoadMessage(component_, Text::kCommunicationError) + " " + LoadMessage(component_, Text::kContinueEvenSo);
  const std::int16_t answer =
      ShowMessage(component_, question, box_style::kYesNo + box_style::kQuestion, component_.helpFile);
  if (run_.State() != RunState::kArmed) return false;  // Esc ended the watch while the question was up
  if (answer == box_answer::kYes) return true;
  End(RunEnd::kStopped);
  return false;
}

void RunController::tmrMonitorEsc_Tick() {
  WatchEsc();
}

void RunController::WatchEsc() {
  // The elapsed time advances even between points that are far apart.
  if (run_.State() == RunState::kSampling) ShowRunTimes();
  if (!component_.ports.keyboard.EscapePressed()) return;
  // The same key would press the dialog's cancel button as soon as the button is usable again.
  display_.HoldEsc(true);
  tmrEscReleased.SetInterval(kEscWatchMilliseconds);
  tmrEscReleased.SetEnabled(true);
  Stop();
}

void RunController::tmrEscReleased_Tick() {
  tmrEscReleased.SetInterval(kEscWatchMilliseconds);
  if (component_.ports.keyboard.EscapePressed()) return;
  tmrEscReleased.SetEnabled(false);
  display_.HoldEsc(false);
}

void RunController::Stop() {
  timingWanted_ = false;
  if (!run_.Active()) return;
  PlayWave(component_, kCompleteSound);
  End(RunEnd::kStopped);
}

void RunController::StopTimers() {
  for (Timer* timer : {&tmrMonitorEsc, &tmrAcquire, &tmrEventTrigger}) timer->SetEnabled(false);
}

void RunController::StopAllTimers() {
  StopTimers();
  tmrEscReleased.SetEnabled(false);
}

void RunController::End(RunEnd reason) {
  if (!run_.Active()) return;
  run_.Stop(reason);
  Finish();
}

void RunController::Warn(const std::string& text) {
  ShowMessage(component_, text, box_style::kExclamation, component_.helpFile);
}

void RunController::ReportEnd() {
  if (run_.End() != RunEnd::kDiskSpace) return;
  Warn(LoadMessage(component_, Text::kTooLittleSpace) +
       BytesText(static_cast<double>(run_.FreeSpace()), component_.ports.locale.Numbers()));
  PlayWave(component_, kCompleteSound);
}

void RunController::Finish() {
  StopTimers();
  display_.ShowLamp(false);
  display_.ShowSaving();
  lastRun_ = {run_.End(),           run_.Counter(),
              run_.Plan().fileName, run_.Close([this] { display_.KeepAwake(); }),
              run_.Readings(),      run_.CompanionFailure()};
  display_.ShowIdle();
  if (run_.End() != RunEnd::kStopped &&
      form_.Host().ShowsWindows()) {  // an Esc meant for the run does not close the form
    display_.HoldEsc(true);
    tmrEscReleased.SetInterval(kEscGraceMilliseconds);
    tmrEscReleased.SetEnabled(true);
  }
  PlayWave(component_, kCompleteSound);
  ReportWriting(lastRun_.written);
  if (runEnded) runEnded(lastRun_);
}

void RunController::ReportWriting(const ChartWriteResult& result) {
  // Reported only after the file is written: points in memory would be at risk while a box is open.
  if (run_.End() == RunEnd::kFailed && !run_.FailureReason().empty()) Warn(run_.FailureReason());
  const std::string kept =
      result.keptFile.empty() ? std::string() : LoadMessage(component_, Text::kPointsSavedOn) + result.keptFile;
  if (result.kind == ChartWriteResult::Kind::kRowsInSpool) {
    const NumberFormat& format = component_.ports.locale.Numbers();
    Warn(LoadMessage(component_, Text::kTooLittleSpace) + BytesText(static_cast<double>(result.freeSpace), format) +
         kept);
  } else if (result.kind == ChartWriteResult::Kind::kFailed) {
    Warn(result.reason + (result.lost > 0 ? ". " + LostPointsNotice(component_, lastRun_) : kept));
  }
  if (const std::string missing = MissingPointsNotice(component_, lastRun_); !missing.empty()) Warn(missing);
  if (!lastRun_.companionFailure.empty()) {
    Warn(FillIn(LoadMessage(component_, Text::kCompanionNotWritten), {lastRun_.companionFailure}));
  }
}

}  // namespace chartproject
