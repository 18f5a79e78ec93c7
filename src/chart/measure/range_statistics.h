// Statistics of the series over a range of points: every value of the file counts, also those that a picture cannot
// show.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "chart/file/chart_source.h"
#include "recording/companion/failed_readings.h"
#include "recording/companion/point_clock.h"

namespace chartproject {

/// One series. Without a value all the numbers are NaN.
struct SeriesStatistics {
  std::int64_t count = 0;    ///< values that were measured
  std::int64_t leftOut = 0;  ///< gaps and failed readings: they are in none of the numbers
  double minimum = 0;
  double maximum = 0;
  double mean = 0;
  double rms = 0;       ///< square root of the mean square
  double slope = 0;     ///< of the straight line with the least squares, per second; NaN without two moments
  double integral = 0;  ///< value times seconds: trapezoids between points that follow each other; NaN without times
  std::int64_t crossings = 0;  ///< times that the values pass their mean, from below or from above
};

/// What is measured.
struct MeasureRequest {
  std::int64_t first = 1;  ///< number of a point, counted from 1
  std::int64_t last = 1;   ///< not before the first
  int series = 0;
  const PointClock* clock = nullptr;       ///< for slope and integral
  const FailedReadings* failed = nullptr;  ///< null where none are known. Of ranges that had to be joined all points
                                           ///< are left out
};

/// Reads the points twice where they are more than memory is spent on: once for the mean, once for its crossings.
/// Nothing when the progress function gave up. Throws RunTimeError 321 at a line that is not a point, and as
/// ChartSource::ForEach.
[[nodiscard]] std::optional<std::vector<SeriesStatistics>> MeasureRange(ChartSource& source,
                                                                        const MeasureRequest& request,
                                                                        const NumberFormat& format,
                                                                        const ScanProgress& progress = {});

/// Asks in ascending order whether points of a column failed; each question costs next to nothing.
class FailedCursor {
 public:
  /// @param column outlives the cursor; null for one without failed readings
  explicit FailedCursor(const FailedColumn* column) : column_(column) {}
  /// @param point not before the one that was asked for last
  [[nodiscard]] bool Failed(std::int64_t point);

 private:
  const FailedColumn* column_;
  std::size_t at_ = 0;
};

}  // namespace chartproject
