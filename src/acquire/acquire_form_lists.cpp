// Filling the dialog's lists, and what choosing an item does.
#include <algorithm>
#include <utility>

#include "acquire/acquire_form.h"
#include "common/environment/language.h"
#include "common/message_box.h"
#include "common/values/numbers.h"
#include "drive/driver_file.h"
#include "recording/trigger_events.h"

namespace chartproject {

namespace {

constexpr int kNothing = -1;
constexpr std::int32_t kHelpContext = 91;

/// Clears the list when it holds items, then fills it in one step.
void Refill(ComboBox& list, std::vector<std::string> items) {
  if (list.ListCount() > 0) list.Clear();
  list.AddItems(std::move(items));
}

void SelectFirst(ComboBox& list) {
  if (list.ListCount() > 0) list.SetListIndex(0);
}

}  // namespace

void AcquireForm::FillDriveAddressList() {
  component_.selectedDriveAddress.clear();
  lblDriveModel.SetCaption("");
  std::vector<std::string> addresses;
  for (int address = 0; address <= kLastDriveAddress; ++address) {
    if (!component_.driveTable.At(address).Type.empty()) addresses.push_back(FormatDigits(address, 2));
  }
  Refill(cboDriveAddress, std::move(addresses));
  SelectItem(cboDriveAddress, FormatDigits(component_.settings.intSelectedDrive, 2));
}

void AcquireForm::FillNumberOfParametersList() {
  Refill(cboNumberOfParameters, {"1", "2", "3", "4"});
  cboNumberOfParameters.SetListIndex(0);
}

void AcquireForm::FillParameterList(std::int16_t driveAddress, ComboBox& list) {
  const ParameterTable& table = component_.parameterTables.At(driveAddress);
  const bool hidesServiceParameters = component_.driveTable.At(driveAddress).Type == "KRA-09";
  std::vector<std::string> numbers;
  for (int parameter = 0; parameter < kParameterCount; ++parameter) {
    const bool service = hidesServiceParameters && (parameter == 990 || parameter == 991);
    if (table.At(parameter).present && !service) numbers.push_back(FormatDigits(parameter, 3));
  }
  Refill(list, std::move(numbers));
  SelectFirst(list);
  list.SetEnabled(false);
}

void AcquireForm::FillEventList() {
  std::vector<std::string> events;
  events.reserve(kEventCount);
  for (int position = 0; position < kEventCount; ++position) {
    events.push_back(LoadMessage(component_, EventMessage(position)));
  }
  Refill(cboEvent, std::move(events));
  cboEvent.SetListIndex(kDefaultEvent);
}

void AcquireForm::FillTriggerModeList() {
  Refill(cboTriggerMode, {LoadMessage(component_, Text::kEvent), LoadMessage(component_, Text::kManual)});
  cboTriggerMode.SetListIndex(kTriggerManual);
}

std::array<ComboBox*, kColumnCount> AcquireForm::ParameterLists() {
  return {&cboPXXX1, &cboPXXX2, &cboPXXX3, &cboPXXX4};
}

int AcquireForm::ParameterCount() const {
  return cboNumberOfParameters.ListIndex() + 1;
}

std::string AcquireForm::SelectedModel() const {
  const std::string& address = component_.selectedDriveAddress;
  if (address.empty()) return {};
  return component_.driveTable.At(ToInteger16(address, component_.ports.locale.Numbers())).Type;
}

void AcquireForm::EnableParameterLists() {
  // The first list is usable even before a number is chosen.
  const int inUse = std::max(ParameterCount(), 1);
  int number = 0;
  for (ComboBox* list : ParameterLists()) list->SetEnabled(++number <= inUse);
}

void AcquireForm::LoadDriver(std::int16_t address) {
  FileSystem& files = component_.ports.files;
  LoadedDriver driver{address, DriverFileName(component_, address), {}};
  if (files.FileExists(driver.fileName)) driver.identity = files.OpenForReading(driver.fileName)->Identity();
  if (driver == loadedDriver_) return;
  loadedDriver_ = {};
  LoadDriverFile(component_, address);
  loadedDriver_ = std::move(driver);
  driverFileError_.clear();
}

void AcquireForm::cboDriveAddress_Click() {
  if (cboDriveAddress.ListIndex() < 0) return;
  const HourglassScope hourglass(*this);
  component_.selectedDriveAddress = cboDriveAddress.Text();
  lblDriveModel.SetCaption(SelectedModel());
  const auto address = ToInteger16(component_.selectedDriveAddress, component_.ports.locale.Numbers());
  try {
    LoadDriver(address);
  } catch (const RunTimeError& error) {
    // No list may go on offering the parameters of another drive.
    for (ComboBox* list : ParameterLists()) list->Clear();
    cboPXXX.Clear();
    EnableParameterLists();
    UpdateStartButtons();
    if (std::exchange(driverFileError_, error.Description(component_.language)) == driverFileError_)
      return;  // said already
    throw;
  }
  for (ComboBox* list : ParameterLists()) FillParameterList(address, *list);
  FillParameterList(address, cboPXXX);
  EnableParameterLists();
  if (cboEvent.Enabled()) cboEvent_Click();
  UpdateStartButtons();
}

void AcquireForm::cboNumberOfParameters_Click() {
  if (cboNumberOfParameters.ListIndex() < 0) return;
  const HourglassScope hourglass(*this);
  for (ComboBox* list : ParameterLists()) SelectFirst(*list);
  EnableParameterLists();
  if (!resettingCounts_) txtNumberOfPoints_Change();
}

void AcquireForm::cboTriggerMode_Click() {
  const bool byEvent = cboTriggerMode.ListIndex() == kTriggerByEvent;
  cboEvent.SetEnabled(byEvent);
  cmdStart.SetVisible(!byEvent);
  lblStart.SetVisible(!byEvent);
  cmdTrigger.SetVisible(byEvent);
  lblTrigger.SetVisible(byEvent);
  if (byEvent) {
    cboEvent.SetListIndex(kNothing);
    cboEvent.SetListIndex(kDefaultEvent);
  } else {
    cboPXXX.SetEnabled(false);
    txtContent.SetEnabled(false);
  }
  UpdateStartButtons();
}

void AcquireForm::cboEvent_Click() {
  const int position = cboEvent.ListIndex();
  const bool available = EventAvailable(position, SelectedModel());
  if (!available) {
    ShowMessage(component_, LoadMessage(component_, Text::kEventNotAvailable), box_style::kExclamation,
                component_.helpFile, kHelpContext);
  }
  if (IsCompareEvent(position)) {
    // A file recorded by hand carries an event too; its fields stay locked until the mode is "Event".
    const bool usable = cboTriggerMode.ListIndex() != kTriggerManual;
    cboPXXX.SetEnabled(usable);
    txtContent.SetEnabled(usable);
  } else {
    SelectFirst(cboPXXX);
    cboPXXX.SetEnabled(false);
    txtContent.SetText("");
    txtContent.SetEnabled(false);
  }
  UpdateStartButtons();
  if (!available) cboEvent.SetListIndex(kNothing);
}

}  // namespace chartproject
