// Looking for a point of a file, before or after another one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "chart/file/chart_source.h"
#include "recording/companion/failed_readings.h"

namespace chartproject {

enum class SearchFor : std::uint8_t {
  kCrossing,  ///< the first point on the other side of a value, or on it
  kChange,    ///< a text other than that of the point before, as digital values and words of states change
  kGap,       ///< the first of points without a number
  kFailed     ///< the first of points whose reading failed
};

struct PointQuery {
  SearchFor what = SearchFor::kCrossing;
  int series = 0;    ///< counted from 0
  double value = 0;  ///< for a crossing, as it was measured
  bool forward = true;
};

struct FoundPoint {
  std::int64_t point = 0;  ///< its number, from 1
  std::string before{};  ///< texts of the point before it and of itself, as the file has them; of failed readings none
  std::string text{};
};

/// How a search ended.
struct PointSearch {
  std::optional<FoundPoint> found;
  bool givenUp = false;  ///< by the progress function
};

/// The next point after `from`, or the last one before it. Gaps do not hide a crossing: the values beside them count.
/// Throws as ChartSource::ForEach.
/// @param from number of a point; 0 for a search from the beginning
/// @param points how many the file has
/// @param failed null where none are known
[[nodiscard]] PointSearch FindPoint(ChartSource& source, const PointQuery& query, std::int64_t from,
                                    std::int64_t points, const FailedReadings* failed, const NumberFormat& format,
                                    const ScanProgress& progress = {});

}  // namespace chartproject
