// recover [FILE|FOLDER...]: chart files from what interrupted recordings left.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "acquire/run/run_notices.h"
#include "common/environment/language.h"
#include "host/arguments/arguments.h"
#include "host/arguments/chart_argument.h"
#include "host/arguments/command.h"
#include "host/reports/json_output.h"
#include "host/reports/progress.h"
#include "host/session/session.h"
#include "platform/run_time_error.h"
#include "recording/journal/recovery.h"

namespace chartproject {

namespace {

constexpr int kMostGiven = 10'000;

/// A recording of the list.
struct Listed {
  InterruptedRecording recording;
  bool running = false;
};

nlohmann::ordered_json AsJson(const Listed& listed) {
  const InterruptedRecording& recording = listed.recording;
  nlohmann::ordered_json entry;
  entry["file"] = recording.chartFile;
  entry["running"] = listed.running;
  entry["points"] = recording.rows.points;
  entry["plannedPoints"] = recording.journal ? recording.journal->header.NumberOfPoints : std::string();
  entry["firstTime"] = recording.rows.firstTime;
  entry["lastTime"] = recording.rows.lastTime;
  entry["malformedLines"] = recording.rows.malformed;
  entry["journal"] = recording.journalFile;
  nlohmann::ordered_json rowFiles = nlohmann::ordered_json::array();
  for (const RowFile& file : recording.rowFiles) rowFiles.push_back(file.name);
  entry["rowFiles"] = rowFiles;
  return entry;
}

class RecoverCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("recover", "Bring interrupted recordings back as chart files");
    app->add_option("FILE|FOLDER", given_,
                    "chart files, their journals or spool files, or folders to look in (default: the current folder "
                    "and the project's)")
        ->expected(0, kMostGiven);
    app->add_option("--output", output_, "chart file to write, for one recording; a file that is there is not replaced")
        ->type_name("NAME");
    app->add_option("--like", like_, "chart file whose header a recording without a journal takes")->type_name("FILE");
    auto* const list = app->add_flag("--list", list_, "only list them");
    app->add_flag("--json", json_, "the list as one JSON array")->needs(list);
    app->add_flag("--discard", discard_, "delete what is left of the recordings that are named")->excludes(list);
    return app;
  }

  ExitCode Run(Session& session) override {
    if (discard_ && given_.empty()) throw RefusedError("recover: --discard needs the names of the recordings");
    const std::vector<std::string> chartFiles = ChartFiles(session);
    if (list_) return List(session, chartFiles);
    return discard_ ? DiscardAll(session, chartFiles) : RecoverAll(session, chartFiles);
  }

  [[nodiscard]] bool OutputIsItsResult() const override { return list_; }

 private:
  /// Each once, in the order given; those of a folder in the order of their names.
  [[nodiscard]] std::vector<std::string> ChartFiles(Session& session) const {
    FileSystem& files = session.ThePorts().files;
    std::vector<std::string> places;
    for (const std::string& name : given_) places.push_back(FullName(name));
    if (given_.empty()) places = {FullName("."), FullName(session.Instance().State().settings.strFolder)};
    std::vector<std::string> chartFiles;
    const auto add = [&chartFiles](const std::string& name) {
      if (std::ranges::find(chartFiles, name) == chartFiles.end()) chartFiles.push_back(name);
    };
    for (const std::string& place : places) {
      if (files.FolderExists(place)) {
        for (const std::string& name : InterruptedChartFiles(files, place)) add(FullName(name));
      } else if (!place.empty() && !given_.empty()) {
        add(FullName(files.ResolveLink(ChartFileOf(place))));
      }
    }
    return chartFiles;
  }

  [[nodiscard]] static std::vector<Listed> Find(Session& session, const std::vector<std::string>& chartFiles) {
    Ports& ports = session.ThePorts();
    std::vector<Listed> all;
    for (const std::string& chartFile : chartFiles) {
      const bool running = IsBeingRecorded(ports.files, chartFile);
      for (InterruptedRecording& found : FindBeside(ports.files, ports.codePage, chartFile)) {
        all.push_back({std::move(found), running});
      }
    }
    return all;
  }

  [[nodiscard]] ExitCode List(Session& session, const std::vector<std::string>& chartFiles) const {
    const std::vector<Listed> all = Find(session, chartFiles);
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Listed& listed : all) {
      if (json_) {
        list.push_back(AsJson(listed));
        continue;
      }
      const InterruptedRecording& recording = listed.recording;
      session.Out() << recording.chartFile << ": " << recording.rows.points << " points";
      if (recording.rows.points > 0) {
        session.Out() << ", " << recording.rows.firstTime << " to " << recording.rows.lastTime;
      }
      if (recording.journalFile.empty()) session.Out() << ", without a journal";
      session.Out() << (listed.running ? ", being recorded\n" : "\n");
    }
    if (json_) PrintDocument(session.Out(), list);
    if (all.empty()) session.Err() << "nothing to recover\n";
    return all.empty() ? ExitCode::kRunTimeError : ExitCode::kDone;
  }

  [[nodiscard]] static ExitCode DiscardAll(Session& session, const std::vector<std::string>& chartFiles) {
    bool any = false;
    for (const std::string& chartFile : chartFiles) {
      if (FindBeside(session.ThePorts().files, session.ThePorts().codePage, chartFile, 1).empty()) continue;
      const auto points = DiscardBeside(session.ThePorts(), chartFile);
      if (points) {
        session.Out() << chartFile << ": " << *points << " points deleted\n";
      } else {
        session.Err() << chartFile << " is being recorded; it is left alone\n";
      }
      any = any || points;
    }
    if (!any) session.Err() << "nothing to discard\n";
    return any ? ExitCode::kDone : ExitCode::kRunTimeError;
  }

  [[nodiscard]] ExitCode RecoverAll(Session& session, const std::vector<std::string>& chartFiles) const {
    Ports& ports = session.ThePorts();
    RecoveryRequest request{.output = FullName(output_)};
    if (!output_.empty()) RefuseOutput(session, chartFiles, request.output);
    ChartHeader like;
    if (!like_.empty()) {
      ReadHeaderOf(ports, FullName(like_), like);
      request.like = &like;
    }
    bool any = false;
    bool failed = false;
    for (const std::string& chartFile : chartFiles) {
      try {
        any = Report(session, chartFile, RecoverWithProgress(session, chartFile, request)) || any;
      } catch (const RunTimeError& error) {
        if (chartFiles.size() == 1) throw;
        session.Err() << "error " << error.Number() << ": " << error.Description() << "\n";
        failed = true;
      }
    }
    if (!any && !failed) session.Err() << "nothing to recover\n";
    return any && !failed ? ExitCode::kDone : ExitCode::kRunTimeError;
  }

  /// Long files are read for minutes: a bar on a terminal.
  static std::optional<std::vector<RecoveryResult>> RecoverWithProgress(Session& session, const std::string& chartFile,
                                                                        RecoveryRequest request) {
    PercentBar bar(session.Err(), ProgressKindFor(session.Options().quiet), "Recovering");
    ReadProgress progress([&bar](int percent) { bar.Show(percent); });
    request.progress = &progress;
    try {
      auto results = RecoverBeside(session.ThePorts(), chartFile, request);
      bar.EndLine();
      return results;
    } catch (...) {
      bar.EndLine();  // the reason has a line of its own
      throw;
    }
  }

  static void RefuseOutput(Session& session, const std::vector<std::string>& chartFiles, const std::string& output) {
    Ports& ports = session.ThePorts();
    if (ports.files.FileExists(output) || ports.files.FolderExists(output)) {
      throw RefusedError("--output: " + output + " is there already and is not replaced");
    }
    const auto all = Find(session, chartFiles);
    const auto withPoints = [](const Listed& one) { return one.recording.rows.points > 0; };
    if (std::ranges::count_if(all, withPoints) > 1) {
      throw RefusedError("recover: --output goes with one recording; name it");
    }
  }

  /// True when points came back.
  static bool Report(Session& session, const std::string& chartFile,
                     const std::optional<std::vector<RecoveryResult>>& results) {
    if (!results) {
      session.Err() << chartFile << " is being recorded; it is left alone\n";
      return false;
    }
    bool any = false;
    for (const RecoveryResult& result : *results) {
      if (result.chartFile.empty()) {
        session.Err() << chartFile << ": the recording was interrupted before its first point\n";
        continue;
      }
      session.Out() << RecoveryNotice(session.Instance().State(), result) << "\n";
      if (result.leftBehind) session.Err() << chartFile << ": what is left of the recording could not be removed\n";
      any = true;
    }
    return any;
  }

  std::vector<std::string> given_;
  std::string output_;
  std::string like_;
  bool list_ = false;
  bool json_ = false;
  bool discard_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeRecoverCommand() {
  return std::make_unique<RecoverCommand>();
}

}  // namespace chartproject
