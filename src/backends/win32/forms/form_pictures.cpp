// Loading and showing icons and pointers.
#include "backends/win32/forms/form_pictures.h"

#include <utility>

#include "backends/win32/wide_text.h"
#include "forms/form.h"

namespace chartproject::win32 {

namespace {

OwnedIcon LoadIconOf(const std::wstring& file, int widthMetric, int heightMetric) {
  return OwnedIcon(static_cast<HICON>(LoadImageW(nullptr, file.c_str(), IMAGE_ICON, GetSystemMetrics(widthMetric),
                                                 GetSystemMetrics(heightMetric), LR_LOADFROMFILE)));
}

}  // namespace

FormPictures::~FormPictures() {
  if (buttonCursor_ && GetCursor() == buttonCursor_.Get()) SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

void FormPictures::ShowOwnersIcon(HWND window) {
  const HWND owner = GetWindow(window, GW_OWNER);
  if (owner == nullptr) return;
  for (const WPARAM size : {ICON_BIG, ICON_SMALL}) {
    SendMessageW(window, WM_SETICON, size, SendMessageW(owner, WM_GETICON, size, 0));
  }
}

void FormPictures::ShowIcon(HWND window) {
  const std::wstring file = ToWide(form_.IconFile());
  OwnedIcon icon = LoadIconOf(file, SM_CXICON, SM_CYICON);
  OwnedIcon small = LoadIconOf(file, SM_CXSMICON, SM_CYSMICON);
  SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon.Get()));
  SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small.Get()));
  std::swap(icon_, icon);  // the former ones go when no window shows them any more
  std::swap(smallIcon_, small);
}

void FormPictures::ShowPointer() {
  SetCursor(LoadCursorW(nullptr, form_.Pointer() == MousePointer::kHourglass ? IDC_WAIT : IDC_ARROW));
}

bool FormPictures::ShowPointerOver(const Widget* under) {
  if (form_.Pointer() == MousePointer::kHourglass) {
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    return true;
  }
  if (under == nullptr || under->Owner().Pointer() != MousePointer::kCustom) return false;
  SetCursor(ButtonCursor());
  return true;
}

/// Asked for at each move of the mouse: loaded once, also when that failed.
HCURSOR FormPictures::ButtonCursor() {
  const std::string& file = form_.ButtonCursorFile();
  if (file != buttonCursorFile_) {
    buttonCursorFile_ = file;
    OwnedCursor loaded(file.empty() ? nullptr : LoadCursorFromFileW(ToWide(file).c_str()));
    SetCursor(nullptr);  // the former one may show still
    std::swap(buttonCursor_, loaded);
  }
  return buttonCursor_ ? buttonCursor_.Get() : LoadCursorW(nullptr, IDC_HAND);
}

}  // namespace chartproject::win32
