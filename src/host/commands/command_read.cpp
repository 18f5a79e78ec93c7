// read ADDRESS PARAMETER...: reads parameters of one drive once.
#include <ostream>

#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_link_session.h"
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
    app->add_option("ADDRESS", address_, "drive address, 1 to 30")->type_name("")->required();
    app->add_option("PARAMETER", parameters_, "parameter numbers, 0 to 999: 5 or P005")->type_name("")->required();
    return app;
  }

  ExitCode Run(Session& session) override {
    const int address = ParseNumber(address_, "ADDRESS", 1, kLastDriveAddress);
    std::vector<std::int16_t> numbers;
    for (const auto& text : parameters_) {
      numbers.push_back(static_cast<std::int16_t>(ParseParameter(text, "PARAMETER")));
    }
    Component& component = session.Instance().State();
    if (component.driveTable.At(address).Type.empty()) {
      throw RefusedError("there is no drive at address " + FormatDigits(address, 2) +
                         "; \"chartproject drives\" lists them");
    }
    component.currentDrive = static_cast<std::int16_t>(address);
    LoadDriverFile(component, component.currentDrive);
    return ReadAll(session, component, numbers);
  }

 private:
  static ExitCode ReadAll(Session& session, Component& component, const std::vector<std::int16_t>& numbers) {
    DriveLinkSession link(component);
    link.Open();
    ExitCode code = ExitCode::kDone;
    for (const std::int16_t number : numbers) {
      const ColumnReading reading = ReadColumn(component, number);
      if (!reading.outcome.Answered()) code = ExitCode::kRunTimeError;
      const std::string& shown = reading.text.empty() ? "no value shown" : reading.text;
      session.Out() << ParameterName(number) << " "
                    << VisibleText(reading.outcome.Answered() ? shown
                                                              : FailureText(Language::kEnglish, reading.outcome))
                    << "\n";
    }
    link.Close();
    return code;
  }

  std::string address_;
  std::vector<std::string> parameters_;
};

}  // namespace

std::unique_ptr<Command> MakeReadCommand() {
  return std::make_unique<ReadCommand>();
}

}  // namespace chartproject
