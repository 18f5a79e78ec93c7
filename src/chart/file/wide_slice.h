// Slices of more points than a chart can have rows: each pair of rows holds the extremes of many points.
#pragma once

#include <cstdint>
#include <vector>

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
  friend bool operator==(const WideRange&, const WideRange&) = default;
};

/// So many lines are read from the file itself where the survey's blocks are too long for a picture of them.
[[nodiscard]] std::int64_t LinesToRead(const FileSurvey& survey);

/// Row 2i and 2i + 1 are the least and the greatest value of the lines from first + 2i x pointsPerRow on; NaN where
/// there is none. Exact as far as the survey is, to the length of a block.
/// @param lines of the whole file
[[nodiscard]] Slice WideSlice(const FileSurvey& survey, const WideRange& range, int columns, std::int64_t lines);

/// Makes the same slice, exact, from the lines themselves: millions of them, in pieces that no key waits for.
class WideReading {
 public:
  /// @param first the file's first line with a point
  WideReading(const WideRange& range, int columns, std::int64_t first);

  [[nodiscard]] const WideRange& Range() const noexcept { return range_; }
  [[nodiscard]] bool Done() const noexcept { return done_; }
  /// Reads the next piece. True while something is left. Throws RunTimeError 57 on a device error.
  bool ReadOn(InputFile& file, LineIndex& index, const NumberFormat& format);
  /// What was read; whole when it is done.
  [[nodiscard]] const Slice& Result() const noexcept { return slice_; }

 private:
  void TakeLines(const char* at, const char* end, const NumberFormat& format);
  void EndPair();

  WideRange range_;
  std::int64_t first_;
  Slice slice_;
  std::int64_t line_ = -1;    ///< that is read next, counted as those of the range; none before the first piece
  std::uint64_t offset_ = 0;  ///< of it in the file
  std::int64_t pairEnd_;
  RowExtremes extremes_;  ///< of the pair that it belongs to
  std::vector<char> buffer_;
  bool done_ = false;
};

}  // namespace chartproject
