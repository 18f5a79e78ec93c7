// A column of a dense plot in which the shapes of several series lie over each other.
#pragma once

#include <utility>
#include <vector>

#include "chart/picture/geometry/scene.h"

namespace chartproject {

/// Rectangles that do not overlap, collected by colour: a painter fills thousands of one colour in one go.
class RectanglesByColor {
 public:
  void Fill(const Rect& box, Color color);
  void AddTo(Scene& scene) const;

 private:
  std::vector<std::pair<Color, std::vector<Rect>>> boxes_;  ///< a few colours
};

/// Fills layers that share a column, the uppermost one first; no pixel is painted twice.
class ColumnOfLayers {
 public:
  /// @param boxes outlives the object
  ColumnOfLayers(double left, double right, RectanglesByColor& boxes) : left_(left), right_(right), boxes_(boxes) {}

  /// The next layer below those that were added.
  void Add(double top, double bottom, Color color);

 private:
  struct Covered {
    double top;
    double bottom;
  };
  void Fill(double top, double bottom, Color color);
  void Cover(double top, double bottom);

  double left_;
  double right_;
  RectanglesByColor& boxes_;
  std::vector<Covered> covered_;  ///< apart from each other, from above to below
};

}  // namespace chartproject
