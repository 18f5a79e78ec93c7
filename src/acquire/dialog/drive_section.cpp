// The drive of a recording and its parameters: address, number of parameters, one list for each column.
#include "acquire/dialog/drive_section.h"

#include <algorithm>
#include <utility>

#include "common/values/numbers.h"
#include "drive/drive_models.h"
#include "drive/driver_file.h"
#include "forms/flag_scope.h"

namespace chartproject {

void FillParameterList(Component& component, std::int16_t driveAddress, ComboBox& list) {
  const ParameterTable& table = component.parameterTables.At(driveAddress);
  const bool hidesServiceParameters = component.driveTable.At(driveAddress).Type == "KRA-09";
  std::vector<std::string> numbers;
  for (int parameter = 0; parameter < kParameterCount; ++parameter) {
    const bool service = hidesServiceParameters && (parameter == 990 || parameter == 991);
    if (table.At(parameter).present && !service) numbers.push_back(FormatDigits(parameter, 3));
  }
  Refill(list, std::move(numbers));
  SelectFirst(list);
  list.SetEnabled(false);
}

void ShowParameterName(Component& component, ComboBox& list, Label& name, bool numbered) {
  std::string text;
  if (list.Enabled() && list.ListIndex() >= 0 && !component.selectedDriveAddress.empty()) {
    const NumberFormat& format = component.ports.locale.Numbers();
    const ParameterTable& table = component.parameterTables.At(ToInteger16(component.selectedDriveAddress, format));
    text = table.At(ToInteger16(list.Text(), format)).name;
  }
  list.SetToolTipText(text);
  if (numbered && !text.empty()) text.insert(0, list.Text() + "  ");
  name.SetCaption(text);
  name.SetToolTipText(text);
}

DriveSection::DriveSection(Form& form, Component& component, std::function<void()> changed)
    : Section(form, component, std::move(changed)) {
  lblDriveAddress.SetTag(TextNumber(Text::kDriveAddress));
  lblNumberOfParameters.SetTag(TextNumber(Text::kNumberOfParameters));
  lblParameters.SetTag(TextNumber(Text::kParameters));
  Connect(cboDriveAddress.click, cboDriveAddress, "Click", this, &DriveSection::cboDriveAddress_Click);
  Connect(cboNumberOfParameters.click, cboNumberOfParameters, "Click", this,
          &DriveSection::cboNumberOfParameters_Click);
  for (Label* name : {&lblPXXX1, &lblPXXX2, &lblPXXX3, &lblPXXX4}) name->SetElided(true);
  for (ComboBox* list : ParameterLists()) Connect(list->click, *list, "Click", this, &DriveSection::cboPXXX_Click);
}

LayoutBox DriveSection::Layout() {
  LayoutBox drive = Group(picDriveAddress, Column({Row({LineStart(lblDriveAddress), Cell(cboDriveAddress, 1)}),
                                                   Row({LineStart(), Cell(lblDriveModel, 1)})}));
  LayoutBox lists =
      Grid(2, {Cell(lblNumberOfParameters), Row({Cell(cboNumberOfParameters), Space()}), Cell(lblParameters),
               Row({Cell(cboPXXX1, 1), Cell(cboPXXX2, 1), Cell(cboPXXX3, 1), Cell(cboPXXX4, 1)})});
  // A name is longer than its list is wide: half of the group holds most of them in full.
  const auto names = [](Label& upper, Label& lower) {
    constexpr double kBetweenLines = 3;
    LayoutBox lines = Column({Cell(upper, 1), Cell(lower, 1)});
    lines.gap = kBetweenLines;
    return Stretched(std::move(lines), 1, 0);
  };
  LayoutBox parameters = Group(picNumberOfParameters,
                               Column({std::move(lists), Row({names(lblPXXX1, lblPXXX3), names(lblPXXX2, lblPXXX4)})}));
  return Row({std::move(drive), Stretched(std::move(parameters), 1, 0)});
}

void DriveSection::Reset() {
  FillDriveAddressList();
  FillNumberOfParametersList();
}

void DriveSection::ShowHeader(const ChartHeader& header) {
  SelectItem(cboDriveAddress, header.DriveAddress);
  SelectItem(cboNumberOfParameters, header.NumberOfParameters);
  SelectItem(cboPXXX1, header.PXXX1);
  SelectItem(cboPXXX2, header.PXXX2);
  SelectItem(cboPXXX3, header.PXXX3);
  SelectItem(cboPXXX4, header.PXXX4);
}

void DriveSection::FillPlan(RunPlan& plan) const {
  plan.driveAddress = SelectedAddress();
  plan.parameterCount = ParameterCount();
  std::size_t column = 0;
  for (const ComboBox* list : ParameterLists()) {
    plan.columns[column++] =
        list->ListIndex() < 0 ? std::int16_t{kUnusedParameter} : ToInteger16(list->Text(), Numbers());
  }
}

void DriveSection::FillHeader(ChartHeader& header, const RunPlan& plan) const {
  header.DriveAddress = component_.selectedDriveAddress;
  header.NumberOfParameters = cboNumberOfParameters.Text();
  const std::array columns{&header.PXXX1, &header.PXXX2, &header.PXXX3, &header.PXXX4};
  for (std::size_t column = 0; column < columns.size(); ++column) {
    const bool inUse = static_cast<int>(column) < plan.parameterCount && plan.columns[column] != kUnusedParameter;
    if (inUse) *columns[column] = FormatDigits(plan.columns[column], 3);
  }
}

int DriveSection::ParameterCount() const {
  return cboNumberOfParameters.ListIndex() + 1;
}

std::string DriveSection::SelectedModel() const {
  if (component_.selectedDriveAddress.empty()) return {};
  return component_.driveTable.At(SelectedAddress()).Type;
}

std::optional<std::string> DriveSection::Missing() const {
  if (cboDriveAddress.ListIndex() < 0) return Say(Text::kHintDriveAddress);
  if (!driverFileHint_.empty()) return driverFileHint_;
  const auto lists = ParameterLists();
  const bool incomplete = cboNumberOfParameters.ListIndex() < 0 ||
                          std::ranges::any_of(lists, [](const ComboBox* list) { return LacksChoice(*list); });
  if (incomplete) return Say(Text::kHintParameters);
  return std::nullopt;
}

std::string DriveSection::Notice() const {
  const std::string model = SelectedModel();
  return model.empty() || ShowsValues(model) ? std::string() : FillIn(Say(Text::kModelShowsNoNumbers), {model});
}

std::array<ComboBox*, kColumnCount> DriveSection::ParameterLists() {
  return {&cboPXXX1, &cboPXXX2, &cboPXXX3, &cboPXXX4};
}

std::array<const ComboBox*, kColumnCount> DriveSection::ParameterLists() const {
  return {&cboPXXX1, &cboPXXX2, &cboPXXX3, &cboPXXX4};
}

std::int16_t DriveSection::SelectedAddress() const {
  return ToInteger16(component_.selectedDriveAddress, Numbers());
}

void DriveSection::FillDriveAddressList() {
  component_.selectedDriveAddress.clear();
  lblDriveModel.SetCaption("");
  driverFileHint_.clear();
  std::vector<std::string> addresses;
  for (int address = 0; address <= kLastDriveAddress; ++address) {
    if (!component_.driveTable.At(address).Type.empty()) addresses.push_back(FormatDigits(address, 2));
  }
  Refill(cboDriveAddress, std::move(addresses));
  SelectItem(cboDriveAddress, FormatDigits(component_.settings.intSelectedDrive, 2));
}

void DriveSection::FillNumberOfParametersList() {
  const FlagScope refilling(refillingCounts_);
  Refill(cboNumberOfParameters, {"1", "2", "3", "4"});
  cboNumberOfParameters.SetListIndex(0);
}

void DriveSection::EnableParameterLists() {
  // The first list is usable even before a number is chosen.
  const int inUse = std::max(ParameterCount(), 1);
  int number = 0;
  for (ComboBox* list : ParameterLists()) list->SetEnabled(++number <= inUse);
  ShowParameterNames();
}

void DriveSection::ShowParameterNames() {
  ShowParameterName(component_, cboPXXX1, lblPXXX1, true);
  ShowParameterName(component_, cboPXXX2, lblPXXX2, true);
  ShowParameterName(component_, cboPXXX3, lblPXXX3, true);
  ShowParameterName(component_, cboPXXX4, lblPXXX4, true);
}

void DriveSection::LoadDriver(std::int16_t address) {
  FileSystem& files = component_.ports.files;
  LoadedDriver driver{address, DriverFileName(component_, address), {}};
  if (files.FileExists(driver.fileName)) driver.identity = files.OpenForReading(driver.fileName)->Identity();
  if (driver == loadedDriver_) return;
  loadedDriver_ = {};
  LoadDriverFile(component_, address);
  loadedDriver_ = std::move(driver);
  driverFileError_.clear();
}

/// No list may still offer the parameters of another drive.
void DriveSection::ClearParameterLists() {
  for (ComboBox* list : ParameterLists()) list->Clear();
  EnableParameterLists();
  parametersListed(std::nullopt);
  Changed();
}

void DriveSection::cboDriveAddress_Click() {
  if (cboDriveAddress.ListIndex() < 0) return;
  const HourglassScope hourglass(form_);
  component_.selectedDriveAddress = cboDriveAddress.Text();
  lblDriveModel.SetCaption(SelectedModel());
  const std::int16_t address = SelectedAddress();
  try {
    LoadDriver(address);
    driverFileHint_.clear();
  } catch (const RunTimeError& error) {
    const bool missing = error.Number() == error_number::kFileNotFound;
    driverFileHint_ = FillIn(Say(missing ? Text::kHintNoDriverFile : Text::kHintBadDriverFile),
                             {DriverFileName(component_, address)});
    ClearParameterLists();
    if (std::exchange(driverFileError_, error.Description(component_.language)) == driverFileError_)
      return;  // shown already
    throw;
  }
  for (ComboBox* list : ParameterLists()) FillParameterList(component_, address, *list);
  EnableParameterLists();
  parametersListed(address);
  Changed();
}

void DriveSection::cboPXXX_Click() {
  ShowParameterNames();
  Changed();
}

void DriveSection::cboNumberOfParameters_Click() {
  if (cboNumberOfParameters.ListIndex() < 0) return;
  const HourglassScope hourglass(form_);
  for (ComboBox* list : ParameterLists()) SelectFirst(*list);
  EnableParameterLists();
  if (!refillingCounts_) countChosen();
}

}  // namespace chartproject
