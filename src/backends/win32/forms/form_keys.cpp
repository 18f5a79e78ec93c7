// What each key of a form does.
#include "backends/win32/forms/form_keys.h"

#include "forms/access_keys.h"
#include "forms/form.h"

namespace chartproject::win32 {

namespace {

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

}  // namespace

bool FormKeys::Take(MSG& message) {
  if (message.message == WM_KEYDOWN && KeyDown(message)) return true;
  const bool character = message.message == WM_SYSCHAR || message.message == WM_CHAR;
  if (character && AccessKeyPressed(message)) return true;
  if ((message.message == WM_MOUSEWHEEL || message.message == WM_MOUSEHWHEEL) && WheelTurned(message)) return true;
  return IsDialogMessageW(context_.formWindow, &message) != 0;
}

/// The wheel turns what the pointer is over. Fine wheels report parts of a notch: they add up.
bool FormKeys::WheelTurned(const MSG& message) {
  const POINT at{static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam))};
  Widget* under = widgets_.Of(WindowFromPoint(at));
  if (under == nullptr || !under->Owner().EffectivelyEnabled()) return false;
  const bool sideways = message.message == WM_MOUSEHWHEEL;
  int& rest = sideways ? sidewaysRest_ : wheelRest_;
  rest += static_cast<short>(HIWORD(message.wParam));
  int notches = rest / WHEEL_DELTA;
  rest -= notches * WHEEL_DELTA;
  // To the right is the way that the wheel goes towards the user. What does not lie does not turn sideways.
  if (sideways) {
    if (dynamic_cast<HScrollBar*>(&under->Owner()) == nullptr &&
        dynamic_cast<DrawnControl*>(&under->Owner()) == nullptr) {
      return true;
    }
    notches = -notches;
  }
  if (UpDown* arrows = widgets_.ArrowsOf(*under)) under = widgets_.Of(*arrows);
  return under->Wheel(notches);
}

bool FormKeys::StepArrowsOf(HWND field, int direction) {
  const Widget* widget = widgets_.Of(field);
  UpDown* arrows = widget == nullptr ? nullptr : widgets_.ArrowsOf(*widget);
  if (arrows == nullptr) return false;
  arrows->Step(direction);
  return true;
}

bool FormKeys::KeyDown(const MSG& message) {
  if (IsWindowEnabled(context_.formWindow) == 0) return true;
  switch (message.wParam) {
    case VK_RETURN:
      return EnterPressed(message.hwnd);
    case VK_ESCAPE:
      return ListIsOpen(message.hwnd) ? false : EscapePressed(message);
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

/// Enter presses the button that has the focus, else the default one; in a text of several lines it begins the next.
bool FormKeys::EnterPressed(HWND focus) {
  if (ListIsOpen(focus)) return false;
  const Widget* widget = widgets_.Of(focus);
  const auto* text = widget == nullptr ? nullptr : dynamic_cast<const TextControl*>(&widget->Owner());
  if (text != nullptr && text->MultiLine() && !text->ReadOnly()) return false;
  auto* button = widget == nullptr ? nullptr : dynamic_cast<CommandButton*>(&widget->Owner());
  if (button == nullptr) return PressButtonWith(&CommandButton::IsDefault);
  focus_.DeliverLeave();
  button->Press();
  return true;
}

/// Esc goes to an owner-drawn control that wants it, else presses the cancel button. Without one it does nothing: the
/// key never closes a form by itself.
/// A press that a run took for its end, and the repetitions while the key stays down, are spent.
bool FormKeys::EscapePressed(const MSG& message) {
  const bool repeated = (message.lParam & (1L << 30)) != 0;
  if (repeated || keyboard_.TookEscapeOf(message.time)) return true;
  if (const Widget* widget = widgets_.Of(GetFocus())) {
    auto* drawn = dynamic_cast<DrawnControl*>(&widget->Owner());
    if (drawn != nullptr && drawn->KeyPressed({.key = Key::kEscape})) return true;
  }
  return PressButtonWith(&CommandButton::IsCancel);
}

bool FormKeys::PressButtonWith(bool (CommandButton::*role)() const noexcept) {
  CommandButton* button = UsableButtonWith(form_, role);
  if (button == nullptr) return true;
  focus_.DeliverLeave();
  button->Press();
  return true;
}

LRESULT FormKeys::DefaultButtonId() const {
  const CommandButton* button = UsableButtonWith(form_, &CommandButton::IsDefault);
  return button == nullptr ? 0 : MAKELRESULT(ControlId(button->Name()), DC_HASDEFID);
}

bool FormKeys::TabPressed() {
  const HWND window = context_.formWindow;
  SendMessageW(window, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  const HWND next = GetNextDlgTabItem(window, GetFocus(), GetKeyState(VK_SHIFT) < 0 ? TRUE : FALSE);
  if (const Widget* widget = widgets_.Of(next)) focus_.Enter(*widget);
  return true;
}

void FormKeys::ShowDefaultButton() {
  const Widget* focused = widgets_.Of(GetFocus());
  const bool onButton = focused != nullptr && dynamic_cast<CommandButton*>(&focused->Owner()) != nullptr;
  for (const auto& [control, widget] : widgets_.All()) {
    const auto* button = dynamic_cast<const CommandButton*>(control);
    if (button == nullptr) continue;
    const LONG_PTR wanted =
        (onButton ? widget.get() == focused : button->IsDefault()) ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
    const LONG_PTR now = GetWindowLongPtrW(widget->Window(), GWL_STYLE) & BS_TYPEMASK;
    if (now != wanted) SendMessageW(widget->Window(), BM_SETSTYLE, static_cast<WPARAM>(wanted), TRUE);
  }
}

/// Alt and a letter, or the letter alone on a button. A label's letter goes to the field that it names.
bool FormKeys::AccessKeyPressed(const MSG& message) {
  const bool onButton = (SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
  if (IsWindowEnabled(context_.formWindow) == 0 || (message.message == WM_CHAR && !onButton)) return false;
  const auto letter = reinterpret_cast<ULONG_PTR>(CharUpperW(reinterpret_cast<LPWSTR>(message.wParam)));
  for (const auto& [control, caption] : CaptionsWithAccessKeys(form_)) {
    const auto own = AccessLetter(caption);
    if (!own || static_cast<ULONG_PTR>(*own) != letter) continue;
    Widget* widget = widgets_.Of(*control);
    if (widget == nullptr || !control->EffectivelyVisible() || !control->EffectivelyEnabled()) return false;
    if (const Widget* field = widgets_.FieldNamedBy(*control)) {
      focus_.Enter(*field);
    } else {
      focus_.Enter(*widget);
      focus_.SettleBefore(*control);
      // What the user left was refused, and has the focus again: nothing happens over the refusal.
      if (control->TabStop() && GetFocus() != widget->Window()) return true;
      widget->Command(BN_CLICKED);
    }
    return true;
  }
  return false;
}

}  // namespace chartproject::win32
