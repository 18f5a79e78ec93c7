// Failed readings and pace as JSON.
#include "host/reports/companion_json.h"

#include "common/values/numbers.h"
#include "recording/companion/companion_reader.h"

namespace chartproject {

namespace {

nlohmann::ordered_json ColumnJson(std::size_t index, const Companion& companion) {
  const FailedColumn& column = companion.failed[index];
  nlohmann::ordered_json ranges = nlohmann::ordered_json::array();
  for (const FailedRange& range : column.Ranges()) {
    ranges.push_back({{"first", range.first},
                      {"last", range.last},
                      {"failed", range.failed},
                      {"reason", FailureCode(range.reason.failure)},
                      {"detail", range.reason.detail}});
  }
  return {{"column", index + 1},
          {"parameter", "P" + FormatDigits(companion.parameters[index], 3)},
          {"failed", column.Count()},
          {"readings", std::max(companion.points, column.LastPoint())},
          {"firstPoint", column.FirstPoint()},
          {"lastPoint", column.LastPoint()},
          {"lastReason", FailureCode(column.LastReason().failure)},
          {"text", FailureText(Language::kEnglish, column.LastReason())},
          {"ranges", ranges}};
}

}  // namespace

void AddCompanion(nlohmann::ordered_json& document, const Companion& companion) {
  nlohmann::ordered_json columns = nlohmann::ordered_json::array();
  for (std::size_t index = 0; index < companion.failed.size(); ++index) {
    if (companion.failed[index].Count() > 0) columns.push_back(ColumnJson(index, companion));
  }
  document["failedReadings"] = columns;
  if (companion.recovered != Recovered::kNo) {
    document["recovered"] = kRecoveredWords[static_cast<std::size_t>(companion.recovered)];
  }
  document["interval"] = nullptr;
  const PaceSummary& pace = companion.pace;
  if (!pace.Known()) return;
  document["interval"] = {{"asked", pace.asked},     {"shortest", pace.shortest}, {"mean", pace.mean},
                          {"longest", pace.longest}, {"latest", pace.latest},     {"slipped", pace.Slipped()}};
}

}  // namespace chartproject
