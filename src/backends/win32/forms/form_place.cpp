// Between twips of a form and dots of its window.
#include "backends/win32/forms/form_place.h"

#include <algorithm>

#include "forms/flag_scope.h"
#include "forms/form.h"

namespace chartproject::win32 {

namespace {

LONG Width(const RECT& place) {
  return place.right - place.left;
}

LONG Height(const RECT& place) {
  return place.bottom - place.top;
}

SIZE Larger(SIZE one, SIZE other) {
  return {std::max(one.cx, other.cx), std::max(one.cy, other.cy)};
}

/// Where windows may be on a screen; nothing when the system does not say.
bool WorkArea(HMONITOR monitor, RECT& area) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  if (GetMonitorInfoW(monitor, &screen) == 0) return false;
  area = screen.rcWork;
  return true;
}

}  // namespace

SIZE FormPlace::WindowSizeFor(Size client) const {
  const HWND window = context_.formWindow;
  RECT frame{0, 0, context_.Dots(client.width), context_.Dots(client.height)};
  AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)), FALSE,
                     static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)));
  return {Width(frame), Height(frame)};
}

/// The least size of the window; never more than its screen has.
SIZE FormPlace::LeastSize() const {
  SIZE size = WindowSizeFor(shownOnce_ ? layout_.LeastSize() : layout_.ComfortableSize());
  RECT area;
  if (!WorkArea(MonitorFromWindow(context_.formWindow, MONITOR_DEFAULTTONEAREST), area)) return size;
  // A bar that scrolls one direction takes room from the other.
  const LONG across = size.cy > Height(area) ? GetSystemMetrics(SM_CXVSCROLL) : 0;
  const LONG down = size.cx > Width(area) ? GetSystemMetrics(SM_CYHSCROLL) : 0;
  return {std::min(size.cx + across, Width(area)), std::min(size.cy + down, Height(area))};
}

void FormPlace::FitToScreen() {
  RECT area;
  if (!WorkArea(MonitorFromWindow(context_.formWindow, MONITOR_DEFAULTTONEAREST), area)) return;
  const SIZE frame = WindowSizeFor({});
  layout_.FitGaps({(Width(area) - frame.cx) / context_.scale, (Height(area) - frame.cy) / context_.scale});
}

/// The size that the form asks for, or that the user gave it; never more than its screen has.
SIZE FormPlace::WantedSize() const {
  const SIZE size{context_.Dots(form_.Width() / kTwipsPerPixel), context_.Dots(form_.Height() / kTwipsPerPixel)};
  RECT area;
  if (!WorkArea(MonitorFromWindow(context_.formWindow, MONITOR_DEFAULTTONEAREST), area)) return size;
  return {std::min(size.cx, Width(area)), std::min(size.cy, Height(area))};
}

void FormPlace::Arrange() {
  if (IsIconic(context_.formWindow) == 0) layout_.Arrange();
}

void FormPlace::GrowToLayout() {
  const HWND window = context_.formWindow;
  widgets_.ShowCaptions();
  FitToScreen();
  RECT now;
  GetWindowRect(window, &now);
  // Before the first display the size is what the form asks for.
  const SIZE size = Larger(shownOnce_ ? SIZE{Width(now), Height(now)} : WantedSize(), LeastSize());
  const bool normal = IsZoomed(window) == 0 && IsIconic(window) == 0;
  if (normal && (size.cx != Width(now) || size.cy != Height(now))) {
    SetWindowPos(window, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  Arrange();
  ReportToForm();
}

void FormPlace::Apply() {
  if (IsZoomed(context_.formWindow) != 0 || IsIconic(context_.formWindow) != 0) return;
  const SIZE size = Larger(WantedSize(), LeastSize());
  RECT wanted{context_.Dots(form_.Left() / kTwipsPerPixel), context_.Dots(form_.Top() / kTwipsPerPixel), 0, 0};
  wanted.right = wanted.left + size.cx;
  wanted.bottom = wanted.top + size.cy;
  RECT area;
  if (WorkArea(MonitorFromRect(&wanted, MONITOR_DEFAULTTONEAREST), area)) {
    wanted.left = std::max(area.left, std::min(wanted.left, area.right - size.cx));
    wanted.top = std::max(area.top, std::min(wanted.top, area.bottom - size.cy));
  }
  const FlagScope placing(placing_);
  SetWindowPos(context_.formWindow, nullptr, wanted.left, wanted.top, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormPlace::ApplyState() {
  const WindowState state = form_.State();
  ShowWindow(context_.formWindow, state == WindowState::kMaximized   ? SW_MAXIMIZE
                                  : state == WindowState::kMinimized ? SW_MINIMIZE
                                                                     : SW_RESTORE);
}

void FormPlace::Show() {
  GrowToLayout();  // texts may have come between loading and showing
  shownOnce_ = true;
  const WindowState state = form_.State();
  ShowWindow(context_.formWindow, state == WindowState::kMaximized   ? SW_SHOWMAXIMIZED
                                  : state == WindowState::kMinimized ? SW_SHOWMINIMIZED
                                                                     : SW_SHOWNORMAL);
}

/// Before the first display the state is the one that the form asks for: the size is new, the place is not known yet.
void FormPlace::ReportSize() {
  RECT now;
  GetWindowRect(context_.formWindow, &now);
  const double twips = kTwipsPerPixel / context_.scale;
  form_.PlaceChangedByUser(form_.Left(), form_.Top(), Width(now) * twips, Height(now) * twips);
}

void FormPlace::ReportToForm() {
  if (!shownOnce_) {
    ReportSize();
    return;
  }
  const HWND window = context_.formWindow;
  form_.StateChangedByUser(IsZoomed(window) != 0   ? WindowState::kMaximized
                           : IsIconic(window) != 0 ? WindowState::kMinimized
                                                   : WindowState::kNormal);
  if (form_.State() != WindowState::kNormal) return;
  RECT now;
  GetWindowRect(window, &now);
  const double twips = kTwipsPerPixel / context_.scale;
  form_.PlaceChangedByUser(now.left * twips, now.top * twips, Width(now) * twips, Height(now) * twips);
}

bool FormPlace::Message(UINT message, LPARAM data) {
  switch (message) {
    case WM_SIZE:
    case WM_MOVE:
      if (!placing_) ReportToForm();
      if (message == WM_SIZE) Arrange();
      return true;
    case WM_GETMINMAXINFO: {
      const SIZE least = LeastSize();
      reinterpret_cast<MINMAXINFO*>(data)->ptMinTrackSize = {least.cx, least.cy};
      return true;
    }
    default:
      return false;
  }
}

void FormPlace::DpiChanged(int dotsPerInch, const RECT& suggested) {
  layout_.SetScale(dotsPerInch / 96.0);
  SetWindowPos(context_.formWindow, nullptr, suggested.left, suggested.top, Width(suggested), Height(suggested),
               SWP_NOZORDER | SWP_NOACTIVATE);
  GrowToLayout();
  // What only moved was copied as it was, in the former font.
  RedrawWindow(context_.formWindow, nullptr, nullptr, RDW_ERASE | RDW_INVALIDATE | RDW_ALLCHILDREN);
}

}  // namespace chartproject::win32
