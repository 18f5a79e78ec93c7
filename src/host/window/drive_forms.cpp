// Both are as wide as their texts, in the middle of the screen.
#include "host/window/drive_forms.h"

#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/form_appearance.h"
#include "common/message_box.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_models.h"
#include "forms/form_host.h"
#include "host/project/project_drives.h"

namespace chartproject {

namespace {

constexpr int kFieldWidth = 24;  // characters

void PlaceInTheMiddle(Component& component, Form& form) {
  form.LayoutChanged();
  const Size screen = component.forms.ScreenSize();
  form.SetLeft((screen.width - form.Width()) / 2);
  form.SetTop((screen.height - form.Height()) / 2);
  LoadFormPictures(component, form);
}

std::string DriveLine(const DriveRecord& drive) {
  return drive.Address + "  " + drive.Type + (drive.Tag.empty() ? "" : "  " + drive.Tag);
}

}  // namespace

AddDriveForm::AddDriveForm(Component& component, ProjectEdit& edit, const Proposal& proposal)
    : Form(component.forms, "frmAddDrive", MakeHandlerErrorReporter(component)), component_(component), edit_(edit) {
  for (int address = 1; address <= kLastDriveAddress; ++address) {
    if (!component.driveTable.At(address).Type.empty()) continue;
    cboAddress.AddItem(FormatDigits(address, 2));
    if (address == proposal.address) cboAddress.SetListIndex(cboAddress.ListCount() - 1);
  }
  if (cboAddress.ListIndex() < 0 && cboAddress.ListCount() > 0) cboAddress.SetListIndex(0);
  On(cboModel.click, cboModel, "Click", &AddDriveForm::cboModel_Click);
  On(cmdAdd.click, cmdAdd, "Click", &AddDriveForm::cmdAdd_Click);
  cmdCancel.click = {"cmdCancel_Click", [this] { Unload(); }};
  for (const DriveModel& model : kDriveModels) {
    cboModel.AddItem(std::string(model.name));
    if (model.name == proposal.model) cboModel.SetListIndex(cboModel.ListCount() - 1);
  }
  txtFirmware.SetWidthInCharacters(kFieldWidth);
  txtTag.SetWidthInCharacters(kFieldWidth);
  cmdAdd.SetDefault(true);
  cmdCancel.SetCancel(true);
  for (Label* label : {&lblAddress, &lblModel, &lblFirmware, &lblTag}) label->SetBorderStyle(0);
  SetLayout(Column({Grid(2, {Cell(lblAddress), Cell(cboAddress, 1), Cell(lblModel), Cell(cboModel, 1),
                             Cell(lblFirmware), Cell(txtFirmware, 1), Cell(lblTag), Cell(txtTag, 1)}),
                    Space(0, 1), Row({Space(), Cell(cmdAdd), Cell(cmdCancel)})}));
}

void AddDriveForm::OnLoad() {
  const auto text = [this](Text which) { return LoadMessage(component_, which); };
  SetCaption(text(Text::kAddDrive));
  lblAddress.SetCaption(text(Text::kDriveAddress));
  lblModel.SetCaption(text(Text::kDriveModel));
  lblFirmware.SetCaption(text(Text::kFirmwareVersion));
  lblTag.SetCaption(text(Text::kDriveTag));
  cmdAdd.SetCaption(text(Text::kAdd));
  cmdCancel.SetCaption(text(Text::kBoxCancel));
  cmdAdd.SetEnabled(cboAddress.ListIndex() >= 0 && cboModel.ListIndex() >= 0);
  PlaceInTheMiddle(component_, *this);
}

void AddDriveForm::cboModel_Click() {
  txtFirmware.SetText(ShippedFirmware(cboModel.Text()));
  cmdAdd.SetEnabled(cboAddress.ListIndex() >= 0);
}

void AddDriveForm::cmdAdd_Click() {
  try {
    const int address = std::stoi(cboAddress.Text());
    const AddedDrive added = edit_.Add({address, cboModel.Text(), txtFirmware.Text(), txtTag.Text()});
    done_ = FillIn(LoadMessage(component_, Text::kDriveAdded), {cboAddress.Text(), added.driveFile});
    Unload();
  } catch (const RunTimeError& error) {
    ShowMessage(component_, error.Description(component_.language), box_style::kExclamation);
  }
}

RemoveDriveForm::RemoveDriveForm(Component& component, ProjectEdit& edit)
    : Form(component.forms, "frmRemoveDrive", MakeHandlerErrorReporter(component)), component_(component), edit_(edit) {
  for (int address = 1; address <= kLastDriveAddress; ++address) {
    const DriveRecord& drive = component.driveTable.At(address);
    if (drive.Type.empty()) continue;
    addresses_.push_back(address);
    cboDrive.AddItem(DriveLine(drive));
  }
  if (addresses_.size() > 1) cboDrive.AddItem(LoadMessage(component, Text::kAllDrives));
  if (!addresses_.empty()) cboDrive.SetListIndex(0);
  On(cmdRemove.click, cmdRemove, "Click", &RemoveDriveForm::cmdRemove_Click);
  cmdCancel.click = {"cmdCancel_Click", [this] { Unload(); }};
  cmdRemove.SetDefault(true);
  cmdCancel.SetCancel(true);
  lblDrive.SetBorderStyle(0);
  SetLayout(Column({Row({Cell(lblDrive), AtLeast(Cell(cboDrive, 1), 200)}), Space(0, 1),
                    Row({Space(), Cell(cmdRemove), Cell(cmdCancel)})}));
}

void RemoveDriveForm::OnLoad() {
  const auto text = [this](Text which) { return LoadMessage(component_, which); };
  SetCaption(text(Text::kRemoveDrive));
  lblDrive.SetCaption(text(Text::kDrive));
  cmdRemove.SetCaption(text(Text::kRemove));
  cmdCancel.SetCaption(text(Text::kBoxCancel));
  cmdRemove.SetEnabled(cboDrive.ListIndex() >= 0);
  PlaceInTheMiddle(component_, *this);
}

void RemoveDriveForm::cmdRemove_Click() {
  const auto chosen = static_cast<std::size_t>(cboDrive.ListIndex());
  const bool all = chosen >= addresses_.size();
  std::string files;
  for (std::size_t i = all ? 0 : chosen; i < (all ? addresses_.size() : chosen + 1); ++i) {
    files.append(files.empty() ? "" : ", ").append(BaseName(edit_.Remove(addresses_[i])));
  }
  done_ = FillIn(LoadMessage(component_, Text::kDriveRemoved), {files});
  Unload();
}

}  // namespace chartproject
