// Lines of the line protocol, the text form in which time-series databases take points. Some servers drop a line that
// they do not understand in silence, so that nothing but right lines may leave.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/values/growing_text.h"
#include "platform/locale.h"

namespace chartproject {

/// Most bytes of a tag's value; databases have limits of their own, far above.
inline constexpr std::size_t kLongestTagValue = 256;
/// Most bytes of measurement and tags together.
inline constexpr std::size_t kLongestSeriesKey = 4096;

/// Keys with their values, all UTF-8.
using LineTags = std::vector<std::pair<std::string, std::string>>;

/// Whether a text can be a measurement: 1 to 100 bytes, no control characters, not beginning with "_", which
/// databases keep for themselves.
[[nodiscard]] bool IsMeasurement(std::string_view text) noexcept;

/// Measurement and tags, the beginning of every line: "chart,drive=01,tag=Press\ 2". Tags are sorted; one without a
/// value is left out. A value is made fit: blanks for control characters, "/" for a backslash, which has no form of its
/// own there, and kLongestTagValue bytes at most.
[[nodiscard]] std::string SeriesKey(std::string_view measurement, LineTags tags);

/// Whether a text that was kept in a file is such a beginning of this measurement: nothing in it ends the tags.
[[nodiscard]] bool IsSeriesKeyOf(std::string_view key, std::string_view measurement) noexcept;

/// Writes lines of one series.
class PointLines {
 public:
  /// @param seriesKey see SeriesKey; @param fields names of the columns: letters, digits, underscores
  PointLines(std::string seriesKey, const std::vector<std::string>& fields, const NumberFormat& numbers);

  /// A line: Begin, a Value for each column that has one, End.
  void Begin(std::string& lines);
  /// A text that is not a number is left out, as a failed reading is. @param field the value's bytes as in the file
  /// @return whether there is a value
  bool Value(std::string& lines, std::size_t column, std::string_view field);
  /// @param milliseconds since 1970 UTC. @return false, with the line taken back, when it has no value
  bool End(std::string& lines, std::int64_t milliseconds) const;

 private:
  std::string key_;
  std::vector<std::string> names_;  ///< each with "="
  const NumberFormat& numbers_;
  GrowingText number_;  ///< of the value that is written
  std::size_t begin_ = 0;
  bool any_ = false;
};

}  // namespace chartproject
