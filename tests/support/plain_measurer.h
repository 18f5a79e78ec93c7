// Sizes of controls as a back end without fonts would give them.
#pragma once

#include <algorithm>

#include "forms/controls.h"
#include "forms/layout.h"

namespace chartproject {

/// Ten pixels a caption's character, twenty a line; a wrapping label breaks anywhere.
class PlainMeasurer : public ControlMeasurer {
 public:
  [[nodiscard]] Size PreferredSize(const Control& control) const override {
    const double width = control.HasCaption() ? 10.0 * static_cast<double>(control.Caption().size()) : 50;
    return {Wraps(control) ? 30 : width, 20};
  }
  [[nodiscard]] double HeightForWidth(const Control& control, double width) const override {
    if (!Wraps(control)) return 20;
    const int perLine = std::max(1, static_cast<int>(width / 10));
    const int lines = (static_cast<int>(control.Caption().size()) + perLine - 1) / perLine;
    return 20.0 * lines;
  }
  [[nodiscard]] Insets ContainerInsets(const Control& container) const override {
    return container.TypeName() == "Frame" ? Insets{5, 25, 5, 5} : Insets{};
  }

 private:
  static bool Wraps(const Control& control) {
    const auto* label = dynamic_cast<const Label*>(&control);
    return label != nullptr && label->WordWrap();
  }
};

}  // namespace chartproject
