// Reads a slice of a chart file's points by line numbers, from a file of any length.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "chart/file/line_index.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "recording/file/chart_file.h"

namespace chartproject {

/// The points of the lines startLine <= L < endLine. Row i of the file's points is at index i - 1.
struct Slice {
  std::int32_t startLine = 0;
  std::int32_t endLine = 0;
  /// More than 1 for a wide slice: there rows 2i and 2i + 1 are the least and the greatest of twice as many points.
  std::int64_t pointsPerRow = 1;
  std::vector<std::string> times;                        ///< time fields, bytes as in the file
  std::array<std::vector<double>, kColumnCount> values;  ///< by column; NaN is a gap
  int columnsRead = 0;                                   ///< columns that have values
  int columnsInUse = 0;                                  ///< up to the last of them with a text in any row
  bool endOfFile = false;                                ///< the file has no line endLine
  bool moreFollow = false;                               ///< the line endLine has a point
  std::int64_t lastLine = 0;  ///< the file's last point, known only with endOfFile; without a point in
                              ///< the slice the file's last line

  [[nodiscard]] int RowCount() const noexcept { return static_cast<int>(times.size()); }
};

enum class SliceEnd : std::uint8_t { kRead, kMalformedLine, kGivenUp };

/// How the reading of a slice ended. A slice is complete only after kRead.
struct SliceReading {
  SliceEnd end = SliceEnd::kRead;
  Slice slice;
  std::int64_t malformedLine = 0;  ///< number of the line that is not a point
  std::string malformedText;       ///< its bytes, cut where it is too long to show
};

/// Lines that are empty or begin with an apostrophe are skipped; any other line that is not a point ends the reading.
/// Throws RunTimeError when the file cannot be read.
/// @param index knows the first point's line; built on as far as needed
/// @param startLine not before the index' first line; no more than endLine
/// @param columns value columns to read, 0 to 4
[[nodiscard]] SliceReading ReadSlice(InputFile& file, LineIndex& index, std::int32_t startLine, std::int32_t endLine,
                                     int columns, const NumberFormat& format, const ScanProgress& progress = {});

}  // namespace chartproject
