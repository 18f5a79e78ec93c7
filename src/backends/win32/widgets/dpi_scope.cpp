// The thread's awareness, by the system's functions that older systems have not.
#include "backends/win32/widgets/dpi_scope.h"

#include <cstdint>

namespace chartproject::win32 {

namespace {

void* SetAwareness(void* awareness) noexcept {
  const HMODULE user = GetModuleHandleW(L"user32.dll");
  const FARPROC found = user == nullptr ? nullptr : GetProcAddress(user, "SetThreadDpiAwarenessContext");
  if (found == nullptr) return nullptr;
  return reinterpret_cast<void*(WINAPI*)(void*)>(reinterpret_cast<void*>(found))(awareness);
}

}  // namespace

DpiScope::DpiScope() noexcept {
  constexpr std::intptr_t kPerMonitorV2 = -4;  // DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2
  constexpr std::intptr_t kPerMonitor = -3;    // before version 1703
  before_ = SetAwareness(reinterpret_cast<void*>(kPerMonitorV2));
  if (before_ == nullptr) before_ = SetAwareness(reinterpret_cast<void*>(kPerMonitor));
}

DpiScope::~DpiScope() {
  if (before_ != nullptr) SetAwareness(before_);
}

}  // namespace chartproject::win32
