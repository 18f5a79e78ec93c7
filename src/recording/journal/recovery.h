// Bringing an interrupted recording back: a chart file from its journal and its rows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/ports.h"
#include "platform/run_time_error.h"
#include "recording/journal/interrupted.h"

namespace chartproject {

struct RecoveryRequest {
  std::string output{};  ///< the chart file to make; empty for the recording's own name where no file has it
  bool besides = false;  ///< "NAME.recovered.cht" even where no file has the recording's own name
  const ChartHeader* like = nullptr;  ///< header of a recording without a journal; may be null
  ReadProgress* progress = nullptr;   ///< of the reading; what it throws leaves everything as it was; may be null
};

struct RecoveryResult {
  std::string chartFile;       ///< the file that holds the points now; empty when there was no point
  std::int64_t points = 0;     ///< points in it, read back from it
  std::int64_t malformed = 0;  ///< lines that are not points: a row that was cut, damage
  bool wasWhole = false;       ///< the recording's own chart file holds all its points already: no file was made
  bool leftBehind = false;     ///< journal or rows could not be removed
  std::optional<RunTimeError> companionFault{};  ///< why what is known of the readings could not be noted
};

/// The header of the recovered chart file: what the journal says, the end date and time of the last row. Without a
/// journal that of a chart file that was left without its rows, else `like` without its dates, else what the rows show.
[[nodiscard]] ChartHeader RecoveredHeader(Ports& ports, const InterruptedRecording& recording, const ChartHeader* like);

/// Makes the chart file, reads it back, notes beside it what is known of its readings (see Companion), and removes
/// journal and rows only then. Never writes over a file. The caller holds the lock of the recording's chart file, so
/// that neither a running recording nor a second recovery is met. Throws RunTimeError; nothing is changed then.
RecoveryResult Recover(Ports& ports, const InterruptedRecording& recording, const RecoveryRequest& request);

/// All that is left beside a chart file, under its lock. Nothing while that chart file is being recorded.
/// Throws RunTimeError.
[[nodiscard]] std::optional<std::vector<RecoveryResult>> RecoverBeside(Ports& ports, const std::string& chartFile,
                                                                       const RecoveryRequest& request);

/// Deletes what is left beside a chart file, under its lock. @return the points that went; nothing while that chart
/// file is being recorded. Throws RunTimeError.
[[nodiscard]] std::optional<std::int64_t> DiscardBeside(Ports& ports, const std::string& chartFile);

/// Deletes journal and rows. Throws RunTimeError.
void Discard(FileSystem& files, const InterruptedRecording& recording);

/// Before a recording begins: what is left beside its chart file becomes "NAME.recovered.cht", so that the names are
/// free. The caller holds the lock. Throws RunTimeError when points cannot be brought back: nothing is deleted then.
[[nodiscard]] std::vector<RecoveryResult> RecoverLeftovers(Ports& ports, const std::string& chartFile,
                                                           ReadProgress& progress);

/// "NAME.recovered.cht" of "NAME.cht", "NAME.recovered1.cht" ... @param number from 0
[[nodiscard]] std::string RecoveredName(const std::string& chartFile, int number);

}  // namespace chartproject
