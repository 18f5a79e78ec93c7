// Slices of more points than a chart can have rows: each pair of rows holds the extremes of many points.
#pragma once

#include <cstdint>

#include "chart/file/file_survey.h"
#include "chart/file/slice_reader.h"

namespace chartproject {

/// The division of a wide slice. Its rows are a whole number of points apart.
struct WideDivision {
  std::int64_t points = 0;        ///< of a division
  std::int64_t pointsPerRow = 1;  ///< divides them
};

/// The least division of at least `points` points whose labels are round numbers and that has at most
/// kMostPointsPerDivision rows. @param points more than kMostPointsPerDivision
[[nodiscard]] WideDivision ChooseWideDivision(std::int64_t points);

/// The lines of a wide slice, counted from 0 from the file's first point.
struct WideRange {
  std::int64_t first = 0;
  std::int64_t end = 0;
  std::int64_t pointsPerRow = 1;
};

/// So many lines are read from the file itself where the survey's blocks are too long for a picture of them.
[[nodiscard]] std::int64_t LinesToRead(const FileSurvey& survey);

/// Row 2i and 2i + 1 are the least and the greatest value of the lines from first + 2i x pointsPerRow on; NaN where
/// there is none. Exact as far as the survey is, to the length of a block.
/// @param lines of the whole file
[[nodiscard]] Slice WideSlice(const FileSurvey& survey, const WideRange& range, int columns, std::int64_t lines);

/// The same, exact, from the lines themselves. Throws RunTimeError 57 on a device error.
/// @param first the file's first line with a point
[[nodiscard]] Slice ReadWideSlice(InputFile& file, LineIndex& index, std::int64_t first, const WideRange& range,
                                  int columns, const NumberFormat& format);

}  // namespace chartproject
