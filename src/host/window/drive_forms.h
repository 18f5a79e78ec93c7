// The small windows that add a drive to the project and take drives out of it.
#pragma once

#include <string>
#include <vector>

#include "forms/controls.h"
#include "forms/form.h"
#include "host/project/project_edit.h"
#include "recording/file/component.h"

namespace chartproject {

/// frmAddDrive. An answer that the project refuses is explained in a box, and the window stays.
class AddDriveForm : public Form {
 public:
  /// What the fields begin with.
  struct Proposal {
    int address = 0;  ///< 0 for the first that is free
    std::string model;
  };
  /// @param component,edit outlive the form
  AddDriveForm(Component& component, ProjectEdit& edit, const Proposal& proposal);

  Label lblAddress{*this, "lblAddress"};
  ComboBox cboAddress{*this, "cboAddress"};  ///< those that are free
  Label lblModel{*this, "lblModel"};
  ComboBox cboModel{*this, "cboModel"};
  Label lblFirmware{*this, "lblFirmware"};
  TextBox txtFirmware{*this, "txtFirmware"};
  Label lblTag{*this, "lblTag"};
  TextBox txtTag{*this, "txtTag"};
  CommandButton cmdAdd{*this, "cmdAdd"};
  CommandButton cmdCancel{*this, "cmdCancel"};

  /// What was added, as a sentence; empty when nothing was.
  [[nodiscard]] const std::string& Done() const noexcept { return done_; }

 protected:
  void OnLoad() override;

 private:
  void cboModel_Click();
  void cmdAdd_Click();

  Component& component_;
  ProjectEdit& edit_;
  std::string done_;
};

/// frmRemoveDrive: one drive, or all.
class RemoveDriveForm : public Form {
 public:
  /// @param component,edit outlive the form
  RemoveDriveForm(Component& component, ProjectEdit& edit);

  Label lblDrive{*this, "lblDrive"};
  ComboBox cboDrive{*this, "cboDrive"};
  CommandButton cmdRemove{*this, "cmdRemove"};
  CommandButton cmdCancel{*this, "cmdCancel"};

  /// What was removed, as a sentence; empty when nothing was.
  [[nodiscard]] const std::string& Done() const noexcept { return done_; }

 protected:
  void OnLoad() override;

 private:
  void cmdRemove_Click();

  Component& component_;
  ProjectEdit& edit_;
  std::vector<int> addresses_;  ///< as in the list
  std::string done_;
};

}  // namespace chartproject
