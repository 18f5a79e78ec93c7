// A keyboard for the tests of fields whose rules look at every letter.
#pragma once

#include <string>
#include <string_view>

#include "forms/controls.h"

namespace chartproject {

/// Types a text at the end of a field, or over the whole of it where that is selected: every letter is a separate
/// change of the text that the field held after the letter before.
inline void TypeLetters(TextControl& field, std::string_view letters) {
  for (const char letter : letters) field.SetText((field.AllSelected() ? std::string() : field.Text()) + letter);
}

/// Types over what a field holds; an empty text is its deletion.
inline void TypeOver(TextControl& field, std::string_view text) {
  field.SelectAll();
  if (text.empty()) field.SetText("");
  TypeLetters(field, text);
}

}  // namespace chartproject
