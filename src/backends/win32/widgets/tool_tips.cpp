// The system's own tool tip window.
#include "backends/win32/widgets/tool_tips.h"

#include "backends/win32/wide_text.h"

#include <commctrl.h>

namespace chartproject::win32 {

namespace {

constexpr int kWidth = 360;  // in the layout's pixels

}  // namespace

void ToolTips::Make() {
  window_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0,
                            0, context_.formWindow, nullptr, nullptr, nullptr);
  LimitWidth();
}

void ToolTips::LimitWidth() {
  SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, context_.Dots(kWidth));
}

void ToolTips::Show(const Widget& widget) {
  std::wstring text = ToWide(widget.Owner().ToolTipText());
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  // Below a picture: at the pointer it would hide what is pointed at.
  if (dynamic_cast<const DrawnControl*>(&widget.Owner()) != nullptr) tool.uFlags |= TTF_CENTERTIP;
  tool.hwnd = context_.formWindow;
  tool.uId = reinterpret_cast<UINT_PTR>(widget.Window());
  tool.lpszText = text.data();
  SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  if (!text.empty()) SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace chartproject::win32
