// The keys of a form: Enter, Esc, F1, Tab, access keys; the mouse wheel; where the focus is.
#include <algorithm>
#include <utility>

#include "backends/win32/forms/control_id.h"
#include "backends/win32/forms/widget_types.h"
#include "backends/win32/forms/win32_form_host.h"
#include "backends/win32/forms/win32_form_view.h"
#include "backends/win32/wide_text.h"
#include "forms/access_keys.h"

namespace chartproject::win32 {

namespace {

/// The form's window around a window; null when it is none of ours.
Win32FormView* ViewOf(HWND window) {
  const HWND top = GetAncestor(window, GA_ROOT);
  if (top == nullptr || FormBelow(top) != top) return nullptr;
  return reinterpret_cast<Win32FormView*>(GetWindowLongPtrW(top, GWLP_USERDATA));
}

bool ListIsOpen(HWND focus) {
  return SendMessageW(focus, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

CommandButton* UsableButtonWith(const Form& form, bool (CommandButton::*role)() const noexcept) {
  for (Control* control : form.Controls()) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button == nullptr || !(button->*role)()) continue;
    if (button->EffectivelyEnabled() && button->EffectivelyVisible()) return button;
  }
  return nullptr;
}

bool CanHoldFocus(HWND window) {
  return IsWindow(window) != 0 && IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0;
}

}  // namespace

bool Win32FormView::Translate(MSG& message) noexcept {
  try {
    Win32FormView* view = ViewOf(message.hwnd);
    return view != nullptr && view->window_ != nullptr && view->Taken(message);
  } catch (...) {
    OutputDebugStringW(L"ChartProject: a key could not be handled");
    return true;
  }
}

bool Win32FormView::Taken(MSG& message) {
  if (message.message == WM_KEYDOWN && KeyDown(message)) return true;
  const bool character = message.message == WM_SYSCHAR || message.message == WM_CHAR;
  if (character && AccessKeyPressed(message)) return true;
  if (message.message == WM_MOUSEWHEEL && WheelTurned(message)) return true;
  return IsDialogMessageW(window_, &message) != 0;
}

/// The wheel turns what the pointer is over. Fine wheels tell parts of a notch: they add up.
bool Win32FormView::WheelTurned(const MSG& message) {
  const POINT at{static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam))};
  Widget* under = WidgetOf(WindowFromPoint(at));
  if (under == nullptr || !under->Owner().EffectivelyEnabled()) return false;
  wheelRest_ += static_cast<short>(HIWORD(message.wParam));
  const int notches = wheelRest_ / WHEEL_DELTA;
  wheelRest_ -= notches * WHEEL_DELTA;
  if (UpDown* arrows = ArrowsOf(*under)) under = WidgetOf(*arrows);
  return under->Wheel(notches);
}

UpDown* Win32FormView::ArrowsOf(const Widget& field) const {
  for (Control* control : form_.Controls()) {
    auto* arrows = dynamic_cast<UpDown*>(control);
    if (arrows != nullptr && arrows->Buddy() == &field.Owner()) return arrows;
  }
  return nullptr;
}

bool Win32FormView::StepArrowsOf(HWND field, int direction) {
  const Widget* widget = WidgetOf(field);
  UpDown* arrows = widget == nullptr ? nullptr : ArrowsOf(*widget);
  if (arrows == nullptr) return false;
  arrows->Step(direction);
  return true;
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
    case VK_TAB:
      return TabPressed();
    case VK_UP:
    case VK_DOWN:
      return StepArrowsOf(message.hwnd, message.wParam == VK_UP ? 1 : -1);
    default:
      break;
  }
  return false;
}

/// Enter presses the button that has the focus, else the default one.
bool Win32FormView::EnterPressed(HWND focus) {
  if (ListIsOpen(focus)) return false;
  const Widget* widget = WidgetOf(focus);
  auto* button = widget == nullptr ? nullptr : dynamic_cast<CommandButton*>(&widget->Owner());
  if (button == nullptr) return PressButtonWith(&CommandButton::IsDefault);
  DeliverFocusLeave();
  button->Press();
  return true;
}

bool Win32FormView::PressButtonWith(bool (CommandButton::*role)() const noexcept) {
  CommandButton* button = UsableButtonWith(form_, role);
  if (button == nullptr) return true;
  DeliverFocusLeave();
  button->Press();
  return true;
}

LRESULT Win32FormView::DefaultButtonId() const {
  const CommandButton* button = UsableButtonWith(form_, &CommandButton::IsDefault);
  return button == nullptr ? 0 : MAKELRESULT(ControlId(button->Name()), DC_HASDEFID);
}

void Win32FormView::DeliverFocusLeave() {
  if (Control* control = std::exchange(leaving_, nullptr)) control->LeaveFocus();
}

/// With the text of a field selected.
void Win32FormView::FocusOn(const Widget& widget) {
  if (!CanHoldFocus(widget.Window())) return;
  SetFocus(widget.Window());
  const LRESULT code = SendMessageW(widget.Window(), WM_GETDLGCODE, 0, 0);
  if ((code & DLGC_HASSETSEL) != 0) SendMessageW(widget.Window(), EM_SETSEL, 0, -1);
}

bool Win32FormView::TabPressed() {
  SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  const HWND next = GetNextDlgTabItem(window_, GetFocus(), GetKeyState(VK_SHIFT) < 0 ? TRUE : FALSE);
  if (const Widget* widget = WidgetOf(next)) FocusOn(*widget);
  return true;
}

/// The button that Enter would press looks like it: the one with the focus, else the form's default.
void Win32FormView::ShowDefaultButton() {
  const Widget* focused = WidgetOf(GetFocus());
  const bool onButton = focused != nullptr && dynamic_cast<CommandButton*>(&focused->Owner()) != nullptr;
  for (const auto& [control, widget] : widgets_) {
    const auto* button = dynamic_cast<const CommandButton*>(control);
    if (button == nullptr) continue;
    const LONG_PTR wanted =
        (onButton ? widget.get() == focused : button->IsDefault()) ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
    const LONG_PTR now = GetWindowLongPtrW(widget->Window(), GWL_STYLE) & BS_TYPEMASK;
    if (now != wanted) SendMessageW(widget->Window(), BM_SETSTYLE, static_cast<WPARAM>(wanted), TRUE);
  }
}

/// The field behind a label; of two that share a place, the one that shows.
Widget* Win32FormView::FieldNamedBy(const Control& label) const {
  const Control* field = FieldOf(form_, label);
  const auto& controls = form_.Controls();
  auto at = std::find(controls.begin(), controls.end(), field);
  while (at != controls.end() && !(*at)->EffectivelyVisible() && (*at)->TabStop()) ++at;
  return at == controls.end() || !(*at)->TabStop() ? nullptr : WidgetOf(**at);
}

/// Alt and a letter, or the letter alone on a button. A label's letter goes to the field that it names.
bool Win32FormView::AccessKeyPressed(const MSG& message) {
  const bool onButton = (SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
  if (IsWindowEnabled(window_) == 0 || (message.message == WM_CHAR && !onButton)) return false;
  const auto letter = reinterpret_cast<ULONG_PTR>(CharUpperW(reinterpret_cast<LPWSTR>(message.wParam)));
  for (const auto& [control, caption] : CaptionsWithAccessKeys(form_)) {
    const auto own = AccessLetter(caption);
    if (!own || static_cast<ULONG_PTR>(*own) != letter) continue;
    Widget* widget = WidgetOf(*control);
    if (widget == nullptr || !control->EffectivelyVisible() || !control->EffectivelyEnabled()) return false;
    const Widget* field = FieldNamedBy(*control);
    FocusOn(field == nullptr ? *widget : *field);
    if (field == nullptr) CommandFrom(*widget, BN_CLICKED);
    return true;
  }
  return false;
}

/// The focus to where it was last, else to the first control that can hold it, else to the window, whose keys still
/// work then.
void Win32FormView::PutFocusBack() {
  if (window_ == nullptr || GetActiveWindow() != window_) return;
  if (IsChild(window_, GetFocus()) != 0 && CanHoldFocus(GetFocus())) return;
  const HWND first = CanHoldFocus(lastFocus_) ? lastFocus_ : GetNextDlgTabItem(window_, nullptr, FALSE);
  SetFocus(first != nullptr && CanHoldFocus(first) ? first : window_);
}

/// Esc goes to an owner-drawn control that wants it, else presses the cancel button. Without one it does nothing: the
/// key never closes a form by itself.
bool Win32FormView::EscapePressed() {
  if (const Widget* widget = WidgetOf(GetFocus())) {
    auto* drawn = dynamic_cast<DrawnControl*>(&widget->Owner());
    if (drawn != nullptr && drawn->KeyPressed(Key::kEscape, false)) return true;
  }
  return PressButtonWith(&CommandButton::IsCancel);
}

}  // namespace chartproject::win32
