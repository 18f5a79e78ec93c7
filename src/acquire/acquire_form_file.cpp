// The chart file of the dialog: its name, and the header of a file that is already there.
#include "acquire/acquire_form.h"
#include "acquire/input_rules.h"
#include "common/environment/language.h"
#include "common/folder_scope.h"
#include "common/values/text.h"

namespace chartproject {

namespace {

/// Hide the read-only box, and the file must exist.
constexpr std::int32_t kOpenFlags = 4100;

}  // namespace

bool AcquireForm::SelectItem(ComboBox& list, std::string_view text) {
  for (int index = 0; index < list.ListCount(); ++index) {
    if (list.Items()[static_cast<std::size_t>(index)] != text) continue;
    list.SetListIndex(index);
    return true;
  }
  return false;
}

void AcquireForm::NameFile(const std::string& fileName) {
  namingFile_ = true;
  rtfFileName.SetText(fileName);
  namingFile_ = false;
  FileNameChanged();
}

void AcquireForm::FileNameChanged() {
  component_.strChartFileName = rtfFileName.Text();
  const bool exists = component_.ports.files.FileExists(component_.strChartFileName);
  cmdReset_Click();
  if (exists) {
    // A file without a single key is no chart file: it has no settings to show.
    if (ReadChartHeader(component_).keys > 0) ShowHeaderInForm();
    UpdateViewChartButton();
  }
  UpdateStartButtons();
}

void AcquireForm::rtfFileName_Change() {
  if (namingFile_) return;
  const HourglassScope hourglass(*this);
  typingFileName_ = true;
  try {
    FileNameChanged();
  } catch (...) {
    typingFileName_ = false;
    throw;
  }
  typingFileName_ = false;
}

void AcquireForm::ShowHeaderInForm() {
  const ChartHeader header = component_.chartHeader;  // the handlers that run meanwhile may change the shared one
  SelectItem(cboDriveAddress, header.DriveAddress);
  SelectItem(cboNumberOfParameters, header.NumberOfParameters);
  SelectItem(cboPXXX1, header.PXXX1);
  SelectItem(cboPXXX2, header.PXXX2);
  SelectItem(cboPXXX3, header.PXXX3);
  SelectItem(cboPXXX4, header.PXXX4);
  SelectItem(cboTimeBetweenPointsUnit, header.Unit);
  const bool masked = cboTimeBetweenPointsUnit.ListIndex() == time_unit::kHoursMinutesSeconds;
  TextControl& timeField = masked ? static_cast<TextControl&>(mebTimeBetweenPoints) : txtTimeBetweenPoints;
  if (!masked || CheckClockTime(header.ScanTime) == ClockTimeFault::kNone) timeField.SetText(header.ScanTime);
  txtNumberOfPoints.SetText(header.NumberOfPoints);
  SelectItem(cboTriggerMode, TriggerModeText(component_, header.TriggerMode));
  SelectItem(cboEvent, EventText(component_, header.Event));
  SelectItem(cboPXXX, header.PXXX);
  txtContent.SetText(header.Content);
}

void AcquireForm::UpdateViewChartButton() {
  cmdViewChart.SetVisible(component_.ports.files.FileExists(rtfFileName.Text()));
}

void AcquireForm::ConfigureFileDialog(OpenFileRequest& request, const std::string& extension) const {
  request.initialFolder = component_.settings.strFolder;
  request.flags = kOpenFlags;
  request.filter = "Chart Files (*." + extension + ")|*." + extension;
  request.filterIndex = 2;
}

void AcquireForm::cmdBrowse_Click() {
  OpenFileRequest request;
  ConfigureFileDialog(request, "cht");
  const FolderScope hostFolder(component_.ports.files, component_.settings.strBin);  // the dialog may move away
  const auto chosen = component_.ports.dialogs.ShowOpenFile(request);
  if (chosen && !chosen->empty()) NameFile(*chosen);
}

void AcquireForm::PromptFileName() {
  std::string answer;
  {
    const FolderScope hostFolder(component_.ports.files, component_.settings.strBin);
    answer = component_.ports.dialogs.ShowInputBox({LoadMessage(component_, Text::kEnterFileName),
                                                    LoadMessage(component_, Text::kChartFile), component_.helpFile});
  }
  if (!answer.empty()) NameFile(JoinPath(component_.settings.strFolder, answer + ".cht"));
}

}  // namespace chartproject
