// Reading the journal of an interrupted recording. The file may come from anybody: sizes and values are checked.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "recording/file/chart_file.h"

namespace chartproject {

struct JournalReading {
  ChartHeader header;
  std::int64_t millisecondsBetweenPoints = 0;  ///< 0 when not known
  bool simulated = false;                      ///< no drive gave the values
  std::optional<DateTime> begun;               ///< of the first point
  std::optional<RowStart> rows;                ///< of rows in the journal itself
  std::vector<int> spools;                     ///< numbers of its spool files, in the order of their rows
};

/// The number of a line that names a spool file, see journal_line; nothing when no spool file has it.
[[nodiscard]] std::optional<int> SideNumberIn(std::string_view line);

/// Nothing when the file does not begin as a journal of this version does. At most kHeaderLimit bytes are examined for
/// header lines; a line without its line end was being written when the recording was interrupted, and is left out.
/// Throws RunTimeError 57.
[[nodiscard]] std::optional<JournalReading> ReadJournal(InputFile& file, const CodePage& codePage);

}  // namespace chartproject
