// A form in its window: showing properties, taking input.
#include "backends/win32/forms/win32_form_view.h"

#include "backends/win32/forms/widget_types.h"
#include "backends/win32/forms/win32_form_host.h"
#include "backends/win32/forms/win32_help.h"
#include "backends/win32/wide_text.h"

#include <commctrl.h>

namespace chartproject::win32 {

namespace {

constexpr UINT kLostFocusMessage = WM_APP + 1;  // a control lost the focus; raised when the change of focus is over
constexpr UINT kFocusGoneMessage = WM_APP + 2;  // the control with the focus cannot hold it any more

constexpr Property kShownProperties[] = {
    Property::kList,    Property::kListIndex, Property::kRange,       Property::kValue,   Property::kText,
    Property::kCaption, Property::kColor,     Property::kToolTipText, Property::kEnabled, Property::kVisible};

bool Within(const Control& control, const Control& container) {
  for (const Control* at = &control; at != nullptr; at = at->Container()) {
    if (at == &container) return true;
  }
  return false;
}

}  // namespace

Widget* Win32FormView::WidgetOf(HWND window) const {
  const auto found = byWindow_.find(window);
  return found == byWindow_.end() ? nullptr : found->second;
}

Widget* Win32FormView::WidgetOf(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second.get();
}

void Win32FormView::ApplyAll() {
  for (Control* control : form_.Controls()) {
    for (const Property property : kShownProperties) ControlChanged(*control, property);
  }
}

void Win32FormView::ControlChanged(Control& control, Property property) {
  if (window_ == nullptr) return;
  if (property == Property::kVisible || property == Property::kEnabled) {
    for (const auto& [other, widget] : widgets_) {
      if (!Within(*other, control)) continue;
      const bool focused = GetFocus() == widget->Window();
      widget->Apply(property);
      const bool usable = other->EffectivelyVisible() && other->EffectivelyEnabled();
      const bool homeless = usable && (GetFocus() == nullptr || GetFocus() == window_);
      if ((focused && !usable) || homeless) PostMessageW(window_, kFocusGoneMessage, 0, 0);
    }
    if (dynamic_cast<Frame*>(&control) != nullptr) {
      const RECT place = PlaceOf(control);
      InvalidateRect(window_, &place, TRUE);  // the title's colour tells it
    }
    return;
  }
  Widget* widget = WidgetOf(control);
  if (widget == nullptr) return;
  if (property == Property::kToolTipText) {
    SetToolTip(*widget);
    return;
  }
  widget->Apply(property);
  if (property != Property::kCaption || !control.HasCaption()) return;
  ShowCaptions(&control);
  // A text that outgrew its place moves the others.
  const Rect& place = control.Place();
  const bool outgrown =
      widget->PreferredSize().width > place.width + 0.5 || widget->HeightForWidth(place.width) > place.height + 0.5;
  if (form_.IsShown() && control.EffectivelyVisible() && outgrown) GrowToLayout();
}

void Win32FormView::SetToolTip(Widget& widget) {
  std::wstring text = ToWide(widget.Owner().ToolTipText());
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = window_;
  tool.uId = reinterpret_cast<UINT_PTR>(widget.Window());
  tool.lpszText = text.data();
  SendMessageW(toolTips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (!text.empty()) SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void Win32FormView::FormChanged(FormProperty property) {
  if (window_ == nullptr) return;
  switch (property) {
    case FormProperty::kCaption:
      SetWindowTextW(window_, ToWide(form_.Caption()).c_str());
      break;
    case FormProperty::kIcon:
      ShowIcon();
      break;
    case FormProperty::kMousePointer:
      SetCursor(LoadCursorW(nullptr, form_.Pointer() == MousePointer::kHourglass ? IDC_WAIT : IDC_ARROW));
      break;
    case FormProperty::kPlace:
    case FormProperty::kHeight:
      ApplyPlace();
      break;
    case FormProperty::kWindowState:
      if (form_.IsShown()) {
        const WindowState state = form_.State();
        ShowWindow(window_, state == WindowState::kMaximized   ? SW_MAXIMIZE
                            : state == WindowState::kMinimized ? SW_MINIMIZE
                                                               : SW_RESTORE);
      }
      break;
    case FormProperty::kLayout:
      GrowToLayout();
      break;
  }
}

void Win32FormView::MoveFocus(Control& control) {
  const Widget* widget = WidgetOf(control);
  if (widget == nullptr || !control.EffectivelyEnabled() || !control.EffectivelyVisible()) return;
  lastFocus_ = widget->Window();
  if (form_.IsShown()) SetFocus(widget->Window());
}

LRESULT CALLBACK Win32FormView::FormProcedure(HWND window, UINT message, WPARAM word, LPARAM data) noexcept {
  if (message == WM_NCCREATE) {
    const auto* create = reinterpret_cast<const CREATESTRUCTW*>(data);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  if (message == WM_DESTROY) EndHelpOf(window);
  auto* view = reinterpret_cast<Win32FormView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (view == nullptr || view->window_ == nullptr) return DefWindowProcW(window, message, word, data);
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
  switch (message) {
    case WM_COMMAND:
      if (Widget* widget = WidgetOf(reinterpret_cast<HWND>(data))) CommandFrom(*widget, HIWORD(word));
      return 0;
    case WM_NOTIFY: {
      const auto& header = *reinterpret_cast<const NMHDR*>(data);
      Widget* widget = WidgetOf(header.hwndFrom);
      return widget == nullptr ? 0 : widget->Notify(header);
    }
    case WM_HSCROLL:
    case WM_VSCROLL:
      if (Widget* widget = WidgetOf(reinterpret_cast<HWND>(data))) widget->Scroll(LOWORD(word));
      return 0;
    case WM_CTLCOLORSTATIC:
      if (Widget* widget = WidgetOf(reinterpret_cast<HWND>(data))) {
        if (const HBRUSH brush = widget->Background(reinterpret_cast<HDC>(word))) {
          return reinterpret_cast<LRESULT>(brush);
        }
      }
      break;
    case WM_SETCURSOR:
      if (LOWORD(data) == HTCLIENT && ShowCursor(WidgetOf(reinterpret_cast<HWND>(word)))) return TRUE;
      break;
    case DM_GETDEFID:
      return DefaultButtonId();
    case kLostFocusMessage:
      DeliverFocusLeave();
      return 0;
    case kFocusGoneMessage:
      PutFocusBack();
      return 0;
    case WM_PAINT:
      PaintGroups();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(word) == WA_INACTIVE || HIWORD(word) != 0) break;
      PutFocusBack();
      return 0;
    case WM_HELP:
      return 0;  // F1 came as a key already
    default:
      return WindowMessage(message, word, data);
  }
  return DefWindowProcW(window_, message, word, data);
}

void Win32FormView::CommandFrom(Widget& widget, WORD code) {
  const bool input = code == BN_CLICKED || code == CBN_SELCHANGE || code == EN_CHANGE;
  // What is left is settled before anything else is asked for, whichever way that came.
  if (input && leaving_ != &widget.Owner()) DeliverFocusLeave();
  widget.Command(code);
}

void Win32FormView::FocusChanged(Widget& widget, UINT message, HWND other) {
  if (message == WM_SETFOCUS) {
    lastFocus_ = widget.Window();
    ShowDefaultButton();
    return;
  }
  if (IsChild(window_, other) == 0 || IsChild(widget.Window(), other) != 0) return;
  DeliverFocusLeave();
  leaving_ = &widget.Owner();
  PostMessageW(window_, kLostFocusMessage, 0, 0);
}

void Win32FormView::ShowIcon() {
  const std::wstring file = ToWide(form_.IconFile());
  const auto load = [&file](int widthMetric, int heightMetric) {
    return OwnedIcon(static_cast<HICON>(LoadImageW(nullptr, file.c_str(), IMAGE_ICON, GetSystemMetrics(widthMetric),
                                                   GetSystemMetrics(heightMetric), LR_LOADFROMFILE)));
  };
  OwnedIcon icon = load(SM_CXICON, SM_CYICON);
  OwnedIcon small = load(SM_CXSMICON, SM_CYSMICON);
  SendMessageW(window_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon.Get()));
  SendMessageW(window_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small.Get()));
  std::swap(icon_, icon);  // the former ones go when no window shows them any more
  std::swap(smallIcon_, small);
}

bool Win32FormView::ShowCursor(Widget* under) {
  if (form_.Pointer() == MousePointer::kHourglass) {
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    return true;
  }
  if (under == nullptr || under->Owner().Pointer() != MousePointer::kCustom) return false;
  SetCursor(ButtonCursor());
  return true;
}

/// Asked for at each move of the mouse: loaded once, also when that failed.
HCURSOR Win32FormView::ButtonCursor() {
  const std::string& file = form_.ButtonCursorFile();
  if (file != buttonCursorFile_) {
    buttonCursorFile_ = file;
    OwnedCursor loaded(file.empty() ? nullptr : LoadCursorFromFileW(ToWide(file).c_str()));
    SetCursor(nullptr);  // the former one may show still
    std::swap(buttonCursor_, loaded);
  }
  return buttonCursor_ ? buttonCursor_.Get() : LoadCursorW(nullptr, IDC_HAND);
}

LRESULT CALLBACK Win32FormView::ControlProcedure(HWND window, UINT message, WPARAM word, LPARAM data, UINT_PTR /*id*/,
                                                 DWORD_PTR view) noexcept {
  auto* self = reinterpret_cast<Win32FormView*>(view);
  LRESULT result = 0;
  try {
    Widget* widget = self->WidgetOf(window);
    if (widget != nullptr && self->ControlMessage(*widget, message, word, data, result)) return result;
  } catch (...) {
    OutputDebugStringW(L"ChartProject: a control's message could not be handled");
  }
  return DefSubclassProc(window, message, word, data);
}

bool Win32FormView::ControlMessage(Widget& widget, UINT message, WPARAM word, LPARAM data, LRESULT& result) {
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS) FocusChanged(widget, message, reinterpret_cast<HWND>(word));
  return widget.Message(message, word, data, result);
}

}  // namespace chartproject::win32
