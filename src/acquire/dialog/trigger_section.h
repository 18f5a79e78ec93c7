// What starts a recording: the user's key, or an event at the drive.
#pragma once

#include <optional>

#include "acquire/dialog/drive_section.h"
#include "acquire/run/event_watch.h"

namespace chartproject {

class TriggerSection : public Section {
 public:
  /// @param drive the section whose model decides which events there are; it outlives this one
  TriggerSection(Form& form, Component& component, const DriveSection& drive, std::function<void()> changed);

  PictureBox picMode{form_, "picMode"};
  Label lblTriggerMode{form_, "lblTriggerMode"};
  ComboBox cboTriggerMode{form_, "cboTriggerMode"};
  Label lblEvent{form_, "lblEvent"};
  ComboBox cboEvent{form_, "cboEvent"};
  Label lblPXXX{form_, "lblPXXX"};
  ComboBox cboPXXX{form_, "cboPXXX"};
  Label lblContent{form_, "lblContent"};
  TextBox txtContent{form_, "txtContent"};
  Label lblPXXXName{form_, "lblPXXXName"};  ///< name of the parameter in cboPXXX

  /// While the dialog is made: an event that the drive does not offer is left unchosen without a box.
  bool opening = false;

  [[nodiscard]] LayoutBox Layout();
  void Reset();
  void ShowHeader(const ChartHeader& header);
  /// The trigger's part of a recording's header.
  void FillHeader(ChartHeader& header) const;
  /// Offers the parameters and events of another drive, no parameters without an address, and checks the event against
  /// its model.
  void ListParameters(std::optional<std::int16_t> driveAddress);
  [[nodiscard]] bool ByEvent() const { return Mode() == TriggerMode::kEvent; }
  [[nodiscard]] bool ByHand() const { return Mode() == TriggerMode::kManual; }
  [[nodiscard]] WatchedEvent Watched() const;
  /// The hint that keeps Trigger away, if any.
  [[nodiscard]] std::optional<std::string> Missing() const;
  /// Checks the content once more before the watch. False after a box that gives the reason.
  [[nodiscard]] bool Holds();

 private:
  [[nodiscard]] std::optional<TriggerMode> Mode() const;
  [[nodiscard]] TriggerEvent ChosenEvent() const;
  void FillEventList();
  void FillTriggerModeList();
  void cboTriggerMode_Click();
  void cboEvent_Click();
  void cboPXXX_Click();
  void txtContent_Change();
  void UseCompareFields(bool usable);
  void MarkAvailableEvents();
  void SetContent(const std::string& text);
  [[nodiscard]] bool ContinuesRefusedContent() const;

  const DriveSection& drive_;
  std::string refusedContent_;  ///< typed and not a number; letters typed directly after it belong to it
  Instant refusedAt_{};
};

}  // namespace chartproject
