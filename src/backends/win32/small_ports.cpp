// Clock, locale, sound and keyboard of the system.
#include "backends/win32/small_ports.h"

#include "backends/win32/wide_text.h"
#include "backends/win32/win32_code_page.h"
#include "backends/win32/windows_api.h"

#include <mmsystem.h>

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
  // One character is what numbers are parsed with, whatever else the user typed into the control panel.
  return length > 1 ? ToUtf8({buffer, 1}) : std::string();
}

}  // namespace

DateTime Win32Clock::LocalNow() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return DateTime{now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

Instant Win32Clock::Now() {
  LARGE_INTEGER frequency;
  LARGE_INTEGER ticks;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&ticks);
  // Whole seconds apart from the rest: ticks times a million would overflow within weeks.
  const LONGLONG seconds = ticks.QuadPart / frequency.QuadPart;
  const LONGLONG rest = ticks.QuadPart % frequency.QuadPart;
  return Instant(seconds * 1'000'000 + rest * 1'000'000 / frequency.QuadPart);
}

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

unsigned Win32Sound::OutputDeviceCount() {
  return waveOutGetNumDevs();
}

void Win32Sound::Play(const std::string& fileName, std::uint32_t flags) {
  // A sound goes on after the call, perhaps after the host let go of this module: its player has to stay.
  HMODULE player = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, L"winmm.dll", &player);
  PlaySoundA(Win32CodePage().Encode(fileName).c_str(), nullptr, flags);
}

bool Win32Keyboard::EscapePressed() {
  return GetAsyncKeyState(VK_ESCAPE) != 0;
}

}  // namespace chartproject::win32
