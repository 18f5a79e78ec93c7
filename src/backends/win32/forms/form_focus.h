// The keyboard focus of one form: which control left it, which gets it back.
#pragma once

#include "backends/win32/widgets/widget.h"

namespace chartproject::win32 {

/// A control that loses the focus is reported to the form only when the change of focus is over, for its handler may
/// show a box; any input comes after that report.
class FormFocus {
 public:
  explicit FormFocus(const WidgetContext& context) : context_(context) {}

  /// WM_SETFOCUS of a widget.
  void Reached(const Widget& widget) noexcept { last_ = widget.Window(); }
  /// WM_KILLFOCUS of a widget. @param other the window that gets the focus
  void Left(const Widget& widget, HWND other);
  /// Takes the messages that this part posts to the form's window. @return true when it was one
  bool Message(UINT message);

  /// Reports a control that lost the focus, now.
  void DeliverLeave();
  /// Input for a control: one that lost the focus is reported first, unless it is the same.
  void SettleBefore(const Control& control);
  /// The window goes: its fields are not left by the user.
  void ForgetLeave() noexcept { leaving_ = nullptr; }

  /// Where the focus is to be when the window gets it, or at once. @param now the form is shown
  void MoveTo(const Widget& widget, bool now);
  /// As Tab and access keys do: with the text of a field selected. Does nothing for a control that cannot hold it.
  void Enter(const Widget& widget);
  /// To where it was last, else to the first control that can hold it, else to the window, whose keys still work then.
  /// Does nothing while another window is active.
  void PutBack();
  /// The same after the current message.
  void PutBackSoon();

 private:
  const WidgetContext& context_;
  HWND last_ = nullptr;
  Control* leaving_ = nullptr;  ///< lost the focus and was not reported yet
};

}  // namespace chartproject::win32
