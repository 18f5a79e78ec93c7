// What programs that read the screen out say of a control.
#pragma once

#include <string>

namespace chartproject {

class Control;

/// The control's caption; of one that has none its own words (Control::SpokenWords), else the caption of the label
/// before it, with a number when it is not the first field of that label, else its tool tip. Arrows are named as their
/// field. Empty when there is nothing to say.
[[nodiscard]] std::string SpokenName(const Control& control);

}  // namespace chartproject
