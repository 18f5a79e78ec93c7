// The points of a chart file, line by line: the one place that decides which lines are points.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "common/values/line_reader.h"
#include "recording/file/chart_file.h"

namespace chartproject {

enum class LineKind : std::uint8_t {
  kSkipped,   ///< empty, or a comment: it begins with an apostrophe and may hold what looks like a point
  kPoint,     ///< six "#"
  kMalformed  ///< anything else, and every line longer than kLongestPointLine
};

/// A longer line is not a point. The rest of it is skipped in bounded memory.
inline constexpr std::size_t kLongestPointLine = 4096;

/// One line after the rows' mark; the views hold until the next call of PointReader::Next.
struct PointLine {
  LineKind kind = LineKind::kSkipped;
  ChartRow row;              ///< of a point
  std::string_view text;     ///< the bytes without blanks at either end, cut when the line is too long
  std::int64_t number = 0;   ///< counted from 1 in the file
  std::uint64_t offset = 0;  ///< of the line's first byte in the file
};

/// Called at intervals with the offset reached; returning false stops the count.
using CountProgress = std::function<bool(std::uint64_t offset)>;

class PointReader {
 public:
  /// @param file outlives the reader; its position must not be changed from outside
  /// @param first a line after the rows' mark, see LocateRows
  PointReader(InputFile& file, const RowStart& first);

  /// False at the end of the file. Throws RunTimeError 57 on a device error.
  [[nodiscard]] bool Next(PointLine& line);
  /// Skips the lines before `number` without examining them.
  /// @param progress called now and then; when it returns false, the skipping stops and the answer is false
  bool SkipTo(std::int64_t number, const CountProgress& progress = {});
  /// Number of the line that comes next; at the end of the file one more than that of the last line.
  [[nodiscard]] std::int64_t NextNumber() const noexcept { return next_; }

 private:
  LineReader lines_;
  std::int64_t next_;
};

/// What the lines after the rows' mark are.
struct PointCount {
  std::int64_t points = 0;
  std::int64_t malformed = 0;
  std::int64_t lastLine = 0;  ///< number of the last point's line; 0 without a point
};

/// Reads to the end of the file; nothing when the count was stopped. Throws RunTimeError 57 on a device error.
[[nodiscard]] std::optional<PointCount> CountPoints(InputFile& file, const RowStart& first,
                                                    const CountProgress& progress = {});

}  // namespace chartproject
