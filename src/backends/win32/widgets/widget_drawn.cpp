// Controls that the core paints: a window of our own class, a buffer, and the mouse and keys over it.
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/widget_types.h"
#include "backends/win32/widgets/window_classes.h"

#include <windowsx.h>

namespace chartproject::win32 {

namespace {

struct KeyPair {
  WPARAM native;
  Key key;
};

constexpr std::array<KeyPair, 8> kKeys{{{VK_LEFT, Key::kLeft},
                                        {VK_RIGHT, Key::kRight},
                                        {VK_PRIOR, Key::kPageUp},
                                        {VK_NEXT, Key::kPageDown},
                                        {VK_HOME, Key::kHome},
                                        {VK_END, Key::kEnd},
                                        {VK_BACK, Key::kBackspace},
                                        {VK_SPACE, Key::kSpace}}};

/// Nothing for a key that no control acts on.
std::optional<KeyPress> PressOf(WPARAM native) {
  KeyPress press{.shift = GetKeyState(VK_SHIFT) < 0, .control = GetKeyState(VK_CONTROL) < 0};
  if ((native >= 'A' && native <= 'Z') || (native >= '0' && native <= '9')) {
    press.key = Key::kCharacter;
    press.character = static_cast<char>(native);  // the system's numbers are those of the characters
    return press;
  }
  for (const KeyPair& pair : kKeys) {
    if (pair.native == native) press.key = pair.key;
  }
  const bool plus = native == VK_ADD || native == VK_OEM_PLUS;
  if (plus || native == VK_SUBTRACT || native == VK_OEM_MINUS) {
    press.key = Key::kCharacter;
    press.character = plus ? '+' : '-';
  }
  return press.key == Key::kNone ? std::nullopt : std::optional(press);
}

using OwnedMenu = Owned<HMENU, DestroyMenu>;  // with the menus in it

std::wstring MenuText(const MenuItem& item) {
  std::wstring text;
  for (const wchar_t letter : ToWide(item.text)) text.append(letter == L'&' ? 2 : 1, letter);
  return item.key.empty() ? text : text + L'\t' + ToWide(item.key);
}

void FillMenu(HMENU menu, const std::vector<MenuItem>& items) {
  for (const MenuItem& item : items) {
    if (item.text.empty()) {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
      continue;
    }
    UINT_PTR id = static_cast<UINT_PTR>(item.id);
    UINT flags = (item.enabled ? MF_ENABLED : MF_GRAYED) | (item.checked ? MF_CHECKED : MF_UNCHECKED);
    if (!item.items.empty()) {
      const HMENU opened = CreatePopupMenu();
      FillMenu(opened, item.items);
      id = reinterpret_cast<UINT_PTR>(opened);
      flags = MF_POPUP;
    }
    AppendMenuW(menu, flags, id, MenuText(item).c_str());
  }
}

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

PointF DrawnWidget::PointAt(POINT dots) const {
  return {dots.x / Context().scale, dots.y / Context().scale};
}

MouseInput DrawnWidget::InputAt(LPARAM data, WPARAM keys, MouseButton button) const {
  return {.at = PointAt({GET_X_LPARAM(data), GET_Y_LPARAM(data)}),
          .shift = (keys & MK_SHIFT) != 0,
          .control = (keys & MK_CONTROL) != 0,
          .button = button};
}

void DrawnWidget::ButtonPressed(const MouseInput& input, bool twice) {
  if (drawn_.TabStop()) SetFocus(Window());
  SetCapture(Window());
  twice ? drawn_.MouseDoubleClicked(input) : drawn_.MousePressed(input);
}

void DrawnWidget::ButtonReleased(const MouseInput& input) {
  if (GetCapture() == Window()) ReleaseCapture();
  drawn_.MouseReleased(input);
}

/// @param data place on the screen; -1 when a key asks for the menu
void DrawnWidget::OpenMenu(LPARAM data) {
  const std::vector<MenuItem> items = drawn_.ContextMenu();
  if (items.empty()) return;
  const OwnedMenu menu(CreatePopupMenu());
  FillMenu(menu.Get(), items);
  POINT at{GET_X_LPARAM(data), GET_Y_LPARAM(data)};
  if (data == -1) {
    RECT area;
    GetClientRect(Window(), &area);
    at = {area.right / 2, area.bottom / 2};
    ClientToScreen(Window(), &at);
  }
  const int id = TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, Window(), nullptr);
  if (id > 0) drawn_.MenuChosen(id);
}

void DrawnWidget::MouseMoved(LPARAM data, WPARAM keys) {
  if (!tracking_) {
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = Window();
    tracking_ = TrackMouseEvent(&track) != 0;
  }
  const bool left = (keys & MK_LBUTTON) != 0;
  const MouseButton other = (keys & MK_MBUTTON) != 0 ? MouseButton::kMiddle : MouseButton::kNone;
  drawn_.MouseMoved(InputAt(data, keys, left ? MouseButton::kLeft : other));
}

bool DrawnWidget::KeyPressed(WPARAM virtualKey) {
  const auto press = PressOf(virtualKey);
  return press && drawn_.KeyPressed(*press);
}

bool DrawnWidget::Wheel(int notches) {
  POINT at{};
  GetCursorPos(&at);
  ScreenToClient(Window(), &at);
  return drawn_.WheelTurned({.notches = notches,
                             .at = PointAt(at),
                             .shift = GetKeyState(VK_SHIFT) < 0,
                             .control = GetKeyState(VK_CONTROL) < 0});
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
    case WM_LBUTTONDBLCLK:
      ButtonPressed(InputAt(data, word, MouseButton::kLeft), message == WM_LBUTTONDBLCLK);
      return true;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
      ButtonPressed(InputAt(data, word, MouseButton::kMiddle), message == WM_MBUTTONDBLCLK);
      return true;
    case WM_LBUTTONUP:
    case WM_MBUTTONUP:
      ButtonReleased(InputAt(data, word, message == WM_LBUTTONUP ? MouseButton::kLeft : MouseButton::kMiddle));
      return true;
    case WM_CONTEXTMENU:
      OpenMenu(data);
      return true;
    case WM_GETDLGCODE:
      result = DLGC_WANTARROWS | DLGC_WANTCHARS;
      return true;
    case WM_KEYDOWN:
      return KeyPressed(word);
    case WM_KEYUP:
      if (const auto press = PressOf(word)) drawn_.KeyReleased(*press);
      return false;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(Window(), nullptr, FALSE);
      return false;
    default:
      return false;
  }
}

}  // namespace chartproject::win32
