// view FILE: the chart window.
#include <exception>
#include <utility>

#include "chart/window/show_chart.h"
#include "host/arguments/arguments.h"
#include "host/arguments/chart_argument.h"
#include "host/arguments/command.h"
#include "host/arguments/interrupted_argument.h"
#include "host/session/session.h"
#include "host/window/recent_charts.h"
#include "platform/run_time_error.h"
#include "recording/journal/unfinished.h"

namespace chartproject {

namespace {

class ViewCommand : public Command {
 public:
  explicit ViewCommand(std::string file = {}) : file_(std::move(file)) {}

  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("view", "Show a chart file in the chart window");
    app->add_option("FILE", file_, "chart file [default: asks for one]")->type_name("");
    app->add_flag("--follow", follow_, "follow a recording that runs, in any program, until it is in its chart file");
    return app;
  }

  ExitCode Run(Session& session) override {
    if (file_.empty() && follow_) throw RefusedError("--follow: name the recording's chart file");
    if (file_.empty()) return AskAndShow(session);
    const std::string name = FullName(file_);
    if (follow_ && FindUnfinished(session.ThePorts().files, session.ThePorts().codePage, name)) {
      return Follow(session, name);
    }
    (void)session.ThePorts().files.ResolveLink(name);  // refuses a device or a pipe before a window comes up
    RefuseInterrupted(session.ThePorts(), name);
    session.UseDesktop(DesktopMode::kScreen);
    // The window shows its user why a file cannot be shown; a script learns it from the exit code.
    std::exception_ptr fault;
    try {
      ChartHeader ignored;
      ReadHeaderOf(session.ThePorts(), name, ignored);
    } catch (const RunTimeError&) {
      fault = std::current_exception();
    }
    Component& component = session.Instance().State();
    const bool shown = ShowAndRemember(component, name);
    session.Release();
    if (fault) std::rethrow_exception(fault);
    return shown ? ExitCode::kDone : ExitCode::kRunTimeError;
  }

 private:
  static ExitCode Follow(Session& session, const std::string& name) {
    session.UseDesktop(DesktopMode::kScreen);
    Component& component = session.Instance().State();
    const bool shown = ShowFollowing(component, name);
    session.Release();
    return shown ? ExitCode::kDone : ExitCode::kRunTimeError;
  }

  static ExitCode AskAndShow(Session& session) {
    session.UseDesktop(DesktopMode::kScreen);
    Component& component = session.Instance().State();
    const auto name = AskForChart(component);
    if (!name) return ExitCode::kDone;
    return ShowAndRemember(component, *name) ? ExitCode::kDone : ExitCode::kRunTimeError;
  }

  std::string file_;
  bool follow_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeViewCommand() {
  return std::make_unique<ViewCommand>();
}

std::unique_ptr<Command> MakeViewOf(const std::string& file) {
  return std::make_unique<ViewCommand>(file);
}

}  // namespace chartproject
