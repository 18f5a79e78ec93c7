// A copy of a recording with few points that looks like it: for a chart in a workbook.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include "recording/file/chart_file.h"

namespace chartproject {

/// One point: its moment in any unit, and its values; NaN is a gap.
struct ThinnedPoint {
  double moment = 0;
  std::array<double, kColumnCount> values{};
};

/// Of each group of neighbours two points are left, with the least and the greatest value of every series in the order
/// in which they came: no peak is lost. A recording that is short enough is copied.
class ThinnedPoints {
 public:
  using Taker = std::function<void(const ThinnedPoint& point)>;

  /// @param points of the recording; @param most that are to be left, 2 or more
  ThinnedPoints(std::int64_t points, std::int64_t most, Taker take);

  void Add(const ThinnedPoint& point);
  /// The last group, which may be smaller.
  void Finish();

 private:
  /// Of the values of one series in the group.
  struct Extremes {
    double least = 0;
    double greatest = 0;
    bool leastFirst = true;
    bool any = false;
  };
  void Note(Extremes& extremes, double value) const;

  std::int64_t groupSize_;  ///< 1: every point is taken as it is
  Taker take_;
  std::int64_t count_ = 0;  ///< of the group
  double first_ = 0;        ///< moments of the group
  double middle_ = 0;
  std::array<Extremes, kColumnCount> extremes_;
};

}  // namespace chartproject
