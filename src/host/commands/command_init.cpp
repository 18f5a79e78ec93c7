// init FOLDER: makes a ready project to record from simulated drives at once.
#include <ostream>

#include "common/values/text.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"
#include "host/project/project_maker.h"
#include "host/session/session.h"

namespace chartproject {

namespace {

class InitCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("init", "Make a ready project with six simulated drives in a folder");
    app->add_option("FOLDER", folder_, "the project's folder; files that are there stay as they are")
        ->type_name("")
        ->required();
    return app;
  }

  ExitCode Run(Session& session) override {
    Ports& ports = session.ThePorts();
    const ProjectReport report = Make(ports);
    std::ostream& out = session.Out();
    out << "Project in " << VisibleText(report.folder) << ": " << report.written.size() << " files made";
    if (!report.unchanged.empty()) out << ", " << report.unchanged.size() << " were there already";
    out << ".\n";
    for (const auto& name : report.kept) out << "Kept as it is, for it is not ours: " << VisibleText(name) << "\n";
    for (const auto& setting : report.replaced) {
      out << "Setting " << setting.name << " was \"" << setting.before << "\", is now \"" << setting.now << "\"\n";
    }
    return ExitCode::kDone;
  }

 private:
  [[nodiscard]] ProjectReport Make(Ports& ports) const {
    try {
      return MakeProject(ports.files, ports.settings, ports.codePage, FullName(folder_));
    } catch (const ForeignFolder& error) {
      throw RefusedError(error.Description());
    }
  }

  std::string folder_;
};

}  // namespace

std::unique_ptr<Command> MakeInitCommand() {
  return std::make_unique<InitCommand>();
}

}  // namespace chartproject
