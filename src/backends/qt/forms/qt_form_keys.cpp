// Keys that belong to a form, not to the control that has the focus.
#include "backends/qt/forms/qt_form_keys.h"

#include <QPushButton>

#include "forms/controls.h"

namespace chartproject {

namespace {

template <typename Meant>
bool PressButton(Form& form, InputGate& gate, Meant meant) {
  for (Control* control : form.Controls()) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button == nullptr || !meant(*button)) continue;
    if (!button->EffectivelyEnabled() || !button->EffectivelyVisible()) continue;
    gate.Take(*button, [button] { button->Press(); });
    return true;
  }
  return false;
}

}  // namespace

bool UseFormKey(Form& form, InputGate& gate, int key, QWidget* focus) {
  if (key == Qt::Key_F1 && form.helpRequested.handler) {
    form.RunHandler(form.helpRequested.routine, form.helpRequested.handler);
    return true;
  }
  if (key == Qt::Key_Escape) {
    return PressButton(form, gate, [](const CommandButton& button) { return button.IsCancel(); });
  }
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
  if (auto* button = qobject_cast<QPushButton*>(focus)) {
    button->click();
    return true;
  }
  return PressButton(form, gate, [](const CommandButton& button) { return button.IsDefault(); });
}

bool StepArrows(Form& form, InputGate& gate, const Control* field, int key) {
  if (field == nullptr || (key != Qt::Key_Up && key != Qt::Key_Down)) return false;
  for (Control* other : form.Controls()) {
    auto* arrows = dynamic_cast<UpDown*>(other);
    if (arrows == nullptr || arrows->Buddy() != field) continue;
    gate.Take(*arrows, [arrows, key] { arrows->Step(key == Qt::Key_Up ? 1 : -1); });
    return true;
  }
  return false;
}

}  // namespace chartproject
