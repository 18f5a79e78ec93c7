// Keys that belong to a form, not to the control that has the focus.
#pragma once

#include <QWidget>

#include "backends/qt/forms/qt_control_widget.h"
#include "forms/form.h"

namespace chartproject {

/// Enter, Esc and F1 where no control used them. @return true when the form did
bool UseFormKey(Form& form, InputGate& gate, int key, QWidget* focus);

/// Up and down keys in a field step the arrows beside it. @param field null: no control of the form
/// @return true when there are any
bool StepArrows(Form& form, InputGate& gate, const Control* field, int key);

}  // namespace chartproject
