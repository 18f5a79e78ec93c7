// Names are found in the form's order of controls, in which a label comes before its fields.
#include "forms/spoken_name.h"

#include <algorithm>

#include "forms/access_keys.h"
#include "forms/controls.h"
#include "forms/form.h"

namespace chartproject {

namespace {

std::string WithoutMark(std::string caption) {
  if (AccessLetter(caption)) std::erase(caption, '&');
  return caption;
}

/// The caption of the label before a field; empty when there is none.
std::string NamedByLabel(const Control& field) {
  const auto& controls = field.Owner().Controls();
  auto at = std::find(controls.begin(), controls.end(), &field);
  int number = 1;
  while (at != controls.begin()) {
    const Control& before = **--at;
    if (before.TypeName() == "Label" && !before.Caption().empty() && before.EffectivelyVisible()) {
      return WithoutMark(before.Caption()) + (number > 1 ? " " + std::to_string(number) : "");
    }
    if (before.TypeName() == field.TypeName()) ++number;
  }
  return {};
}

}  // namespace

std::string SpokenName(const Control& control) {
  if (control.HasCaption()) return WithoutMark(control.Caption());
  if (const auto* arrows = dynamic_cast<const UpDown*>(&control); arrows != nullptr && arrows->Buddy() != nullptr) {
    return SpokenName(*arrows->Buddy());
  }
  std::string words = control.SpokenWords();
  // A scroll bar has no label: what comes before it belongs to something else.
  const bool labelled = control.TabStop() && dynamic_cast<const HScrollBar*>(&control) == nullptr;
  if (words.empty() && labelled) words = NamedByLabel(control);
  return words.empty() ? control.ToolTipText() : words;
}

}  // namespace chartproject
