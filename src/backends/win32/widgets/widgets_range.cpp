// Progress bar, slider, scroll bar and up-down arrows.
#include <algorithm>
#include <cstdlib>

#include "backends/win32/widgets/widget_types.h"

#include <commctrl.h>

namespace chartproject::win32 {

namespace {

constexpr double kProgressSteps = 10000;  // positions of the native bar for every range of the control

}  // namespace

ProgressWidget::ProgressWidget(ProgressBar& bar, WidgetContext& context)
    : Widget(bar, context, PROGRESS_CLASSW, PBS_SMOOTH), bar_(bar) {
  SendMessageW(Window(), PBM_SETRANGE32, 0, static_cast<LPARAM>(kProgressSteps));
}

void ProgressWidget::Apply(Property property) {
  if (property == Property::kValue || property == Property::kRange) {
    const double span = bar_.Maximum() - bar_.Minimum();
    const double share = span > 0 ? (bar_.Value() - bar_.Minimum()) / span : 0;
    SendMessageW(Window(), PBM_SETPOS, static_cast<WPARAM>(share * kProgressSteps), 0);
  }
  Widget::Apply(property);
}

Size ProgressWidget::PreferredSize() const {
  return {150, 18};
}

SliderWidget::SliderWidget(Slider& slider, WidgetContext& context)
    : Widget(slider, context, TRACKBAR_CLASSW, TBS_HORZ | TBS_NOTICKS), slider_(slider) {}

void SliderWidget::Apply(Property property) {
  if (property == Property::kRange) {
    SendMessageW(Window(), TBM_SETRANGEMIN, FALSE, slider_.Minimum());
    SendMessageW(Window(), TBM_SETRANGEMAX, TRUE, slider_.Maximum());
    SendMessageW(Window(), TBM_SETLINESIZE, 0, slider_.SmallChange());
    SendMessageW(Window(), TBM_SETPAGESIZE, 0, slider_.LargeChange());
  }
  if (property == Property::kValue || property == Property::kRange) {
    SendMessageW(Window(), TBM_SETPOS, TRUE, slider_.Value());
  }
  Widget::Apply(property);
}

Size SliderWidget::PreferredSize() const {
  return {140, 28};
}

void SliderWidget::Scroll(WORD /*code*/) {
  slider_.SetValue(static_cast<int>(SendMessageW(Window(), TBM_GETPOS, 0, 0)));
}

void SliderWidget::Step(int by) {
  const int wanted = slider_.Value() + by;
  slider_.SetValue(std::clamp(wanted, slider_.Minimum(), std::max(slider_.Minimum(), slider_.Maximum())));
}

bool SliderWidget::Wheel(int notches) {
  Step(notches * slider_.SmallChange());
  return true;
}

/// Up is more, as it is with the wheel; the native control goes the other way.
bool SliderWidget::Message(UINT message, WPARAM word, LPARAM /*data*/, LRESULT& result) {
  if (message != WM_KEYDOWN) return false;
  result = 0;
  switch (word) {
    case VK_UP:
      Step(slider_.SmallChange());
      return true;
    case VK_DOWN:
      Step(-slider_.SmallChange());
      return true;
    case VK_PRIOR:
      Step(slider_.LargeChange());
      return true;
    case VK_NEXT:
      Step(-slider_.LargeChange());
      return true;
    default:
      return false;
  }
}

ScrollBarWidget::ScrollBarWidget(HScrollBar& bar, WidgetContext& context)
    : Widget(bar, context, L"SCROLLBAR", SBS_HORZ), bar_(bar) {}

int ScrollBarWidget::Lowest() const {
  return std::min(bar_.Minimum(), bar_.Maximum());
}

int ScrollBarWidget::Highest() const {
  return std::max(bar_.Minimum(), bar_.Maximum());
}

int ScrollBarWidget::Mirror(int value) const {
  return bar_.Maximum() < bar_.Minimum() ? Highest() - (value - Lowest()) : value;
}

void ScrollBarWidget::Apply(Property property) {
  if (property == Property::kRange || property == Property::kValue) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    info.nMin = Lowest();
    info.nPage = static_cast<UINT>(std::max(1, bar_.LargeChange()));
    info.nMax = Highest() + static_cast<int>(info.nPage) - 1;  // the last position is the range's end
    info.nPos = Mirror(bar_.Value());
    SetScrollInfo(Window(), SB_CTL, &info, TRUE);
  }
  Widget::Apply(property);
}

Size ScrollBarWidget::PreferredSize() const {
  return FromDots({150, GetSystemMetrics(SM_CYHSCROLL)});
}

void ScrollBarWidget::MoveTo(int position) {
  bar_.SetValue(Mirror(std::clamp(position, Lowest(), Highest())));
}

void ScrollBarWidget::Scroll(WORD code) {
  const int position = Mirror(bar_.Value());
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  switch (code) {
    case SB_LINELEFT:
      MoveTo(position - bar_.SmallChange());
      break;
    case SB_LINERIGHT:
      MoveTo(position + bar_.SmallChange());
      break;
    case SB_PAGELEFT:
      MoveTo(position - bar_.LargeChange());
      break;
    case SB_PAGERIGHT:
      MoveTo(position + bar_.LargeChange());
      break;
    case SB_LEFT:
      MoveTo(Lowest());
      break;
    case SB_RIGHT:
      MoveTo(Highest());
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      if (GetScrollInfo(Window(), SB_CTL, &info) != 0) MoveTo(info.nTrackPos);
      break;
    default:
      break;
  }
}

/// Shows when it has the focus, which the system's own bar hardly does.
bool ScrollBarWidget::Message(UINT message, WPARAM word, LPARAM data, LRESULT& result) {
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS) InvalidateRect(Window(), nullptr, FALSE);
  if (message != WM_PAINT) return false;
  result = DefSubclassProc(Window(), message, word, data);
  const HDC dc = GetDC(Window());
  PaintFocus(Window(), dc);
  ReleaseDC(Window(), dc);
  return true;
}

bool ScrollBarWidget::Wheel(int notches) {
  MoveTo(Mirror(bar_.Value()) - notches * bar_.SmallChange());
  return true;
}

UpDownWidget::UpDownWidget(UpDown& arrows, WidgetContext& context)
    : Widget(arrows, context, UPDOWN_CLASSW, 0), arrows_(arrows) {
  // The field takes the keys; arrows with the focus would show nothing.
  SetWindowLongPtrW(Window(), GWL_STYLE, GetWindowLongPtrW(Window(), GWL_STYLE) & ~LONG_PTR{WS_TABSTOP});
  // The native control only reports pressed arrows: its own position stays in the middle, so that both work.
  SendMessageW(Window(), UDM_SETRANGE32, 0, 2);
  SendMessageW(Window(), UDM_SETPOS32, 0, 1);
}

Size UpDownWidget::PreferredSize() const {
  return {18, 23};
}

LRESULT UpDownWidget::Notify(const NMHDR& header) {
  if (header.code != UDN_DELTAPOS) return 0;
  arrows_.Step(reinterpret_cast<const NMUPDOWN&>(header).iDelta > 0 ? 1 : -1);
  return TRUE;  // keeps the native position
}

bool UpDownWidget::Wheel(int notches) {
  for (int left = std::abs(notches); left > 0; --left) arrows_.Step(notches > 0 ? 1 : -1);
  return true;
}

}  // namespace chartproject::win32
