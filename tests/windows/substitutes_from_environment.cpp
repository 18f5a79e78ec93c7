// The component of the tests. CHARTPROJECT_CLOCK ("2026-01-31 08:00:00") begins a clock that jumps from tick to tick:
// recordings of simulated drives take no time, and the same one is made every time. CHARTPROJECT_PRINT_TO names a file
// that takes the printer's data.
#include <cstdio>

#include "component/com/substitutes.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

namespace {

std::wstring Variable(const wchar_t* name) {
  std::wstring text(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  text.resize(GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size())));
  return text;
}

bool IsTime(const DateTime& time) {
  SYSTEMTIME parts{};
  parts.wYear = static_cast<WORD>(time.year);
  parts.wMonth = static_cast<WORD>(time.month);
  parts.wDay = static_cast<WORD>(time.day);
  parts.wHour = static_cast<WORD>(time.hour);
  parts.wMinute = static_cast<WORD>(time.minute);
  parts.wSecond = static_cast<WORD>(time.second);
  FILETIME counted;
  return SystemTimeToFileTime(&parts, &counted) != 0;
}

}  // namespace

Substitutes TheSubstitutes() {
  Substitutes substitutes{std::nullopt, Variable(L"CHARTPROJECT_PRINT_TO")};
  const std::wstring clock = Variable(L"CHARTPROJECT_CLOCK");
  if (clock.empty()) return substitutes;
  DateTime start;
  const int fields = std::swscanf(clock.c_str(), L"%4d-%2d-%2d %2d:%2d:%2d", &start.year, &start.month, &start.day,
                                  &start.hour, &start.minute, &start.second);
  if (fields != 6 || !IsTime(start)) throw RunTimeError(error_number::kInvalidProcedureCall, "not a time");
  substitutes.start = start;
  return substitutes;
}

}  // namespace chartproject::win32
