// The end of a recording on the command line: as sentences, or as one JSON object.
#pragma once

#include <nlohmann/json.hpp>
#include <ostream>

#include "acquire/run/run_controller.h"

namespace chartproject {

/// The points and their file, when they are in it; columns with failed readings; the pace, when it slipped.
void PrintRunSentences(std::ostream& out, const RunReport& report, const NumberFormat& numbers);

/// One object: "file", "points", "end", "inFile", "keptFile", "reason", "failedReadings", "interval".
/// @param published added as "published"; null for nothing
void PrintRunJson(std::ostream& out, const RunReport& report, const nlohmann::ordered_json& published);

}  // namespace chartproject
