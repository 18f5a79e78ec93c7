// Compiled help in the system's viewer for it, a page of hypertext in the user's browser.
#include "backends/win32/boxes/win32_help.h"

#include "backends/win32/files/win32_file_system.h"
#include "backends/win32/system_error.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/themed_controls.h"
#include "backends/win32/widgets/window_classes.h"

#include <shellapi.h>

namespace chartproject::win32 {

namespace {

constexpr const wchar_t* kHelpShown = L"ChartProjectHelp";  // property of the form's window
constexpr std::size_t kLargestPage = 16 << 20;

void ShowProblem(HWND owner, const std::wstring& name, DWORD code) {
  const std::wstring text = name + L"\n" + ToWide(SystemMessage(code));
  MessageBoxW(owner, text.c_str(), L"ChartProject", MB_ICONEXCLAMATION | (owner == nullptr ? MB_TASKMODAL : 0U));
}

/// Throws RunTimeError when the file cannot be read or is not a regular one.
std::string ContentsOf(const std::string& name) {
  std::string text(kLargestPage, '\0');
  std::size_t size = 0;
  const auto file = Win32FileSystem().OpenForReading(name);
  while (const std::size_t got = file->Read(std::span(text).subspan(size))) size += got;
  text.resize(size);
  return text;
}

/// Help files end in .HLP whether they hold a page or not: the copy has a name by which the system finds a program that
/// shows pages, never one that runs programs.
std::wstring CopyAsPage(const std::string& page) {
  std::wstring folder(GetTempPathW(0, nullptr), L'\0');
  folder.resize(GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
  const bool hypertext = page.find("<html") != std::string::npos || page.find("<HTML") != std::string::npos;
  const std::wstring name = folder + L"ChartProject help" + (hypertext ? L".html" : L".txt");
  const auto copy = Win32FileSystem().MakeSideFile({.target = ToUtf8(name), .ending = ".new"});
  const auto text = copy->OpenForWriting();
  text->Write(page);
  text->FlushAndClose();
  copy->ReplaceTarget();
  return name;
}

}  // namespace

void EndHelpOf(HWND form) noexcept {
  if (RemovePropW(form, kHelpShown) != nullptr) WinHelpW(form, nullptr, HELP_QUIT, 0);
}

void Win32Help::ShowContext(const std::string& helpFile, std::int32_t context) {
  if (helpFile.empty()) return;
  const ThemedControls themed;
  const std::wstring name = ToWide(helpFile);
  const HWND owner = WindowToOwn();
  if (!Win32FileSystem().FileExists(helpFile)) {
    ShowProblem(owner, name, ERROR_FILE_NOT_FOUND);
    return;
  }
  const std::string contents = ContentsOf(helpFile);
  if (contents.find('\0') == std::string::npos) {
    constexpr INT_PTR kLastError = 32;  // as this call has reported since the first Windows
    const HINSTANCE shown =
        ShellExecuteW(owner, L"open", CopyAsPage(contents).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    if (reinterpret_cast<INT_PTR>(shown) <= kLastError) ShowProblem(owner, name, ERROR_NO_ASSOCIATION);
    return;
  }
  const UINT command = context == 0 ? HELP_FINDER : HELP_CONTEXT;
  const HWND form = FormBelow(owner);  // stays longer than a box that asks
  if (WinHelpW(form == nullptr ? owner : form, name.c_str(), command, static_cast<ULONG_PTR>(context)) != 0) {
    if (form != nullptr) SetPropW(form, kHelpShown, form);
  } else {
    ShowProblem(owner, name, ERROR_NO_ASSOCIATION);  // newer systems have no such viewer
  }
}

}  // namespace chartproject::win32
