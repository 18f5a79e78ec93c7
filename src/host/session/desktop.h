// The program's windows. Its two bodies make two programs: desktop_qt.cpp and, without windows, desktop_none.cpp.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "forms/form_host.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/help.h"
#include "platform/keyboard.h"
#include "platform/printer.h"
#include "platform/sound.h"
#include "texts/language.h"

namespace chartproject {

/// Where windows are drawn.
enum class DesktopMode {
  kScreen,     ///< on the user's screen
  kOffscreen,  ///< nowhere: pictures and pages only, which need no display
};

/// The windowing system, up as long as the object lives: what a windowed program uses in place of the headless ports.
class Desktop {
 public:
  virtual ~Desktop() = default;
  [[nodiscard]] virtual FormHost& Forms() = 0;
  [[nodiscard]] virtual Dialogs& Boxes() = 0;
  [[nodiscard]] virtual Sound& Sounds() = 0;
  [[nodiscard]] virtual Keyboard& Keys() = 0;
  [[nodiscard]] virtual Help& HelpViewer() = 0;
  [[nodiscard]] virtual Clipboard& ClipboardPicture() = 0;
  [[nodiscard]] virtual Printer& Paper() = 0;
  /// The next documents are written to a PDF file of that name, instead of being printed.
  virtual void PrintToFile(const std::string& fileName) = 0;
  /// Paper of the next documents in the place of the printer's own.
  virtual void UsePaper(const PaperSize& paper) = 0;
};

/// Brings the windowing system up. Throws RunTimeError 429 with the reason when there is no display, or when the
/// program was built without windows.
/// @param clock outlives the result; @param language asked whenever a box is shown
[[nodiscard]] std::unique_ptr<Desktop> OpenDesktop(DesktopMode mode, Clock& clock, std::function<Language()> language);

}  // namespace chartproject
