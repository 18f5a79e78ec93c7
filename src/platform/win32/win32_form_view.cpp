// The window of a form: making it, showing properties, taking input.
#include "platform/win32/win32_form_view.h"

#include "platform/win32/com_module.h"
#include "platform/win32/themed_controls.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/widget_types.h"
#include "platform/win32/win32_form_host.h"

#include <commctrl.h>

namespace chartproject::win32 {

namespace {

constexpr const wchar_t* kFormClass = L"ChartProjectForm";
constexpr UINT kLostFocusMessage = WM_APP + 1;  // a control lost the focus; raised when the change of focus is over

void RegisterClasses(WNDPROC formProcedure) {
  WNDCLASSEXW form{};
  form.cbSize = sizeof form;
  form.lpfnWndProc = formProcedure;
  form.hInstance = ThisModule();
  form.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  form.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
  form.lpszClassName = kFormClass;
  RegisterClassExW(&form);  // again for each form: the second time the system only says that it is there
  WNDCLASSEXW drawn{};
  drawn.cbSize = sizeof drawn;
  drawn.lpfnWndProc = DefWindowProcW;
  drawn.hInstance = ThisModule();
  drawn.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  drawn.lpszClassName = kDrawnClass;
  RegisterClassExW(&drawn);
}

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

Win32FormView::Win32FormView(Form& form, Win32FormHost& host)
    : form_(form), host_(host), context_{nullptr, nullptr, SystemScale(), host.Fonts()} {
  const ThemedControls themed;
  RegisterClasses(FormProcedure);
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, kFormClass, ToWide(form.Caption()).c_str(),
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT, 100, 100,
                            GetActiveWindow(), nullptr, ThisModule(), this);
  if (window_ == nullptr) throw RunTimeError(error_number::kInvalidProcedureCall, "The window could not be made");
  context_.formWindow = window_;
  MakeFont();
  toolTips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0,
                              0, window_, nullptr, nullptr, nullptr);
  for (Control* control : form.Controls()) {
    std::unique_ptr<Widget> widget = MakeWidget(*control, context_);
    if (!widget) continue;
    byWindow_[widget->Window()] = widget.get();
    SetWindowSubclass(widget->Window(), ControlProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
    widgets_[control] = std::move(widget);
  }
  ApplyAll();
  GrowToLayout();
}

Win32FormView::~Win32FormView() {
  EnableOthers();
  // The form and its controls are gone or going: no message may reach them from here on.
  for (const auto& [window, widget] : byWindow_) RemoveWindowSubclass(window, ControlProcedure, 1);
  if (window_ != nullptr) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
  }
}

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
      if (focused && !usable) SendMessageW(window_, WM_NEXTDLGCTL, 0, FALSE);
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
  // A text that outgrew its place moves the others.
  const bool outgrown = widget->PreferredSize().width > control.Place().width + 0.5;
  if (property == Property::kCaption && form_.IsShown() && control.EffectivelyVisible() && outgrown) GrowToLayout();
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
      icon_ = OwnedIcon(static_cast<HICON>(
          LoadImageW(nullptr, ToWide(form_.IconFile()).c_str(), IMAGE_ICON, 0, 0, LR_LOADFROMFILE | LR_DEFAULTSIZE)));
      SendMessageW(window_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon_.Get()));
      SendMessageW(window_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon_.Get()));
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
  auto* view = reinterpret_cast<Win32FormView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (view == nullptr || view->window_ == nullptr) return DefWindowProcW(window, message, word, data);
  try {
    return view->Message(message, word, data);
  } catch (const RunTimeError& error) {
    // What a control's setter refuses is the user's input, not a fault: the control shows what it holds.
    OutputDebugStringW(ToWide(error.Description()).c_str());
  } catch (...) {
    OutputDebugStringW(L"ChartProject: a message could not be handled");
  }
  return 0;
}

LRESULT Win32FormView::Message(UINT message, WPARAM word, LPARAM data) {
  switch (message) {
    case WM_COMMAND:
      if (Widget* widget = WidgetOf(reinterpret_cast<HWND>(data))) widget->Command(HIWORD(word));
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
      return 0;  // Enter is handled by EnterPressed
    case kLostFocusMessage:
      if (Widget* widget = WidgetOf(reinterpret_cast<HWND>(word))) widget->Owner().LeaveFocus();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(word) == WA_INACTIVE) {
        if (IsChild(window_, GetFocus()) != 0) lastFocus_ = GetFocus();
      } else if (lastFocus_ != nullptr && HIWORD(word) == 0) {
        SetFocus(lastFocus_);
        return 0;
      }
      break;
    case WM_HELP:
      return 0;  // F1 came as a key already
    case WM_CLOSE:
      form_.CloseByUser();
      return 0;
    case WM_SIZE:
    case WM_MOVE:
      if (!placing_) PlaceChanged();
      if (message == WM_SIZE) ArrangeControls();
      return 0;
    case WM_GETMINMAXINFO:
      SetMinimumTrack(*reinterpret_cast<MINMAXINFO*>(data));
      return 0;
    case WM_DPICHANGED:
      DpiChanged(word, *reinterpret_cast<const RECT*>(data));
      return 0;
    case WM_NCDESTROY:
      window_ = nullptr;  // its owner took it along
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window_, message, word, data);
}

bool Win32FormView::ShowCursor(Widget* under) const {
  if (form_.Pointer() == MousePointer::kHourglass) {
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    return true;
  }
  if (under == nullptr || under->Owner().Pointer() != MousePointer::kCustom) return false;
  const HCURSOR fromFile =
      form_.ButtonCursorFile().empty() ? nullptr : LoadCursorFromFileW(ToWide(form_.ButtonCursorFile()).c_str());
  SetCursor(fromFile != nullptr ? fromFile : LoadCursorW(nullptr, IDC_HAND));
  return true;
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
  if (message == WM_KILLFOCUS && IsChild(window_, reinterpret_cast<HWND>(word)) != 0 &&
      IsChild(widget.Window(), reinterpret_cast<HWND>(word)) == 0) {
    PostMessageW(window_, kLostFocusMessage, reinterpret_cast<WPARAM>(widget.Window()), 0);
  }
  return widget.Message(message, word, data, result);
}

}  // namespace chartproject::win32
