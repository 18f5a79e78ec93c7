// WinHelp where the system still has its viewer; else whatever program opens the file.
#include "platform/win32/win32_help.h"

#include "platform/win32/system_error.h"
#include "platform/win32/themed_controls.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/windows_api.h"

#include <shellapi.h>

namespace chartproject::win32 {

void Win32Help::ShowContext(const std::string& helpFile, std::int32_t context) {
  if (helpFile.empty()) return;
  const ThemedControls themed;
  const std::wstring name = ToWide(helpFile);
  const HWND owner = GetActiveWindow();
  const DWORD attributes = GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    const std::wstring text = name + L"\n" + ToWide(SystemMessage(ERROR_FILE_NOT_FOUND));
    MessageBoxW(owner, text.c_str(), L"ChartProject", MB_ICONEXCLAMATION | (owner == nullptr ? MB_TASKMODAL : 0U));
    return;
  }
  const UINT command = context == 0 ? HELP_FINDER : HELP_CONTEXT;
  if (WinHelpW(owner, name.c_str(), command, static_cast<ULONG_PTR>(context)) == 0) {
    ShellExecuteW(owner, nullptr, name.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  }
}

}  // namespace chartproject::win32
