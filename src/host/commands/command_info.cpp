// info FILE [--json]: the header of a chart file and the number of its rows; of a range also the statistics.
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>

#include "common/values/text.h"
#include "host/arguments/arguments.h"
#include "host/arguments/chart_argument.h"
#include "host/arguments/command.h"
#include "host/arguments/interrupted_argument.h"
#include "host/arguments/range_options.h"
#include "host/reports/companion_json.h"
#include "host/reports/json_output.h"
#include "host/reports/range_report.h"
#include "host/session/session.h"
#include "platform/run_time_error.h"
#include "recording/companion/companion_texts.h"
#include "recording/file/point_reader.h"

namespace chartproject {

namespace {

struct ChartInfo {
  ChartHeader header;
  std::int64_t rows = 0;       ///< well-formed rows
  std::int64_t malformed = 0;  ///< other lines among them that are neither empty nor comments
  Companion companion;         ///< empty without one
  std::string fault;           ///< why the companion cannot be used
};

/// A header line's key as a label, without its "=".
std::string Label(const HeaderKey& line) {
  return std::string(line.key.substr(0, line.key.size() - 1));
}

void CountRows(FileSystem& files, const std::string& name, ChartInfo& info) {
  const auto file = files.OpenForReading(name);
  const auto start = LocateRows(*file);
  if (!start) return;
  const PointCount count = CountPoints(*file, *start).value_or(PointCount{});
  info.rows = count.points;
  info.malformed = count.malformed;
}

ChartInfo ReadInfo(Ports& ports, const std::string& name) {
  ChartInfo info;
  ReadHeaderOf(ports, name, info.header);
  CountRows(ports.files, name, info);
  try {
    info.companion = LoadCompanion(ports.files, name, info.header).value_or(Companion{});
  } catch (const RunTimeError& error) {
    info.fault = error.Description();
  }
  return info;
}

class InfoCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("info", "Show the header of a chart file and count its rows");
    app->add_option("FILE", file_, "chart file")->type_name("")->required();
    app->add_flag("--json", json_, "as one JSON object");
    range_.AddTo(*app);
    app->footer(
        "With a range its statistics are shown, too: every value of the file counts, failed readings and gaps do "
        "not.");
    return app;
  }

  ExitCode Run(Session& session) override {
    const InterruptedArgument interrupted = LookForInterrupted(session.ThePorts(), FullName(file_));
    if (interrupted.Found() && interrupted.noChartFile) {
      PrintInterrupted(interrupted, session.Out());
      return ExitCode::kDone;
    }
    const ChartInfo info = ReadInfo(session.ThePorts(), FullName(file_));
    std::optional<RangeReport> range;
    if (range_.Given()) {
      const Language language = session.Instance().State().language;
      range = MeasureChosenRange(session.ThePorts(), FullName(file_), range_, language);
    }
    if (json_) {
      PrintJson(info, interrupted, range, session.Out());
    } else {
      for (const HeaderKey& line : kHeaderKeys) session.Out() << Label(line) << ": " << info.header.*line.field << "\n";
      if (info.companion.simulated) session.Out() << "Drives: simulated\n";
      session.Out() << "Rows: " << info.rows << "\n";
      if (info.malformed > 0) session.Out() << "Malformed lines: " << info.malformed << "\n";
      const NumberFormat& numbers = session.ThePorts().locale.Numbers();
      for (const auto& line : CompanionLines(Language::kEnglish, numbers, info.companion))
        session.Out() << line << "\n";
      if (!info.fault.empty())
        session.Out() << "The failed readings are not known: " << VisibleText(info.fault) << "\n";
      if (interrupted.Found()) session.Out() << "Beside it: " << interrupted.Sentence() << "\n";
      if (range) PrintRange(*range, numbers, session.Out());
    }
    return ExitCode::kDone;
  }

 private:
  static nlohmann::ordered_json InterruptedJson(const InterruptedArgument& interrupted) {
    nlohmann::ordered_json part;
    part["file"] = interrupted.chartFile;
    part["points"] = interrupted.Points();
    part["running"] = interrupted.running;
    part["firstTime"] = interrupted.recordings.front().rows.firstTime;
    part["lastTime"] = interrupted.recordings.back().rows.lastTime;
    part["command"] = interrupted.Command();
    return part;
  }

  void PrintInterrupted(const InterruptedArgument& interrupted, std::ostream& out) const {
    if (!json_) {
      out << interrupted.Sentence() << "\n";
      return;
    }
    nlohmann::ordered_json document;
    document["file"] = file_;
    document["interrupted"] = InterruptedJson(interrupted);
    PrintDocument(out, document);
  }

  void PrintJson(const ChartInfo& info, const InterruptedArgument& interrupted, const std::optional<RangeReport>& range,
                 std::ostream& out) const {
    nlohmann::ordered_json header;
    for (const HeaderKey& line : kHeaderKeys) header[Label(line)] = info.header.*line.field;
    nlohmann::ordered_json document;
    document["file"] = file_;
    document["header"] = header;
    document["rows"] = info.rows;
    document["malformedLines"] = info.malformed;
    AddCompanion(document, info.companion);
    if (!info.fault.empty()) document["failedReadingsUnknown"] = info.fault;
    if (interrupted.Found()) document["interrupted"] = InterruptedJson(interrupted);
    if (range) AddRange(document, *range);
    PrintDocument(out, document);
  }

  std::string file_;
  bool json_ = false;
  RangeOptions range_;
};

}  // namespace

std::unique_ptr<Command> MakeInfoCommand() {
  return std::make_unique<InfoCommand>();
}

}  // namespace chartproject
