// frmAcquireVar, the acquisition dialog: drive, parameters, points, time, trigger and chart file, and the run.
#pragma once

#include "acquire/dialog/drive_section.h"
#include "acquire/dialog/file_section.h"
#include "acquire/dialog/recovery_section.h"
#include "acquire/dialog/run_panel.h"
#include "acquire/dialog/timing_section.h"
#include "acquire/dialog/trigger_section.h"
#include "forms/form.h"

namespace chartproject {

/// Connects the sections with each other, starts recordings, and holds the dialog's buttons.
class AcquireForm : public Form {
 public:
  /// @param component outlives the form; its drive link is open while the form is shown
  explicit AcquireForm(Component& component);
  ~AcquireForm() override;

 private:
  Component& component_;

 public:
  // Sections and buttons, in tab order.
  FileSection file;
  DriveSection drive;
  TimingSection timing;
  TriggerSection trigger;
  RunPanel panel;
  CommandButton cmdViewChart{*this, "cmdViewChart"};
  CommandButton cmdReset{*this, "cmdReset"};
  CommandButton cmdOK{*this, "cmdOK"};
  RecoverySection recovery{*this, component_};

  RunController controller;

  /// The recording in progress, or the last one.
  [[nodiscard]] const AcquisitionRun& Run() const noexcept { return controller.Run(); }
  /// The last recording that ended; RunEnd::kNone before the first.
  [[nodiscard]] const RunReport& LastRun() const noexcept { return controller.LastRun(); }
  /// Called after each recording, when its file is written and the dialog is idle again.
  std::function<void(const RunReport&)> runEnded;
  /// Ends a recording or a watch as Esc does: the points taken are kept. Nothing when there is none.
  void StopRun() { controller.Stop(); }

 protected:
  void OnLoad() override;
  bool OnQueryClose() override;
  void OnUnload() override;

 private:
  void NumberTexts();
  void Connect();
  void PlaceControls();
  void LoadPictures();
  void ResetForm(NamedBy by = NamedBy::kChoice);
  void FileNameChanged(NamedBy by);
  void ShowHeaderInForm();
  [[nodiscard]] bool Simulated() const;
  /// Remembers whether the recording that has ended came from simulated drives.
  void NoteSource();
  void LookAtTargetAgain();
  void UpdateViewChartButton();
  [[nodiscard]] std::optional<std::string> Missing() const;
  void UpdateStartButtons();
  void LockSetupFields(bool enabled);
  [[nodiscard]] std::optional<RunPlan> PrepareRun();
  [[nodiscard]] bool ReserveFile(const std::string& fileName);
  void ReadRecordingThere(NamedBy by);
  void FillChartHeader(const RunPlan& plan);
  void cmdTimePoint_Click();
  void cmdStart_Click();
  void cmdTrigger_Click();
  void cmdReset_Click();
  void cmdOK_Click();
  void cmdViewChart_Click();
};

}  // namespace chartproject
