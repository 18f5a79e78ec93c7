// Disabling and enabling the other windows of the thread.
#include "backends/win32/forms/modal_scope.h"

namespace chartproject::win32 {

namespace {

BOOL CALLBACK CollectEnabled(HWND window, LPARAM list) noexcept {
  if (IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0) {
    try {
      reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    } catch (...) {
      return FALSE;
    }
  }
  return TRUE;
}

}  // namespace

ModalScope::ModalScope(HWND form) : form_(form), activeBefore_(GetActiveWindow()) {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), CollectEnabled, reinterpret_cast<LPARAM>(&windows));
  disabled_.reserve(windows.size());
  for (const HWND other : windows) {
    if (other == form || GetWindow(other, GW_OWNER) == form) continue;
    EnableWindow(other, FALSE);
    disabled_.push_back(other);
  }
}

void ModalScope::EnableOthers() noexcept {
  for (const HWND other : disabled_) EnableWindow(other, TRUE);
  disabled_.clear();
}

void ModalScope::GiveBack() {
  EnableOthers();
  const bool back = IsWindowVisible(activeBefore_) != 0 && IsWindowEnabled(activeBefore_) != 0;
  if (back && GetActiveWindow() == form_) SetActiveWindow(activeBefore_);
}

}  // namespace chartproject::win32
