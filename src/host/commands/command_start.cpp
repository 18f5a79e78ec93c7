// Without a command: the start window, over a project that the first start makes.
#include "common/environment/language.h"
#include "common/message_box.h"
#include "host/arguments/command.h"
#include "host/project/project_maker.h"
#include "host/session/project_folder.h"
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
    TellReplaced(instance.State(), made);
    StartForm(instance, made.folder).ShowModal();
    return ExitCode::kDone;
  }

 private:
  /// Former values, so that whoever set them can set them again.
  static void TellReplaced(Component& component, const ProjectReport& made) {
    if (made.replaced.empty()) return;
    std::string text = LoadMessage(component, Text::kStartSettingsReplaced) + "\r\n";
    for (const ReplacedSetting& setting : made.replaced) text += "\r\n" + setting.name + "=" + setting.before;
    ShowMessage(component, text, box_style::kInformation);
  }
};

}  // namespace

std::unique_ptr<Command> MakeStartCommand() {
  return std::make_unique<StartCommand>();
}

}  // namespace chartproject
