// The values of the rows of a whole file, at the speed at which its bytes can be read.
#pragma once

#include <array>
#include <span>

#include "platform/locale.h"
#include "recording/file/chart_file.h"
#include "recording/file/point_reader.h"

namespace chartproject {

using RowValues = std::array<double, kColumnCount>;

/// Judges the line that begins at `at` and reads its values: the same kinds and the same values (NaN is a gap) as
/// PointReader and FieldValue give, several times as fast.
/// @param at moves to the next line
/// @param end of the bytes: after a line feed, or the end of the file
/// @param columns values to read, 0 to 4; the others are left as they are
[[nodiscard]] LineKind ScanRow(const char*& at, const char* end, int columns, const NumberFormat& format,
                               RowValues& values);

}  // namespace chartproject
