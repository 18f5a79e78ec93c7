// What a form says, for tests that see a text that is missing.
#pragma once

#include <string>
#include <vector>

#include "forms/control.h"
#include "forms/form.h"

namespace chartproject {

/// The captions of a form and of its controls in their order, with their tool tips: "caption (tool tip)".
inline std::vector<std::string> TextsOf(const Form& form) {
  std::vector<std::string> texts{form.Caption()};
  for (const Control* control : form.Controls()) {
    std::string text = control->HasCaption() ? control->Caption() : "";
    if (!control->ToolTipText().empty()) text += " (" + control->ToolTipText() + ")";
    if (!text.empty()) texts.push_back(std::move(text));
  }
  return texts;
}

}  // namespace chartproject
