// Without a command: the start window, over a project that the first start makes.
#include "host/arguments/command.h"
#include "host/project/project_maker.h"
#include "host/session/project_folder.h"
#include "host/session/serial_links.h"
#include "host/session/session.h"
#include "host/window/start_form.h"

namespace chartproject {

namespace {

class StartCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& /*program*/) override { return nullptr; }

  ExitCode Run(Session& session) override {
    session.UseDesktop(DesktopMode::kScreen);
    Ports& ports = session.ThePorts();
    const bool first = ports.settings.Read("MyProject", "strMainFile").value_or("").empty();
    ProjectReport made;
    if (first) {
      made = MakeProject(ports.files, ports.settings, ports.codePage, FirstProjectFolder(session.Options()));
    }
    ChartClass& instance = session.Instance();
    ShowReplacedSettings(instance.State(), made.replaced);
    ChosenLinks& links = session.Links();
    const LinkChoice choice{links, ListSerialPorts,
                            [&links] { return MakeLinePorts(links.Surroundings().trace, links.Surroundings().clock); }};
    StartForm(instance, made.folder, choice).ShowModal();
    return ExitCode::kDone;
  }
};

}  // namespace

std::unique_ptr<Command> MakeStartCommand() {
  return std::make_unique<StartCommand>();
}

}  // namespace chartproject
