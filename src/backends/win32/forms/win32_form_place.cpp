// Where a form and its controls stand: layout, window place in twips, resolution of the screen, modality.
#include <algorithm>
#include <cmath>

#include "backends/win32/forms/widget_types.h"
#include "backends/win32/forms/win32_form_host.h"
#include "backends/win32/forms/win32_form_view.h"
#include "backends/win32/wide_text.h"
#include "forms/access_keys.h"

namespace chartproject::win32 {

namespace {

constexpr double kGroupPadding = 10;   // within a group, in the layout's pixels
constexpr double kDrawnShrinks = 0.5;  // a picture may be made this much smaller than it would like to be

/// The colour of a calm line on the forms' ground.
COLORREF GroupLine() {
  const COLORREF ground = GetSysColor(COLOR_3DFACE);
  const auto darker = [](BYTE part) { return static_cast<BYTE>(part * 100 / 115); };
  return RGB(darker(GetRValue(ground)), darker(GetGValue(ground)), darker(GetBValue(ground)));
}

bool IsGroup(const Control& control) {
  const auto* box = dynamic_cast<const PictureBox*>(&control);
  return box != nullptr && !box->HasColor();
}

BOOL CALLBACK CollectEnabled(HWND window, LPARAM list) noexcept {
  if (IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0) {
    try {
      reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    } catch (...) {
      return FALSE;
    }
  }
  return TRUE;
}

}  // namespace

double SystemScale() {
  const HDC screen = GetDC(nullptr);
  const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dotsPerInch > 0 ? dotsPerInch / 96.0 : 1.0;
}

void Win32FormView::MakeFont() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  // The system's font is for the resolution that it started with; the form's may be another screen's.
  metrics.lfMessageFont.lfHeight =
      static_cast<LONG>(std::lround(metrics.lfMessageFont.lfHeight * context_.scale / SystemScale()));
  font_ = OwnedFont(CreateFontIndirectW(&metrics.lfMessageFont));
  context_.font = font_.Get();
}

int Win32FormView::Dots(double pixels) const {
  return static_cast<int>(std::lround(pixels * context_.scale));
}

Size Win32FormView::PreferredSize(const Control& control) const {
  const Widget* widget = WidgetOf(control);
  if (widget == nullptr || IsGroup(control)) return {};
  const Size size = widget->PreferredSize();
  const bool shrinks = shownOnce_ && control.TabStop() && dynamic_cast<const DrawnControl*>(&control) != nullptr;
  const double factor = shrinks ? kDrawnShrinks : 1;
  return {size.width * factor, size.height * factor};
}

double Win32FormView::HeightForWidth(const Control& control, double width) const {
  const Widget* widget = WidgetOf(control);
  return widget == nullptr ? 0 : widget->HeightForWidth(width);
}

Insets Win32FormView::ContainerInsets(const Control& container) const {
  const bool titled = dynamic_cast<const Frame*>(&container) != nullptr;
  const double title = titled ? LineHeight(context_) / context_.scale - kGroupPadding / 2 : 0;
  return {kGroupPadding, title + kGroupPadding, kGroupPadding, kGroupPadding};
}

RECT Win32FormView::PlaceOf(const Control& control) const {
  Rect place = control.Place();
  for (const Control* container = control.Container(); container != nullptr; container = container->Container()) {
    place.x += container->Place().x;
    place.y += container->Place().y;
  }
  // Edges, not sizes, are rounded: neighbours stay neighbours at every scale.
  return {Dots(place.x), Dots(place.y), Dots(place.Right()), Dots(place.Bottom())};
}

void Win32FormView::ArrangeControls() {
  if (IsIconic(window_) != 0) return;
  RECT client;
  GetClientRect(window_, &client);
  const Rect area{kFormMargin, kFormMargin, client.right / context_.scale - 2 * kFormMargin,
                  client.bottom / context_.scale - 2 * kFormMargin};
  Arrange(form_.Layout(), area, *this);
  for (const auto& [control, widget] : widgets_) {
    widget->ApplyStyle();
    widget->Place(PlaceOf(*control));
  }
  InvalidateRect(window_, nullptr, TRUE);
}

SIZE Win32FormView::WindowSizeFor(Size client) const {
  RECT frame{0, 0, Dots(client.width), Dots(client.height)};
  AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                     static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)));
  return {frame.right - frame.left, frame.bottom - frame.top};
}

/// The least size of the window; never more than its screen has.
SIZE Win32FormView::LeastSize() const {
  const Size least = MinimumSize(form_.Layout(), *this);
  const SIZE size = WindowSizeFor({least.width + 2 * kFormMargin, least.height + 2 * kFormMargin});
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  if (GetMonitorInfoW(MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST), &screen) == 0) return size;
  const RECT& area = screen.rcWork;
  return {std::min(size.cx, area.right - area.left), std::min(size.cy, area.bottom - area.top)};
}

/// Captions with the letters that Alt reaches; a label's letter goes to the field behind it.
void Win32FormView::ShowCaptions(const Control* only) {
  const auto captions = CaptionsWithAccessKeys(form_);
  for (const auto& [control, widget] : widgets_) {
    if ((only != nullptr && control != only) || !control->HasCaption()) continue;
    const auto found = captions.find(control);
    const bool accessKey = found != captions.end();
    widget->ShowCaption(ToWide(accessKey ? found->second : control->Caption()), accessKey);
  }
}

void Win32FormView::PaintGroups() {
  const PaintScope paint(window_);
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
    title.left += Dots(kGroupPadding);
    SetTextColor(paint.Get(), GetSysColor(control->EffectivelyEnabled() ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    DrawTextW(paint.Get(), ToWide(control->Caption()).c_str(), -1, &title, DT_LEFT | DT_TOP | DT_SINGLELINE);
  }
}

/// After texts or visible boxes changed: the window grows when its layout needs more, and everything finds its place.
void Win32FormView::GrowToLayout() {
  ShowCaptions();
  RECT now;
  GetWindowRect(window_, &now);
  const SIZE least = LeastSize();
  // Before the first display the size is what the form asks for.
  const SIZE size = shownOnce_ ? SIZE{now.right - now.left, now.bottom - now.top} : WantedSize();
  const LONG width = std::max(size.cx, least.cx);
  const LONG height = std::max(size.cy, least.cy);
  const bool normal = IsZoomed(window_) == 0 && IsIconic(window_) == 0;
  if (normal && (width != now.right - now.left || height != now.bottom - now.top)) {
    SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  ArrangeControls();
  PlaceChanged();
}

LONG Win32FormView::DotsOfTwips(double twips) const {
  return Dots(twips / kTwipsPerPixel);
}

/// The size that the form asks for, or that the user gave it.
SIZE Win32FormView::WantedSize() const {
  return {DotsOfTwips(form_.Width()), DotsOfTwips(form_.Height())};
}

/// Puts the window where the form says, on a screen that is there, and never smaller than its layout.
void Win32FormView::ApplyPlace() {
  if (IsZoomed(window_) != 0 || IsIconic(window_) != 0) return;
  const SIZE least = LeastSize();
  const SIZE size = WantedSize();
  const LONG width = std::max(size.cx, least.cx);
  const LONG height = std::max(size.cy, least.cy);
  RECT wanted{DotsOfTwips(form_.Left()), DotsOfTwips(form_.Top()), 0, 0};
  wanted.right = wanted.left + width;
  wanted.bottom = wanted.top + height;
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  if (GetMonitorInfoW(MonitorFromRect(&wanted, MONITOR_DEFAULTTONEAREST), &screen) != 0) {
    const RECT& area = screen.rcWork;
    wanted.left = std::max(area.left, std::min(wanted.left, area.right - width));
    wanted.top = std::max(area.top, std::min(wanted.top, area.bottom - height));
  }
  placing_ = true;
  SetWindowPos(window_, nullptr, wanted.left, wanted.top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  placing_ = false;
}

void Win32FormView::PlaceChanged() {
  form_.StateChangedByUser(IsZoomed(window_) != 0   ? WindowState::kMaximized
                           : IsIconic(window_) != 0 ? WindowState::kMinimized
                                                    : WindowState::kNormal);
  if (form_.State() != WindowState::kNormal) return;
  RECT now;
  GetWindowRect(window_, &now);
  const double twips = kTwipsPerPixel / context_.scale;
  form_.PlaceChangedByUser(now.left * twips, now.top * twips, (now.right - now.left) * twips,
                           (now.bottom - now.top) * twips);
}

void Win32FormView::DpiChanged(WPARAM word, const RECT& suggested) {
  context_.scale = LOWORD(word) / 96.0;
  MakeFont();
  LimitToolTips();
  for (const auto& [control, widget] : widgets_) {
    SendMessageW(widget->Window(), WM_SETFONT, reinterpret_cast<WPARAM>(context_.font), FALSE);
  }
  SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
               suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
  GrowToLayout();
  // What only moved was copied as it was, in the former font.
  RedrawWindow(window_, nullptr, nullptr, RDW_ERASE | RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void Win32FormView::DisableOthers() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), CollectEnabled, reinterpret_cast<LPARAM>(&windows));
  for (const HWND other : windows) {
    if (other == window_ || GetWindow(other, GW_OWNER) == window_) continue;
    EnableWindow(other, FALSE);
    disabled_.push_back(other);
  }
}

void Win32FormView::EnableOthers() {
  for (const HWND other : disabled_) EnableWindow(other, TRUE);
  disabled_.clear();
}

void Win32FormView::Show() {
  if (window_ == nullptr) {
    form_.Unload();
    return;
  }
  activeBefore_ = GetActiveWindow();
  DisableOthers();
  GrowToLayout();  // texts may have come between loading and showing
  shownOnce_ = true;
  const WindowState state = form_.State();
  ShowWindow(window_, state == WindowState::kMaximized   ? SW_SHOWMAXIMIZED
                      : state == WindowState::kMinimized ? SW_SHOWMINIMIZED
                                                         : SW_SHOWNORMAL);
  SetForegroundWindow(window_);
  PutFocusBack();
  UpdateWindow(window_);
}

void Win32FormView::Hide() {
  leaving_ = nullptr;  // a window that goes is not left by its fields
  EnableOthers();      // before the window goes, so that the host's window becomes the active one
  if (window_ == nullptr) return;
  // The one that was active, which need not be the owner: a dialog or a tool window of the host's.
  const bool back = IsWindowVisible(activeBefore_) != 0 && IsWindowEnabled(activeBefore_) != 0;
  if (back && GetActiveWindow() == window_) SetActiveWindow(activeBefore_);
  ShowWindow(window_, SW_HIDE);
}

}  // namespace chartproject::win32
