// What a companion says to users: the same words in the dialog, in the reports and beside a chart.
#pragma once

#include <string>
#include <vector>

#include "platform/locale.h"
#include "recording/companion/companion.h"

namespace chartproject {

/// "710 ms", from one second on "2.50 s", from one minute on "00:01:05". @param milliseconds 0 or more
[[nodiscard]] std::string IntervalText(std::int64_t milliseconds, const NumberFormat& numbers);

/// "P003: 17 of 40 readings failed, last: no answer". @param points points taken
[[nodiscard]] std::string FailedText(Language language, int parameter, const FailedColumn& column, std::int32_t points);

/// One line a column with failed readings, with the points where they failed, one when the pace slipped, and
/// one when a crash interrupted the recording.
[[nodiscard]] std::vector<std::string> CompanionLines(Language language, const NumberFormat& numbers,
                                                      const Companion& companion);

}  // namespace chartproject
