// What all widgets do alike, and the table of control types.
#include "backends/win32/widgets/widget.h"

#include <iterator>
#include <utility>

#include "backends/win32/com_module.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/widget_types.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

SIZE MeasureText(const WidgetContext& context, std::wstring_view text, int width, bool prefix) {
  constexpr std::size_t kManyTexts = 10'000;  // a list of them may be long, and texts change while a form is up
  if (context.measured.size() > kManyTexts) context.measured.clear();
  const auto [entry, isNew] = context.measured.try_emplace({std::wstring(text), width, prefix});
  if (!isNew) return entry->second;
  RECT box{0, 0, width, 0};
  const HDC dc = GetDC(context.formWindow);
  const HGDIOBJ before = SelectObject(dc, context.font);
  const UINT flags = DT_CALCRECT | (width > 0 ? DT_WORDBREAK : 0U) | (prefix ? 0U : DT_NOPREFIX);
  if (!text.empty()) DrawTextW(dc, text.data(), static_cast<int>(text.size()), &box, flags);
  SelectObject(dc, before);
  ReleaseDC(context.formWindow, dc);
  return entry->second = {box.right, box.bottom};
}

void PaintFocus(HWND window, HDC dc) {
  if (GetFocus() != window) return;
  RECT edge;
  GetClientRect(window, &edge);
  FrameRect(dc, &edge, GetSysColorBrush(COLOR_HIGHLIGHT));
}

int LineHeight(const WidgetContext& context) {
  return MeasureText(context, L"Xg", 0, false).cy;
}

Widget::Widget(Control& control, WidgetContext& context, const wchar_t* windowClass, DWORD style, DWORD extendedStyle)
    : control_(control),
      context_(context),
      window_(CreateWindowExW(
          extendedStyle, windowClass, L"", style | WS_CHILD | WS_CLIPSIBLINGS | (control.TabStop() ? WS_TABSTOP : 0U),
          0, 0, 0, 0, context.formWindow, reinterpret_cast<HMENU>(ControlId(control.Name())), ThisModule(), nullptr)) {
  if (window_ == nullptr) {
    throw RunTimeError(error_number::kInvalidProcedureCall, Text::kControlNotMade, {control.Name()});
  }
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(context.font), FALSE);
}

void Widget::ShowCaption(std::wstring caption, bool accessKey) {
  if (caption_ == caption && accessKey_ == accessKey) return;
  caption_ = std::move(caption);
  accessKey_ = accessKey;
  ApplyStyle();
  SetWindowTextW(window_, caption_.c_str());
}

SIZE Widget::CaptionSize(int width) const {
  return MeasureText(context_, caption_, width, accessKey_);
}

void Widget::Apply(Property property) {
  switch (property) {
    case Property::kEnabled:
      EnableWindow(window_, control_.EffectivelyEnabled() ? TRUE : FALSE);
      break;
    case Property::kVisible:
      ShowWindow(window_, ShouldShow() ? SW_SHOWNA : SW_HIDE);
      break;
    default:
      break;
  }
}

void Widget::Place(const RECT& place) {
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

Size Widget::FromDots(SIZE size) const {
  return {size.cx / context_.scale, size.cy / context_.scale};
}

std::wstring Widget::NativeText() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window_, text.data(), static_cast<int>(text.size()))));
  return text;
}

namespace {

template <typename ControlType, typename WidgetType>
std::unique_ptr<Widget> Make(Control& control, WidgetContext& context) {
  auto* typed = dynamic_cast<ControlType*>(&control);
  return typed == nullptr ? nullptr : std::make_unique<WidgetType>(*typed, context);
}

using Maker = std::unique_ptr<Widget> (*)(Control&, WidgetContext&);

/// Tried in order: a control takes the first that fits its type.
constexpr Maker kMakers[] = {
    Make<Label, LabelWidget>,          Make<Frame, FrameWidget>,          Make<PictureBox, SwatchWidget>,
    Make<CommandButton, ButtonWidget>, Make<CheckBox, CheckBoxWidget>,    Make<ComboBox, ComboBoxWidget>,
    Make<MaskEdBox, MaskWidget>,       Make<RichTextBox, RichTextWidget>, Make<TextControl, EditWidget>,
    Make<ProgressBar, ProgressWidget>, Make<Slider, SliderWidget>,        Make<HScrollBar, ScrollBarWidget>,
    Make<UpDown, UpDownWidget>,        Make<DrawnControl, DrawnWidget>,
};

}  // namespace

std::unique_ptr<Widget> MakeWidget(Control& control, WidgetContext& context) {
  for (const Maker make : kMakers) {
    if (std::unique_ptr<Widget> widget = make(control, context)) return widget;
  }
  return nullptr;
}

}  // namespace chartproject::win32
