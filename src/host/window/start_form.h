// frmStart, the window that opens when the program is started without a command: drives, recording, charts, language.
#pragma once

#include <array>
#include <string>

#include "acquire/dialog/recovery_section.h"
#include "component/chart_class.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "host/window/recent_charts.h"

namespace chartproject {

class StartForm : public Form {
 public:
  /// @param instance outlives the form @param madeIn folder of the project that this start made, said once below the
  /// drives; empty when it made none
  StartForm(ChartClass& instance, std::string madeIn);

  // Controls, in tab order. ------------------------------------------------------------------------------------------
  CommandButton cmdAcquire{*this, "cmdAcquire"};
  CommandButton cmdOpenChart{*this, "cmdOpenChart"};
  CommandButton cmdHelp{*this, "cmdHelp"};
  CommandButton cmdClose{*this, "cmdClose"};
  std::array<CommandButton, kRecentCharts> cmdRecent{
      CommandButton{*this, "cmdRecent1"}, CommandButton{*this, "cmdRecent2"}, CommandButton{*this, "cmdRecent3"},
      CommandButton{*this, "cmdRecent4"}};
  Frame fraRecent{*this, "fraRecent"};
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
  void OpenChart(const std::string& fileName);
  /// The charts that can be opened again, each on its button.
  void ShowRecent();

  ChartClass& instance_;
  Component& component_;
  std::string madeIn_;
  std::vector<std::string> recent_;  ///< full names, as on the buttons
};

}  // namespace chartproject
