// Local time, and the counter that never goes back.
#include "backends/win32/win32_clock.h"

#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

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

}  // namespace chartproject::win32
