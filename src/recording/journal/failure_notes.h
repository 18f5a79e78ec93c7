// Failed readings in a journal, so that they survive a crash as the rows do.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "recording/companion/companion.h"

namespace chartproject {

/// Lines of a journal, as comments among its rows or after its header lines. Values are those of
/// a companion's line: "'Fails=1 P003 4 4 1 no-answer": the readings of column 1 fail from point 4 on;
/// "'Failed=1 P003 4 20 17 no-answer": they failed up to point 20.
namespace failure_note {
inline constexpr std::string_view kOpen = "'Fails=";
inline constexpr std::string_view kClosed = "'Failed=";
}  // namespace failure_note

/// Knows which failures the journal has. A copy is tried first, and taken over when its lines are written.
class FailureNotes {
 public:
  /// The lines that the journal lacks (UTF-8); in a recording without failures there is none.
  /// @param failed of the recording; @param parameters by column; @param point the one that was taken last
  [[nodiscard]] std::string Lines(const FailedReadings& failed, const std::array<int, kColumnCount>& parameters,
                                  std::int32_t point);

 private:
  std::array<std::int32_t, kColumnCount> closed_{};  ///< the last point of the ranges that were noted whole
  std::array<std::int32_t, kColumnCount> open_{};    ///< the first point of a range that was noted open; 0 for none
};

/// Follows the notes of a journal that is still being written.
class NotedFailures {
 public:
  /// @param codePage outlives this object; @param points failures after this point do not count
  explicit NotedFailures(const CodePage& codePage, std::int32_t points = std::numeric_limits<std::int32_t>::max())
      : codePage_(codePage), points_(points) {}

  /// A line of the journal; any other line than a note is left out. Bounded in memory for any lines.
  void Take(std::string_view line);
  /// Whether a reading failed. Of ranges that had to be joined, some points did not: those whose value is not zero.
  /// @param column from 0
  [[nodiscard]] bool Failed(std::size_t column, std::int32_t point, bool zero) const;
  /// All of them. A range that is not noted as ended goes up to the last point.
  [[nodiscard]] FailedReadings UpToNow() const;

 private:
  const CodePage& codePage_;
  std::int32_t points_;
  FailedReadings failed_;
  std::array<std::optional<FailedRange>, kColumnCount> open_;
};

/// What a journal says of failed readings up to a point. Lines that are not understood are left out; bounded in memory
/// for any file. @param file of the journal, from its start. Throws RunTimeError 57.
[[nodiscard]] FailedReadings ReadFailureNotes(InputFile& file, const CodePage& codePage, std::int32_t points);

}  // namespace chartproject
