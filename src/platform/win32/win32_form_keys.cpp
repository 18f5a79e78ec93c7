// The keys of a form: Enter, Esc, F1, Tab, access keys; and the mouse wheel.
#include "platform/win32/wide_text.h"
#include "platform/win32/widget_types.h"
#include "platform/win32/win32_form_host.h"
#include "platform/win32/win32_form_view.h"

namespace chartproject::win32 {

namespace {

/// The form's window around a window; null when it is none of ours.
Win32FormView* ViewOf(HWND window) {
  const HWND top = GetAncestor(window, GA_ROOT);
  wchar_t name[32];
  if (top == nullptr || GetClassNameW(top, name, 32) == 0 || std::wstring_view(name) != L"ChartProjectForm") {
    return nullptr;
  }
  return reinterpret_cast<Win32FormView*>(GetWindowLongPtrW(top, GWLP_USERDATA));
}

bool ListIsOpen(HWND focus) {
  return SendMessageW(focus, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

CommandButton* ButtonWith(const Form& form, bool (CommandButton::*role)() const noexcept) {
  for (Control* control : form.Controls()) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button != nullptr && (button->*role)()) return button;
  }
  return nullptr;
}

}  // namespace

bool Win32FormView::Translate(MSG& message) {
  Win32FormView* view = ViewOf(message.hwnd);
  if (view == nullptr || view->window_ == nullptr) return false;
  if (message.message == WM_KEYDOWN && view->KeyDown(message)) return true;
  if (message.message == WM_MOUSEWHEEL) {
    const POINT at{static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam))};
    const int notches = static_cast<short>(HIWORD(message.wParam)) / WHEEL_DELTA;
    Widget* under = view->WidgetOf(WindowFromPoint(at));
    if (under != nullptr && under->Wheel(notches)) return true;
  }
  return IsDialogMessageW(view->window_, &message) != 0;
}

bool Win32FormView::KeyDown(const MSG& message) {
  if (IsWindowEnabled(window_) == 0) return true;
  switch (message.wParam) {
    case VK_RETURN:
      return EnterPressed(message.hwnd);
    case VK_ESCAPE:
      return ListIsOpen(message.hwnd) ? false : EscapePressed();
    case VK_F1:
      if (form_.helpRequested.handler) form_.RunHandler(form_.helpRequested.routine, form_.helpRequested.handler);
      return true;
    default:
      break;
  }
  return false;
}

/// Enter presses the button that has the focus, else the default one.
bool Win32FormView::EnterPressed(HWND focus) {
  if (ListIsOpen(focus)) return false;
  CommandButton* button = nullptr;
  if (const Widget* widget = WidgetOf(focus)) button = dynamic_cast<CommandButton*>(&widget->Owner());
  if (button == nullptr) button = ButtonWith(form_, &CommandButton::IsDefault);
  if (button != nullptr) button->Press();
  return true;
}

/// Esc goes to an owner-drawn control that wants it, else presses the cancel button. Without one it does nothing: the
/// key never closes a form by itself.
bool Win32FormView::EscapePressed() {
  if (const Widget* widget = WidgetOf(GetFocus())) {
    auto* drawn = dynamic_cast<DrawnControl*>(&widget->Owner());
    if (drawn != nullptr && drawn->KeyPressed(Key::kEscape, false)) return true;
  }
  if (CommandButton* button = ButtonWith(form_, &CommandButton::IsCancel)) button->Press();
  return true;
}

}  // namespace chartproject::win32
