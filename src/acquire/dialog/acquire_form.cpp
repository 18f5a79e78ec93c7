// The dialog's life, the links between its sections, and the start of a recording.
#include "acquire/dialog/acquire_form.h"

#include "acquire/dialog/window_place.h"
#include "common/error_log.h"
#include "common/form_appearance.h"
#include "common/message_box.h"
#include "common/sounds.h"
#include "common/values/text.h"
#include "forms/flag_scope.h"

namespace chartproject {

namespace {

constexpr int kHelpContext = 91;

}  // namespace

AcquireForm::AcquireForm(Component& component)
    : Form(component.forms, "frmAcquireVar", MakeHandlerErrorReporter(component)),
      component_(component),
      file(*this, component, [this](NamedBy by) { FileNameChanged(by); }),
      drive(*this, component, [this] { UpdateStartButtons(); }),
      timing(*this, component, file, drive, [this] { UpdateStartButtons(); }),
      trigger(*this, component, drive, [this] { UpdateStartButtons(); }),
      panel(*this, component,
            {[this](bool enabled) { LockSetupFields(enabled); }, [this] { UpdateStartButtons(); },
             [this](bool held) { cmdOK.SetCancel(!held); }}),
      controller(*this, component, panel) {
  NumberTexts();
  PlaceControls();
  Connect();
}

AcquireForm::~AcquireForm() = default;

void AcquireForm::NumberTexts() {
  SetTag(TextNumber(Text::kAcquireParameter));
  cmdViewChart.SetTag(TextNumber(Text::kViewChart));
  cmdViewChart.SetToolTipText(TextNumber(Text::kViewChart));
  cmdReset.SetTag(TextNumber(Text::kReset));
  cmdReset.SetToolTipText(TextNumber(Text::kResetTip));
  cmdOK.SetTag(TextNumber(Text::kOk));
  cmdOK.SetToolTipText(TextNumber(Text::kOkTip));
  cmdOK.SetCancel(true);
}

void AcquireForm::Connect() {
  drive.parametersListed = [this](std::optional<std::int16_t> address) { trigger.ListParameters(address); };
  drive.countChosen = [this] { timing.CheckPoints(); };
  On(timing.cmdTimePoint.click, timing.cmdTimePoint, "Click", &AcquireForm::cmdTimePoint_Click);
  On(panel.cmdStart.click, panel.cmdStart, "Click", &AcquireForm::cmdStart_Click);
  On(panel.cmdTrigger.click, panel.cmdTrigger, "Click", &AcquireForm::cmdTrigger_Click);
  On(cmdViewChart.click, cmdViewChart, "Click", &AcquireForm::cmdViewChart_Click);
  On(cmdReset.click, cmdReset, "Click", &AcquireForm::cmdReset_Click);
  On(cmdOK.click, cmdOK, "Click", &AcquireForm::cmdOK_Click);
  helpRequested = {"Form_Help", [this] { component_.ports.help.ShowContext(component_.helpFile, HelpContextId()); }};
  recovery.recovered = [this] { LookAtTargetAgain(); };
  controller.runEnded = [this](const RunReport& report) {
    const auto kind = report.written.kind;
    const bool written = kind == ChartWriteResult::Kind::kWritten;
    if (written || kind == ChartWriteResult::Kind::kRowsInSpool) NoteSource();
    LookAtTargetAgain();
    if (written && component_.chartRecorded) component_.chartRecorded(component_, report.fileName);
    if (runEnded) runEnded(report);
  };
}

void AcquireForm::PlaceControls() {
  LayoutBox buttons = Row({panel.ButtonsLayout(), Space(), Cell(cmdViewChart), Cell(cmdReset), Cell(cmdOK)});
  SetLayout(Column({recovery.Layout(), file.Layout(), drive.Layout(), timing.Layout(), trigger.Layout(),
                    panel.WordsLayout(), Space(0, 1), panel.ProgressLayout(), std::move(buttons)}));
}

void AcquireForm::OnLoad() {
  TranslateForm(*this, component_);
  if (Simulated()) SetCaption(FillIn(LoadMessage(component_, Text::kSimulatedTitle), {Caption()}));
  file.Translate();
  timing.Translate();
  recovery.Translate();
  panel.Prepare();
  ResetForm();
  // A chart file that cannot be read is reported, and the dialog opens all the same.
  RunHandler("FileNameChanged", [this] {
    const FlagScope opening(trigger.opening);
    file.NameFile(JoinPath(component_.settings.strFolder, "Test.cht"));
  });
  recovery.Look(component_.settings.strFolder);
  LayoutChanged();  // the window's width, which its place depends on, follows from the texts
  SetHeight(kSetUpHeight);
  for (Control* control : Controls()) {
    if (control->TypeName() == "Label") static_cast<Label*>(control)->SetBorderStyle(0);
  }
  RestoreWindowPlace(*this, component_);
  LoadPictures();
  const std::string& hostFolder = component_.settings.strBin;
  if (component_.ports.files.FolderExists(hostFolder)) component_.ports.files.ChangeFolder(hostFolder);
  SetHelpContextId(kHelpContext);
  SetPointer(MousePointer::kDefault);
}

void AcquireForm::LoadPictures() {
  LoadFormPictures(component_, *this);
  SetButtonCursor(component_, cmdOK);
}

void AcquireForm::ResetForm(NamedBy by) {
  const HourglassScope hourglass(*this);
  cmdViewChart.SetVisible(false);
  drive.Reset();
  timing.Reset();
  trigger.Reset();
  panel.lblProgress.SetCaption("");
  UpdateStartButtons();
  // Typing a file name resets the other fields at every letter; the letters that follow belong to the name.
  if (by != NamedBy::kTyping && drive.cboDriveAddress.Visible()) drive.cboDriveAddress.SetFocus();
}

void AcquireForm::FileNameChanged(NamedBy by) {
  component_.strChartFileName = file.Name();
  const bool exists = file.Exists();
  PlayWave(component_, kClickSound);
  ResetForm(by);
  file.NoteRecording();
  if (exists) {
    ReadRecordingThere(by);
    UpdateViewChartButton();
  }
  UpdateStartButtons();
}

/// Shows the settings of a recording that has the chosen name; one that cannot be read is reported, but not at every
/// letter of a name.
void AcquireForm::ReadRecordingThere(NamedBy by) {
  try {
    // A file without a single key is not a recording: it has no settings to show.
    if (ReadChartHeader(component_).keys > 0) ShowHeaderInForm();
  } catch (const RunTimeError& error) {
    if (by == NamedBy::kChoice) file.WarnOf(error, Text::kNoRightToRead);
  }
}

void AcquireForm::ShowHeaderInForm() {
  const ChartHeader header = component_.chartHeader;  // the handlers that run meanwhile may change the shared one
  drive.ShowHeader(header);
  timing.ShowHeader(header);
  trigger.ShowHeader(header);
}

bool AcquireForm::Simulated() const {
  return component_.driveLink && component_.driveLink->Simulated();
}

void AcquireForm::NoteSource() {
  if (Simulated()) {
    component_.simulatedRecordings.insert(component_.strChartFileName);
  } else {
    component_.simulatedRecordings.erase(component_.strChartFileName);
  }
}

/// A run or a recovery has written a chart file.
void AcquireForm::LookAtTargetAgain() {
  file.NoteRecording();
  UpdateViewChartButton();
  UpdateStartButtons();
}

void AcquireForm::UpdateViewChartButton() {
  cmdViewChart.SetVisible(file.Exists());
}

std::optional<std::string> AcquireForm::Missing() const {
  auto missing = drive.Missing();
  if (!missing) missing = file.Missing();
  if (!missing) missing = timing.Missing();
  if (!missing) missing = trigger.Missing();
  return missing;
}

void AcquireForm::UpdateStartButtons() {
  const auto missing = Missing();
  const std::string notice = drive.Notice();
  panel.lblHint.SetCaption(missing ? *missing : notice.empty() ? file.TargetNote() : notice);
  panel.lblEstimate.SetCaption(timing.Estimate());
  timing.cmdTimePoint.SetEnabled(!drive.Missing() && !timing.Missing());
  panel.ShowStopwatchField(timing.SpacedByStopwatch());
  if (missing) {
    panel.HideStartButtons(false);
  } else {
    panel.ShowStartButtons(trigger.ByHand(), trigger.ByEvent());
  }
}

void AcquireForm::LockSetupFields(bool enabled) {
  for (Control* group : std::initializer_list<Control*>{&file.fraFileName, &drive.picDriveAddress, &trigger.picMode,
                                                        &drive.picNumberOfParameters, &timing.picTime}) {
    group->SetEnabled(enabled);
  }
  recovery.SetEnabled(enabled);
  (trigger.ByEvent() ? panel.cmdTrigger : panel.cmdStart).SetEnabled(enabled);
  for (CommandButton* button : {&cmdOK, &cmdReset, &cmdViewChart}) button->SetEnabled(enabled);
}

std::optional<RunPlan> AcquireForm::PrepareRun() {
  if (Run().State() != RunState::kIdle || Missing() || !timing.Holds() || !trigger.Holds()) return std::nullopt;
  RunPlan plan;
  plan.fileName = file.FullName();
  drive.FillPlan(plan);
  timing.FillPlan(plan);
  if (!ReserveFile(plan.fileName)) return std::nullopt;
  FillChartHeader(plan);
  return plan;
}

/// A file that cannot be written is reported now, not after hours of sampling.
bool AcquireForm::ReserveFile(const std::string& fileName) {
  try {
    const std::string heldBy = controller.Reserve(fileName);
    if (heldBy.empty()) return true;
    ShowMessage(component_, FillIn(LoadMessage(component_, Text::kFileBeingRecorded), {fileName, heldBy}),
                box_style::kExclamation, component_.helpFile);
  } catch (const RecoveryGivenUp&) {
    return false;  // the display says so
  } catch (const RunTimeError& error) {
    file.WarnOf(error, Text::kNoRightToWrite);
  }
  return false;
}

void AcquireForm::FillChartHeader(const RunPlan& plan) {
  ChartHeader& header = component_.chartHeader;
  header = ChartHeader{};
  drive.FillHeader(header, plan);
  timing.FillHeader(header);
  trigger.FillHeader(header);
}

/// The fields are locked meanwhile, since the window takes input while a drive is slow. What was found stays in the
/// hint until something is changed.
void AcquireForm::cmdTimePoint_Click() {
  if (drive.Missing() || !timing.Holds()) return;
  RunPlan plan;
  drive.FillPlan(plan);
  timing.FillPlan(plan);
  const std::string hint = panel.lblHint.Caption();
  panel.lblHint.SetCaption(LoadMessage(component_, Text::kTimingPoint));
  LockSetupFields(false);
  std::optional<PlanTiming> found;
  try {
    found = controller.Time(plan);
  } catch (...) {
    LockSetupFields(true);
    panel.lblHint.SetCaption(hint);
    throw;
  }
  LockSetupFields(true);
  panel.lblHint.SetCaption(found ? PlanTimingText(component_, *found) : hint);
  LayoutChanged();
  timing.cmdTimePoint.SetFocus();
}

void AcquireForm::cmdStart_Click() {
  if (const auto plan = PrepareRun()) controller.Start(*plan);
}

void AcquireForm::cmdTrigger_Click() {
  if (const auto plan = PrepareRun()) controller.Watch(*plan, trigger.Watched());
}

bool AcquireForm::OnQueryClose() {
  StopRun();
  return Run().State() != RunState::kFinished;  // its chart file is being written
}

void AcquireForm::OnUnload() {
  StopRun();
  controller.StopAllTimers();
  SaveWindowPlace(*this, component_);
  panel.Save();
  PlayClosingSound(component_);
}

void AcquireForm::cmdReset_Click() {
  PlayWave(component_, kClickSound);
  ResetForm();
}

void AcquireForm::cmdOK_Click() {
  component_.strChartFileName.clear();
  PlayWave(component_, kClickSound);
  Unload();
}

void AcquireForm::cmdViewChart_Click() {
  component_.strChartFileName = file.Name();
  if (component_.showChart) component_.showChart(component_, component_.strChartFileName);
}

}  // namespace chartproject
