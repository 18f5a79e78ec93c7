// The chart's projection: the place of a row, a value and a depth in the picture.
#pragma once

#include <algorithm>
#include <vector>

#include "chart/picture/geometry/value_axis.h"
#include "forms/geometry.h"

namespace chartproject {

/// The front plane is a rectangle; depth runs from it (0) to the back wall (1), to the right and upwards, in an oblique
/// projection: nothing gets smaller with its distance, so values compare by eye. A flat chart has no depth.
struct Plot {
  Rect front;
  double depthX = 0;  ///< the back wall's shift to the right, pixels
  double depthY = 0;  ///< and upwards
  int rows = 0;
  ValueAxis axis;
  /// Row of depth of each series, counted from the front; empty for the order of the series.
  std::vector<int> depthRows{};

  [[nodiscard]] double RowWidth() const noexcept { return front.width / std::max(1, rows); }
  /// Left edge of a row's slot; the right one is Edge(row + 1).
  [[nodiscard]] double Edge(double row) const noexcept { return front.x + row * front.width / std::max(1, rows); }
  /// Middle of a row's slot, the place of its points.
  [[nodiscard]] double X(int row) const noexcept { return Edge(row + 0.5); }
  [[nodiscard]] double Y(double value) const noexcept {
    const double low = axis.Minimum();
    const double share = (std::clamp(value, -kLargestShown, kLargestShown) - low) / (axis.Maximum() - low);
    const double y = front.Bottom() - share * front.height;
    // Where the axis has ends of its own a value may be far outside; surfaces are slow with very large coordinates.
    constexpr double kFar = 4096;
    return axis.ends.empty ? y : std::clamp(y, front.y - kFar, front.Bottom() + kFar);
  }
  /// What series may cover: the front plane and the depth over it.
  [[nodiscard]] Rect Reach() const noexcept {
    return {front.x, front.y - depthY, front.width + depthX, front.height + depthY};
  }
  /// The height from which bars and areas rise: zero, or the end of the axis that is nearest to it.
  [[nodiscard]] double BaseY() const noexcept { return Y(std::clamp(0.0, axis.Minimum(), axis.Maximum())); }
  /// A point of the front plane moved to a depth.
  [[nodiscard]] PointF At(PointF point, double depth) const noexcept {
    return {point.x + depth * depthX, point.y - depth * depthY};
  }
};

}  // namespace chartproject
