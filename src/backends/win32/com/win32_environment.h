// All ports of Windows together, as one instance of the component uses them.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "backends/win32/boxes/win32_dialogs.h"
#include "backends/win32/boxes/win32_help.h"
#include "backends/win32/com/win32_spreadsheet.h"
#include "backends/win32/drawing/win32_clipboard.h"
#include "backends/win32/drawing/win32_printer.h"
#include "backends/win32/files/win32_file_system.h"
#include "backends/win32/forms/win32_form_host.h"
#include "backends/win32/win32_clock.h"
#include "backends/win32/win32_code_page.h"
#include "backends/win32/win32_keyboard.h"
#include "backends/win32/win32_locale.h"
#include "backends/win32/win32_settings_store.h"
#include "backends/win32/win32_sound.h"
#include "platform/ports.h"

namespace chartproject::win32 {

/// What takes the place of the system's clock and printer: nothing in the component, something where it is tested.
struct Substitutes {
  std::optional<DateTime> start;  ///< a clock that begins then and jumps from tick to tick; none: the system's clock
  std::wstring printTo;           ///< file that takes the printer's data; empty: the printer itself
};

class Win32Environment {
 public:
  /// @param language the user's, at any time
  Win32Environment(Substitutes substitutes, std::function<Language()> language);

  [[nodiscard]] Ports& GetPorts() noexcept { return ports_; }
  [[nodiscard]] FormHost& Forms() noexcept { return forms_; }
  /// The virtual clock; null while the real one is used.
  [[nodiscard]] VirtualClock* SimulatedClock() noexcept { return virtualClock_.get(); }

 private:
  Win32Clock realClock_;
  std::unique_ptr<VirtualClock> virtualClock_;
  Win32SettingsStore settings_;
  Win32FileSystem files_;
  Win32Locale locale_;
  Win32CodePage codePage_;
  Win32Help help_;
  Win32Dialogs dialogs_{help_};
  Win32Sound sound_;
  Win32Keyboard keyboard_;
  Win32Clipboard clipboard_;
  Win32Printer printer_;
  Win32SpreadsheetApplications spreadsheets_;
  Win32FormHost forms_;
  Ports ports_;
};

}  // namespace chartproject::win32
