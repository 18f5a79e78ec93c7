// A column of a dense plot in which the shapes of several series lie over each other.
#pragma once

#include <vector>

#include "chart/picture/geometry/scene.h"

namespace chartproject {

/// Fills layers that share a column, the uppermost one first; no pixel is painted twice.
class ColumnOfLayers {
 public:
  /// @param scene outlives the object
  ColumnOfLayers(double left, double right, Scene& scene) : left_(left), right_(right), scene_(scene) {}

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
  Scene& scene_;
  std::vector<Covered> covered_;  ///< apart from each other, from above to below
};

}  // namespace chartproject
