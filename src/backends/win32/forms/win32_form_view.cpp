// The window of a form, from its making to its end, and the way of its messages.
#include "backends/win32/forms/win32_form_view.h"

#include <utility>

#include "backends/win32/boxes/win32_help.h"
#include "backends/win32/com_module.h"
#include "backends/win32/forms/win32_form_host.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/themed_controls.h"
#include "backends/win32/widgets/window_classes.h"

namespace chartproject::win32 {

namespace {

constexpr Property kShownProperties[] = {Property::kList,    Property::kListIndex,   Property::kRange,
                                         Property::kValue,   Property::kText,        Property::kCaption,
                                         Property::kColor,   Property::kToolTipText, Property::kEnabled,
                                         Property::kVisible, Property::kAvailability};

bool Within(const Control& control, const Control& container) {
  for (const Control* at = &control; at != nullptr; at = at->Container()) {
    if (at == &container) return true;
  }
  return false;
}

Win32FormView* StoredView(HWND form) {
  return reinterpret_cast<Win32FormView*>(GetWindowLongPtrW(form, GWLP_USERDATA));
}

/// A host in another process (the class in the system's surrogate) has the foreground, and may keep it: then the
/// window comes above the others without it.
void ComeToFront(HWND window) {
  if (SetForegroundWindow(window) != 0) return;
  for (const HWND place : {HWND_TOPMOST, HWND_NOTOPMOST}) {
    SetWindowPos(window, place, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
}

/// The form around a window; null when it is not one of ours.
Win32FormView* ViewOf(HWND window) {
  const HWND top = GetAncestor(window, GA_ROOT);
  return top == nullptr || FormBelow(top) != top ? nullptr : StoredView(top);
}

}  // namespace

Win32FormView::Win32FormView(Form& form, Win32FormHost& host, Unmade /*unmade*/)
    : form_(form),
      host_(host),
      context_{nullptr, nullptr, SystemScale(), host.Fonts()},
      keys_(form_, context_, widgets_, focus_, host.TheKeyboard()) {}

// Built by the other constructor first: if anything is thrown from here on, the destructor takes the window away.
Win32FormView::Win32FormView(Form& form, Win32FormHost& host) : Win32FormView(form, host, Unmade{}) {
  const ThemedControls themed;
  MakeWindow();
  widgets_.Make(ControlProcedure, reinterpret_cast<DWORD_PTR>(this));
  ApplyAll();
  place_.GrowToLayout();
}

void Win32FormView::MakeWindow() {
  context_.formWindow = CreateWindowExW(WS_EX_CONTROLPARENT, kFormClass, ToWide(form_.Caption()).c_str(),
                                        WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT, 100, 100,
                                        OwnerForForm(), nullptr, ThisModule(), this);
  if (context_.formWindow == nullptr) {
    throw RunTimeError(error_number::kInvalidProcedureCall, Text::kWindowNotMade);
  }
  FormPictures::ShowOwnersIcon(context_.formWindow);
  layout_.SetScale(ScaleOf(context_.formWindow));
  toolTips_.Make();
}

Win32FormView::~Win32FormView() {
  modal_.reset();
  if (context_.formWindow == nullptr) return;
  // The form and its controls are being destroyed: no message may reach them from here on.
  SetWindowLongPtrW(context_.formWindow, GWLP_USERDATA, 0);
  widgets_.Release();
  DestroyWindow(context_.formWindow);
}

void Win32FormView::ApplyAll() {
  for (Control* control : form_.Controls()) {
    for (const Property property : kShownProperties) ControlChanged(*control, property);
  }
}

void Win32FormView::ControlChanged(Control& control, Property property) {
  if (context_.formWindow == nullptr) return;
  if (property == Property::kVisible || property == Property::kEnabled) {
    UsabilityChanged(control, property);
    return;
  }
  Widget* widget = widgets_.Of(control);
  if (widget == nullptr) return;
  if (property == Property::kToolTipText) {
    toolTips_.Show(*widget);
    return;
  }
  widget->Apply(property);
  if (property == Property::kOverlay) names_.Show(*widget);
  if (property != Property::kCaption || !control.HasCaption()) return;
  widgets_.ShowCaptions(&control);
  // A text that outgrew its place moves the others.
  if (form_.IsShown() && control.EffectivelyVisible() && layout_.Outgrown(control)) place_.GrowToLayout();
}

/// A container's change shows on all that it holds.
void Win32FormView::UsabilityChanged(Control& control, Property property) {
  const HWND window = context_.formWindow;
  for (const auto& [other, widget] : widgets_.All()) {
    if (!Within(*other, control)) continue;
    const bool focused = GetFocus() == widget->Window();
    widget->Apply(property);
    const bool usable = other->EffectivelyVisible() && other->EffectivelyEnabled();
    const bool homeless = usable && (GetFocus() == nullptr || GetFocus() == window);
    if ((focused && !usable) || homeless) focus_.PutBackSoon();
  }
  if (dynamic_cast<Frame*>(&control) == nullptr) return;
  const RECT place = layout_.PlaceOf(control);
  InvalidateRect(window, &place, TRUE);  // its title changes colour
}

void Win32FormView::FormChanged(FormProperty property) {
  const HWND window = context_.formWindow;
  if (window == nullptr) return;
  switch (property) {
    case FormProperty::kCaption:
      SetWindowTextW(window, ToWide(form_.Caption()).c_str());
      break;
    case FormProperty::kIcon:
      pictures_.ShowIcon(window);
      break;
    case FormProperty::kMousePointer:
      pictures_.ShowPointer();
      break;
    case FormProperty::kPlace:
    case FormProperty::kHeight:
      place_.Apply();
      break;
    case FormProperty::kWindowState:
      if (form_.IsShown()) place_.ApplyState();
      break;
    case FormProperty::kLayout:
      place_.GrowToLayout();
      break;
  }
}

void Win32FormView::MoveFocus(Control& control) {
  if (const Widget* widget = widgets_.Of(control)) focus_.MoveTo(*widget, form_.IsShown());
}

void Win32FormView::Show() {
  const HWND window = context_.formWindow;
  if (window == nullptr) {
    form_.Unload();
    return;
  }
  modal_.emplace(window);
  place_.Show();
  names_.Show(widgets_);
  ComeToFront(window);
  focus_.PutBack();
  UpdateWindow(window);
}

void Win32FormView::Hide() {
  focus_.ForgetLeave();
  if (modal_) modal_->GiveBack();
  modal_.reset();
  if (context_.formWindow != nullptr) ShowWindow(context_.formWindow, SW_HIDE);
}

bool Win32FormView::Translate(MSG& message) noexcept {
  try {
    Win32FormView* view = ViewOf(message.hwnd);
    return view != nullptr && view->context_.formWindow != nullptr && view->keys_.Take(message);
  } catch (...) {
    OutputDebugStringW(L"ChartProject: a key could not be handled");
    return true;
  }
}

LRESULT CALLBACK Win32FormView::FormProcedure(HWND window, UINT message, WPARAM word, LPARAM data) noexcept {
  if (message == WM_NCCREATE) {
    const auto* create = reinterpret_cast<const CREATESTRUCTW*>(data);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  if (message == WM_DESTROY) EndHelpOf(window);
  Win32FormView* view = StoredView(window);
  if (view == nullptr || view->context_.formWindow == nullptr) return DefWindowProcW(window, message, word, data);
  try {
    return view->Message(message, word, data);
  } catch (const RunTimeError& error) {
    // What a control's setter refuses is the user's input, not a fault: the control shows what it holds.
    OutputDebugStringA(error.what());
  } catch (...) {
    OutputDebugStringW(L"ChartProject: a message could not be handled");
  }
  return 0;
}

LRESULT Win32FormView::Message(UINT message, WPARAM word, LPARAM data) {
  if (focus_.Message(message)) return 0;
  if (place_.Message(message, data)) return 0;
  if (const auto result = InputMessage(message, word, data)) return *result;
  if (const auto result = WindowMessage(message, word, data)) return *result;
  return DefWindowProcW(context_.formWindow, message, word, data);
}

/// What controls report, and what the system asks about them.
std::optional<LRESULT> Win32FormView::InputMessage(UINT message, WPARAM word, LPARAM data) {
  switch (message) {
    case WM_COMMAND:
      if (Widget* widget = widgets_.Of(reinterpret_cast<HWND>(data))) {
        const WORD code = HIWORD(word);
        const bool input = code == BN_CLICKED || code == CBN_SELCHANGE || code == EN_CHANGE;
        if (input) focus_.SettleBefore(widget->Owner());
        widget->Command(code);
      }
      return 0;
    case WM_NOTIFY: {
      const auto& header = *reinterpret_cast<const NMHDR*>(data);
      Widget* widget = widgets_.Of(header.hwndFrom);
      return widget == nullptr ? 0 : widget->Notify(header);
    }
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(data);
      if (Widget* widget = widgets_.Of(item.hwndItem)) widget->DrawItem(item);
      return TRUE;
    }
    case WM_HSCROLL:
    case WM_VSCROLL:
      if (Widget* widget = widgets_.Of(reinterpret_cast<HWND>(data))) {
        widget->Scroll(LOWORD(word));
      } else if (data == 0) {
        layout_.Scroll(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(word));
      }
      return 0;
    case WM_CTLCOLORSTATIC:
      if (Widget* widget = widgets_.Of(reinterpret_cast<HWND>(data))) {
        const HBRUSH brush = widget->Background(reinterpret_cast<HDC>(word));
        if (brush != nullptr) return reinterpret_cast<LRESULT>(brush);
      }
      return std::nullopt;
    case WM_SETCURSOR:
      if (LOWORD(data) == HTCLIENT && pictures_.ShowPointerOver(widgets_.Of(reinterpret_cast<HWND>(word)))) return TRUE;
      return std::nullopt;
    case DM_GETDEFID:
      return keys_.DefaultButtonId();
    case WM_HELP:
      return 0;  // F1 came as a key already
    default:
      return std::nullopt;
  }
}

/// What becomes of the window itself.
std::optional<LRESULT> Win32FormView::WindowMessage(UINT message, WPARAM word, LPARAM data) {
  switch (message) {
    case WM_PAINT:
      layout_.PaintGroups();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(word) == WA_INACTIVE || HIWORD(word) != 0) return std::nullopt;
      focus_.PutBack();
      return 0;
    case WM_CLOSE:
      if (IsWindowEnabled(context_.formWindow) == 0) return 0;  // a box or a form above it is to be answered first
      focus_.DeliverLeave();
      form_.CloseByUser();
      return 0;
    case WM_DPICHANGED:
      place_.DpiChanged(LOWORD(word), *reinterpret_cast<const RECT*>(data));
      toolTips_.LimitWidth();
      return 0;
    case WM_SYSCOLORCHANGE:
      ShowSystemColors();
      return 0;
    case WM_ENDSESSION:
      if (word == FALSE) return 0;  // somebody objected
      host_.EndSession();
      form_.Unload();
      return 0;
    case WM_NCDESTROY:
      return WindowGone();
    default:
      return std::nullopt;
  }
}

/// Another scheme of colours, high contrast for one: controls that keep colours get the new ones.
void Win32FormView::ShowSystemColors() {
  for (const auto& [control, widget] : widgets_.All()) {
    SendMessageW(widget->Window(), WM_SYSCOLORCHANGE, 0, 0);
    widget->Apply(Property::kEnabled);
    widget->Apply(Property::kContent);
  }
  RedrawWindow(context_.formWindow, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

/// The window was destroyed with its owner. Without a window nobody could end the form or its work.
LRESULT Win32FormView::WindowGone() {
  const HWND window = std::exchange(context_.formWindow, nullptr);
  widgets_.WindowsGone();
  form_.Unload();
  return DefWindowProcW(window, WM_NCDESTROY, 0, 0);
}

LRESULT CALLBACK Win32FormView::ControlProcedure(HWND window, UINT message, WPARAM word, LPARAM data, UINT_PTR /*id*/,
                                                 DWORD_PTR view) noexcept {
  auto* self = reinterpret_cast<Win32FormView*>(view);
  LRESULT result = 0;
  try {
    Widget* widget = self->widgets_.Of(window);
    if (widget != nullptr && self->ControlMessage(*widget, message, word, data, result)) return result;
  } catch (...) {
    OutputDebugStringW(L"ChartProject: a control's message could not be handled");
  }
  return DefSubclassProc(window, message, word, data);
}

bool Win32FormView::ControlMessage(Widget& widget, UINT message, WPARAM word, LPARAM data, LRESULT& result) {
  if (message == WM_KILLFOCUS) focus_.Left(widget, reinterpret_cast<HWND>(word));
  if (message == WM_SETFOCUS) {
    focus_.Reached(widget);
    layout_.Reveal(widget.Owner());
    keys_.ShowDefaultButton();
  }
  return widget.Message(message, word, data, result);
}

}  // namespace chartproject::win32
