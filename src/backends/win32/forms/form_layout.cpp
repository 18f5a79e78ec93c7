// Measuring and placing the controls of a form.
#include "backends/win32/forms/form_layout.h"

#include <cmath>

#include "backends/win32/wide_text.h"
#include "forms/flag_scope.h"
#include "forms/form.h"

namespace chartproject::win32 {

namespace {

constexpr double kGroupPadding = 10;   // within a group, in the layout's pixels
constexpr double kDrawnShrinks = 0.5;  // a picture may be made this much smaller than it would like to be

/// The colour of a calm line on the forms' ground.
COLORREF GroupLine() {
  const COLORREF ground = GetSysColor(COLOR_3DFACE);
  constexpr int kDark = 3 * 0x40;  // as in schemes of high contrast: nothing darker would be seen
  if (GetRValue(ground) + GetGValue(ground) + GetBValue(ground) < kDark) return GetSysColor(COLOR_WINDOWTEXT);
  const auto darker = [](BYTE part) { return static_cast<BYTE>(part * 100 / 115); };
  return RGB(darker(GetRValue(ground)), darker(GetGValue(ground)), darker(GetBValue(ground)));
}

bool IsGroup(const Control& control) {
  const auto* box = dynamic_cast<const PictureBox*>(&control);
  return box != nullptr && !box->HasColor();
}

}  // namespace

double SystemScale() {
  const HDC screen = GetDC(nullptr);
  const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dotsPerInch > 0 ? dotsPerInch / 96.0 : 1.0;
}

double ScaleOf(HWND window) {
  const HMODULE user = GetModuleHandleW(L"user32.dll");
  const FARPROC found = user == nullptr ? nullptr : GetProcAddress(user, "GetDpiForWindow");  // since Windows 10
  const UINT dotsPerInch =
      found == nullptr ? 0 : reinterpret_cast<UINT(WINAPI*)(HWND)>(reinterpret_cast<void*>(found))(window);
  return dotsPerInch == 0 ? SystemScale() : dotsPerInch / 96.0;
}

void FormLayout::SetScale(double scale) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  // The system's font is for the resolution that it started with; the form's may be another screen's.
  metrics.lfMessageFont.lfHeight =
      static_cast<LONG>(std::lround(metrics.lfMessageFont.lfHeight * scale / SystemScale()));
  OwnedFont font(CreateFontIndirectW(&metrics.lfMessageFont));
  context_.scale = scale;
  context_.font = font.Get();
  context_.measured.clear();
  widgets_.ShowFont();
  std::swap(font_, font);  // the former one goes when no window shows it any more
}

double FormLayout::ShareOf(const Control& control) const {
  const bool shrinks = control.TabStop() && dynamic_cast<const DrawnControl*>(&control) != nullptr;
  return shrinks && !comfort_ ? kDrawnShrinks : 1;
}

Size FormLayout::PreferredSize(const Control& control) const {
  const Widget* widget = widgets_.Of(control);
  if (widget == nullptr || IsGroup(control)) return {};
  const Size size = widget->PreferredSize();
  const double share = ShareOf(control);
  return {size.width * share, size.height * share};
}

double FormLayout::HeightForWidth(const Control& control, double width) const {
  const Widget* widget = widgets_.Of(control);
  return widget == nullptr ? 0 : widget->HeightForWidth(width) * ShareOf(control);
}

Insets FormLayout::ContainerInsets(const Control& container) const {
  const bool titled = dynamic_cast<const Frame*>(&container) != nullptr;
  const double padding = kGroupPadding * gapShare_;
  const double title = titled ? LineHeight(context_) / context_.scale - padding / 2 : 0;
  return {padding, title + padding, padding, padding};
}

double FormLayout::Margin() const {
  return kFormMargin * gapShare_;
}

void FormLayout::FitGaps(Size room) {
  for (const double share : kGapShares) {
    gapShare_ = share;
    const Size least = LeastSize();
    if (least.width <= room.width && least.height <= room.height) return;
  }
}

Size FormLayout::LeastSize() const {
  const Size content = MinimumSize(form_.Layout(), *this);
  return {content.width + 2 * Margin(), content.height + 2 * Margin()};
}

Size FormLayout::ComfortableSize() const {
  const FlagScope comfort(comfort_);
  return LeastSize();
}

RECT FormLayout::PlaceOf(const Control& control) const {
  Rect place = control.Place();
  for (const Control* container = control.Container(); container != nullptr; container = container->Container()) {
    place.x += container->Place().x;
    place.y += container->Place().y;
  }
  // Edges, not sizes, are rounded: neighbours stay neighbours at every scale.
  RECT dots{context_.Dots(place.x), context_.Dots(place.y), context_.Dots(place.Right()),
            context_.Dots(place.Bottom())};
  const POINT scrolled = scroll_.Offset();
  OffsetRect(&dots, -scrolled.x, -scrolled.y);
  return dots;
}

bool FormLayout::Outgrown(const Control& control) const {
  const Widget* widget = widgets_.Of(control);
  if (widget == nullptr) return false;
  const Rect& place = control.Place();
  return widget->PreferredSize().width > place.width + 0.5 || widget->HeightForWidth(place.width) > place.height + 0.5;
}

void FormLayout::Arrange() {
  const Size least = LeastSize();
  const SIZE content = scroll_.Fit({context_.Dots(least.width), context_.Dots(least.height)});
  const double margin = Margin();
  const Rect area{margin, margin, content.cx / context_.scale - 2 * margin, content.cy / context_.scale - 2 * margin};
  chartproject::Arrange(form_.Layout(), area, *this);
  for (const auto& [control, widget] : widgets_.All()) {
    widget->ApplyStyle();
    widget->Place(PlaceOf(*control));
  }
  InvalidateRect(context_.formWindow, nullptr, TRUE);
}

void FormLayout::Scroll(int bar, WORD code) {
  if (scroll_.Scroll(bar, code)) Arrange();
}

void FormLayout::Reveal(const Control& control) {
  if (scroll_.Reveal(PlaceOf(control))) Arrange();
}

void FormLayout::PaintGroups() const {
  const PaintScope paint(context_.formWindow);
  const OwnedBrush line(CreateSolidBrush(GroupLine()));
  const SelectScope font(paint.Get(), context_.font);
  SetBkColor(paint.Get(), GetSysColor(COLOR_3DFACE));
  for (const Control* control : form_.Controls()) {
    const bool titled = dynamic_cast<const Frame*>(control) != nullptr;
    if ((!titled && !IsGroup(*control)) || !control->EffectivelyVisible()) continue;
    RECT place = PlaceOf(*control);
    RECT title = place;
    if (titled) place.top += LineHeight(context_) / 2;
    FrameRect(paint.Get(), &place, line.Get());
    if (!titled) continue;
    // A blank on both sides keeps the line away from the words.
    const std::wstring caption = ToWide(control->Caption());
    const std::wstring words = L" " + caption + (caption.ends_with(L' ') ? L"" : L" ");
    SIZE blank{};
    GetTextExtentPoint32W(paint.Get(), words.c_str(), 1, &blank);
    title.left += context_.Dots(kGroupPadding) - blank.cx;
    SetTextColor(paint.Get(), GetSysColor(control->EffectivelyEnabled() ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    DrawTextW(paint.Get(), words.c_str(), -1, &title, DT_LEFT | DT_TOP | DT_SINGLELINE);
  }
}

}  // namespace chartproject::win32
