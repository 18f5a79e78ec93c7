// frmStatus: a line of text on the screen while no other window is, for example while a page is printed.
#pragma once

#include <string>

#include "common/environment/environment.h"
#include "forms/controls.h"
#include "forms/form.h"

namespace chartproject {

class StatusForm : public Form {
 public:
  /// @param environment outlives the form
  explicit StatusForm(Environment& environment);
  /// Shows the text with the busy pointer; an empty text takes the window away.
  void ShowText(const std::string& text);

 private:
  Label lblStatus{*this, "lblStatus"};
};

}  // namespace chartproject
