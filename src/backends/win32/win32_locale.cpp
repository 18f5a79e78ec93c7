// Separators, dates and times by the system's own functions.
#include "backends/win32/win32_locale.h"

#include "backends/win32/wide_text.h"
#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

namespace {

SYSTEMTIME ToSystemTime(const DateTime& moment) {
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(moment.year);
  time.wMonth = static_cast<WORD>(moment.month);
  time.wDay = static_cast<WORD>(moment.day);
  time.wHour = static_cast<WORD>(moment.hour);
  time.wMinute = static_cast<WORD>(moment.minute);
  time.wSecond = static_cast<WORD>(moment.second);
  return time;
}

std::string LocaleText(LCTYPE type) {
  wchar_t buffer[16];
  const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, type, buffer, static_cast<int>(std::size(buffer)));
  // The parser takes one-character separators; the control panel allows longer ones.
  return length > 1 ? ToUtf8({buffer, 1}) : std::string();
}

}  // namespace

Win32Locale::Win32Locale() {
  numbers_.decimalSeparator = LocaleText(LOCALE_SDECIMAL);
  if (numbers_.decimalSeparator.empty()) numbers_.decimalSeparator = ".";
  numbers_.groupSeparator = LocaleText(LOCALE_STHOUSAND);
}

std::string Win32Locale::DateText(const DateTime& moment) const {
  const SYSTEMTIME time = ToSystemTime(moment);
  wchar_t buffer[80];
  const int length = GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, buffer, 80);
  return length > 1 ? ToUtf8({buffer, static_cast<std::size_t>(length - 1)}) : std::string();
}

std::string Win32Locale::TimeText(const DateTime& moment) const {
  const SYSTEMTIME time = ToSystemTime(moment);
  wchar_t buffer[80];
  const int length = GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, buffer, 80);
  return length > 1 ? ToUtf8({buffer, static_cast<std::size_t>(length - 1)}) : std::string();
}

}  // namespace chartproject::win32
