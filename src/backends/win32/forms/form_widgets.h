// The widgets of one form: made, found, captioned.
#pragma once

#include <map>
#include <memory>

#include "backends/win32/widgets/widget.h"
#include "forms/controls.h"

#include <commctrl.h>

namespace chartproject::win32 {

class FormWidgets {
 public:
  FormWidgets(Form& form, WidgetContext& context) : form_(form), context_(context) {}
  ~FormWidgets() { Release(); }
  FormWidgets(const FormWidgets&) = delete;
  FormWidgets& operator=(const FormWidgets&) = delete;

  /// Makes the widgets in the context's form window. Their messages pass `procedure` first, with `data`.
  /// Throws RunTimeError when a window cannot be made.
  void Make(SUBCLASSPROC procedure, DWORD_PTR data);
  /// Messages go to the windows directly from here on.
  void Release() noexcept;
  /// The windows are gone; the widgets stay, and no window is found any more.
  void WindowsGone() noexcept { byWindow_.clear(); }

  /// By control, in no order of the form's.
  [[nodiscard]] const std::map<const Control*, std::unique_ptr<Widget>>& All() const noexcept { return widgets_; }
  /// Null when the window is not a control's.
  [[nodiscard]] Widget* Of(HWND window) const;
  /// Null for a control that is not drawn.
  [[nodiscard]] Widget* Of(const Control& control) const;
  /// The arrows beside a field; null when it has none.
  [[nodiscard]] UpDown* ArrowsOf(const Widget& field) const;
  /// The field that a label names; of two that share a place, the one that shows. Null for other controls.
  [[nodiscard]] Widget* FieldNamedBy(const Control& label) const;

  /// Shows captions with the letters that Alt reaches. @param only null for all controls
  void ShowCaptions(const Control* only = nullptr);
  /// Hands the context's font, which has changed, to all windows.
  void ShowFont();

 private:
  Form& form_;
  WidgetContext& context_;
  SUBCLASSPROC procedure_ = nullptr;
  std::map<const Control*, std::unique_ptr<Widget>> widgets_;
  std::map<HWND, Widget*> byWindow_;
};

}  // namespace chartproject::win32
