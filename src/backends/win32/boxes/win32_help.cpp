// Compiled help in the system's viewer for it, a page of hypertext in the user's browser.
#include "backends/win32/boxes/win32_help.h"

#include "backends/win32/files/win32_file_system.h"
#include "backends/win32/files/win32_open_file.h"
#include "backends/win32/system_error.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/themed_controls.h"
#include "backends/win32/widgets/window_classes.h"
#include "platform/run_time_error.h"

#include <shellapi.h>

namespace chartproject::win32 {

namespace {

constexpr const wchar_t* kHelpShown = L"ChartProjectHelp";  // property of the form's window
constexpr std::size_t kLargestPage = 16 << 20;

/// Of a larger file its beginning, one byte more than a page may have. Throws RunTimeError when the file cannot be
/// read, is a device or a link out of the help folder.
std::string ContentsOf(const std::string& name) {
  const OwnedFile file =
      OpenOnDisk(name, GENERIC_READ, kShareAll, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, kFilePatience);
  RefuseLink(file.Get(), name);
  std::string text(kLargestPage + 1, '\0');
  DWORD size = 0;
  if (ReadFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &size, nullptr) == 0) {
    ThrowFileError(GetLastError(), name);
  }
  text.resize(size);
  return text;
}

/// Help files end in .HLP whether they hold a page or not: the copy has a name by which the system finds a program that
/// shows pages, never one that runs programs.
std::wstring CopyAsPage(const std::string& page) {
  std::wstring folder(GetTempPathW(0, nullptr), L'\0');
  folder.resize(GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
  const bool hypertext = page.find("<html") != std::string::npos || page.find("<HTML") != std::string::npos;
  std::wstring name = folder + L"ChartProject help" + (hypertext ? L".html" : L".txt");
  const auto copy = Win32FileSystem().MakeSideFile({.target = ToUtf8(name), .ending = ".new"});
  const auto text = copy->OpenForWriting();
  text->Write(page);
  text->FlushAndClose();
  copy->ReplaceTarget();
  return name;
}

/// False when the system has no program for pages.
bool Opened(HWND owner, const std::wstring& page) {
  constexpr INT_PTR kLastError = 32;  // as this call has reported since the first Windows
  const HINSTANCE shown = ShellExecuteW(owner, L"open", page.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  return reinterpret_cast<INT_PTR>(shown) > kLastError;
}

/// False when the system has no such viewer any more.
bool OpenedCompiled(HWND owner, const std::string& helpFile, std::int32_t context) {
  const UINT command = context == 0 ? HELP_FINDER : HELP_CONTEXT;
  const HWND form = FormBelow(owner);  // stays longer than a box that asks
  const HWND asking = form == nullptr ? owner : form;
  if (WinHelpW(asking, ToWide(helpFile).c_str(), command, static_cast<ULONG_PTR>(context)) == 0) return false;
  if (form != nullptr) SetPropW(form, kHelpShown, form);
  return true;
}

}  // namespace

void EndHelpOf(HWND form) noexcept {
  if (RemovePropW(form, kHelpShown) != nullptr) WinHelpW(form, nullptr, HELP_QUIT, 0);
}

void Win32Help::ShowContext(const std::string& helpFile, std::int32_t context) {
  if (helpFile.empty()) return;
  const ThemedControls themed;
  const HWND owner = WindowToOwn();
  if (!Win32FileSystem().FileExists(helpFile)) return Say(owner, Text::kHelpFileMissing, helpFile);
  try {
    const std::string contents = ContentsOf(helpFile);
    const bool page = contents.find('\0') == std::string::npos;
    const bool shown = page ? contents.size() <= kLargestPage && Opened(owner, CopyAsPage(contents))
                            : OpenedCompiled(owner, helpFile, context);
    if (!shown) Say(owner, Text::kHelpFileUnreadable, helpFile);
  } catch (const RunTimeError& error) {
    Say(owner, Text::kHelpFileUnreadable, helpFile, error.Description(language_()));
  }
}

void Win32Help::Say(HWND owner, Text text, const std::string& name, const std::string& reason) const {
  const std::string words = FillIn(TextIn(language_(), text), {name}) + (reason.empty() ? "" : "\n" + reason);
  MessageBoxW(owner, ToWide(words).c_str(), L"ChartProject",
              MB_ICONEXCLAMATION | (owner == nullptr ? MB_TASKMODAL : 0U));
}

}  // namespace chartproject::win32
