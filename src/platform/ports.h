// Everything that the core asks of the outside, gathered for one component.
#pragma once

#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"
#include "platform/help.h"
#include "platform/keyboard.h"
#include "platform/locale.h"
#include "platform/printer.h"
#include "platform/settings_store.h"
#include "platform/sound.h"
#include "platform/spreadsheet.h"

namespace chartproject {

/// References to the ports of one back end; they outlive the component that uses them.
struct Ports {
  SettingsStore& settings;
  FileSystem& files;
  Clock& clock;
  Locale& locale;
  CodePage& codePage;
  Dialogs& dialogs;
  Sound& sound;
  Keyboard& keyboard;
  Help& help;
  Clipboard& clipboard;
  Printer& printer;
  SpreadsheetApplications& spreadsheets;
};

}  // namespace chartproject
