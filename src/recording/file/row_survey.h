// What the rows of a recording are: how many, from when to when, and a digest that compares two files' rows.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <string>

#include "recording/file/chart_file.h"

namespace chartproject {

/// The rows of one or more files, in order. Rows without a time fill up a recording that was ended early; they are not
/// points and do not count.
struct RowSurvey {
  std::int64_t points = 0;
  std::int64_t malformed = 0;  ///< lines that are neither points, comments nor empty; a torn last row is one
  std::string firstTime;       ///< hh:mm:ss, of the first point
  std::string lastTime;
  int midnights = 0;                             ///< times that went back by half a day or more: a new day began
  int columns = 0;                               ///< the last column that holds a value, 0 to 4
  bool toTheEnd = true;                          ///< false when reading ended at the limit
  std::uint64_t digest = 14695981039346656037U;  ///< FNV-1a of the points' lines, blanks at their ends left out

  [[nodiscard]] bool SamePoints(const RowSurvey& other) const noexcept {
    return points == other.points && digest == other.digest;
  }
};

inline constexpr std::uint64_t kNoSurveyLimit = std::numeric_limits<std::uint64_t>::max();

/// Adds the rows of a file from `first` on; reading ends after `limit` bytes. Throws RunTimeError 57.
/// @param keepAlive called every few megabytes; may be empty
void AddRows(RowSurvey& survey, InputFile& file, const RowStart& first, std::uint64_t limit = kNoSurveyLimit,
             const std::function<void()>& keepAlive = {});

/// The rows after the mark of a chart file; none without a mark. Throws RunTimeError.
[[nodiscard]] RowSurvey SurveyChartFile(InputFile& file, const std::function<void()>& keepAlive = {});

}  // namespace chartproject
