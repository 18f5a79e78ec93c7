// frmStart, the window that opens when the program is started without a command: drives, recording, charts, language.
#pragma once

#include <string>

#include "acquire/dialog/recovery_section.h"
#include "component/chart_class.h"
#include "forms/controls.h"
#include "forms/form.h"

namespace chartproject {

class StartForm : public Form {
 public:
  /// @param instance outlives the form @param madeIn folder of the project that this start made, said once below the
  /// drives; empty when it made none
  StartForm(ChartClass& instance, std::string madeIn);

  // Controls, in tab order. ------------------------------------------------------------------------------------------
  CommandButton cmdAcquire{*this, "cmdAcquire"};
  CommandButton cmdOpenChart{*this, "cmdOpenChart"};
  CommandButton cmdClose{*this, "cmdClose"};
  Frame fraDrives{*this, "fraDrives"};
  RichTextBox rtfDrives{*this, "rtfDrives"};
  Label lblProject{*this, "lblProject"};
  Label lblNote{*this, "lblNote"};
  Label lblLanguage{*this, "lblLanguage"};
  ComboBox cboLanguage{*this, "cboLanguage"};
  CheckBox chkSound{*this, "chkSound"};
  RecoverySection recovery;

 protected:
  void OnLoad() override;

 private:
  void PlaceControls();
  void Connect();
  /// All texts in the language that is chosen now.
  void ShowTexts();
  [[nodiscard]] std::string DriveLines() const;
  void cboLanguage_Click();
  void chkSound_Click();
  void cmdAcquire_Click();
  void cmdOpenChart_Click();

  ChartClass& instance_;
  Component& component_;
  std::string madeIn_;
};

}  // namespace chartproject
