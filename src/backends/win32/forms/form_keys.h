// The keys of one form: Enter, Esc, F1, Tab, access keys, arrows beside a field; and the mouse wheel.
#pragma once

#include "backends/win32/forms/form_focus.h"
#include "backends/win32/forms/form_widgets.h"
#include "backends/win32/win32_keyboard.h"

namespace chartproject::win32 {

class FormKeys {
 public:
  FormKeys(Form& form, const WidgetContext& context, const FormWidgets& widgets, FormFocus& focus,
           const Win32Keyboard& keyboard)
      : form_(form), context_(context), widgets_(widgets), focus_(focus), keyboard_(keyboard) {}

  /// A message of the form or one of its controls, before its window gets it; true when that is settled.
  bool Take(MSG& message);
  /// The reply to DM_GETDEFID.
  [[nodiscard]] LRESULT DefaultButtonId() const;
  /// The button that Enter would press looks like it: the one with the focus, else the form's default.
  void ShowDefaultButton();

 private:
  bool KeyDown(const MSG& message);
  bool EnterPressed(HWND focus);
  bool EscapePressed(const MSG& message);
  bool PressButtonWith(bool (CommandButton::*role)() const noexcept);
  bool AccessKeyPressed(const MSG& message);
  bool StepArrowsOf(HWND field, int direction);
  bool TabPressed();
  bool WheelTurned(const MSG& message);

  Form& form_;
  const WidgetContext& context_;
  const FormWidgets& widgets_;
  FormFocus& focus_;
  const Win32Keyboard& keyboard_;
  int wheelRest_ = 0;  ///< turn of the wheel that does not make a whole notch yet
  int sidewaysRest_ = 0;
};

}  // namespace chartproject::win32
