// The start window's line "Drives: simulated / serial port / network", with the test of who answers.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "acquire/dialog/section.h"
#include "host/session/drive_links.h"
#include "links/serial/background_scan.h"
#include "links/serial/port_list.h"

namespace chartproject {

/// What the window chooses drives with.
struct LinkChoice {
  ChosenLinks& links;                                  ///< outlives the window
  std::function<std::vector<SerialPort>()> listPorts;  ///< the ports of this machine
  std::function<LinePortMaker()> makePorts;            ///< for the test; throws RunTimeError in a build without them
};

/// The choice takes effect as soon as it is complete, and is stored for the next start. Keys of a line that have no
/// field here (timeout, offset ...) stay as they are.
class LinkSection : public Section {
 public:
  /// @param lock called with false while the test runs: nothing else may use the line
  LinkSection(Form& form, Component& component, LinkChoice choice, std::function<void(bool enabled)> lock);

  PictureBox picLink{form_, "picLink"};
  Label lblLink{form_, "lblLink"};
  ComboBox cboLink{form_, "cboLink"};
  Label lblPort{form_, "lblPort"};
  ComboBox cboPort{form_, "cboPort"};
  Label lblHost{form_, "lblHost"};
  TextBox txtPort{form_, "txtPort"};  ///< a port that is not in the list, or a host
  Label lblSpeed{form_, "lblSpeed"};
  ComboBox cboSpeed{form_, "cboSpeed"};
  Label lblParity{form_, "lblParity"};
  ComboBox cboParity{form_, "cboParity"};
  CommandButton cmdTestLink{form_, "cmdTestLink"};
  Label lblLinkNote{form_, "lblLinkNote"};

  [[nodiscard]] LayoutBox Layout();
  /// Shows its texts and the choice in the user's language.
  void Translate();
  /// Takes what the fields say. @return false when it is not a link; the reason is shown
  [[nodiscard]] bool Apply();
  /// Ends a test that runs.
  void StopTest() noexcept { testWanted_ = false; }
  /// Shows the result of the last test again, for a project whose drives have changed.
  void ProjectChanged();
  /// The drives that answered in the last test and are not in the project.
  [[nodiscard]] std::vector<FoundDrive> NewDrives() const;

 private:
  enum class Kind { kSimulated, kSerial, kNetwork, kOther };
  [[nodiscard]] Kind Chosen() const { return static_cast<Kind>(cboLink.ListIndex()); }
  [[nodiscard]] LineSettings Defaults() const;
  void ShowLine(const std::string& link);
  void FillKinds(const std::string& link);
  void FillPorts();
  void FillSpeeds();
  void FillParities();
  [[nodiscard]] std::array<Control*, 6> FieldsOfALine();
  void ShowFields();
  void Note(const std::string& text);
  [[nodiscard]] std::optional<std::string> ChosenLink();
  void Test();
  [[nodiscard]] std::string TestResult(bool complete) const;
  void cboLink_Click();
  void cboPort_Click();
  void FieldChanged();
  void cmdTestLink_Click();

  LinkChoice choice_;
  std::function<void(bool enabled)> lock_;
  LineSettings line_;               ///< of the line that is chosen, or was last
  std::vector<std::string> ports_;  ///< names for a link, as in the list
  std::string other_;               ///< a link that has no fields
  std::vector<FoundDrive> found_;
  bool tested_ = false;      ///< the last test was complete, and nothing was changed since
  bool showing_ = false;     ///< the program fills the fields
  bool testing_ = false;     ///< a test runs
  bool testWanted_ = false;  ///< until it is to end
};

}  // namespace chartproject
