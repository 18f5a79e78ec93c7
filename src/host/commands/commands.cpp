// The list of commands.
#include "host/commands/command.h"

namespace chartproject {

std::vector<std::unique_ptr<Command>> AllCommands() {
  std::vector<std::unique_ptr<Command>> commands;
  commands.push_back(MakeInitCommand());
  commands.push_back(MakeSettingsCommand());
  commands.push_back(MakeDrivesCommand());
  commands.push_back(MakeReadCommand());
  commands.push_back(MakeAcquireCommand());
  commands.push_back(MakeInfoCommand());
  commands.push_back(MakeViewCommand());
  commands.push_back(MakeRenderCommand());
  commands.push_back(MakePrintCommand());
  commands.push_back(MakeExportCommand());
  commands.push_back(MakeStartCommand());
  return commands;
}

}  // namespace chartproject
