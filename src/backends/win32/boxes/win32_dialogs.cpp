// The system's own boxes, over the form that asks.
#include "backends/win32/boxes/win32_dialogs.h"

#include <algorithm>
#include <string>
#include <vector>

#include "backends/win32/boxes/input_box.h"
#include "backends/win32/com_module.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/themed_controls.h"
#include "backends/win32/widgets/window_classes.h"
#include "platform/run_time_error.h"

#include <commdlg.h>

namespace chartproject::win32 {

namespace {

/// What a box's Help button needs; reaches the callback as the box's help context.
struct BoxHelp {
  Help& help;
  const MessageBoxRequest& request;
};

void CALLBACK ShowBoxHelp(HELPINFO* info) noexcept {
  const auto* box = reinterpret_cast<const BoxHelp*>(info->dwContextId);
  try {
    if (box != nullptr) box->help.ShowContext(box->request.helpFile, box->request.helpContext);
  } catch (...) {
    OutputDebugStringW(L"ChartProject: help could not be shown");
  }
}

/// "description|pattern" pairs as the system takes them: each part ended by a null, one more at the end.
std::wstring FilterList(const std::string& filter) {
  std::wstring list = ToWide(filter);
  std::replace(list.begin(), list.end(), L'|', L'\0');
  return list + std::wstring(2, L'\0');
}

[[noreturn]] void ThrowDialogFailure(DWORD failure) {
  throw RunTimeError(error_number::kInvalidProcedureCall, Text::kFileDialogFailed, {std::to_string(failure)});
}

/// Shows the system's box. The name that the user chose; nothing when it was cancelled. The box comes from a library
/// that loads others: by the system's folder they are looked for there, too.
std::optional<std::string> Choose(OPENFILENAMEW& dialog, bool forWriting) {
  constexpr const wchar_t* kBoxes = L"comdlg32.dll";
  using Box = decltype(&GetSaveFileNameW);
  static const auto save = SystemFunction<Box>(kBoxes, "GetSaveFileNameW");
  static const auto open = SystemFunction<Box>(kBoxes, "GetOpenFileNameW");
  static const auto failureOfBox = SystemFunction<decltype(&CommDlgExtendedError)>(kBoxes, "CommDlgExtendedError");
  if (save == nullptr || open == nullptr || failureOfBox == nullptr) ThrowDialogFailure(GetLastError());
  if ((forWriting ? save : open)(&dialog) != 0) return ToUtf8(dialog.lpstrFile);
  const DWORD failure = failureOfBox();
  if (failure == 0) return std::nullopt;
  ThrowDialogFailure(failure);
}

}  // namespace

std::int16_t Win32Dialogs::ShowMessageBox(const MessageBoxRequest& request) {
  if (GetSystemMetrics(SM_SHUTTINGDOWN) != 0) return box_answer::kNo;  // nobody answers any more
  const ThemedControls themed;
  const std::wstring prompt = ToWide(request.prompt);
  const std::wstring title = ToWide(request.title);
  const BoxHelp help{help_, request};
  MSGBOXPARAMSW box{};
  box.cbSize = sizeof box;
  box.hwndOwner = WindowToOwn();
  box.lpszText = prompt.c_str();
  box.lpszCaption = title.c_str();
  box.dwStyle = static_cast<DWORD>(request.style) | (box.hwndOwner == nullptr ? MB_TASKMODAL : 0U);
  if ((request.style & box_style::kHelpButton) != 0) {
    box.dwContextHelpId = reinterpret_cast<DWORD_PTR>(&help);
    box.lpfnMsgBoxCallback = ShowBoxHelp;
  }
  const int answer = MessageBoxIndirectW(&box);
  return answer == 0 ? box_answer::kNo : static_cast<std::int16_t>(answer);
}

std::optional<std::string> AskForNewFile(const std::string& proposal) {
  const ThemedControls themed;
  std::vector<wchar_t> name(32768, L'\0');
  const std::wstring proposed = ToWide(proposal);
  std::copy_n(proposed.begin(), std::min(proposed.size(), name.size() - 1), name.begin());
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = WindowToOwn();
  dialog.lpstrFile = name.data();
  dialog.nMaxFile = static_cast<DWORD>(name.size());
  dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY;
  return Choose(dialog, true);
}

std::string Win32Dialogs::ShowInputBox(const InputBoxRequest& request) {
  return AskForText(request, help_);
}

std::optional<std::string> Win32Dialogs::ShowOpenFile(const OpenFileRequest& request) {
  const ThemedControls themed;
  const std::wstring folder = ToWide(request.initialFolder);
  const std::wstring filter = FilterList(request.filter);
  std::vector<wchar_t> name(32768, L'\0');
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = WindowToOwn();
  dialog.lpstrFilter = filter.c_str();
  dialog.nFilterIndex = static_cast<DWORD>(request.filterIndex);
  dialog.lpstrFile = name.data();
  dialog.nMaxFile = static_cast<DWORD>(name.size());
  dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  // Whoever asked for a file to write knows what may be replaced, and asks.
  const auto flags = static_cast<DWORD>(request.flags);
  dialog.Flags = (flags & ~static_cast<DWORD>(OFN_OVERWRITEPROMPT)) | OFN_EXPLORER | OFN_NOCHANGEDIR;
  return Choose(dialog, (flags & OFN_OVERWRITEPROMPT) != 0);
}

}  // namespace chartproject::win32
