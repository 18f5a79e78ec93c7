// The window's own scroll bars hold ranges and positions.
#include "backends/win32/forms/form_scroll.h"

#include <algorithm>

namespace chartproject::win32 {

namespace {

constexpr int kLine = 32;  // layout pixels that an arrow of a bar scrolls

SCROLLINFO Stored(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window, bar, &info);
  return info;
}

void StoreRange(HWND window, int bar, LONG room, LONG least) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE;  // a page as long as the range hides the bar
  info.nMax = static_cast<int>(std::max(room, least)) - 1;
  info.nPage = static_cast<UINT>(room);
  SetScrollInfo(window, bar, &info, TRUE);
}

}  // namespace

SIZE FormScroll::Fit(SIZE least) {
  const HWND window = context_.formWindow;
  RECT room;
  // A bar takes room from the other direction: the second time both are known.
  for (int pass = 0; pass < 2; ++pass) {
    GetClientRect(window, &room);
    StoreRange(window, SB_VERT, room.bottom, least.cy);
    GetClientRect(window, &room);
    StoreRange(window, SB_HORZ, room.right, least.cx);
  }
  GetClientRect(window, &room);
  return {std::max(room.right, least.cx), std::max(room.bottom, least.cy)};
}

POINT FormScroll::Offset() const {
  return {GetScrollPos(context_.formWindow, SB_HORZ), GetScrollPos(context_.formWindow, SB_VERT)};
}

bool FormScroll::MoveTo(int bar, int position) {
  const HWND window = context_.formWindow;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_POS;
  info.nPos = position;
  const int before = GetScrollPos(window, bar);
  return SetScrollInfo(window, bar, &info, TRUE) != before;  // the system keeps it in the range
}

bool FormScroll::Scroll(int bar, WORD code) {
  const SCROLLINFO info = Stored(context_.formWindow, bar);
  const int page = static_cast<int>(info.nPage);
  switch (code) {
    case SB_LINEUP:
      return MoveTo(bar, info.nPos - context_.Dots(kLine));
    case SB_LINEDOWN:
      return MoveTo(bar, info.nPos + context_.Dots(kLine));
    case SB_PAGEUP:
      return MoveTo(bar, info.nPos - page);
    case SB_PAGEDOWN:
      return MoveTo(bar, info.nPos + page);
    case SB_TOP:
      return MoveTo(bar, info.nMin);
    case SB_BOTTOM:
      return MoveTo(bar, info.nMax);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return MoveTo(bar, info.nTrackPos);
    default:
      return false;
  }
}

bool FormScroll::Reveal(const RECT& place) {
  RECT room;
  GetClientRect(context_.formWindow, &room);
  const POINT offset = Offset();
  const auto shift = [](LONG from, LONG to, LONG end) {
    return from < 0 ? from : to > end ? std::min(from, to - end) : 0;
  };
  const bool sideways = MoveTo(SB_HORZ, static_cast<int>(offset.x + shift(place.left, place.right, room.right)));
  return MoveTo(SB_VERT, static_cast<int>(offset.y + shift(place.top, place.bottom, room.bottom))) || sideways;
}

}  // namespace chartproject::win32
