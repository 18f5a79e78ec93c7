// Controls that the core paints: a window of our own class, a buffer, and the mouse and keys over it.
#include <array>
#include <cmath>

#include "backends/win32/widgets/widget_types.h"
#include "backends/win32/widgets/window_classes.h"

#include <windowsx.h>

namespace chartproject::win32 {

namespace {

struct KeyPair {
  WPARAM native;
  Key key;
};

constexpr std::array<KeyPair, 6> kKeys{{{VK_LEFT, Key::kLeft},
                                        {VK_RIGHT, Key::kRight},
                                        {VK_PRIOR, Key::kPageUp},
                                        {VK_NEXT, Key::kPageDown},
                                        {VK_HOME, Key::kHome},
                                        {VK_END, Key::kEnd}}};

}  // namespace

DrawnWidget::DrawnWidget(DrawnControl& drawn, WidgetContext& context)
    : Widget(drawn, context, kDrawnClass, 0), drawn_(drawn) {}

void DrawnWidget::Apply(Property property) {
  const bool picture = property == Property::kContent || property == Property::kPicture;
  if (picture) picture_ = OwnedBitmap();
  if (picture || property == Property::kOverlay) InvalidateRect(Window(), nullptr, FALSE);
  Widget::Apply(property);
}

Size DrawnWidget::PreferredSize() const {
  return drawn_.PreferredSize();
}

void DrawnWidget::PaintPicture(HDC dc, int width, int height) {
  const RECT all{0, 0, width, height};
  FillRect(dc, &all, GetSysColorBrush(COLOR_3DFACE));
  Draw(dc, width, height, [this](Canvas& canvas) { drawn_.Paint(canvas); });
}

void DrawnWidget::Draw(HDC dc, int width, int height, const std::function<void(Canvas&)>& paint) {
  Gdiplus::Graphics graphics(dc);
  const double scale = Context().scale;
  GdiplusCanvas canvas(graphics, Context().fonts, Size{width / scale, height / scale}, scale);
  paint(canvas);
}

void DrawnWidget::Paint() {
  const PaintScope paint(Window());
  const HDC screen = paint.Get();
  RECT area;
  GetClientRect(Window(), &area);
  const SIZE size{area.right, area.bottom};
  if (size.cx <= 0 || size.cy <= 0) return;
  const bool upToDate = picture_.Get() != nullptr && size.cx == pictureSize_.cx && size.cy == pictureSize_.cy &&
                        Context().scale == pictureScale_;
  if (!upToDate) {
    picture_ = OwnedBitmap(CreateCompatibleBitmap(screen, size.cx, size.cy));
    pictureSize_ = size;
    pictureScale_ = Context().scale;
  }
  const OwnedDc picture(CreateCompatibleDC(screen));
  const SelectScope pictureSelected(picture.Get(), picture_.Get());
  if (!upToDate) PaintPicture(picture.Get(), size.cx, size.cy);
  const OwnedBitmap copy(CreateCompatibleBitmap(screen, size.cx, size.cy));
  const OwnedDc buffer(CreateCompatibleDC(screen));
  const SelectScope copySelected(buffer.Get(), copy.Get());
  BitBlt(buffer.Get(), 0, 0, size.cx, size.cy, picture.Get(), 0, 0, SRCCOPY);
  Draw(buffer.Get(), size.cx, size.cy, [this](Canvas& canvas) { drawn_.PaintOverlay(canvas); });
  if (drawn_.TabStop()) PaintFocus(Window(), buffer.Get());
  BitBlt(screen, 0, 0, size.cx, size.cy, buffer.Get(), 0, 0, SRCCOPY);
}

MouseInput DrawnWidget::InputAt(LPARAM data, WPARAM keys) const {
  const double scale = Context().scale;
  return MouseInput{{GET_X_LPARAM(data) / scale, GET_Y_LPARAM(data) / scale}, (keys & MK_SHIFT) != 0};
}

void DrawnWidget::MouseMoved(LPARAM data, WPARAM keys) {
  if (!tracking_) {
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = Window();
    tracking_ = TrackMouseEvent(&track) != 0;
  }
  drawn_.MouseMoved(InputAt(data, keys));
}

bool DrawnWidget::KeyPressed(WPARAM virtualKey) {
  for (const KeyPair& pair : kKeys) {
    if (pair.native == virtualKey) return drawn_.KeyPressed(pair.key, GetKeyState(VK_SHIFT) < 0);
  }
  return false;
}

bool DrawnWidget::Wheel(int notches) {
  return drawn_.WheelTurned(notches);
}

bool DrawnWidget::Message(UINT message, WPARAM word, LPARAM data, LRESULT& result) {
  result = 0;
  switch (message) {
    case WM_PAINT:
      Paint();
      return true;
    case WM_ERASEBKGND:
      result = 1;
      return true;  // the buffer covers everything
    case WM_SIZE:
      InvalidateRect(Window(), nullptr, FALSE);
      return false;
    case WM_MOUSEMOVE:
      MouseMoved(data, word);
      return true;
    case WM_MOUSELEAVE:
      tracking_ = false;
      drawn_.MouseLeft();
      return true;
    case WM_LBUTTONDOWN:
      SetFocus(Window());
      drawn_.MousePressed(InputAt(data, word));
      return true;
    case WM_GETDLGCODE:
      result = DLGC_WANTARROWS;
      return true;
    case WM_KEYDOWN:
      return KeyPressed(word);
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(Window(), nullptr, FALSE);
      return false;
    default:
      return false;
  }
}

}  // namespace chartproject::win32
