// Makes the ports, and chooses the clock.
#include "backends/win32/com/win32_environment.h"

#include <cstdio>

namespace chartproject::win32 {

namespace {

constexpr const char* kHostApplication = "Kestrel v5.60";

std::unique_ptr<VirtualClock> ChosenVirtualClock(Clock& real) {
  char text[64];
  const DWORD length = GetEnvironmentVariableA("CHARTPROJECT_CLOCK", text, static_cast<DWORD>(std::size(text)));
  const std::string_view choice(text, length < std::size(text) ? length : 0);
  if (!choice.starts_with("virtual")) return nullptr;
  DateTime start = real.LocalNow();
  DateTime asked;
  if (std::sscanf(text, "virtual %4d-%2d-%2d %2d:%2d:%2d", &asked.year, &asked.month, &asked.day, &asked.hour,
                  &asked.minute, &asked.second) == 6) {
    start = asked;
  }
  return std::make_unique<VirtualClock>(start);
}

}  // namespace

Win32Environment::Win32Environment()
    : virtualClock_(ChosenVirtualClock(realClock_)),
      settings_(kHostApplication),
      forms_(virtualClock_ ? static_cast<Clock&>(*virtualClock_) : realClock_, keyboard_, virtualClock_.get()),
      ports_{settings_,  files_,    virtualClock_ ? static_cast<Clock&>(*virtualClock_) : realClock_,
             locale_,    codePage_, dialogs_,
             sound_,     keyboard_, help_,
             clipboard_, printer_,  spreadsheets_} {}

}  // namespace chartproject::win32
