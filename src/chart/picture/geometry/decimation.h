// As much as the picture can show: the extremes of each pixel column instead of all its rows.
#pragma once

#include <span>

#include "chart/picture/geometry/value_axis.h"

namespace chartproject {

/// A column's rows are [FirstRowOfColumn(c), FirstRowOfColumn(c + 1)): the columns share the rows evenly.
[[nodiscard]] int FirstRowOfColumn(int column, int rows, int columns);

/// The least and greatest of some values; what is not finite is a gap and does not count.
[[nodiscard]] ValueRange RangeOf(std::span<const double> values);

/// The range of one of `columns` equal columns of rows.
[[nodiscard]] ValueRange ColumnRange(std::span<const double> values, int column, int columns);

}  // namespace chartproject
