// A companion as JSON, the same for a recording that ended and for a chart file.
#pragma once

#include <nlohmann/json.hpp>

#include "recording/companion/companion.h"

namespace chartproject {

/// Adds "failedReadings" (one object a column that has any) and "interval" (milliseconds; null for fewer than two
/// points) to a JSON object.
void AddCompanion(nlohmann::ordered_json& document, const Companion& companion);

}  // namespace chartproject
