// Edit fields: plain, rich and masked.
#include <algorithm>
#include <cwchar>

#include "backends/win32/com_module.h"
#include "backends/win32/drawing/clipboard_access.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/widget_types.h"
#include "forms/flag_scope.h"

#include <commctrl.h>
#include <richedit.h>

namespace chartproject::win32 {

namespace {

DWORD EditStyle(const TextControl& text) {
  DWORD style = text.MultiLine() ? ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL : ES_AUTOHSCROLL;
  if (text.ReadOnly()) style |= ES_READONLY;
  return style;
}

/// The newest rich edit control that the system has.
const wchar_t* RichEditClass() {
  if (LoadSystemLibrary(L"msftedit.dll") != nullptr) return MSFTEDIT_CLASS;
  LoadSystemLibrary(L"riched20.dll");
  return L"RichEdit20W";
}

}  // namespace

EditWidget::EditWidget(TextControl& text, WidgetContext& context) : EditWidget(text, context, L"EDIT", 0) {}

EditWidget::EditWidget(TextControl& text, WidgetContext& context, const wchar_t* windowClass, DWORD style)
    : Widget(text, context, windowClass, style | EditStyle(text), WS_EX_CLIENTEDGE), text_(text) {}

void EditWidget::Apply(Property property) {
  if (property == Property::kText) {
    const std::wstring text = ToWide(text_.Text());
    if (NativeText() == text) return;
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(Window(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    {
      const FlagScope showing(showing_);
      SetWindowTextW(Window(), text.c_str());
    }
    const auto last = static_cast<DWORD>(text.size());
    SendMessageW(Window(), EM_SETSEL, std::min(start, last), static_cast<LPARAM>(std::min(end, last)));
  }
  if (property == Property::kSelection) SendMessageW(Window(), EM_SETSEL, 0, -1);
  Widget::Apply(property);
}

Size EditWidget::PreferredSize() const {
  const SIZE digit = MeasureText(Context(), L"0", 0, false);
  const int lines = text_.MultiLine() ? 5 : 1;
  return FromDots({digit.cx * text_.WidthInCharacters() + 14 + (text_.MultiLine() ? GetSystemMetrics(SM_CXVSCROLL) : 0),
                   LineHeight(Context()) * lines + 7});
}

/// A field of one line shows its text at its upper edge: it is as high as its text, in the middle of its place.
void EditWidget::Place(const RECT& place) {
  RECT inner = place;
  if (!text_.MultiLine()) {
    const LONG height = std::min<LONG>(LineHeight(Context()) + 6, place.bottom - place.top);
    inner.top += (place.bottom - place.top - height) / 2;
    inner.bottom = inner.top + height;
  }
  Widget::Place(inner);
}

void EditWidget::Command(WORD code) {
  if (code == EN_CHANGE && !showing_) Offer(ToUtf8(NativeText()));
}

bool EditWidget::Offer(const std::string& text) {
  const int before = focusLosses_;
  text_.SetText(text);
  const bool refused = text_.Text() != text && focusLosses_ != before;
  if (refused) SendMessageW(Window(), EM_SETSEL, 0, -1);
  return !refused;
}

bool EditWidget::Message(UINT message, WPARAM /*word*/, LPARAM /*data*/, LRESULT& /*result*/) {
  if (message == WM_KILLFOCUS) ++focusLosses_;
  return false;
}

RichTextWidget::RichTextWidget(RichTextBox& text, WidgetContext& context)
    : EditWidget(text, context, RichEditClass(), 0) {
  SendMessageW(Window(), EM_SETEVENTMASK, 0, ENM_CHANGE);
  SendMessageW(Window(), EM_SETTEXTMODE, TM_PLAINTEXT, 0);
  SendMessageW(Window(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(3, 3));
  SendMessageW(Window(), EM_EXLIMITTEXT, 0, 0x7FFFFFF);
}

/// Colour number of the ground.
int RichTextWidget::Ground() const {
  return Text().ReadOnly() || !Text().EffectivelyEnabled() ? COLOR_3DFACE : COLOR_WINDOW;
}

void RichTextWidget::Apply(Property property) {
  EditWidget::Apply(property);
  if (property != Property::kEnabled) return;
  SendMessageW(Window(), EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(GetSysColor(Ground())));
  // Nor do they know the colour of what is disabled. A new colour is not input.
  CHARFORMATW format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_COLOR;
  format.crTextColor = GetSysColor(Text().EffectivelyEnabled() ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT);
  SendMessageW(Window(), EM_SETEVENTMASK, 0, 0);
  SendMessageW(Window(), EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
  SendMessageW(Window(), EM_SETEVENTMASK, 0, ENM_CHANGE);
  RedrawWindow(Window(), nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
}

/// Rich edits know no visual style: they get the thin frame that the plain fields have.
void RichTextWidget::PaintFrame() const {
  RECT edge;
  GetWindowRect(Window(), &edge);
  OffsetRect(&edge, -edge.left, -edge.top);
  const HDC dc = GetWindowDC(Window());
  FrameRect(dc, &edge, GetSysColorBrush(COLOR_3DSHADOW));
  InflateRect(&edge, -1, -1);
  FrameRect(dc, &edge, GetSysColorBrush(Ground()));
  ReleaseDC(Window(), dc);
}

bool RichTextWidget::Message(UINT message, WPARAM word, LPARAM data, LRESULT& result) {
  if (message != WM_NCPAINT) return EditWidget::Message(message, word, data, result);
  result = DefSubclassProc(Window(), message, word, data);
  PaintFrame();
  return true;
}

MaskWidget::MaskWidget(MaskEdBox& text, WidgetContext& context) : EditWidget(text, context, L"EDIT", 0), box_(text) {}

bool MaskWidget::IsPlace(std::size_t at) const {
  return at < box_.Mask().size() && box_.Mask()[at] == '#';
}

std::size_t MaskWidget::NextPlace(std::size_t at) const {
  while (at < box_.Mask().size() && !IsPlace(at)) ++at;
  return at;
}

/// The text, filled up to the mask's length.
std::string MaskWidget::FullText() const {
  std::string full = box_.Mask();
  std::replace(full.begin(), full.end(), '#', '_');
  const std::string& text = box_.Text();
  for (std::size_t at = 0; at < full.size() && at < text.size(); ++at) {
    if (IsPlace(at)) full[at] = text[at];
  }
  return full;
}

bool MaskWidget::Overwrite(std::size_t at, char character) {
  std::string text = FullText();
  text[at] = character;
  return Offer(text);
}

std::pair<std::size_t, std::size_t> MaskWidget::Selection() const {
  DWORD start = 0;
  DWORD end = 0;
  SendMessageW(Window(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  return {start, end};
}

void MaskWidget::MoveCaret(std::size_t at) {
  SendMessageW(Window(), EM_SETSEL, at, static_cast<LPARAM>(at));
}

void MaskWidget::Type(wchar_t character) {
  const std::size_t at = NextPlace(Selection().first);
  if (at >= box_.Mask().size() || character < L'0' || character > L'9') {
    MessageBeep(MB_OK);
    return;
  }
  if (Overwrite(at, static_cast<char>(character))) MoveCaret(NextPlace(at + 1));
}

bool MaskWidget::EraseSelection() {
  const auto [start, end] = Selection();
  if (start == end) return false;
  std::string text = FullText();
  for (std::size_t at = start; at < std::min(end, text.size()); ++at) {
    if (IsPlace(at)) text[at] = '_';
  }
  if (Offer(text)) MoveCaret(start);
  return true;
}

void MaskWidget::Erase(bool backwards) {
  if (EraseSelection()) return;
  std::size_t at = Selection().first;
  if (backwards) {
    do {
      if (at == 0) return;
      --at;
    } while (!IsPlace(at));
  } else {
    at = NextPlace(at);
    if (at >= box_.Mask().size()) return;
  }
  if (Overwrite(at, '_')) MoveCaret(backwards ? at : at + 1);
}

void MaskWidget::Paste() {
  std::wstring pasted;
  {
    const OpenedClipboard opened(Window());
    const LockedMemory memory(opened ? GetClipboardData(CF_UNICODETEXT) : nullptr);
    const auto* text = static_cast<const wchar_t*>(memory.Get());
    if (text != nullptr) pasted.assign(text, wcsnlen(text, memory.Size() / sizeof *text));
  }
  for (const wchar_t character : pasted) {
    if (character >= L'0' && character <= L'9') Type(character);
  }
}

bool MaskWidget::TypedCharacter(WPARAM character) {
  constexpr WPARAM kFirstPrintable = L' ';
  constexpr WPARAM kCtrlZ = 0x1A;
  if (character >= kFirstPrintable) Type(static_cast<wchar_t>(character));
  if (character == VK_BACK) Erase(true);
  // Ctrl with A, C, V, X is the edit field's own; to undo, it would have to know what was typed here.
  return character >= kFirstPrintable || character == VK_BACK || character == kCtrlZ;
}

bool MaskWidget::Message(UINT message, WPARAM word, LPARAM data, LRESULT& result) {
  result = 0;
  switch (message) {
    case WM_CHAR:
      return TypedCharacter(word);
    case WM_KEYDOWN:
      if (word != VK_DELETE || GetKeyState(VK_SHIFT) < 0) return false;  // with Shift it cuts
      Erase(false);
      return true;
    case WM_PASTE:
      Paste();
      return true;
    case WM_CUT:
      SendMessageW(Window(), WM_COPY, 0, 0);
      EraseSelection();
      return true;
    case WM_CLEAR:
      EraseSelection();
      return true;
    case WM_UNDO:
    case EM_UNDO:
      return true;
    default:
      return EditWidget::Message(message, word, data, result);
  }
}

}  // namespace chartproject::win32
