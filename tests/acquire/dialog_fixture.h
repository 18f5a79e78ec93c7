// The acquisition dialog on the headless back end: a small project of drives, a scripted plant, a virtual clock.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "acquire/dialog/acquire_form.h"
#include "gmock/gmock.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {

/// Drives 01 KRA-09, 02 LMX-01, 03 TSR-03, 04 KRA-05 in C:\d; the driver file of each has parameters 3, 5, 12, 990,
/// 991.
void SetUpDrives(Component& component, FakePorts& fakes);

class DialogTest : public ::testing::Test {
 public:
  FakePorts fake;
  FakePlant plant;  ///< answers "50", unless it is given other texts
  Component component{fake.ports, fake.forms, plant};
  std::unique_ptr<AcquireForm> form;

 protected:
  DialogTest();

  /// Loads the dialog and discards the sounds and boxes so far.
  void Open();
  /// A link that plays "plant.txt" on the virtual clock.
  [[nodiscard]] std::unique_ptr<DriveLink> PlayScenario();
  void Choose(ComboBox& list, const std::string& item);
  /// Lets the timers tick until a moment on the virtual clock, or until the recording has ended.
  void RunUntil(Instant moment);
  void RunToEnd() { RunUntil(Instant::max()); }
  [[nodiscard]] std::string Chart() const { return fake.files.Bytes(kChart); }
  [[nodiscard]] std::vector<std::string> Rows() const;
  [[nodiscard]] std::vector<std::string> Sounds();
  std::vector<std::string> Prompts() { return fake.dialogs.TakePrompts(); }
  [[nodiscard]] bool StartShown() const { return form->panel.cmdStart.Visible() && form->panel.lblStart.Visible(); }
  [[nodiscard]] bool TriggerShown() const {
    return form->panel.cmdTrigger.Visible() && form->panel.lblTrigger.Visible();
  }

  static constexpr const char* kChart = "C:\\p\\Test.cht";
  static constexpr const char* kSpool = "C:\\p\\Test.cht.tcf0";
};

}  // namespace chartproject
