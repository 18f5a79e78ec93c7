// Makers of the single control types; the table in qt_control_widget.cpp names them.
#pragma once

#include <memory>

#include "backends/qt/forms/qt_control_widget.h"

namespace chartproject {

// Texts and groups (qt_labels.cpp).
[[nodiscard]] std::unique_ptr<ControlWidget> MakeLabel(Control& control, InputGate& gate);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeFrame(Control& control, InputGate& gate);
[[nodiscard]] std::unique_ptr<ControlWidget> MakePictureBox(Control& control, InputGate& gate);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeProgressBar(Control& control, InputGate& gate);

// Buttons and lists (qt_choices.cpp).
[[nodiscard]] std::unique_ptr<ControlWidget> MakeCommandButton(Control& control, InputGate& gate);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeCheckBox(Control& control, InputGate& gate);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeComboBox(Control& control, InputGate& gate);

// Fields that take text (qt_text_fields.cpp).
[[nodiscard]] std::unique_ptr<ControlWidget> MakeTextField(Control& control, InputGate& gate);

// Numbers in a range (qt_ranges.cpp).
[[nodiscard]] std::unique_ptr<ControlWidget> MakeSlider(Control& control, InputGate& gate);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeScrollBar(Control& control, InputGate& gate);
[[nodiscard]] std::unique_ptr<ControlWidget> MakeUpDown(Control& control, InputGate& gate);

/// The widget of a control that paints itself (qt_drawn.cpp); null for any other control.
[[nodiscard]] std::unique_ptr<ControlWidget> MakeDrawn(Control& control, InputGate& gate);

/// A frame along the widget's edge while it has the focus.
void PaintFocus(QWidget& widget);

}  // namespace chartproject
