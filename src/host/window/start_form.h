// frmStart, the window that opens when the program is started without a command: drives, recording, charts, language.
#pragma once

#include <array>
#include <string>

#include "acquire/dialog/recovery_section.h"
#include "component/chart_class.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "host/project/project_edit.h"
#include "host/window/link_section.h"
#include "host/window/recent_charts.h"

namespace chartproject {

/// Former values of settings, in a box, so that whoever set them can set them again; nothing when there are none.
void ShowReplacedSettings(Component& component, const std::vector<ReplacedSetting>& replaced);

class StartForm : public Form {
 public:
  /// @param instance outlives the form @param madeIn folder of the project that this start made, said once below the
  /// drives; empty when it made none
  StartForm(ChartClass& instance, std::string madeIn, LinkChoice choice);

  // Controls, in tab order. ------------------------------------------------------------------------------------------
  CommandButton cmdAcquire{*this, "cmdAcquire"};
  CommandButton cmdOpenChart{*this, "cmdOpenChart"};
  CommandButton cmdAddDrive{*this, "cmdAddDrive"};
  CommandButton cmdRemoveDrive{*this, "cmdRemoveDrive"};
  CommandButton cmdOpenProject{*this, "cmdOpenProject"};
  CommandButton cmdHelp{*this, "cmdHelp"};
  CommandButton cmdClose{*this, "cmdClose"};
  std::array<CommandButton, kRecentCharts> cmdRecent{
      CommandButton{*this, "cmdRecent1"}, CommandButton{*this, "cmdRecent2"}, CommandButton{*this, "cmdRecent3"},
      CommandButton{*this, "cmdRecent4"}};
  Frame fraRecent{*this, "fraRecent"};
  LinkSection link;
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
  void OnUnload() override { link.StopTest(); }

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
  void cmdAddDrive_Click();
  void cmdRemoveDrive_Click();
  void cmdOpenProject_Click();
  /// Everything but the test of the line, while that runs.
  void SetOthersEnabled(bool enabled);
  /// Changes the project in the store, and shows it. @param change returns what to say, or nothing
  void ChangeProject(const std::function<std::string(ProjectEdit&)>& change);
  void ShowProject();
  void SayNote(const std::string& text);
  void OpenChart(const std::string& fileName);
  /// The charts that can be opened again, each on its button.
  void ShowRecent();

  ChartClass& instance_;
  Component& component_;
  std::string madeIn_;
  std::vector<std::string> recent_;  ///< full names, as on the buttons
};

}  // namespace chartproject
