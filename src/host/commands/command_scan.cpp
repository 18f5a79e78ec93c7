// scan [--from A --to B] [--try] [--json]: which addresses of a line answer.
#include <ostream>

#include "backends/posix/keyboard_signals.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_models.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"
#include "host/reports/json_output.h"
#include "host/reports/progress.h"
#include "host/session/serial_links.h"
#include "links/serial/line_scan.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

std::string DriveLine(const FoundDrive& drive) {
  std::string line = FormatDigits(drive.address, 2);
  if (!drive.settings.network) line += "  " + SpeedText(drive.settings);
  if (drive.name.empty()) return line;
  if (const DriveModel* const model = FindModelIn(drive.name)) line.append("  ").append(model->name);
  return line + "  \"" + VisibleText(drive.name) + "\"";
}

/// As docs/json.md has it.
nlohmann::ordered_json DriveJson(const FoundDrive& drive) {
  const DriveModel* const model = FindModelIn(drive.name);
  return {{"address", drive.address},
          {"line", drive.settings.network ? "" : SpeedText(drive.settings)},
          {"model", model != nullptr ? std::string(model->name) : ""},
          {"name", drive.name}};
}

class ScanCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("scan", "Find the drives of a line: which addresses answer");
    app->add_option("--from", from_, "first address (default: 1)")->type_name("N");
    app->add_option("--to", to_, "last address (default: 30)")->type_name("N");
    app->add_flag("--try", try_, "try all speeds and parities, the most usual first, until a drive answers");
    app->add_flag("--json", json_, "what was found as one JSON array, at the end");
    return app;
  }

  ExitCode Run(Session& session) override {
    ScanPlan plan;
    plan.from = from_.empty() ? 1 : ParseNumber(from_, "--from", 1, kLastDriveAddress);
    plan.to = to_.empty() ? kLastDriveAddress : ParseNumber(to_, "--to", 1, kLastDriveAddress);
    if (plan.from > plan.to) throw RefusedError("scan: --from is after --to");
    const ChosenLinks& links = session.Links();
    if (!IsLineText(links.Link())) {
      throw RefusedError(
          "scan: simulated drives need no search; name the line, for example --link modbus:/dev/ttyUSB0 "
          "(\"chartproject ports\" lists the ports)");
    }
    const LinkSurroundings& around = links.Surroundings();
    const LineSettings given = ParseLineText(links.Link(), LineDefaults(around.settings, around.locale.Numbers()));
    plan.lines = try_ ? LinesToTry(given) : std::vector{given};
    return Search(session, plan);
  }

 private:
  ExitCode Search(Session& session, const ScanPlan& plan) const {
    const LinkSurroundings& around = session.Links().Surroundings();
    Progress progress(session.Err(), ProgressKindFor(session.Options().quiet), {"address", "addresses"});
    if (!session.Options().quiet) {
      const auto seconds = std::chrono::ceil<std::chrono::seconds>(LongestScan(plan)).count();
      session.Err() << "This may take " << FormatSeconds(seconds) << "; Ctrl-C ends it.\n" << std::flush;
    }
    KeyboardSignals::Watch();
    LineScan scan(MakeLinePorts(around.trace, around.clock), around.clock, around.waitUntil,
                  [] { return KeyboardSignals::Received() > 0; });
    nlohmann::ordered_json document = nlohmann::ordered_json::array();
    scan.progress = [&progress](int done, int total, const LineSettings& /*settings*/) { progress.Show(done, total); };
    scan.found = [&](const FoundDrive& drive) {
      progress.EndLine();
      document.push_back(DriveJson(drive));
      if (!json_) session.Out() << DriveLine(drive) << "\n" << std::flush;
    };
    const bool complete = scan.Run(plan);
    progress.EndLine();
    if (json_) PrintDocument(session.Out(), document);
    if (!complete) return ExitCode::kEndedEarly;
    if (document.empty()) session.Err() << "No drive answers. " << Advice(plan) << "\n";
    return document.empty() ? ExitCode::kRunTimeError : ExitCode::kDone;
  }

  static std::string Advice(const ScanPlan& plan) {
    if (plan.lines.front().network) return "Is the gateway's line on, and are its drives at these addresses?";
    if (plan.lines.size() > 1) return "Check power, the wires A and B, and the termination (docs/real-drives.md).";
    return "With --try other speeds and parities are tried; A and B may be exchanged (docs/real-drives.md).";
  }

  std::string from_;
  std::string to_;
  bool try_ = false;
  bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeScanCommand() {
  return std::make_unique<ScanCommand>();
}

}  // namespace chartproject
