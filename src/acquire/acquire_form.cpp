// The dialog's life: texts and handlers, loading, reset, closing.
#include "acquire/acquire_form.h"

#include "common/error_log.h"
#include "common/form_appearance.h"
#include "common/form_translation.h"
#include "common/sounds.h"
#include "common/values/text.h"

namespace chartproject {

namespace {

constexpr int kHelpContext = 91;
constexpr int kEscWatchMilliseconds = 100;

}  // namespace

AcquireForm::AcquireForm(Component& component)
    : Form(component.forms, "frmAcquireVar", MakeHandlerErrorReporter(component)),
      component_(component),
      run_(component) {
  NumberTexts();
  PlaceControls();
  Connect();
}

AcquireForm::~AcquireForm() = default;

void AcquireForm::NumberTexts() {
  SetTag(TextNumber(Text::kAcquireParameter));
  const std::initializer_list<std::pair<Control*, Text>> captions{{&fraFileName, Text::kFileName},
                                                                  {&lblDriveAddress, Text::kDriveAddress},
                                                                  {&lblNumberOfParameters, Text::kNumberOfParameters},
                                                                  {&lblParameters, Text::kParameters},
                                                                  {&lblNumberOfPoints, Text::kNumberOfPoints},
                                                                  {&lblNumberOfPointsRange, Text::kPointsRange},
                                                                  {&lblTimeBetweenPoints, Text::kTimeAmongPoints},
                                                                  {&lblTriggerMode, Text::kTriggerMode},
                                                                  {&lblEvent, Text::kEvent},
                                                                  {&lblPXXX, Text::kParameter},
                                                                  {&lblContent, Text::kContent},
                                                                  {&cmdStart, Text::kStartAcquisition},
                                                                  {&lblStart, Text::kEscCancelsTip},
                                                                  {&cmdTrigger, Text::kTrigger},
                                                                  {&lblTrigger, Text::kEscCancelsTip},
                                                                  {&cmdViewChart, Text::kViewChart},
                                                                  {&cmdReset, Text::kReset},
                                                                  {&cmdOK, Text::kOk},
                                                                  {&cmdBrowse, Text::kBrowse},
                                                                  {&lblAcquiring, Text::kAcquiringData},
                                                                  {&lblTimeBetweenPointsPB, Text::kTimeAmongPoints}};
  for (const auto& [control, message] : captions) control->SetTag(TextNumber(message));
  const std::initializer_list<std::pair<Control*, Text>> toolTips{{&cmdReset, Text::kResetTip},
                                                                  {&cmdOK, Text::kOkTip},
                                                                  {&cmdViewChart, Text::kViewChart},
                                                                  {&cmdStart, Text::kStartAcquisition},
                                                                  {&cmdTrigger, Text::kTrigger}};
  for (const auto& [control, message] : toolTips) control->SetToolTipText(TextNumber(message));
  cmdOK.SetDefault(true);
  cmdOK.SetCancel(true);
}

void AcquireForm::Connect() {
  On(rtfFileName.change, rtfFileName, "Change", &AcquireForm::rtfFileName_Change);
  On(cmdNewFile.click, cmdNewFile, "Click", &AcquireForm::PromptFileName);
  On(cmdBrowse.click, cmdBrowse, "Click", &AcquireForm::cmdBrowse_Click);
  On(cboDriveAddress.click, cboDriveAddress, "Click", &AcquireForm::cboDriveAddress_Click);
  On(cboNumberOfParameters.click, cboNumberOfParameters, "Click", &AcquireForm::cboNumberOfParameters_Click);
  for (ComboBox* list : ParameterLists()) On(list->click, *list, "Click", &AcquireForm::UpdateStartButtons);
  On(cboPXXX.click, cboPXXX, "Click", &AcquireForm::UpdateStartButtons);
  On(txtNumberOfPoints.change, txtNumberOfPoints, "Change", &AcquireForm::txtNumberOfPoints_Change);
  On(txtTimeBetweenPoints.change, txtTimeBetweenPoints, "Change", &AcquireForm::txtTimeBetweenPoints_Change);
  On(txtTimeBetweenPoints.lostFocus, txtTimeBetweenPoints, "LostFocus", &AcquireForm::txtTimeBetweenPoints_LostFocus);
  On(mebTimeBetweenPoints.change, mebTimeBetweenPoints, "Change", &AcquireForm::mebTimeBetweenPoints_Change);
  On(mebTimeBetweenPoints.lostFocus, mebTimeBetweenPoints, "LostFocus", &AcquireForm::mebTimeBetweenPoints_LostFocus);
  On(cboTimeBetweenPointsUnit.click, cboTimeBetweenPointsUnit, "Click", &AcquireForm::cboTimeBetweenPointsUnit_Click);
  On(cboTriggerMode.click, cboTriggerMode, "Click", &AcquireForm::cboTriggerMode_Click);
  On(cboEvent.click, cboEvent, "Click", &AcquireForm::cboEvent_Click);
  On(txtContent.change, txtContent, "Change", &AcquireForm::txtContent_Change);
  On(cmdStart.click, cmdStart, "Click", &AcquireForm::cmdStart_Click);
  On(cmdTrigger.click, cmdTrigger, "Click", &AcquireForm::cmdTrigger_Click);
  On(cmdViewChart.click, cmdViewChart, "Click", &AcquireForm::cmdViewChart_Click);
  On(cmdReset.click, cmdReset, "Click", &AcquireForm::cmdReset_Click);
  On(cmdOK.click, cmdOK, "Click", &AcquireForm::cmdOK_Click);
  On(tmrAcquire.tick, tmrAcquire, "Timer", &AcquireForm::tmrAcquire_Tick);
  On(tmrEventTrigger.tick, tmrEventTrigger, "Timer", &AcquireForm::tmrEventTrigger_Tick);
  On(tmrMonitorEsc.tick, tmrMonitorEsc, "Timer", &AcquireForm::tmrMonitorEsc_Tick);
  On(tmrEscReleased.tick, tmrEscReleased, "Timer", &AcquireForm::tmrEscReleased_Tick);
  helpRequested = {"Form_Help", [this] { component_.ports.help.ShowContext(component_.helpFile, HelpContextId()); }};
}

void AcquireForm::OnLoad() {
  TranslateForm(*this, component_);
  cmdNewFile.SetCaption(LoadMessage(component_, Text::kNewFile));
  cmdNewFile.SetToolTipText(LoadMessage(component_, Text::kNewFileTip));
  cmdBrowse.SetToolTipText(LoadMessage(component_, Text::kBrowseTip));
  ResetForm();
  // A chart file that cannot be read is told, and the dialog opens all the same.
  RunHandler("FileNameChanged", [this] { NameFile(JoinPath(component_.settings.strFolder, "Test.cht")); });
  LayoutChanged();  // the window's width, which its place depends on, follows from the texts
  SetHeight(kSetUpHeight);
  for (Control* control : Controls()) {
    if (control->TypeName() == "Label") static_cast<Label*>(control)->SetBorderStyle(0);
  }
  tmrMonitorEsc.SetInterval(kEscWatchMilliseconds);
  RestoreWindowPlace();
  LoadPictures();
  const std::string& hostFolder = component_.settings.strBin;
  if (component_.ports.files.FolderExists(hostFolder)) component_.ports.files.ChangeFolder(hostFolder);
  SetHelpContextId(kHelpContext);
  SetPointer(MousePointer::kDefault);
}

void AcquireForm::LoadPictures() {
  // A missing picture is no reason to refuse the dialog: the back end has its own.
  const auto orDefault = [this](const char* routine, const std::function<void()>& load) {
    try {
      load();
    } catch (const RunTimeError& error) {
      NoteRunTimeError(component_, routine, error);
    }
  };
  orDefault("SetFormIcon", [this] { SetFormIcon(component_, *this); });
  orDefault("LoadButtonCursor", [this] { LoadButtonCursor(component_); });
  SetButtonCursor(component_, cmdOK);
}

void AcquireForm::ResetForm() {
  const HourglassScope hourglass(*this);
  cmdViewChart.SetVisible(false);
  FillDriveAddressList();
  ResetCounts();
  SetUpTimeFields();
  FillEventList();
  txtContent.SetText("0");
  FillTriggerModeList();
  lblProgress.SetCaption("");
  UpdateStartButtons();
  // Typing a file name resets the other fields at every letter; the letters that follow belong to the name.
  if (!typingFileName_ && cboDriveAddress.Visible()) cboDriveAddress.SetFocus();
}

void AcquireForm::ResetCounts() {
  constexpr std::string_view kPoints = "5";
  // One check of the points for both fields: a refusal is said once, and not of a number that is about to go.
  resettingCounts_ = true;
  FillNumberOfParametersList();
  resettingCounts_ = false;
  if (txtNumberOfPoints.Text() == kPoints) {
    txtNumberOfPoints_Change();
  } else {
    txtNumberOfPoints.SetText(kPoints);
  }
}

bool AcquireForm::OnQueryClose() {
  StopRun();
  return run_.State() != RunState::kFinished;  // its chart file is being written
}

void AcquireForm::OnUnload() {
  StopRun();
  for (Timer* timer : {&tmrAcquire, &tmrEventTrigger, &tmrMonitorEsc, &tmrEscReleased}) timer->SetEnabled(false);
  SaveWindowPlace();
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
  component_.strChartFileName = rtfFileName.Text();
  if (component_.showChart) component_.showChart(component_, component_.strChartFileName);
}

}  // namespace chartproject
