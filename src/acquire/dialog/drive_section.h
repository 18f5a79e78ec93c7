// The drive of a recording and its parameters: address, number of parameters, one list for each column.
#pragma once

#include <array>
#include <optional>

#include "acquire/dialog/section.h"
#include "acquire/run/acquisition_run.h"

namespace chartproject {

class DriveSection : public Section {
 public:
  DriveSection(Form& form, Component& component, std::function<void()> changed);

  PictureBox picDriveAddress{form_, "picDriveAddress"};
  Label lblDriveAddress{form_, "lblDriveAddress"};
  ComboBox cboDriveAddress{form_, "cboDriveAddress"};
  Label lblDriveModel{form_, "lblDriveModel"};

  PictureBox picNumberOfParameters{form_, "picNumberOfParameters"};
  Label lblNumberOfParameters{form_, "lblNumberOfParameters"};
  ComboBox cboNumberOfParameters{form_, "cboNumberOfParameters"};
  Label lblParameters{form_, "lblParameters"};
  ComboBox cboPXXX1{form_, "cboPXXX1"};
  ComboBox cboPXXX2{form_, "cboPXXX2"};
  ComboBox cboPXXX3{form_, "cboPXXX3"};
  ComboBox cboPXXX4{form_, "cboPXXX4"};
  Label lblPXXX1{form_, "lblPXXX1"};  ///< number and name of the parameter, as the driver file gives it
  Label lblPXXX2{form_, "lblPXXX2"};
  Label lblPXXX3{form_, "lblPXXX3"};
  Label lblPXXX4{form_, "lblPXXX4"};

  /// Called when the lists show the parameters of another drive; without an address when its driver file could not be
  /// read and they are empty.
  std::function<void(std::optional<std::int16_t> address)> parametersListed;
  /// Called when the user chose another number of parameters.
  std::function<void()> countChosen;

  [[nodiscard]] LayoutBox Layout();
  void Reset();
  void ShowHeader(const ChartHeader& header);
  /// The drive's and the columns' part of a recording's plan and of its header.
  void FillPlan(RunPlan& plan) const;
  void FillHeader(ChartHeader& header, const RunPlan& plan) const;
  /// 0 while no number is chosen, otherwise 1 to 4.
  [[nodiscard]] int ParameterCount() const;
  /// Model name of the selected drive; empty without one.
  [[nodiscard]] std::string SelectedModel() const;
  /// The hint that keeps Start away, if any.
  [[nodiscard]] std::optional<std::string> Missing() const;
  /// A notice about the drive to show before a recording is started; empty when there is none.
  [[nodiscard]] std::string Notice() const;

 private:
  [[nodiscard]] std::array<ComboBox*, kColumnCount> ParameterLists();
  [[nodiscard]] std::array<const ComboBox*, kColumnCount> ParameterLists() const;
  [[nodiscard]] std::int16_t SelectedAddress() const;
  void FillDriveAddressList();
  void FillNumberOfParametersList();
  void EnableParameterLists();
  void ShowParameterNames();
  void LoadDriver(std::int16_t address);
  void ClearParameterLists();
  void cboDriveAddress_Click();
  void cboNumberOfParameters_Click();
  void cboPXXX_Click();

  /// The driver file loaded last. An unchanged file is not read again on reset, and its errors are not shown twice.
  struct LoadedDriver {
    std::int16_t address = 0;
    std::string fileName;
    FileIdentity identity;
    friend bool operator==(const LoadedDriver&, const LoadedDriver&) = default;
  };
  LoadedDriver loadedDriver_;
  std::string driverFileError_;   ///< shown once, not at every reset
  std::string driverFileHint_;    ///< what is wrong with the driver file of the selected drive
  bool refillingCounts_ = false;  ///< the program chooses the number of parameters
};

/// Fills a list with the numbers of a drive's parameters (three digits), selects the first and disables the list.
/// @param driveAddress 1 to 30, otherwise throws RunTimeError 9
void FillParameterList(Component& component, std::int16_t driveAddress, ComboBox& list);

/// Shows the name of the parameter that is chosen in a list in use; the whole of it is the list's tool tip.
/// @param numbered with the number before it, where the name is not beside its list
void ShowParameterName(Component& component, ComboBox& list, Label& name, bool numbered = false);

}  // namespace chartproject
