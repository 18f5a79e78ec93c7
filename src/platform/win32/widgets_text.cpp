// Edit fields: plain, rich and masked.
#include <algorithm>

#include "platform/win32/wide_text.h"
#include "platform/win32/widget_types.h"

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
  if (LoadLibraryW(L"msftedit.dll") != nullptr) return MSFTEDIT_CLASS;
  LoadLibraryW(L"riched20.dll");
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
    showing_ = true;
    SetWindowTextW(Window(), text.c_str());
    showing_ = false;
    const auto last = static_cast<DWORD>(text.size());
    SendMessageW(Window(), EM_SETSEL, std::min(start, last), static_cast<LPARAM>(std::min(end, last)));
  }
  Widget::Apply(property);
}

Size EditWidget::PreferredSize() const {
  const SIZE digit = MeasureText(Context(), L"0", 0, false);
  const int lines = text_.MultiLine() ? 5 : 1;
  return FromDots({digit.cx * text_.WidthInCharacters() + 14 + (text_.MultiLine() ? GetSystemMetrics(SM_CXVSCROLL) : 0),
                   LineHeight(Context()) * lines + 9});
}

void EditWidget::Command(WORD code) {
  if (code == EN_CHANGE && !showing_) text_.SetText(ToUtf8(NativeText()));
}

RichTextWidget::RichTextWidget(RichTextBox& text, WidgetContext& context)
    : EditWidget(text, context, RichEditClass(), 0) {
  SendMessageW(Window(), EM_SETEVENTMASK, 0, ENM_CHANGE);
  SendMessageW(Window(), EM_SETTEXTMODE, TM_PLAINTEXT, 0);
  SendMessageW(Window(), EM_EXLIMITTEXT, 0, 0x7FFFFFF);
  if (text.ReadOnly()) SendMessageW(Window(), EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(GetSysColor(COLOR_3DFACE)));
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

void MaskWidget::Overwrite(std::size_t at, char character) {
  std::string text = FullText();
  text[at] = character;
  box_.SetText(text);
}

std::size_t MaskWidget::Caret() const {
  DWORD start = 0;
  SendMessageW(Window(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
  return start;
}

void MaskWidget::MoveCaret(std::size_t at) {
  SendMessageW(Window(), EM_SETSEL, at, static_cast<LPARAM>(at));
}

void MaskWidget::Type(wchar_t character) {
  const std::size_t at = NextPlace(Caret());
  if (at >= box_.Mask().size() || character < L'0' || character > L'9') {
    MessageBeep(MB_OK);
    return;
  }
  Overwrite(at, static_cast<char>(character));
  MoveCaret(NextPlace(at + 1));
}

void MaskWidget::Erase(bool backwards) {
  std::size_t at = Caret();
  if (backwards) {
    do {
      if (at == 0) return;
      --at;
    } while (!IsPlace(at));
  } else {
    at = NextPlace(at);
    if (at >= box_.Mask().size()) return;
  }
  Overwrite(at, '_');
  MoveCaret(backwards ? at : at + 1);
}

void MaskWidget::Paste() {
  if (OpenClipboard(Window()) == 0) return;
  std::wstring pasted;
  if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
    if (const auto* text = static_cast<const wchar_t*>(GlobalLock(memory))) pasted = text;
    GlobalUnlock(memory);
  }
  CloseClipboard();
  for (const wchar_t character : pasted) {
    if (character >= L'0' && character <= L'9') Type(character);
  }
}

bool MaskWidget::Message(UINT message, WPARAM word, LPARAM /*data*/, LRESULT& result) {
  result = 0;
  switch (message) {
    case WM_CHAR:
      if (word >= L' ') {
        Type(static_cast<wchar_t>(word));
        return true;
      }
      if (word == VK_BACK) Erase(true);
      return word != 3;  // Ctrl+C is the edit field's own
    case WM_KEYDOWN:
      if (word != VK_DELETE) return false;
      Erase(false);
      return true;
    case WM_PASTE:
      Paste();
      return true;
    case WM_CUT:
    case WM_CLEAR:
      return true;
    default:
      return false;
  }
}

}  // namespace chartproject::win32
