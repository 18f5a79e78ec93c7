// Conducts recordings: timers, the watch for the event, the stopwatch, Esc, the end.
#pragma once

#include <functional>
#include <string>

#include "acquire/run/acquisition_run.h"
#include "acquire/run/event_watch.h"
#include "acquire/run/plan_timing.h"
#include "acquire/run/stopwatch.h"
#include "forms/timer.h"

namespace chartproject {

/// The outcome of the last recording, for the code that opened the dialog.
struct RunReport {
  RunEnd end = RunEnd::kNone;
  std::int32_t points = 0;  ///< points taken
  std::string fileName;     ///< the chart file
  ChartWriteResult written;
  Companion readings;            ///< readings that failed, the real pace
  std::string companionFailure;  ///< see AcquisitionRun::CompanionFailure
};

/// What shows a recording to the user.
class RunDisplay {
 public:
  virtual ~RunDisplay() = default;
  /// The event is watched: the fields are locked.
  virtual void ShowArmed() = 0;
  /// Shows the awaited event, since when it is awaited, and the last reading.
  virtual void ShowWatch(const std::string& text) = 0;
  /// The trigger lamp, which blinks while the event is watched.
  virtual void ShowLamp(bool lit) = 0;
  [[nodiscard]] virtual bool LampLit() const = 0;
  /// Points are taken from now on: the fields are locked and the progress is shown.
  virtual void ShowSampling(const RunPlan& plan) = 0;
  /// @param counter points taken so far; @param total at least 1
  virtual void ShowProgress(std::int64_t counter, std::int64_t total) = 0;
  /// A point was taken: the last one of the recording.
  virtual void ShowPoint(const AcquisitionRun& run) = 0;
  virtual void ShowStopwatch(const std::string& elapsed) = 0;
  virtual void ShowRunTimes(const std::string& text) = 0;
  /// Readings that fail and points that come late, one a line; empty when there are none.
  virtual void ShowTrouble(const std::string& text) = 0;
  /// What else the user should know while the recording runs, one a line; empty for nothing.
  virtual void ShowNotice(const std::string& text) = 0;
  /// The chart file is being written; the fields stay locked.
  virtual void ShowSaving() = 0;
  virtual void KeepAwake() = 0;
  /// The dialog is idle again.
  virtual void ShowIdle() = 0;
  /// While true the Esc key that ended the recording is still down: it must not close the dialog.
  virtual void HoldEsc(bool held) = 0;
};

/// Independent of fields and buttons: it receives a plan and shows its progress on a RunDisplay. Its timers and their
/// handlers have the documented names.
class RunController {
 public:
  /// @param form the one that owns the timers; @param component, display outlive the controller
  RunController(Form& form, Component& component, RunDisplay& display);
  ~RunController();
  RunController(const RunController&) = delete;
  RunController& operator=(const RunController&) = delete;

  Timer tmrAcquire;
  Timer tmrEventTrigger;
  Timer tmrMonitorEsc;
  Timer tmrEscReleased;  ///< keeps Esc from closing the dialog until it was let go

  /// Called after each point.
  std::function<void(const AcquisitionRun&)> pointTaken;
  /// Called when there is something else that the user should know, see RunNotice.
  std::function<void(const std::string&)> noticed;
  /// Called after each recording, when its file is written and the display is idle again.
  std::function<void(const RunReport&)> runEnded;

  /// The recording in progress, or the last one.
  [[nodiscard]] const AcquisitionRun& Run() const noexcept { return run_; }
  /// The last recording that ended; RunEnd::kNone before the first.
  [[nodiscard]] const RunReport& LastRun() const noexcept { return lastRun_; }

  /// See AcquisitionRun::Reserve. While points are saved that an interrupted recording left, the display shows how far
  /// that is; throws RecoveryGivenUp when the user does not wait for it. All is then as it was.
  [[nodiscard]] std::string Reserve(const std::string& fileName);
  /// Starts to take points: the first is due one interval from now.
  void Start(const RunPlan& plan);
  /// Watches for the event and starts when it occurs.
  void Watch(const RunPlan& plan, const WatchedEvent& event);
  /// Reads a point of a plan to time it, recording nothing. Nothing when Esc or Stop ended it, or while the link is in
  /// use. Throws what TimePlan throws.
  [[nodiscard]] std::optional<PlanTiming> Time(const RunPlan& plan);
  /// Ends a recording, a watch or a timing as Esc does: the points taken are kept. Nothing when there is none.
  void Stop();
  /// No timer ticks any more: the form is closing.
  void StopAllTimers();

 private:
  void Arm(const RunPlan& plan);
  void BeginSampling();
  void tmrAcquire_Tick();
  void tmrEventTrigger_Tick();
  void tmrMonitorEsc_Tick();
  void tmrEscReleased_Tick();
  [[nodiscard]] bool LinkInUse() const;
  [[nodiscard]] bool ReadingIsWanted();
  void WatchEsc();
  [[nodiscard]] int SamplingInterval() const;
  [[nodiscard]] bool PointIsDue();
  [[nodiscard]] bool KeepsWatching();
  void ShowWatch(const std::string& reading);
  void ShowRunTimes();
  void ShowNotice();
  void StopTimers();
  void End(RunEnd reason);
  void Finish();
  void Warn(const std::string& text);
  void ReportEnd();
  void ReportWriting(const ChartWriteResult& result);

  Form& form_;
  Component& component_;
  RunDisplay& display_;
  AcquisitionRun run_;
  RunReport lastRun_;
  WatchedEvent watchedEvent_;
  DateTime armedAt_;  ///< of the watch
  bool testingEvent_ = false;
  bool timing_ = false;           ///< a point is read to time it
  bool timingWanted_ = false;     ///< until Esc or Stop
  std::uint32_t readingRun_ = 0;  ///< the run for which the link was last asked
  std::string shownNotice_;
  Stopwatch stopwatch_;
  Instant samplingBegan_{};
  Instant lastPointAt_{};           ///< the moment of the last point; that of the start before the first
  std::int64_t shownSeconds_ = -1;  ///< elapsed seconds that are shown
};

}  // namespace chartproject
