// Reports of publishing.
#include "host/reports/publish_report.h"

#include "common/error_log.h"
#include "common/values/numbers.h"
#include "drive/driver_file.h"
#include "platform/run_time_error.h"
#include "publish/publish_texts.h"
#include "publish/series_names.h"
#include "recording/companion/companion.h"

namespace chartproject {

nlohmann::ordered_json PublishJson(const std::string& file, const std::string& server, const PublishReport& report,
                                   bool complete) {
  nlohmann::ordered_json json;
  json["file"] = file;
  json["server"] = server;
  json["complete"] = complete;
  json["acknowledged"] = report.acknowledged;
  json["firstSent"] = report.begun;
  json["lines"] = report.lines;
  json["values"] = report.values;
  json["withoutValues"] = report.valueless;
  json["reason"] = FailureText(Language::kEnglish, server, report);
  json["positionKept"] = !report.positionFault;
  return json;
}

LineTags TagsOf(Component& component, const ChartHeader& header, const std::string& host, bool readDriverFile) {
  LineTags tags{{"drive", header.DriveAddress}, {"host", host}};
  try {
    const std::int16_t address = ToInteger16(header.DriveAddress, component.ports.locale.Numbers());
    const DriveRecord& drive = component.driveTable.At(address);
    if (drive.Type.empty()) return tags;
    tags.emplace_back("model", drive.Type);
    tags.emplace_back("tag", drive.Tag);
    if (readDriverFile) LoadDriverFile(component, address);
    const ParameterTable& table = component.parameterTables.At(address);
    const std::vector<std::string> fields = FieldNames(header);
    const std::array<int, kColumnCount> parameters = ParametersOf(header);
    for (std::size_t column = 0; column < fields.size(); ++column) {
      if (parameters.at(column) == kUnusedParameter) continue;
      const ParameterEntry& entry = table.At(parameters.at(column));
      tags.emplace_back(fields[column] + "_name", entry.name);
      tags.emplace_back(fields[column] + "_unit", entry.text5);
    }
  } catch (const RunTimeError& error) {
    NoteRunTimeError(component, "TagsOf", error);  // the recording has values, even if nobody can name them
  }
  return tags;
}

}  // namespace chartproject
