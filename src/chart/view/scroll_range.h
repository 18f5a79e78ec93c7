// The arithmetic between the points of a file, the slice that is shown and the 16-bit scroll bar over it.
#pragma once

#include <cstdint>

namespace chartproject {

/// A slice spans so many divisions of the category axis.
inline constexpr std::int16_t kDivisions = 25;
/// Points per division that the slider offers; one more division of points would not fit into 16 bits.
inline constexpr int kMostPointsPerDivision = 1310;

/// Points of a slice. Throws RunTimeError 6 when it does not fit into 16 bits.
[[nodiscard]] std::int16_t SliceLength(std::int16_t pointsPerDivision);

/// Properties of the scroll bar over a file of `points` points.
struct ScrollRange {
  bool usable = false;  ///< false: the file is at most one division a point long, nothing can be scrolled
  std::int16_t maximum = 0;
  std::int16_t smallChange = 1;
  std::int16_t largeChange = 1;
};

/// Up to 32767 points one scroll unit is one point; beyond, the bar's whole range covers the file. Steps may be
/// outside a scroll bar's range; the caller corrects them. Throws RunTimeError 6 on an overflow.
[[nodiscard]] ScrollRange ComputeScrollRange(std::int32_t points, std::int16_t pointsPerDivision);

/// First line of the slice for a scroll bar's value. Throws RunTimeError 6 on an overflow.
/// @param firstLine line of the file's first point; no slice begins before it
[[nodiscard]] std::int32_t SliceStart(std::int32_t firstLine, std::int32_t points, std::int16_t pointsPerDivision,
                                      int value, int maximum);

/// The scroll bar's value for a slice that begins `offset` points after the first. Throws RunTimeError 6.
[[nodiscard]] std::int16_t ScrollValue(std::int32_t offset, std::int32_t points, std::int16_t pointsPerDivision,
                                       int maximum);

}  // namespace chartproject
