// Icon and pointers of one form, loaded from the files that it names.
#pragma once

#include <string>

#include "backends/win32/widgets/widget.h"

namespace chartproject::win32 {

class FormPictures {
 public:
  explicit FormPictures(const Form& form) : form_(form) {}
  ~FormPictures();
  FormPictures(const FormPictures&) = delete;
  FormPictures& operator=(const FormPictures&) = delete;

  /// Shows the icon of the window's owner on it, until the form has one.
  static void ShowOwnersIcon(HWND window);
  /// Shows the form's icon on its window.
  void ShowIcon(HWND window);
  /// Shows the form's pointer, at once.
  void ShowPointer();
  /// WM_SETCURSOR. @param under the control below the pointer; null when there is none
  /// @return false leaves the pointer to the system
  bool ShowPointerOver(const Widget* under);

 private:
  [[nodiscard]] HCURSOR ButtonCursor();

  const Form& form_;
  OwnedIcon icon_;
  OwnedIcon smallIcon_;
  OwnedCursor buttonCursor_;
  std::string buttonCursorFile_;  ///< of buttonCursor_, also when it could not be loaded
};

}  // namespace chartproject::win32
