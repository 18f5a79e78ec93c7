// read ADDRESS PARAMETER...: reads parameters of one drive once.
#include <ostream>

#include "acquire/run/acquisition_run.h"
#include "common/values/numbers.h"
#include "drive/driver_file.h"
#include "drive/parameter_read.h"
#include "host/commands/arguments.h"
#include "host/commands/command.h"
#include "host/session/session.h"

namespace chartproject {

namespace {

class ReadCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("read", "Read parameters of a drive once");
    app->add_option("ADDRESS", address_, "drive address, 1 to 30")->required();
    app->add_option("PARAMETER", parameters_, "parameter numbers, 0 to 999")->required();
    return app;
  }

  ExitCode Run(Session& session) override {
    const int address = ParseNumber(address_, "ADDRESS", 1, kLastDriveAddress);
    std::vector<std::int16_t> numbers;
    for (const auto& text : parameters_) {
      numbers.push_back(static_cast<std::int16_t>(ParseNumber(text, "PARAMETER", 0, kParameterCount - 1)));
    }
    Component& component = session.Instance().State();
    if (component.driveTable.At(address).Type.empty()) {
      throw RefusedError("there is no drive at address " + FormatDigits(address, 2) +
                         "; \"chartproject drives\" lists "
                         "them");
    }
    component.currentDrive = static_cast<std::int16_t>(address);
    LoadDriverFile(component, component.currentDrive);
    return ReadAll(session, component, numbers);
  }

 private:
  static ExitCode ReadAll(Session& session, Component& component, const std::vector<std::int16_t>& numbers) {
    component.driveLink = component.linkFactory.Create();
    std::int16_t ignored = 0;
    component.driveLink->OpenLink(ignored);
    ExitCode code = ExitCode::kDone;
    for (const std::int16_t number : numbers) {
      const std::string text = ReadText(component, number);
      if (text.empty()) code = ExitCode::kRunTimeError;
      session.Out() << "P" << FormatDigits(number, 3) << " " << (text.empty() ? "no answer" : text) << "\n";
    }
    component.driveLink->CloseLink();
    component.driveLink.reset();
    return code;
  }

  /// What a recording keeps; empty for a drive that does not answer, where a recording keeps "0".
  static std::string ReadText(Component& component, std::int16_t number) {
    std::string text;
    if (ReadSpecialParameter(component, number, text)) return text;
    return ReadOrdinary(component, number) ? ReadColumnText(component, number) : std::string();
  }

  std::string address_;
  std::vector<std::string> parameters_;
};

}  // namespace

std::unique_ptr<Command> MakeReadCommand() {
  return std::make_unique<ReadCommand>();
}

}  // namespace chartproject
