// What a running recording reports besides its progress, and what its end report says of the points in the file.
#pragma once

#include <string>
#include <vector>

#include "acquire/run/acquisition_run.h"

namespace chartproject {

struct RunReport;

/// What became of points that were left beside the chart file, a sentence each.
[[nodiscard]] std::string LeftoverNotice(const Environment& environment, const std::vector<RecoveryResult>& leftovers);

/// All notices of a run, one a line: recovered points, a spool file that was lost, a journal that cannot be written.
/// Empty as a rule.
[[nodiscard]] std::string RunNotice(const Environment& environment, const AcquisitionRun& run);

/// Says that the chart file holds fewer points than were taken; empty when it holds them all, and when there is none.
[[nodiscard]] std::string MissingPointsNotice(const Environment& environment, const RunReport& report);

/// How many of the points no file holds, and where the others are.
[[nodiscard]] std::string LostPointsNotice(const Environment& environment, const RunReport& report);

/// A recovery in a sentence; empty when there was no point.
[[nodiscard]] std::string RecoveryNotice(const Environment& environment, const RecoveryResult& result);

}  // namespace chartproject
