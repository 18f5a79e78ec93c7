// The statistics of a range of points, as text and as JSON.
#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

#include "chart/measure/range_statistics.h"
#include "host/arguments/range_options.h"
#include "platform/ports.h"

namespace chartproject {

/// A range of points and what its values are like.
struct RangeReport {
  PointRange range;  ///< cut at the end of the file
  struct Series {
    std::string number;  ///< as in "P005"; may be empty
    SeriesStatistics values;
  };
  std::vector<Series> series;
};

/// Reads the points of the range. Throws RefusedError for a range that the file does not have, and as MeasureRange.
[[nodiscard]] RangeReport MeasureChosenRange(Ports& ports, const std::string& chartFile, const RangeOptions& options,
                                             Language language);

/// A line for the range and one for each series.
void PrintRange(const RangeReport& report, const NumberFormat& numbers, std::ostream& out);

/// Adds "range" to a JSON object; what is not known is null.
void AddRange(nlohmann::ordered_json& document, const RangeReport& report);

}  // namespace chartproject
