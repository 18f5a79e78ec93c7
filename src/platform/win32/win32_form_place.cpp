// Where a form and its controls stand: layout, window place in twips, resolution of the screen, modality.
#include <algorithm>
#include <cmath>

#include "platform/win32/wide_text.h"
#include "platform/win32/widget_types.h"
#include "platform/win32/win32_form_host.h"
#include "platform/win32/win32_form_view.h"

namespace chartproject::win32 {

namespace {

constexpr double kMargin = 9;  // around the layout, in its pixels

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
  return widget == nullptr ? Size{} : widget->PreferredSize();
}

double Win32FormView::HeightForWidth(const Control& control, double width) const {
  const Widget* widget = WidgetOf(control);
  return widget == nullptr ? 0 : widget->HeightForWidth(width);
}

Insets Win32FormView::ContainerInsets(const Control& container) const {
  if (dynamic_cast<const Frame*>(&container) == nullptr) return {};
  const double title = LineHeight(context_) / context_.scale;
  return {9, title + 5, 9, 9};
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
  const Rect area{kMargin, kMargin, client.right / context_.scale - 2 * kMargin,
                  client.bottom / context_.scale - 2 * kMargin};
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

void Win32FormView::SetMinimumTrack(MINMAXINFO& limits) const {
  const Size least = MinimumSize(form_.Layout(), *this);
  const SIZE size = WindowSizeFor({least.width + 2 * kMargin, least.height + 2 * kMargin});
  limits.ptMinTrackSize = {size.cx, size.cy};
}

/// After texts or visible boxes changed: the window grows when its layout needs more, and everything finds its place.
void Win32FormView::GrowToLayout() {
  RECT now;
  GetWindowRect(window_, &now);
  MINMAXINFO limits{};
  SetMinimumTrack(limits);
  const LONG width = std::max(now.right - now.left, limits.ptMinTrackSize.x);
  const LONG height = std::max(now.bottom - now.top, limits.ptMinTrackSize.y);
  const bool normal = IsZoomed(window_) == 0 && IsIconic(window_) == 0;
  if (normal && (width != now.right - now.left || height != now.bottom - now.top)) {
    SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  ArrangeControls();
  PlaceChanged();
}

/// Puts the window where the form says, on a screen that is there, and never smaller than its layout.
void Win32FormView::ApplyPlace() {
  if (IsZoomed(window_) != 0 || IsIconic(window_) != 0) return;
  const auto dots = [this](double twips) {
    return static_cast<LONG>(std::lround(twips / kTwipsPerPixel * context_.scale));
  };
  MINMAXINFO limits{};
  SetMinimumTrack(limits);
  RECT now;
  GetWindowRect(window_, &now);
  const LONG width = std::max(now.right - now.left, limits.ptMinTrackSize.x);
  const LONG height = std::max(dots(form_.Height()), limits.ptMinTrackSize.y);
  RECT wanted{dots(form_.Left()), dots(form_.Top()), 0, 0};
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
  for (const auto& [control, widget] : widgets_) {
    SendMessageW(widget->Window(), WM_SETFONT, reinterpret_cast<WPARAM>(context_.font), FALSE);
  }
  SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
               suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
  GrowToLayout();
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
  if (window_ == nullptr) return;
  DisableOthers();
  GrowToLayout();  // texts may have come between loading and showing
  const WindowState state = form_.State();
  ShowWindow(window_, state == WindowState::kMaximized   ? SW_SHOWMAXIMIZED
                      : state == WindowState::kMinimized ? SW_SHOWMINIMIZED
                                                         : SW_SHOWNORMAL);
  SetForegroundWindow(window_);
  const HWND first = lastFocus_ != nullptr ? lastFocus_ : GetNextDlgTabItem(window_, nullptr, FALSE);
  if (first != nullptr) SetFocus(first);
  UpdateWindow(window_);
}

void Win32FormView::Hide() {
  EnableOthers();  // before the window goes, so that the host's window becomes the active one
  if (window_ != nullptr) ShowWindow(window_, SW_HIDE);
}

}  // namespace chartproject::win32
