// view FILE: the chart window.
#include "host/arguments.h"
#include "host/command.h"
#include "host/session.h"

namespace chartproject {

namespace {

class ViewCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("view", "Show a chart file in the chart window");
    app->add_option("FILE", file_, "chart file")->required();
    return app;
  }

  ExitCode Run(Session& session) override {
    session.UseWindows(WindowsMode::kScreen);
    session.Instance().CreateChart(FullName(file_));
    session.Release();
    return ExitCode::kDone;
  }

 private:
  std::string file_;
};

}  // namespace

std::unique_ptr<Command> MakeViewCommand() {
  return std::make_unique<ViewCommand>();
}

}  // namespace chartproject
