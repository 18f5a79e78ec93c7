// The end of a recording in English and in JSON.
#include "host/reports/run_report.h"

#include "common/values/text.h"
#include "host/reports/companion_json.h"
#include "host/reports/json_output.h"
#include "recording/companion/companion_texts.h"

namespace chartproject {

namespace {

bool PointsInFile(const RunReport& report) {
  return report.written.kind == ChartWriteResult::Kind::kWritten;
}

std::string_view EndCode(RunEnd end) {
  switch (end) {
    case RunEnd::kComplete:
      return "complete";
    case RunEnd::kStopped:
      return "stopped";
    case RunEnd::kDiskSpace:
      return "disk-space";
    case RunEnd::kFailed:
      return "failed";
    case RunEnd::kNone:
      break;
  }
  return "none";
}

}  // namespace

void PrintRunSentences(std::ostream& out, const RunReport& report, const NumberFormat& numbers) {
  if (PointsInFile(report)) out << report.written.rows << " points in " << VisibleText(report.fileName) << "\n";
  for (const std::string& line : CompanionLines(Language::kEnglish, numbers, report.readings)) out << line << "\n";
}

void PrintRunJson(std::ostream& out, const RunReport& report, const nlohmann::ordered_json& published) {
  nlohmann::ordered_json document;
  document["file"] = report.fileName;
  document["points"] = report.points;
  document["end"] = EndCode(report.end);
  document["inFile"] = PointsInFile(report);
  document["rows"] = PointsInFile(report) ? static_cast<std::int64_t>(report.written.rows) : 0;
  document["keptFile"] = report.written.keptFile;
  document["reason"] = report.written.reason;
  AddCompanion(document, report.readings);
  if (!published.is_null()) document["published"] = published;
  PrintDocument(out, document);
}

}  // namespace chartproject
