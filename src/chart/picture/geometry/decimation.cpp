// Reduction of rows to the extremes of pixel columns.
#include "chart/picture/geometry/decimation.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace chartproject {

int FirstRowOfColumn(int column, int rows, int columns) {
  return static_cast<int>(static_cast<std::int64_t>(column) * rows / columns);
}

ValueRange RangeOf(std::span<const double> values) {
  // Every point of a slice passes here at each drawing: selections instead of branches, which noise would mislead.
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  double least = kInfinity;
  double greatest = -kInfinity;
  for (const double value : values) {
    const bool finite = std::abs(value) < kInfinity;
    const double low = finite ? value : kInfinity;
    const double high = finite ? value : -kInfinity;
    least = low < least ? low : least;
    greatest = high > greatest ? high : greatest;
  }
  if (least > greatest) return {};
  return {least, greatest, false};
}

ValueRange ColumnRange(std::span<const double> values, int column, int columns) {
  const int rows = static_cast<int>(values.size());
  const auto first = static_cast<std::size_t>(FirstRowOfColumn(column, rows, columns));
  const auto last = static_cast<std::size_t>(FirstRowOfColumn(column + 1, rows, columns));
  return RangeOf(values.subspan(first, last - first));
}

}  // namespace chartproject
