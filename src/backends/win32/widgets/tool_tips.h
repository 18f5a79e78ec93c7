// The tool tips of one form's controls.
#pragma once

#include "backends/win32/widgets/widget.h"

namespace chartproject::win32 {

class ToolTips {
 public:
  explicit ToolTips(const WidgetContext& context) : context_(context) {}

  /// Makes the window that shows them, which goes with the form's window.
  void Make();
  /// Long texts are wrapped: at what width depends on the context's scale.
  void LimitWidth();
  /// Shows the control's text when the mouse rests on the widget.
  void Show(const Widget& widget);

 private:
  const WidgetContext& context_;
  HWND window_ = nullptr;
};

}  // namespace chartproject::win32
