// frmAcquireVar, the acquisition dialog: drive, parameters, points, time, trigger and chart file, and the run.
// Its body is split by subject: acquire_form.cpp (life), _layout (places), _lists (filling), _inputs (typed fields),
// _file (chart file), _ready (Start, hints), _run (recording), _place (window).
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "acquire/acquisition_run.h"
#include "acquire/event_watch.h"
#include "acquire/stopwatch.h"
#include "common/environment/language.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "recording/component.h"

namespace chartproject {

/// Heights of the dialog in twips, without and with the progress area.
inline constexpr double kSetUpHeight = 6360;
inline constexpr double kSamplingHeight = 7200;

/// How the dialog's last recording went, for whoever opened the dialog.
struct RunReport {
  RunEnd end = RunEnd::kNone;
  std::int32_t points = 0;  ///< points taken
  std::string fileName;     ///< the chart file
  ChartWriteResult written;
};

class AcquireForm : public Form {
 public:
  /// @param component outlives the form; its drive link is open while the form is shown
  explicit AcquireForm(Component& component);
  ~AcquireForm() override;

  // Controls, in tab order. ------------------------------------------------------------------------------------------
  Frame fraFileName{*this, "fraFileName"};
  RichTextBox rtfFileName{*this, "rtfFileName"};
  CommandButton cmdNewFile{*this, "cmdNewFile"};
  CommandButton cmdBrowse{*this, "cmdBrowse"};

  PictureBox picDriveAddress{*this, "picDriveAddress"};
  Label lblDriveAddress{*this, "lblDriveAddress"};
  ComboBox cboDriveAddress{*this, "cboDriveAddress"};
  Label lblDriveModel{*this, "lblDriveModel"};

  PictureBox picNumberOfParameters{*this, "picNumberOfParameters"};
  Label lblNumberOfParameters{*this, "lblNumberOfParameters"};
  ComboBox cboNumberOfParameters{*this, "cboNumberOfParameters"};
  Label lblParameters{*this, "lblParameters"};
  ComboBox cboPXXX1{*this, "cboPXXX1"};
  ComboBox cboPXXX2{*this, "cboPXXX2"};
  ComboBox cboPXXX3{*this, "cboPXXX3"};
  ComboBox cboPXXX4{*this, "cboPXXX4"};

  PictureBox picTime{*this, "picTime"};
  Label lblNumberOfPoints{*this, "lblNumberOfPoints"};
  TextBox txtNumberOfPoints{*this, "txtNumberOfPoints"};
  Label lblNumberOfPointsRange{*this, "lblNumberOfPointsRange"};
  Label lblTimeBetweenPoints{*this, "lblTimeBetweenPoints"};
  TextBox txtTimeBetweenPoints{*this, "txtTimeBetweenPoints"};
  MaskEdBox mebTimeBetweenPoints{*this, "mebTimeBetweenPoints", "##:##:##"};
  ComboBox cboTimeBetweenPointsUnit{*this, "cboTimeBetweenPointsUnit"};
  Label lblTimeBetweenPointsRange{*this, "lblTimeBetweenPointsRange"};

  PictureBox picMode{*this, "picMode"};
  Label lblTriggerMode{*this, "lblTriggerMode"};
  ComboBox cboTriggerMode{*this, "cboTriggerMode"};
  Label lblEvent{*this, "lblEvent"};
  ComboBox cboEvent{*this, "cboEvent"};
  Label lblPXXX{*this, "lblPXXX"};
  ComboBox cboPXXX{*this, "cboPXXX"};
  Label lblContent{*this, "lblContent"};
  TextBox txtContent{*this, "txtContent"};

  Label lblHint{*this, "lblHint"};          ///< why neither Start nor Trigger is there
  Label lblEstimate{*this, "lblEstimate"};  ///< how long the run will last, how large its file will be

  CommandButton cmdStart{*this, "cmdStart"};
  Label lblStart{*this, "lblStart"};
  CommandButton cmdTrigger{*this, "cmdTrigger"};
  Label lblTrigger{*this, "lblTrigger"};
  Image imgTrigger1{*this, "imgTrigger1"};
  CommandButton cmdViewChart{*this, "cmdViewChart"};
  CommandButton cmdReset{*this, "cmdReset"};
  CommandButton cmdOK{*this, "cmdOK"};

  PictureBox picProgress{*this, "picProgress"};  ///< the area that appears while points are taken
  Label lblAcquiring{*this, "lblAcquiring"};
  Label lblProgress{*this, "lblProgress"};
  ProgressBar prgProgress{*this, "prgProgress"};
  Label lblRunTimes{*this, "lblRunTimes"};
  Label lblTimeBetweenPointsPB{*this, "lblTimeBetweenPointsPB"};
  Label lblElapsedTime{*this, "lblElapsedTime"};

  Timer tmrAcquire{*this, "tmrAcquire"};
  Timer tmrEventTrigger{*this, "tmrEventTrigger"};
  Timer tmrMonitorEsc{*this, "tmrMonitorEsc"};
  Timer tmrEscReleased{*this, "tmrEscReleased"};  ///< keeps Esc from closing the dialog until it was let go

  /// The recording in progress, or the last one.
  [[nodiscard]] const AcquisitionRun& Run() const noexcept { return run_; }
  /// The last recording that ended; RunEnd::kNone before the first.
  [[nodiscard]] const RunReport& LastRun() const noexcept { return lastRun_; }
  /// Called after each recording, when its file is written and the dialog is idle again.
  std::function<void(const RunReport&)> runEnded;
  /// Called after each point.
  std::function<void(const AcquisitionRun&)> pointTaken;

  /// Ends a recording or a watch as Esc does: the points taken are kept. Nothing when there is none.
  void StopRun();

 protected:
  void OnLoad() override;
  bool OnQueryClose() override;
  void OnUnload() override;

 private:
  // Life (acquire_form.cpp).
  void NumberTexts();
  void Connect();
  void LoadPictures();
  void ResetForm();
  void ResetCounts();
  void cmdReset_Click();
  void cmdOK_Click();
  void cmdViewChart_Click();

  // Places of controls (acquire_form_layout.cpp) and of the window (acquire_form_place.cpp).
  void PlaceControls();
  void RestoreWindowPlace();
  void SaveWindowPlace();

  // Lists (acquire_form_lists.cpp).
  void FillDriveAddressList();
  void LoadDriver(std::int16_t address);
  void FillNumberOfParametersList();
  void FillParameterList(std::int16_t driveAddress, ComboBox& list);
  void FillEventList();
  void FillTriggerModeList();
  void EnableParameterLists();
  [[nodiscard]] std::array<ComboBox*, kColumnCount> ParameterLists();
  [[nodiscard]] int ParameterCount() const;
  [[nodiscard]] std::string SelectedModel() const;
  void cboDriveAddress_Click();
  void cboNumberOfParameters_Click();
  void cboTriggerMode_Click();
  void cboEvent_Click();

  // Typed fields (acquire_form_inputs.cpp).
  void SetUpTimeFields();
  void txtNumberOfPoints_Change();
  void txtTimeBetweenPoints_Change();
  void txtTimeBetweenPoints_LostFocus();
  void cboTimeBetweenPointsUnit_Click();
  void mebTimeBetweenPoints_Change();
  void mebTimeBetweenPoints_LostFocus();
  void txtContent_Change();
  bool CheckMaskedTime();
  [[nodiscard]] bool RoomFor(std::int32_t points);
  [[nodiscard]] bool InputsHold();
  void PutBack(TextControl& field, const std::string& text);
  void Warn(const std::string& text);
  void Refuse(Text message);
  [[nodiscard]] std::string BytesText(double bytes) const;

  // Chart file (acquire_form_file.cpp).
  static bool SelectItem(ComboBox& list, std::string_view text);
  void NameFile(const std::string& fileName);
  void FileNameChanged();
  void rtfFileName_Change();
  void ConfigureFileDialog(OpenFileRequest& request, const std::string& extension) const;
  void PromptFileName();
  void ShowHeaderInForm();
  void UpdateViewChartButton();
  void cmdBrowse_Click();

  // Start, hints (acquire_form_ready.cpp).
  [[nodiscard]] std::optional<Text> MissingField() const;
  void UpdateStartButtons();
  void HideStartButtons(bool visible);
  void LockSetupFields(bool enabled);
  [[nodiscard]] std::int64_t MillisecondsBetweenPoints() const;
  void UpdateEstimate();

  // Recording (acquire_form_run.cpp).
  void cmdStart_Click();
  void cmdTrigger_Click();
  [[nodiscard]] std::optional<RunPlan> PrepareRun();
  void FillChartHeader(const RunPlan& plan);
  void WatchEsc();
  [[nodiscard]] int SamplingInterval() const;
  void BeginSampling();
  void ShowProgressArea(bool visible);
  void tmrAcquire_Tick();
  void tmrEventTrigger_Tick();
  void tmrMonitorEsc_Tick();
  void tmrEscReleased_Tick();
  [[nodiscard]] bool LinkInUse() const;
  [[nodiscard]] bool PointIsDue();
  void ShowProgress();
  void ShowRunTimes();
  void StopTimers();
  void EndRun(RunEnd reason);
  void FinishRun();
  void ReportEnd();
  void ReportWriting(const ChartWriteResult& result);

  Component& component_;
  AcquisitionRun run_;
  RunReport lastRun_;
  WatchedEvent watchedEvent_;
  bool testingEvent_ = false;
  Stopwatch stopwatch_;
  int stopwatchTarget_ = 0;  ///< seconds between points in the unit hh:mm:ss
  Instant samplingBegan_{};
  Instant lastPointAt_{};           ///< the moment of the last point; that of the start before the first
  std::int64_t shownSeconds_ = -1;  ///< elapsed seconds that lblRunTimes shows
  std::string lastAcceptedPoints_;
  std::string lastAcceptedTime_;
  /// The driver file loaded last. The very same file is not read again, nor its faults told again, at every reset.
  struct LoadedDriver {
    std::int16_t address = 0;
    std::string fileName;
    FileIdentity identity;
    friend bool operator==(const LoadedDriver&, const LoadedDriver&) = default;
  };
  LoadedDriver loadedDriver_;
  std::string driverFileError_;   ///< said once, not at every reset
  bool namingFile_ = false;       ///< the program sets the file name, and reacts to it itself
  bool puttingBack_ = false;      ///< an accepted text comes back; it is not refused again
  bool typingFileName_ = false;   ///< the focus stays in the file-name box
  bool resettingCounts_ = false;  ///< the number of points is checked when both counts are set
  bool emptyingTime_ = false;     ///< the ms rule empties the field; nothing is put back
};

}  // namespace chartproject
