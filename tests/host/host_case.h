// Runs the program in this process: a project folder with two drives, and windows that a test acts in.
#pragma once

#include <gmock/gmock.h>

#include "chart/recording_canvas.h"
#include "host/session/desktop.h"
#include "platform/temporary_folder.h"
#include "support/fake_ports.h"

namespace chartproject {

/// The windowing system of these tests, as long as it lives: what the program does with windows, boxes and paper.
class FakeScreen {
 public:
  FakeScreen() { current = this; }
  ~FakeScreen() { current = nullptr; }
  FakeScreen(const FakeScreen&) = delete;
  FakeScreen& operator=(const FakeScreen&) = delete;
  static FakeScreen* current;  ///< what OpenDesktop opens

  bool missing = false;               ///< there is no display
  std::function<void(Form&)> onForm;  ///< acts in each window; it is closed afterwards
  std::vector<std::string> windows;   ///< captions of the windows shown
  std::string printedTo;              ///< file of the printed page
  PaperSize paper;
  FakeDialogs dialogs;
  FakePrinter printer;
  FakeSound sound;
  FakeKeyboard keyboard;
  NoHelp help;
  ProcessClipboard clipboard;
  testing::RecordingPictures pictures;
};

/// What a run of the program left.
struct Done {
  int code = -1;
  std::string out;
  std::string err;
};

class HostCase : public ::testing::Test {
 protected:
  /// A drive KRA-09 at address 1 and a soft starter at address 2, with three parameters each, and a script of their
  /// values; the current folder is the project's.
  HostCase();
  ~HostCase() override;

  /// On a virtual clock that starts at 08:00, on the script "plant.txt" unless the arguments name another link.
  Done Run(std::vector<std::string> arguments);
  /// Records P003 and P005 of drive 1 into run.cht.
  Done Record(int points, std::vector<std::string> more = {});

  /// What comes before the arguments of every run.
  std::vector<std::string> globals{"--profile", "profile", "--clock", "virtual", "--start", "2026-01-31 08:00:00"};
  TemporaryFolder folder;
  FakeScreen screen;
};

}  // namespace chartproject
