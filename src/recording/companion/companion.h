// What a chart file cannot say of its recording: readings that failed, the real times of its points, invented values.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/code_page.h"
#include "platform/file_system.h"
#include "recording/companion/failed_readings.h"
#include "recording/companion/pace.h"
#include "recording/file/chart_header.h"

namespace chartproject {

/// What is known of a recording that a crash interrupted.
enum class Recovered : std::uint8_t {
  kNo,           ///< it was not interrupted
  kFromJournal,  ///< its failed readings are known, its real times are not
  kFromRows,     ///< neither is known
};

/// One recording's.
struct Companion {
  std::int32_t points = 0;  ///< points taken
  std::array<int, kColumnCount> parameters{kUnusedParameter, kUnusedParameter, kUnusedParameter, kUnusedParameter};
  FailedReadings failed;
  PaceSummary pace;
  PointTimes times;  ///< known when the pace slipped
  Recovered recovered = Recovered::kNo;
  bool simulated = false;  ///< no drive gave the values; alone that does not need a companion

  /// True when there is something that its chart file cannot say.
  [[nodiscard]] bool IsNeeded() const noexcept {
    return AnyFailed(failed) || pace.Slipped() || recovered != Recovered::kNo;
  }
};

/// The parameters of the columns that a header names; kUnusedParameter for others.
[[nodiscard]] std::array<int, kColumnCount> ParametersOf(const ChartHeader& header);

/// The companion's name sorts beside that of its chart file: "Test.cht.readings".
inline constexpr std::string_view kCompanionEnding = ".readings";
[[nodiscard]] std::string CompanionName(const std::string& chartFileName);

/// The companion as a text (UTF-8). @param header of its chart file, by whose dates and times it is recognised, as the
/// code page of chart files keeps them
[[nodiscard]] std::string CompanionText(const Companion& companion, const ChartHeader& header,
                                        const CodePage& codePage);

/// Writes the companion of a chart file that was just written, with the chart file's rights, or removes an older one
/// when none is needed. A file of that name that is not a companion stays as it is.
/// Throws RunTimeError when the companion cannot be written or removed.
void SaveCompanion(FileSystem& files, const CodePage& codePage, const std::string& chartFileName,
                   const ChartHeader& header, const Companion& companion);

/// Reads the companion of a chart file, or of the one that a link leads to; nothing when there is none, or one of
/// another recording. Throws RunTimeError 321 with file and line when it is damaged, and as FileSystem does when it
/// cannot be read. Bounded in time and memory for any file.
[[nodiscard]] std::optional<Companion> LoadCompanion(FileSystem& files, const std::string& chartFileName,
                                                     const ChartHeader& header);

}  // namespace chartproject
