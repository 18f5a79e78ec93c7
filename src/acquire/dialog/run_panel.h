// Start, Trigger and their hints; the lamp of the watch; the area that shows a recording's progress.
#pragma once

#include <memory>
#include <optional>

#include "acquire/dialog/section.h"
#include "acquire/run/run_controller.h"
#include "recording/file/live_chart.h"

namespace chartproject {

/// Heights of the dialog in twips, without and with the progress area, and with the curve under it.
inline constexpr double kSetUpHeight = 6360;
inline constexpr double kSamplingHeight = 7200;
inline constexpr double kCurveHeight = 10500;

class RunPanel : public Section, public RunDisplay {
 public:
  /// What only the whole dialog can do.
  struct Dialog {
    std::function<void(bool enabled)> lockSetupFields;
    std::function<void()> showHint;  ///< the one of the idle dialog
    std::function<void(bool held)> holdEsc;
  };

  RunPanel(Form& form, Component& component, Dialog dialog);

  Label lblHint{form_, "lblHint"};          ///< why there is no Start, what a start replaces, what is waited for
  Label lblEstimate{form_, "lblEstimate"};  ///< how long the run will last, how large its file will be
  Label lblNotice{form_, "lblNotice"};      ///< what else the user should know of the recording that runs
  CommandButton cmdStart{form_, "cmdStart"};
  Label lblStart{form_, "lblStart"};
  CommandButton cmdTrigger{form_, "cmdTrigger"};
  Label lblTrigger{form_, "lblTrigger"};
  Image imgTrigger1{form_, "imgTrigger1"};

  PictureBox picProgress{form_, "picProgress"};  ///< the area that appears while points are taken
  Label lblAcquiring{form_, "lblAcquiring"};
  Label lblProgress{form_, "lblProgress"};
  ProgressBar prgProgress{form_, "prgProgress"};
  Label lblRunTimes{form_, "lblRunTimes"};
  Label lblTimeBetweenPointsPB{form_, "lblTimeBetweenPointsPB"};
  Label lblElapsedTime{form_, "lblElapsedTime"};
  CommandButton cmdCurve{form_, "cmdCurve"};  ///< opens and closes the chart of the last points
  Label lblTrouble{form_, "lblTrouble"};      ///< readings that fail, points that come late
  const std::unique_ptr<LiveChart> curve;     ///< null where there are no charts

  [[nodiscard]] LayoutBox WordsLayout();
  /// The start buttons and the lamp; the dialog's other buttons share their line.
  [[nodiscard]] LayoutBox ButtonsLayout();
  [[nodiscard]] LayoutBox ProgressLayout();

  /// Sets the visibility of both pairs of button and label, as its documented name does not say.
  void HideStartButtons(bool visible);
  /// Start for a manual recording, Trigger for an event; neither when both are false.
  void ShowStartButtons(bool byHand, bool byEvent);
  /// The curve is open or not, as it was when a dialog was closed last.
  void Prepare();
  void Save();

  /// The stopwatch is shown for the unit hh:mm:ss only.
  void ShowStopwatchField(bool visible);

  void ShowArmed() override;
  void ShowWatch(const std::string& text) override;
  void ShowLamp(bool lit) override;
  [[nodiscard]] bool LampLit() const override;
  void ShowSampling(const RunPlan& plan) override;
  void ShowProgress(std::int64_t counter, std::int64_t total) override;
  void ShowPoint(const AcquisitionRun& run) override;
  void ShowStopwatch(const std::string& elapsed) override;
  void ShowRunTimes(const std::string& text) override;
  void ShowTrouble(const std::string& text) override;
  void ShowNotice(const std::string& text) override;
  void ShowSaving() override;
  void KeepAwake() override;
  void ShowIdle() override;
  void HoldEsc(bool held) override;

 private:
  void cmdCurve_Click();
  void ShowProgressArea(bool visible);
  /// The height of the dialog is that of what it shows.
  void TakeHeight();

  Dialog dialog_;
  bool curveOpen_ = false;
  std::optional<double> topBefore_;  ///< of the dialog, while it is higher up for the curve
};

}  // namespace chartproject
