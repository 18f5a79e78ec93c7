// Start, Trigger and their hints; the lamp of the watch; the area that shows a recording's progress.
#pragma once

#include "acquire/dialog/section.h"
#include "acquire/run/run_controller.h"

namespace chartproject {

/// Heights of the dialog in twips, without and with the progress area.
inline constexpr double kSetUpHeight = 6360;
inline constexpr double kSamplingHeight = 7200;

class RunPanel : public RunDisplay {
 public:
  /// What only the whole dialog can do.
  struct Dialog {
    std::function<void(bool enabled)> lockSetupFields;
    std::function<void(bool held)> holdEsc;
  };

  /// @param form, component outlive the panel
  RunPanel(Form& form, const Component& component, Dialog dialog);

  Label lblHint;      ///< why neither Start nor Trigger is there
  Label lblEstimate;  ///< how long the run will last, how large its file will be
  CommandButton cmdStart;
  Label lblStart;
  CommandButton cmdTrigger;
  Label lblTrigger;
  Image imgTrigger1;

  PictureBox picProgress;  ///< the area that appears while points are taken
  Label lblAcquiring;
  Label lblProgress;
  ProgressBar prgProgress;
  Label lblRunTimes;
  Label lblTimeBetweenPointsPB;
  Label lblElapsedTime;

  [[nodiscard]] LayoutBox WordsLayout();
  /// The start buttons and the lamp; the dialog's other buttons share their line.
  [[nodiscard]] LayoutBox ButtonsLayout();
  [[nodiscard]] LayoutBox ProgressLayout();

  /// Sets the visibility of both pairs of button and label, as its documented name does not say.
  void HideStartButtons(bool visible);
  /// Start for a manual recording, Trigger for an event; neither when both are false.
  void ShowStartButtons(bool byHand, bool byEvent);
  /// The stopwatch is shown for the unit hh:mm:ss only.
  void ShowStopwatchField(bool visible);

  void ShowArmed() override;
  void ShowLamp(bool lit) override;
  [[nodiscard]] bool LampLit() const override;
  void ShowSampling() override;
  void ShowProgress(std::int64_t counter, std::int64_t total) override;
  void ShowStopwatch(const std::string& elapsed) override;
  void ShowRunTimes(const std::string& text) override;
  void ShowSaving() override;
  void KeepAwake() override;
  void ShowIdle() override;
  void HoldEsc(bool held) override;

 private:
  void ShowProgressArea(bool visible);

  Form& form_;
  const Component& component_;
  Dialog dialog_;
};

}  // namespace chartproject
