// WinHelp where the system still has its viewer; else whatever program opens the file.
#include "backends/win32/forms/win32_help.h"

#include "backends/win32/forms/themed_controls.h"
#include "backends/win32/forms/window_classes.h"
#include "backends/win32/system_error.h"
#include "backends/win32/wide_text.h"

#include <shellapi.h>

namespace chartproject::win32 {

namespace {

constexpr const wchar_t* kHelpShown = L"ChartProjectHelp";  // property of the form's window

}  // namespace

void EndHelpOf(HWND form) noexcept {
  if (RemovePropW(form, kHelpShown) != nullptr) WinHelpW(form, nullptr, HELP_QUIT, 0);
}

void Win32Help::ShowContext(const std::string& helpFile, std::int32_t context) {
  if (helpFile.empty()) return;
  const ThemedControls themed;
  const std::wstring name = ToWide(helpFile);
  const HWND owner = WindowToOwn();
  const DWORD attributes = GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    const std::wstring text = name + L"\n" + ToWide(SystemMessage(ERROR_FILE_NOT_FOUND));
    MessageBoxW(owner, text.c_str(), L"ChartProject", MB_ICONEXCLAMATION | (owner == nullptr ? MB_TASKMODAL : 0U));
    return;
  }
  const UINT command = context == 0 ? HELP_FINDER : HELP_CONTEXT;
  const HWND form = FormBelow(owner);  // stays longer than a box that asks
  if (WinHelpW(form == nullptr ? owner : form, name.c_str(), command, static_cast<ULONG_PTR>(context)) != 0) {
    if (form != nullptr) SetPropW(form, kHelpShown, form);
  } else {
    ShellExecuteW(owner, nullptr, name.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  }
}

}  // namespace chartproject::win32
