// The window of a form: its class, its owner, its making and its end.
#include <string_view>
#include <utility>

#include "backends/win32/com_module.h"
#include "backends/win32/forms/themed_controls.h"
#include "backends/win32/forms/widget_types.h"
#include "backends/win32/forms/win32_form_host.h"
#include "backends/win32/forms/win32_form_view.h"
#include "backends/win32/wide_text.h"

#include <commctrl.h>

namespace chartproject::win32 {

namespace {

constexpr const wchar_t* kFormClass = L"ChartProjectForm";
constexpr int kToolTipWidth = 360;  // in the layout's pixels; longer texts are wrapped

void RegisterClasses(WNDPROC formProcedure) {
  WNDCLASSEXW form{};
  form.cbSize = sizeof form;
  form.lpfnWndProc = formProcedure;
  form.hInstance = ThisModule();
  form.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  form.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
  form.lpszClassName = kFormClass;
  RegisterClassExW(&form);  // again for each form: while one is up the system only says that it is there
  WNDCLASSEXW drawn{};
  drawn.cbSize = sizeof drawn;
  drawn.lpfnWndProc = DefWindowProcW;
  drawn.hInstance = ThisModule();
  drawn.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  drawn.lpszClassName = kDrawnClass;
  RegisterClassExW(&drawn);
}

/// Dots of a window's screen to a layout pixel; screens differ for hosts that say so.
double ScaleOf(HWND window) {
  const HMODULE user = GetModuleHandleW(L"user32.dll");
  const FARPROC found = user == nullptr ? nullptr : GetProcAddress(user, "GetDpiForWindow");  // since Windows 10
  const UINT dotsPerInch =
      found == nullptr ? 0 : reinterpret_cast<UINT(WINAPI*)(HWND)>(reinterpret_cast<void*>(found))(window);
  return dotsPerInch == 0 ? SystemScale() : dotsPerInch / 96.0;
}

/// The owner of a new form: the form that opens it, else the host's window that the others belong to. A window of less
/// duration would take the form along when it is closed.
HWND OwnerForForm() {
  const HWND active = WindowToOwn();
  const HWND form = FormBelow(active);
  return form != nullptr || active == nullptr ? form : GetAncestor(active, GA_ROOTOWNER);
}

BOOL CALLBACK TakeForm(HWND window, LPARAM found) noexcept {
  if (IsWindowVisible(window) == 0 || IsWindowEnabled(window) == 0 || FormBelow(window) != window) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

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

void Win32FormView::UnregisterClasses() noexcept {
  for (const wchar_t* name : {kFormClass, kDrawnClass}) UnregisterClassW(name, ThisModule());
}

Win32FormView::Win32FormView(Form& form, Win32FormHost& host, Unmade /*unmade*/)
    : form_(form), host_(host), context_{nullptr, nullptr, SystemScale(), host.Fonts()} {}

// Built by the other constructor first: whatever is thrown from here on, the destructor takes the window away.
Win32FormView::Win32FormView(Form& form, Win32FormHost& host) : Win32FormView(form, host, Unmade{}) {
  const ThemedControls themed;
  MakeWindow();
  MakeWidgets();
  ApplyAll();
  GrowToLayout();
}

void Win32FormView::MakeWindow() {
  RegisterClasses(FormProcedure);
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, kFormClass, ToWide(form_.Caption()).c_str(),
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT, 100, 100,
                            OwnerForForm(), nullptr, ThisModule(), this);
  if (window_ == nullptr) throw RunTimeError(error_number::kInvalidProcedureCall, Text::kWindowNotMade);
  context_.formWindow = window_;
  context_.scale = ScaleOf(window_);
  MakeFont();
  toolTips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0,
                              0, window_, nullptr, nullptr, nullptr);
  LimitToolTips();
}

void Win32FormView::LimitToolTips() {
  SendMessageW(toolTips_, TTM_SETMAXTIPWIDTH, 0, Dots(kToolTipWidth));
}

void Win32FormView::MakeWidgets() {
  const Control* before = nullptr;
  for (Control* control : form_.Controls()) {
    std::unique_ptr<Widget> widget = MakeWidget(*control, context_);
    if (!widget) continue;
    // Arrow keys move within a run of buttons or boxes, never out of it.
    const bool sameGroup = before != nullptr && before->TypeName() == control->TypeName() && control->HasCaption();
    if (control->TabStop()) {
      const LONG_PTR style = GetWindowLongPtrW(widget->Window(), GWL_STYLE);
      SetWindowLongPtrW(widget->Window(), GWL_STYLE, sameGroup ? style : style | WS_GROUP);
      before = control;
    }
    byWindow_[widget->Window()] = widget.get();
    SetWindowSubclass(widget->Window(), ControlProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
    widgets_[control] = std::move(widget);
  }
}

Win32FormView::~Win32FormView() {
  EnableOthers();
  // The form and its controls are gone or going: no message may reach them from here on.
  for (const auto& [window, widget] : byWindow_) RemoveWindowSubclass(window, ControlProcedure, 1);
  if (window_ != nullptr) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
  }
  if (buttonCursor_ && GetCursor() == buttonCursor_.Get()) SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

/// What becomes of the window itself: its size, its place, its screen, its end.
LRESULT Win32FormView::WindowMessage(UINT message, WPARAM word, LPARAM data) {
  switch (message) {
    case WM_CLOSE:
      if (IsWindowEnabled(window_) == 0) return 0;  // a box or a form above it is to be answered first
      DeliverFocusLeave();
      form_.CloseByUser();
      return 0;
    case WM_SIZE:
    case WM_MOVE:
      if (!placing_) PlaceChanged();
      if (message == WM_SIZE) ArrangeControls();
      return 0;
    case WM_GETMINMAXINFO: {
      const SIZE least = LeastSize();
      reinterpret_cast<MINMAXINFO*>(data)->ptMinTrackSize = {least.cx, least.cy};
      return 0;
    }
    case WM_DPICHANGED:
      DpiChanged(word, *reinterpret_cast<const RECT*>(data));
      return 0;
    case WM_ENDSESSION:
      if (word == FALSE) return 0;  // somebody objected
      host_.EndSession();
      form_.Unload();
      return 0;
    case WM_NCDESTROY:
      return WindowGone();
    default:
      return DefWindowProcW(window_, message, word, data);
  }
}

/// The window's owner took it along. Without a window nobody could end the form or what goes on in it.
LRESULT Win32FormView::WindowGone() {
  const HWND window = std::exchange(window_, nullptr);
  byWindow_.clear();
  form_.Unload();
  return DefWindowProcW(window, WM_NCDESTROY, 0, 0);
}

}  // namespace chartproject::win32
