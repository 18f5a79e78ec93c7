// The command line: global options, commands, and the exit code for each way a command can end.
#include "host/program.h"

#include <filesystem>
#include <iostream>
#include <vector>

#include "backends/posix/standard_streams.h"
#include "common/environment/environment.h"
#include "common/values/text.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"
#include "host/manual/version.h"
#include "host/session/session.h"
#include "host/session/visible_output.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr const char* kFooter =
    "Without a command the start window opens, with a chart file (FILE.cht) its chart.\n"
    "\n"
    "Message boxes go to standard error as \"[Kestrel v5.60] TEXT\"; questions are answered by --answer.\n"
    "\n"
    "Examples:\n"
    "  chartproject init ~/drives\n"
    "     makes a project with simulated drives\n"
    "  chartproject acquire --address 1 --parameters 2,3 --points 100 --every 200ms --file pump.cht\n"
    "     records a hundred points of two parameters\n"
    "  chartproject view pump.cht\n"
    "     shows them\n"
    "\n"
    "Files:\n"
    "  ~/.config/Kestrel v5.60.ini\n"
    "     the settings; in $XDG_CONFIG_HOME where that is set, or in the folder of --profile\n"
    "  FILE.cht\n"
    "     a recording: header and points, plain text\n"
    "\n"
    "Exit codes:\n"
    "  0  done\n"
    "  1  run-time error\n"
    "  2  refused, or wrong usage\n"
    "  3  a recording ended early (Esc, Ctrl-C, SIGTERM, full disk), the points taken are kept; or an export was "
    "stopped,\n"
    "     no file was written; or publishing was stopped, its place is kept";

constexpr const char* kCommandFooter =
    "The program's own options (--profile, --link, --trace, --clock, --start, --answer, --quiet) go before the command "
    "or\n"
    "after it; \"chartproject --help\" explains them.";

/// The global options as they are parsed.
struct RawOptions {
  std::string profile;
  std::string link;
  std::string trace;
  std::string clock = "real";
  std::string answer = "no";
  std::string start;
  bool quiet = false;
};

/// In the order of the help text; the last one runs when none is named.
std::vector<std::unique_ptr<Command>> AllCommands() {
  std::vector<std::unique_ptr<Command>> commands;
  for (const auto make :
       {MakeInitCommand, MakeSettingsCommand, MakePortsCommand, MakeScanCommand, MakeDrivesCommand, MakeReadCommand,
        MakeAcquireCommand, MakeRecoverCommand, MakeInfoCommand, MakeViewCommand, MakeRenderCommand, MakePrintCommand,
        MakeExportCommand, MakePublishCommand, MakeDescribeCommand, MakeStartCommand}) {
    commands.push_back(make());
  }
  return commands;
}

void AddGlobalOptions(CLI::App& app, RawOptions& raw) {
  app.add_option("--profile", raw.profile, "Folder that keeps the settings (default: the user's configuration folder)")
      ->type_name("DIR");
  app.add_option(
         "--link", raw.link,
         "Drives: sim (simulated machines), scenario:FILE (replays a script), modbus:PORT?KEY=VALUE&... (a "
         "serial line) or modbus-tcp:HOST:PORT?... (a network); docs/links.md has the keys (default: the setting "
         "MyLink.strLink, else sim)")
      ->type_name("LINK");
  app.add_option("--trace", raw.trace, "File for every frame of the line in hexadecimal digits; - for standard error")
      ->type_name("PATH");
  app.add_option("--clock", raw.clock,
                 "real (default), or virtual: jumps from tick to tick, so that hours take moments")
      ->check(CLI::IsMember({"real", "virtual"}).description(""))
      ->type_name("real|virtual");
  app.add_option("--start", raw.start, "Local time at which the virtual clock starts, \"2026-01-31 08:00:00\"")
      ->type_name("TIME");
  app.add_option("--answer", raw.answer, "Answer to every question (default: no)")
      ->check(CLI::IsMember({"yes", "no"}).description(""))
      ->type_name("yes|no");
  app.add_flag("--quiet", raw.quiet, "No progress on standard error; messages and errors stay");
}

/// The link with full names, because dialogs change the current folder.
std::string CheckedLink(const std::string& link) {
  constexpr std::string_view kScenario = "scenario:";
  if (link.starts_with(kScenario) && link.size() > kScenario.size()) {
    return std::string(kScenario) + FullName(link.substr(kScenario.size()));
  }
  if (IsLineText(link)) {
    try {
      LineSettings defaults;
      defaults.port = "/dev/ttyS0";  // the settings may name another one
      (void)ParseLineText(link, defaults);
    } catch (const RunTimeError& error) {
      throw RefusedError("--link: " + error.Description());
    }
    if (!link.starts_with(kSerialScheme)) return link;
    const std::size_t end = std::min(link.find('?'), link.size());
    const std::string port = link.substr(kSerialScheme.size(), end - kSerialScheme.size());
    return std::string(kSerialScheme) + FullName(port) + link.substr(end);
  }
  if (!link.empty() && link != kSimulatedLink) {
    throw RefusedError("--link: \"" + link +
                       "\" is not a drive link; use sim, scenario:FILE, modbus:PORT or modbus-tcp:HOST:PORT");
  }
  return link;
}

GlobalOptions ReadGlobalOptions(const RawOptions& raw) {
  GlobalOptions options;
  options.profileFolder = FullName(raw.profile);
  options.link = CheckedLink(raw.link);
  options.trace = raw.trace == "-" ? raw.trace : FullName(raw.trace);
  options.clock = raw.clock == "virtual" ? ClockChoice::kVirtual : ClockChoice::kReal;
  options.answerYes = raw.answer == "yes";
  options.quiet = raw.quiet;
  if (!raw.start.empty()) {
    if (options.clock != ClockChoice::kVirtual) throw RefusedError("--start goes with --clock virtual only");
    options.start = ParseDateTime(raw.start);
  }
  return options;
}

ExitCode RunCommand(Command& command, const RawOptions& raw, std::ostream& out, std::ostream& err) {
  Session session(ReadGlobalOptions(raw), out, err);
  const ExitCode code = command.Run(session);
  session.Release();
  out.flush();
  if (!out && command.OutputIsItsResult())
    throw RunTimeError(error_number::kDiskFull, "the output could not be written");
  return code;
}

/// What a command did not take comes here as well, and so does a command that is misspelt.
void CheckChart(const CLI::App& app, const std::vector<std::string>& charts) {
  if (charts.empty()) return;
  if (charts.size() > 1 || !app.get_subcommands().empty()) throw CLI::ExtrasError(app.get_name(), charts);
  const std::string& name = charts.front();
  std::error_code ignored;
  if (!ToUpperAscii(name).ends_with(".CHT") && !std::filesystem::exists(FullName(name), ignored)) {
    throw RefusedError("\"" + name + "\" is neither a command nor a file; \"chartproject --help\" lists the commands");
  }
}

ExitCode ParseAndRun(int argc, const char* const* argv, std::ostream& out, std::ostream& err) {
  CLI::App app("Records and shows trend data of industrial drives.", "chartproject");
  app.set_version_flag("--version", VersionLine());
  app.require_subcommand(0, 1);
  RawOptions raw;
  AddGlobalOptions(app, raw);
  std::vector<std::string> charts;
  const CLI::Option* const chart = app.add_option("FILE", charts, "chart file to show, as view does")->type_name("");

  const auto commands = AllCommands();
  std::vector<CLI::App*> subcommands;
  subcommands.reserve(commands.size());
  for (const auto& command : commands) subcommands.push_back(command->AddTo(app));
  app.footer(kFooter);  // only now: every subcommand would show it too
  // Global options are understood after the command as well.
  for (CLI::App* const subcommand : app.get_subcommands({})) subcommand->fallthrough()->footer(kCommandFooter);
  try {
    app.parse(argc, argv);
    CheckChart(app, charts);
  } catch (const CLI::ParseError& error) {
    const bool asked = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success);
    app.exit(error, out, err);
    return asked ? ExitCode::kDone : ExitCode::kRefused;
  }
  if (chart->count() > 0) return RunCommand(*MakeViewOf(charts.front()), raw, out, err);
  for (std::size_t at = 0; at < commands.size(); ++at) {
    if (subcommands[at] == nullptr || subcommands[at]->parsed()) return RunCommand(*commands[at], raw, out, err);
  }
  return ExitCode::kRefused;
}

}  // namespace

int RunProgram(int argc, const char* const* argv, std::ostream& out, std::ostream& err) noexcept {
  ExitCode code = ExitCode::kRunTimeError;
  GuardStandardStreams();
  VisibleOutput visibleOut(out);
  VisibleOutput visibleErr(err);
  // One line a failure, also when the name in it holds a line end.
  const auto report = [&visibleErr](const std::string& text) {
    visibleErr << "chartproject: " << VisibleText(text) << "\n" << std::flush;
  };
  try {
    code = ParseAndRun(argc, argv, visibleOut, visibleErr);
  } catch (const RefusedError& error) {
    report(error.what());
    code = ExitCode::kRefused;
  } catch (const NotARegularFile& error) {
    report(error.Description());
    code = ExitCode::kRefused;
  } catch (const RunTimeError& error) {
    report("error " + std::to_string(error.Number()) + ": " + error.Description());
  } catch (const std::exception& error) {
    report(error.what());
  }
  visibleOut.flush();
  return static_cast<int>(code);
}

}  // namespace chartproject
