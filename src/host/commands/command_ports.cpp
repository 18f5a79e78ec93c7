// ports: the serial ports of this machine.
#include <ostream>

#include "common/values/text.h"
#include "host/arguments/command.h"
#include "host/reports/json_output.h"
#include "links/serial/port_list.h"

namespace chartproject {

namespace {

std::string StateOf(const SerialPort& port) {
  if (!port.user.empty()) return "in use by " + port.user;
  if (port.allowed) return "free";
  return "may not be opened: join the group \"" + port.group + "\" (sudo usermod -aG " + port.group +
         " $USER) and log in again";
}

class PortsCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app =
        program.add_subcommand("ports", "List the serial ports, with names that last when a converter is replugged");
    app->add_flag("--json", json_, "as a JSON array");
    return app;
  }

  ExitCode Run(Session& session) override {
    const std::vector<SerialPort> ports = ListSerialPorts();
    if (json_) {
      PrintJson(session, ports);
    } else {
      PrintLines(session, ports);
    }
    if (ports.empty()) session.Err() << "There is no serial port. Is the converter plugged in?\n";
    return ports.empty() ? ExitCode::kRunTimeError : ExitCode::kDone;
  }

 private:
  static void PrintLines(Session& session, const std::vector<SerialPort>& ports) {
    for (const SerialPort& port : ports) {
      session.Out() << VisibleText(port.name) << "  " << VisibleText(StateOf(port)) << "\n";
      if (!port.lasting.empty()) session.Out() << "    " << VisibleText(port.lasting) << "\n";
    }
  }

  static void PrintJson(Session& session, const std::vector<SerialPort>& ports) {
    nlohmann::ordered_json document = nlohmann::ordered_json::array();
    for (const SerialPort& port : ports) {
      document.push_back({{"name", port.name},
                          {"lastingName", port.lasting},
                          {"free", port.allowed && port.user.empty()},
                          {"allowed", port.allowed},
                          {"group", port.group},
                          {"user", port.user}});
    }
    PrintDocument(session.Out(), document);
  }

  bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> MakePortsCommand() {
  return std::make_unique<PortsCommand>();
}

}  // namespace chartproject
