// What was published, as sentences and as JSON; and the tags of a recording.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "publish/publisher.h"
#include "recording/file/component.h"

namespace chartproject {

/// The keys of a publisher's report: "file", "server", "complete", "acknowledged", "firstSent", "lines", "values",
/// "withoutValues", "reason", "positionKept".
[[nodiscard]] nlohmann::ordered_json PublishJson(const std::string& file, const std::string& server,
                                                 const PublishReport& report, bool complete);

/// The tags of a recording's points: drive, model, tag, host, and of each field its parameter's name and unit, as far
/// as the project knows them. @param readDriverFile the drive's parameters are not known yet
[[nodiscard]] LineTags TagsOf(Component& component, const ChartHeader& header, const std::string& host,
                              bool readDriverFile);

}  // namespace chartproject
