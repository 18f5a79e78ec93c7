// The lines of a companion file, one by one.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "recording/companion/companion.h"

namespace chartproject {

// What the file is made of.
inline constexpr std::string_view kCompanionMark = "[CHART READINGS]";
inline constexpr std::string_view kFailedSection = "[FAILED]";
inline constexpr std::string_view kPaceSection = "[PACE]";
inline constexpr std::string_view kTimesSection = "[TIMES]";
inline constexpr std::string_view kPointsKey = "Points=";
inline constexpr std::string_view kRecoveredKey = "Recovered=";
inline constexpr std::string_view kWithinKey = "Within=";
inline constexpr std::size_t kLongestCompanionLine = 1024;

/// The header's lines by which a companion names its recording.
inline constexpr std::array<HeaderKey, 4> kRecordingKeys{{
    {"Start Date=", &ChartHeader::StartDate, false},
    {"Start Time=", &ChartHeader::StartTime, false},
    {"End Date=", &ChartHeader::EndDate, false},
    {"End Time=", &ChartHeader::EndTime, false},
}};

/// A line of the pace.
struct PaceKey {
  std::string_view key;
  std::int64_t PaceSummary::*field;
};
inline constexpr std::array<PaceKey, 5> kPaceKeys{{
    {"Asked=", &PaceSummary::asked},
    {"Shortest=", &PaceSummary::shortest},
    {"Mean=", &PaceSummary::mean},
    {"Longest=", &PaceSummary::longest},
    {"Latest=", &PaceSummary::latest},
}};

/// The word of a reason in the file and in JSON: "no-answer", "checksum".
[[nodiscard]] std::string_view FailureCode(ReadFailure failure) noexcept;

/// The words of Recovered, by value; none for a recording that was not interrupted.
inline constexpr std::array<std::string_view, 3> kRecoveredWords{"", "journal", "rows"};

/// A line of the failed readings. @param column from 0
[[nodiscard]] std::string FailedRangeLine(std::size_t column, int parameter, const FailedRange& range);

/// Takes the lines in their order. A section that is not known is skipped, so that later versions may add some.
class CompanionReader {
 public:
  /// @param header of the chart file
  explicit CompanionReader(const ChartHeader& header) : header_(header) {}

  /// False for a line that is not understood, or whose numbers contradict those before.
  [[nodiscard]] bool TakeLine(std::string_view line);
  /// A date or time is not that of the chart file.
  [[nodiscard]] bool OfAnotherRecording() const noexcept { return other_; }
  /// What the lines said until now.
  [[nodiscard]] const Companion& SoFar() const noexcept { return companion_; }
  /// What the lines said. @return nothing when a date or a time was missing
  [[nodiscard]] std::optional<Companion> Finish();

 private:
  [[nodiscard]] bool TakeRecording(std::string_view line);
  [[nodiscard]] bool TakeFailed(std::string_view line);
  [[nodiscard]] bool TakePace(std::string_view line);
  [[nodiscard]] bool TakeTime(std::string_view line);

  using Taker = bool (CompanionReader::*)(std::string_view line);
  const ChartHeader& header_;
  Taker taker_ = nullptr;  ///< of the section; null where lines are skipped
  Companion companion_;
  std::size_t matched_ = 0;  ///< dates and times
  bool other_ = false;
  std::int64_t within_ = 1;
  std::vector<TimeKnot> knots_;
};

}  // namespace chartproject
