// The acquisition dialog in its real window, over a small project in memory.
#pragma once

#include <memory>
#include <string>

#include "acquire/dialog/acquire_form.h"
#include "acquire/dialog_fixture.h"
#include "backends/posix/posix_clock.h"
#include "backends/qt/forms/qt_form_host.h"
#include "backends/qt/qt_dialogs.h"
#include "backends/qt/qt_help.h"
#include "backends/qt/qt_keyboard.h"
#include "qt/user.h"

namespace chartproject {

/// Everything that windows and keys are about is real; files, settings and drives are fakes.
struct DialogWindow {
  /// @param language as the settings name it
  explicit DialogWindow(const std::string& language = "English");

  FakePorts fakes;
  FakePlant plant;
  PosixClock clock;
  QtFormHost host{clock};
  QtHelp help{[] { return Language::kEnglish; }};
  QtDialogs dialogs{help, [] { return Language::kEnglish; }};
  QtKeyboard keyboard;
  Ports ports{fakes.settings, fakes.files, clock, fakes.locale,    fakes.codePage, dialogs,
              fakes.sound,    keyboard,    help,  fakes.clipboard, fakes.printer,  fakes.spreadsheets};
  Component component{ports, host, plant};
  static constexpr const char* kChart = "/home/ana/Press line 4/Test.cht";
};

/// Names of the visible widgets of a window that show less than their whole text.
[[nodiscard]] std::vector<std::string> CutTexts(const QWidget& window);

/// Saves a picture of a window into the folder that the environment names (CHARTPROJECT_SCREENSHOTS), if it names one.
void SaveScreenshot(QWidget& window, const std::string& name);

}  // namespace chartproject
