// The text of the information box: the header of a chart file in the user's words.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "common/environment/environment.h"
#include "recording/file/chart_header.h"
#include "texts/text.h"

namespace chartproject {

/// What started a recording, in the user's words: the mode, and of an event which one and what it compares.
[[nodiscard]] std::vector<std::pair<Text, std::string>> TriggerItems(const Environment& environment,
                                                                     const ChartHeader& header);

/// One item a line: label, " : " and value, each line ended by carriage return and line feed.
/// @param notices further notices, one per line after a blank line
[[nodiscard]] std::string InfoText(const Environment& environment, const std::string& fileName,
                                   const ChartHeader& header, const std::vector<std::string>& notices);

}  // namespace chartproject
