// Makes the ports.
#include "backends/win32/com/win32_environment.h"

#include <utility>

namespace chartproject::win32 {

namespace {

constexpr const char* kHostApplication = "Kestrel v5.60";

}  // namespace

Win32Environment::Win32Environment(Substitutes substitutes, std::function<Language()> language)
    : virtualClock_(substitutes.start ? std::make_unique<VirtualClock>(*substitutes.start) : nullptr),
      settings_(kHostApplication),
      help_(std::move(language)),
      printer_(AskForNewFile, std::move(substitutes.printTo)),
      forms_(virtualClock_ ? static_cast<Clock&>(*virtualClock_) : realClock_, keyboard_, virtualClock_.get()),
      ports_{settings_,  files_,    virtualClock_ ? static_cast<Clock&>(*virtualClock_) : realClock_,
             locale_,    codePage_, dialogs_,
             sound_,     keyboard_, help_,
             clipboard_, printer_,  spreadsheets_} {}

}  // namespace chartproject::win32
