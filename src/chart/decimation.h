// As many points as the picture can show: the extremes of each pixel column instead of all its rows.
#pragma once

#include <span>
#include <vector>

namespace chartproject {

struct Sample {
  int row = 0;
  double value = 0;
  friend bool operator==(const Sample&, const Sample&) = default;
};

/// Samples without a gap between them, in rising row order.
using SampleRun = std::vector<Sample>;

/// True when the rows are so dense that columns stand for several of them.
[[nodiscard]] constexpr bool IsDense(int rows, int columns) noexcept {
  return rows > 2 * columns;
}

/// A column's rows are [FirstRow(c), FirstRow(c + 1)).
[[nodiscard]] int FirstRowOfColumn(int column, int rows, int columns);

/// The runs of a series. When the rows are dense, each of the `columns` equal columns gives at most its first, least,
/// greatest and last value, in row order, and a gap shows where it fills a column; otherwise every row is a sample.
/// What is not finite is a gap.
[[nodiscard]] std::vector<SampleRun> Decimate(std::span<const double> values, int columns);

/// The least and greatest value of the rows [first, last); false when there is none.
[[nodiscard]] bool ColumnExtremes(std::span<const double> values, int first, int last, Sample& least, Sample& greatest);

}  // namespace chartproject
