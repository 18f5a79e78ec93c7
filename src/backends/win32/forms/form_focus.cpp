// Where the focus of a form goes.
#include "backends/win32/forms/form_focus.h"

#include <utility>

namespace chartproject::win32 {

namespace {

constexpr UINT kLeaveMessage = WM_APP + 1;
constexpr UINT kPutBackMessage = WM_APP + 2;

bool CanHoldFocus(HWND window) {
  return IsWindow(window) != 0 && IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0;
}

}  // namespace

void FormFocus::Left(const Widget& widget, HWND other) {
  if (IsChild(context_.formWindow, other) == 0 || IsChild(widget.Window(), other) != 0) return;
  DeliverLeave();
  leaving_ = &widget.Owner();
  PostMessageW(context_.formWindow, kLeaveMessage, 0, 0);
}

bool FormFocus::Message(UINT message) {
  if (message == kLeaveMessage) DeliverLeave();
  if (message == kPutBackMessage) PutBack();
  return message == kLeaveMessage || message == kPutBackMessage;
}

void FormFocus::DeliverLeave() {
  if (Control* control = std::exchange(leaving_, nullptr)) control->LeaveFocus();
}

void FormFocus::SettleBefore(const Control& control) {
  if (leaving_ != &control) DeliverLeave();
}

void FormFocus::MoveTo(const Widget& widget, bool now) {
  const Control& control = widget.Owner();
  if (!control.EffectivelyEnabled() || !control.EffectivelyVisible()) return;
  last_ = widget.Window();
  if (now) SetFocus(widget.Window());
}

void FormFocus::Enter(const Widget& widget) {
  if (!CanHoldFocus(widget.Window())) return;
  SetFocus(widget.Window());
  const LRESULT code = SendMessageW(widget.Window(), WM_GETDLGCODE, 0, 0);
  if ((code & DLGC_HASSETSEL) != 0) SendMessageW(widget.Window(), EM_SETSEL, 0, -1);
}

void FormFocus::PutBack() {
  const HWND window = context_.formWindow;
  if (window == nullptr || GetActiveWindow() != window) return;
  if (IsChild(window, GetFocus()) != 0 && CanHoldFocus(GetFocus())) return;
  const HWND first = CanHoldFocus(last_) ? last_ : GetNextDlgTabItem(window, nullptr, FALSE);
  SetFocus(first != nullptr && CanHoldFocus(first) ? first : window);
}

void FormFocus::PutBackSoon() {
  PostMessageW(context_.formWindow, kPutBackMessage, 0, 0);
}

}  // namespace chartproject::win32
