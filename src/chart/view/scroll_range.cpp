// Scroll bar numbers in checked 16- and 32-bit arithmetic.
#include "chart/view/scroll_range.h"

#include <algorithm>
#include <limits>

#include "common/values/numbers.h"

namespace chartproject {
namespace {

constexpr std::int32_t kMostScrollUnits = std::numeric_limits<std::int16_t>::max();

}  // namespace

std::int16_t SliceLength(std::int16_t pointsPerDivision) {
  return CheckedInteger16(std::int64_t{pointsPerDivision} * kDivisions);
}

ScrollRange ComputeScrollRange(std::int32_t points, std::int16_t pointsPerDivision) {
  ScrollRange range;
  if (points <= kDivisions) return range;
  range.usable = true;
  const std::int16_t length = SliceLength(pointsPerDivision);
  if (points <= kMostScrollUnits) {
    range.maximum = CheckedInteger16(std::int64_t{points} - length);
    range.smallChange = pointsPerDivision;
  } else {
    range.maximum = CheckedInteger16(std::int64_t{kMostScrollUnits} - length);
    range.smallChange = RoundToInteger16(range.maximum / (static_cast<double>(points) - length) * pointsPerDivision);
  }
  range.largeChange = RoundToInteger16(range.maximum / 10.0);
  return range;
}

std::int32_t SliceStart(std::int32_t firstLine, std::int32_t points, std::int16_t pointsPerDivision, int value,
                        int maximum) {
  const std::int32_t beyond = CheckedInteger32(std::int64_t{points} - SliceLength(pointsPerDivision));
  if (beyond == 0) return firstLine;
  const double unitsPerPoint = static_cast<double>(maximum) / beyond;
  // A bar without a range, or one that runs backwards, always shows the first point.
  if (unitsPerPoint <= 0) return firstLine;
  const std::int32_t offset = RoundToInteger32(value / unitsPerPoint);
  return CheckedInteger32(std::int64_t{firstLine} + std::max(offset, 0));
}

std::int16_t ScrollValue(std::int32_t offset, std::int32_t points, std::int16_t pointsPerDivision, int maximum) {
  const std::int32_t beyond = CheckedInteger32(std::int64_t{points} - SliceLength(pointsPerDivision));
  if (beyond == 0) return 0;
  return RoundToInteger16(static_cast<double>(maximum) / beyond * offset);
}

}  // namespace chartproject
