// Names that a recording has in a database.
#pragma once

#include <string>
#include <vector>

#include "recording/file/chart_header.h"

namespace chartproject {

/// The names under which a recording's position may be kept: its own, and for one that was recovered beside another
/// file ("Test.recovered.cht") that under which it ran.
[[nodiscard]] std::vector<std::string> NamesBeforeRecovery(const std::string& chartFile);

/// The tag that keeps recordings apart: the file's name without its ending and a number made of its place and its
/// beginning, "Test-5f3a9c21". Recovery does not change it.
[[nodiscard]] std::string RecordingName(const std::string& chartFile, const ChartHeader& header);

/// The fields of the columns: "P002", and "P002_2" for a parameter that comes twice; "column1" where the header names
/// none.
[[nodiscard]] std::vector<std::string> FieldNames(const ChartHeader& header);

}  // namespace chartproject
