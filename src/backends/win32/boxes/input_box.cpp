// The input box: its template is laid out in memory, so that no resource is needed.
#include "backends/win32/boxes/input_box.h"

#include <algorithm>
#include <array>
#include <vector>

#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/themed_controls.h"
#include "backends/win32/widgets/window_classes.h"

namespace chartproject::win32 {

namespace {

constexpr WORD kEditId = 100;
constexpr WORD kMessageFont = 0x7FFF;  // in place of a size: the font of message boxes, which has no name here

struct Asking {
  const InputBoxRequest& request;
  Help& help;
  std::string answer;
};

/// Writes a dialog template: words, aligned items, texts.
class TemplateWriter {
 public:
  void Word(WORD value) { words_.push_back(value); }
  void Double(DWORD value) {
    Word(LOWORD(value));
    Word(HIWORD(value));
  }
  void Text(const std::wstring& text) {
    for (const wchar_t character : text) Word(character);
    Word(0);
  }
  void Place(std::array<short, 4> place) {
    for (const short value : place) Word(static_cast<WORD>(value));
  }
  /// @param type atom of the window class: 0x80 button, 0x81 edit, 0x82 static
  void Item(DWORD style, std::array<short, 4> place, WORD id, WORD type, const std::wstring& text) {
    if (words_.size() % 2 != 0) Word(0);  // items begin on four bytes
    Double(style | WS_CHILD | WS_VISIBLE);
    Double(0);
    Place(place);
    Word(id);
    Word(0xFFFF);
    Word(type);
    Text(text);
    Word(0);
  }
  [[nodiscard]] const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

 private:
  std::vector<WORD> words_;
};

/// The system's own caption of a button in the user's language.
std::wstring ButtonCaption(int id, const wchar_t* otherwise) {
  wchar_t text[40];
  const int length = LoadStringW(GetModuleHandleW(L"user32.dll"), static_cast<UINT>(799 + id), text, 40);
  return length > 0 ? std::wstring(text, static_cast<std::size_t>(length)) : std::wstring(otherwise);
}

/// In the middle of the window that asks, on its screen.
void PlaceOverOwner(HWND window) noexcept {
  RECT owner;
  RECT box;
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  const HWND below = GetWindow(window, GW_OWNER);
  if (below == nullptr || GetWindowRect(below, &owner) == 0 || GetWindowRect(window, &box) == 0 ||
      GetMonitorInfoW(MonitorFromWindow(below, MONITOR_DEFAULTTONEAREST), &screen) == 0) {
    return;  // stays in the middle of the screen
  }
  const RECT& area = screen.rcWork;
  const LONG width = box.right - box.left;
  const LONG height = box.bottom - box.top;
  const LONG left = std::min((owner.left + owner.right - width) / 2, area.right - width);
  const LONG top = std::min((owner.top + owner.bottom - height) / 2, area.bottom - height);
  SetWindowPos(window, nullptr, std::max(left, area.left), std::max(top, area.top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR CALLBACK InputBoxProcedure(HWND window, UINT message, WPARAM word, LPARAM data) noexcept {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, GWLP_USERDATA, data);
    PlaceOverOwner(window);
    return TRUE;
  }
  auto* asking = reinterpret_cast<Asking*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (asking == nullptr) return FALSE;
  try {
    if (message == WM_HELP) {
      asking->help.ShowContext(asking->request.helpFile, 0);
      return TRUE;
    }
    if (message == WM_COMMAND && (LOWORD(word) == IDOK || LOWORD(word) == IDCANCEL)) {
      if (LOWORD(word) == IDOK) {
        wchar_t text[1024];
        const UINT length = GetDlgItemTextW(window, kEditId, text, 1024);
        asking->answer = ToUtf8({text, length});
      }
      EndDialog(window, LOWORD(word));
      return TRUE;
    }
  } catch (...) {
    EndDialog(window, IDCANCEL);  // not enough memory for the text: as if cancelled
  }
  return FALSE;
}

}  // namespace

std::string AskForText(const InputBoxRequest& request, Help& help) {
  TemplateWriter dialog;
  dialog.Double(DS_MODALFRAME | DS_CENTER | DS_SETFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU);
  dialog.Double(0);
  dialog.Word(4);
  dialog.Place({0, 0, 220, 70});
  dialog.Word(0);
  dialog.Word(0);
  dialog.Text(ToWide(request.title));
  dialog.Word(kMessageFont);
  dialog.Item(SS_LEFT, {7, 7, 206, 18}, 101, 0x82, ToWide(request.prompt));
  dialog.Item(WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, {7, 27, 206, 13}, kEditId, 0x81, L"");
  dialog.Item(WS_TABSTOP | BS_DEFPUSHBUTTON, {109, 49, 50, 14}, IDOK, 0x80, ButtonCaption(IDOK, L"OK"));
  dialog.Item(WS_TABSTOP, {163, 49, 50, 14}, IDCANCEL, 0x80, ButtonCaption(IDCANCEL, L"Cancel"));

  const ThemedControls themed;
  Asking asking{request, help, {}};
  DialogBoxIndirectParamW(GetModuleHandleW(nullptr), dialog.Get(), WindowToOwn(), InputBoxProcedure,
                          reinterpret_cast<LPARAM>(&asking));
  return asking.answer;
}

}  // namespace chartproject::win32
