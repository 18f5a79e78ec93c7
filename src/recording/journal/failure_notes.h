// Failed readings in a journal, so that they survive a crash as the rows do.
#pragma once

#include <array>
#include <cstdint>
#include <string>

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

/// What a journal says of failed readings up to a point. Lines that are not understood are left out; bounded in memory
/// for any file. @param file of the journal, from its start. Throws RunTimeError 57.
[[nodiscard]] FailedReadings ReadFailureNotes(InputFile& file, const CodePage& codePage, std::int32_t points);

}  // namespace chartproject
