// Labels, frames, swatches, buttons, check boxes and drop-down lists.
#include <algorithm>

#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/widget_types.h"

#include <commctrl.h>

namespace chartproject::win32 {

namespace {

constexpr int kDropDownLines = 16;
constexpr LONG kTypingPause = 1000;  // milliseconds after which a letter begins another word

DWORD LabelStyle(const Label& label, bool accessKey) {
  DWORD style = SS_NOTIFY;
  switch (label.TextAlign()) {
    case Align::kCenter:
      style |= SS_CENTER;
      break;
    case Align::kRight:
      style |= SS_RIGHT;
      break;
    case Align::kLeft:
      break;
  }
  if (!label.WordWrap()) style |= SS_CENTERIMAGE;
  if (label.Elided()) style |= SS_ENDELLIPSIS;
  if (!accessKey) style |= SS_NOPREFIX;
  if (label.BorderStyle() != 0) style |= WS_BORDER;
  return style;
}

}  // namespace

LabelWidget::LabelWidget(Label& label, WidgetContext& context)
    : Widget(label, context, L"STATIC", LabelStyle(label, false)), label_(label) {}

void LabelWidget::Apply(Property property) {
  Widget::Apply(property == Property::kCaption ? Property::kVisible : property);
}

void LabelWidget::ApplyStyle() {
  constexpr LONG_PTR kOurs = SS_NOTIFY | SS_TYPEMASK | SS_CENTERIMAGE | SS_ELLIPSISMASK | SS_NOPREFIX | WS_BORDER;
  const LONG_PTR before = GetWindowLongPtrW(Window(), GWL_STYLE);
  const LONG_PTR after = (before & ~kOurs) | static_cast<LONG_PTR>(LabelStyle(label_, HasAccessKey()));
  if (before == after) return;
  SetWindowLongPtrW(Window(), GWL_STYLE, after);
  SetWindowPos(Window(), nullptr, 0, 0, 0, 0,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

Size LabelWidget::PreferredSize() const {
  const SIZE text = CaptionSize();
  const int least = LineHeight(Context()) + 2;
  if (label_.Elided()) return FromDots({0, least});
  // A wrapping label takes the width that is there; a word or two is the least that makes sense.
  const LONG width = label_.WordWrap() ? std::min<LONG>(text.cx, least * 6) : text.cx;
  return FromDots({width + 2, std::max<LONG>(label_.WordWrap() ? 0 : text.cy, least)});
}

double LabelWidget::HeightForWidth(double width) const {
  if (!label_.WordWrap()) return PreferredSize().height;
  const int dots = std::max(1, static_cast<int>(width * Context().scale) - 2);
  const SIZE text = CaptionSize(dots);
  return FromDots({0, std::max<LONG>(text.cy, LineHeight(Context())) + 2}).height;
}

// Measures the title, and holds it for programs that read the screen out.
FrameWidget::FrameWidget(Frame& frame, WidgetContext& context) : Widget(frame, context, L"BUTTON", BS_GROUPBOX) {}

Size FrameWidget::PreferredSize() const {
  const SIZE text = CaptionSize();
  return FromDots({text.cx + 24, text.cy + 8});
}

SwatchWidget::SwatchWidget(PictureBox& box, WidgetContext& context)
    : Widget(box, context, L"STATIC", SS_NOTIFY | WS_BORDER), box_(box) {}

void SwatchWidget::Apply(Property property) {
  if (property == Property::kColor) {
    const Color color = box_.BackColor();
    brush_ = OwnedBrush(CreateSolidBrush(RGB(color.red, color.green, color.blue)));
    InvalidateRect(Window(), nullptr, TRUE);
    Widget::Apply(Property::kVisible);
  }
  Widget::Apply(property);
}

Size SwatchWidget::PreferredSize() const {
  return {18, 14};
}

HBRUSH SwatchWidget::Background(HDC /*dc*/) {
  // The colour of a series that is not in use fades.
  return box_.EffectivelyEnabled() ? brush_.Get() : nullptr;
}

void SwatchWidget::Command(WORD code) {
  if (code == STN_CLICKED) box_.Press();
}

ButtonWidget::ButtonWidget(CommandButton& button, WidgetContext& context)
    : Widget(button, context, L"BUTTON", button.IsDefault() ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), button_(button) {}

Size ButtonWidget::PreferredSize() const {
  const Size size = FromDots(CaptionSize());
  return {std::max(75.0, size.width + 24), std::max(23.0, size.height + 10)};
}

void ButtonWidget::Command(WORD code) {
  if (code == BN_CLICKED) button_.Press();
}

CheckBoxWidget::CheckBoxWidget(CheckBox& box, WidgetContext& context)
    : Widget(box, context, L"BUTTON", BS_3STATE), box_(box) {}

void CheckBoxWidget::Apply(Property property) {
  if (property == Property::kValue) SendMessageW(Window(), BM_SETCHECK, static_cast<WPARAM>(box_.Value()), 0);
  Widget::Apply(property);
}

Size CheckBoxWidget::PreferredSize() const {
  const Size size = FromDots(CaptionSize());
  return {size.width + 24, std::max(18.0, size.height + 2)};
}

void CheckBoxWidget::Command(WORD code) {
  if (code == BN_CLICKED) box_.SetValue(box_.Value() == 1 ? 0 : 1);
}

ComboBoxWidget::ComboBoxWidget(ComboBox& box, WidgetContext& context)
    : Widget(box, context, L"COMBOBOX",
             CBS_DROPDOWNLIST | WS_VSCROLL | (box.GreysItems() ? CBS_OWNERDRAWFIXED | CBS_HASSTRINGS : 0U)),
      box_(box) {}

void ComboBoxWidget::Apply(Property property) {
  if (property == Property::kList) ShowList();
  if (property == Property::kListIndex) SendMessageW(Window(), CB_SETCURSEL, static_cast<WPARAM>(box_.ListIndex()), 0);
  if (property == Property::kAvailability) InvalidateRect(Window(), nullptr, TRUE);
  Widget::Apply(property);
}

/// An item that is not available is grey, as it is on the other platform.
void ComboBoxWidget::DrawItem(const DRAWITEMSTRUCT& item) {
  const bool selected = (item.itemState & ODS_SELECTED) != 0;
  const int index = static_cast<int>(item.itemID);
  const bool grey = (item.itemState & ODS_DISABLED) != 0 || !box_.IsAvailable(index);
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(grey ? COLOR_GRAYTEXT : selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  RECT place = item.rcItem;
  place.left += Context().Dots(3);
  DrawTextW(item.hDC, ToWide(box_.List(index)).c_str(), -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &item.rcItem);
}

/// Arrow keys of the closed list pass what is not available.
bool ComboBoxWidget::StepPassed(WPARAM key) {
  if (SendMessageW(Window(), CB_GETDROPPEDSTATE, 0, 0) != 0 || GetKeyState(VK_MENU) < 0) return false;
  int target = -1;
  switch (key) {
    case VK_UP:
      target = box_.NextAvailable(box_.ListIndex(), -1);
      break;
    case VK_DOWN:
      target = box_.NextAvailable(box_.ListIndex(), 1);
      break;
    case VK_HOME:
      target = box_.NextAvailable(-1, 1);
      break;
    case VK_END:
      target = box_.NextAvailable(box_.ListCount(), -1);
      break;
    default:
      return false;
  }
  if (target >= 0 && target < box_.ListCount() && box_.IsAvailable(target)) box_.SetListIndex(target);
  return true;
}

/// Lists grow item by item: only what is new is handed over.
void ComboBoxWidget::ShowList() {
  int shown = static_cast<int>(SendMessageW(Window(), CB_GETCOUNT, 0, 0));
  if (box_.ListCount() == 0 || shown > box_.ListCount()) {
    SendMessageW(Window(), CB_RESETCONTENT, 0, 0);
    shown = 0;
  }
  for (int index = shown; index < box_.ListCount(); ++index) {
    SendMessageW(Window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(box_.List(index)).c_str()));
  }
  SendMessageW(Window(), CB_SETCURSEL, static_cast<WPARAM>(box_.ListIndex()), 0);
}

Size ComboBoxWidget::PreferredSize() const {
  LONG widest = MeasureText(Context(), L"000000", 0, false).cx;
  constexpr int kMeasured = 40;  // long lists hold numbers of one width
  const int count = std::min(box_.ListCount(), kMeasured);
  for (int index = 0; index < count; ++index) {
    widest = std::max(widest, MeasureText(Context(), ToWide(box_.List(index)), 0, false).cx);
  }
  RECT closed{};
  GetWindowRect(Window(), &closed);
  const LONG field = static_cast<LONG>(SendMessageW(Window(), CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0)) + 6;
  const LONG arrow = GetSystemMetrics(SM_CXVSCROLL) + 12;
  return FromDots({widest + arrow, std::max<LONG>(field, LineHeight(Context()) + 8)});
}

/// The window's height is that of the open list; closed, it is in the middle of its place.
void ComboBoxWidget::Place(const RECT& place) {
  if (box_.GreysItems()) {  // lists that are not drawn by the system do not follow the font
    const LPARAM height = LineHeight(Context()) + 2;
    for (const int which : {-1, 0}) SendMessageW(Window(), CB_SETITEMHEIGHT, static_cast<WPARAM>(which), height);
  }
  const int line = static_cast<int>(SendMessageW(Window(), CB_GETITEMHEIGHT, 0, 0));
  const int closed = static_cast<int>(SendMessageW(Window(), CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0)) + 6;
  RECT open = place;
  open.top += std::max(0, (static_cast<int>(place.bottom - place.top) - closed) / 2);
  open.bottom = open.top + closed + line * kDropDownLines;
  Widget::Place(open);
}

/// The wheel turns the choice only of the list that has the focus: no setting changes by the way.
bool ComboBoxWidget::Wheel(int /*notches*/) {
  return GetFocus() != Window();
}

/// The next item after one, round the list, that begins so; -1 for none.
int ComboBoxWidget::Find(int after, const std::wstring& start) const {
  const LRESULT found =
      SendMessageW(Window(), CB_FINDSTRING, static_cast<WPARAM>(after), reinterpret_cast<LPARAM>(start.c_str()));
  return static_cast<int>(found);  // CB_ERR is -1
}

/// The system's own list knows one letter only; of hundreds of numbers the one is wanted that was typed.
void ComboBoxWidget::Typed(wchar_t character) {
  const LONG now = GetMessageTime();
  if (now - lastTypedAt_ > kTypingPause) typed_.clear();
  lastTypedAt_ = now;
  int found = Find(box_.ListIndex() - 1, typed_ + character);
  if (found >= 0) {
    typed_ += character;
  } else {
    // The same letter again goes on to the next item that begins with it.
    typed_ = character;
    found = Find(box_.ListIndex(), typed_);
  }
  if (found >= 0) box_.SetListIndex(found);
}

bool ComboBoxWidget::Message(UINT message, WPARAM word, LPARAM /*data*/, LRESULT& result) {
  if (message == WM_KEYDOWN && box_.GreysItems() && StepPassed(word)) {
    result = 0;
    return true;
  }
  if (message != WM_CHAR || word < L' ') return false;
  Typed(static_cast<wchar_t>(word));
  result = 0;
  return true;
}

void ComboBoxWidget::Command(WORD code) {
  if (code == CBN_SELCHANGE) box_.SetListIndex(static_cast<int>(SendMessageW(Window(), CB_GETCURSEL, 0, 0)));
}

}  // namespace chartproject::win32
