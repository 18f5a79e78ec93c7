// Sentences about failed readings and late points.
#include "recording/companion/companion_texts.h"

#include <algorithm>

#include "common/values/numbers.h"
#include "texts/texts.h"

namespace chartproject {

std::string IntervalText(std::int64_t milliseconds, const NumberFormat& numbers) {
  constexpr std::int64_t kSecond = 1000;
  constexpr std::int64_t kMinute = 60 * kSecond;
  if (milliseconds < kSecond) return std::to_string(milliseconds) + " ms";
  if (milliseconds < kMinute) return FormatTwoDecimals(static_cast<double>(milliseconds) / kSecond, numbers) + " s";
  return FormatSeconds((milliseconds + kSecond / 2) / kSecond);
}

std::string FailedText(Language language, int parameter, const FailedColumn& column, std::int32_t points) {
  // The reading with which the link object failed ended the run: its point was not kept.
  const std::int64_t readings = std::max(points, column.LastPoint());
  return FillIn(TextIn(language, Text::kReadingsFailed),
                {"P" + FormatDigits(parameter, 3), std::to_string(column.Count()), std::to_string(readings),
                 FailureText(language, column.LastReason())});
}

std::vector<std::string> CompanionLines(Language language, const NumberFormat& numbers, const Companion& companion) {
  std::vector<std::string> lines;
  for (std::size_t index = 0; index < companion.failed.size(); ++index) {
    const FailedColumn& column = companion.failed[index];
    if (column.Count() == 0) continue;
    lines.push_back(FailedText(language, companion.parameters[index], column, companion.points) + " " +
                    FillIn(TextIn(language, Text::kFailedBetween),
                           {std::to_string(column.FirstPoint()), std::to_string(column.LastPoint())}));
  }
  const PaceSummary& pace = companion.pace;
  if (pace.Slipped()) {
    lines.push_back(FillIn(TextIn(language, Text::kPaceSlipped),
                           {IntervalText(pace.mean, numbers), IntervalText(pace.asked, numbers),
                            IntervalText(pace.shortest, numbers), IntervalText(pace.longest, numbers)}));
  }
  if (companion.recovered == Recovered::kFromJournal) lines.emplace_back(TextIn(language, Text::kRecoveredTimes));
  if (companion.recovered == Recovered::kFromRows) lines.emplace_back(TextIn(language, Text::kRecoveredReadings));
  return lines;
}

}  // namespace chartproject
