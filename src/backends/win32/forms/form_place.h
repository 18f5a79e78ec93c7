// Place, size and state of a form's window, both ways: as the form asks, and as the user made it.
#pragma once

#include "backends/win32/forms/form_layout.h"

namespace chartproject::win32 {

class FormPlace {
 public:
  FormPlace(Form& form, const WidgetContext& context, FormWidgets& widgets, FormLayout& layout)
      : form_(form), context_(context), widgets_(widgets), layout_(layout) {}

  /// After texts or visible boxes changed: the window grows when its layout needs more, and everything finds its place.
  void GrowToLayout();
  /// Puts the window where the form says, on a screen that is there, and never smaller than its layout.
  void Apply();
  /// Shows a new state of a window that is up.
  void ApplyState();
  /// Displays the window in the state that the form asks for. From then on its size is the user's.
  void Show();
  /// WM_SIZE, WM_MOVE, WM_GETMINMAXINFO. @return true when it was one of these
  bool Message(UINT message, LPARAM data);
  /// WM_DPICHANGED: another screen. @param suggested the window's place there
  void DpiChanged(int dotsPerInch, const RECT& suggested);

 private:
  void ReportSize();
  void ReportToForm();
  void Arrange();
  void FitToScreen();
  [[nodiscard]] SIZE WindowSizeFor(Size client) const;
  [[nodiscard]] SIZE LeastSize() const;
  [[nodiscard]] SIZE WantedSize() const;

  Form& form_;
  const WidgetContext& context_;
  FormWidgets& widgets_;
  FormLayout& layout_;
  bool shownOnce_ = false;
  bool placing_ = false;  ///< the window is being placed by the form, not by the user
};

}  // namespace chartproject::win32
