// Registration of the classes, and the search for windows by class.
#include "backends/win32/widgets/window_classes.h"

#include <mutex>
#include <string_view>

#include "backends/win32/com_module.h"

namespace chartproject::win32 {

namespace {

// The system keeps classes by process, and so does their count.
std::mutex mutex;
int users = 0;

void Register(const wchar_t* name, WNDPROC procedure, HBRUSH ground, UINT style) noexcept {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.style = style;
  description.lpfnWndProc = procedure;
  description.hInstance = ThisModule();
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = ground;
  description.lpszClassName = name;
  RegisterClassExW(&description);  // a failure shows when the first window cannot be made
}

BOOL CALLBACK TakeForm(HWND window, LPARAM found) noexcept {
  if (IsWindowVisible(window) == 0 || IsWindowEnabled(window) == 0 || FormBelow(window) != window) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

WindowClasses::WindowClasses(WNDPROC formProcedure) {
  const std::lock_guard lock(mutex);
  if (users++ > 0) return;
  Register(kFormClass, formProcedure, GetSysColorBrush(COLOR_3DFACE), 0);
  Register(kDrawnClass, DefWindowProcW, nullptr, CS_DBLCLKS);
}

WindowClasses::~WindowClasses() {
  const std::lock_guard lock(mutex);
  if (--users > 0) return;
  for (const wchar_t* name : {kFormClass, kDrawnClass}) UnregisterClassW(name, ThisModule());
}

HWND FormBelow(HWND window) noexcept {
  for (; window != nullptr; window = GetWindow(window, GW_OWNER)) {
    wchar_t name[32];
    if (GetClassNameW(window, name, 32) != 0 && std::wstring_view(name) == kFormClass) break;
  }
  return window;
}

HWND WindowToOwn() noexcept {
  HWND window = GetActiveWindow();
  if (window == nullptr) EnumThreadWindows(GetCurrentThreadId(), TakeForm, reinterpret_cast<LPARAM>(&window));
  return window;
}

HWND OwnerForForm() noexcept {
  const HWND active = WindowToOwn();
  const HWND form = FormBelow(active);
  return form != nullptr || active == nullptr ? form : GetAncestor(active, GA_ROOTOWNER);
}

}  // namespace chartproject::win32
