// Where controls are: rows, columns, grids and stacks that take the size of their texts and share what is left.
#pragma once

#include <vector>

#include "forms/geometry.h"

namespace chartproject {

class Control;

/// Asks the back end for the sizes that its font and widgets need.
class ControlMeasurer {
 public:
  virtual ~ControlMeasurer() = default;
  /// The least size at which no text of the control is cut; for a container, no part of its title.
  [[nodiscard]] virtual Size PreferredSize(const Control& control) const = 0;
  /// Height of a control at a width; only that of a wrapping label depends on it.
  [[nodiscard]] virtual double HeightForWidth(const Control& control, double width) const = 0;
  /// Room that a container's border and title take around its content.
  [[nodiscard]] virtual Insets ContainerInsets(const Control& container) const = 0;
  /// Share of its gaps that a layout keeps: less than 1 where a screen has no room for them.
  [[nodiscard]] virtual double GapShare() const { return 1; }
};

/// The shares that are tried, one after the other, until a form is no larger than its screen.
inline constexpr double kGapShares[] = {1, 0.5, 0.25};

/// Pixels between neighbours, and between a window's edge and its content.
inline constexpr double kLayoutGap = 8;
inline constexpr double kFormMargin = 12;

/// A box of a form's layout. Build it with the functions below.
struct LayoutBox {
  enum class Kind { kControl, kRow, kColumn, kGrid, kStack, kSpace };
  Kind kind = Kind::kColumn;
  Control* control = nullptr;  ///< the control itself, or the container around the children
  std::vector<LayoutBox> children;
  int columns = 1;      ///< of a grid
  double stretchX = 0;  ///< share of the width that is left over
  double stretchY = 0;
  double minimumWidth = 0;
  double minimumHeight = 0;
  double gap = kLayoutGap;  ///< between the children
  int alignment = 0;        ///< not 0: as wide as the widest box of the same number anywhere in the layout
  bool collapses = false;   ///< an invisible control gives its room away (default: keeps it)
};

/// Leaf: one control. A stack: children in the same place. Row and column: side by side and below each other.
/// Grid: filled row by row with columns of common widths.
[[nodiscard]] LayoutBox Cell(Control& control, double stretchX = 0, double stretchY = 0);
[[nodiscard]] LayoutBox Row(std::vector<LayoutBox> children);
[[nodiscard]] LayoutBox Column(std::vector<LayoutBox> children);
[[nodiscard]] LayoutBox Grid(int columns, std::vector<LayoutBox> children);
[[nodiscard]] LayoutBox Stack(std::vector<LayoutBox> children);
[[nodiscard]] LayoutBox Space(double stretchX = 1, double stretchY = 0);
/// A container control (Frame, PictureBox) around a content box; becomes the container of the controls in it.
[[nodiscard]] LayoutBox Group(Control& container, LayoutBox content);
[[nodiscard]] LayoutBox Stretched(LayoutBox box, double stretchX, double stretchY);
[[nodiscard]] LayoutBox Collapsing(LayoutBox box);
/// Without gaps between the children: a field and the arrows that belong to it.
[[nodiscard]] LayoutBox Joined(LayoutBox box);
[[nodiscard]] LayoutBox Aligned(int alignment, LayoutBox box);
[[nodiscard]] LayoutBox AtLeast(LayoutBox box, double minimumWidth, double minimumHeight = 0);

/// The least size of a box: its least width, and the height that it needs at that width.
[[nodiscard]] Size MinimumSize(const LayoutBox& box, const ControlMeasurer& measurer);
/// Gives every control in the box its place (relative to its container). Controls take the width of their cell and
/// keep their own height, in the middle of their row, unless they stretch; containers fill their cell. What is left
/// over goes to the boxes that stretch; without one it stays empty on the right or below.
void Arrange(const LayoutBox& box, const Rect& area, const ControlMeasurer& measurer);

}  // namespace chartproject
