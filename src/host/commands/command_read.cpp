// read ADDRESS PARAMETER... [--watch [SECONDS]]: reads parameters of one drive, once or again and again.
#include <ostream>

#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_link_session.h"
#include "drive/driver_file.h"
#include "drive/parameter_read.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"
#include "host/reports/watched_values.h"
#include "host/session/session.h"

namespace chartproject {

namespace {

class ReadCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("read", "Read parameters of a drive, once or again and again");
    app->add_option("ADDRESS", address_, "drive address, 1 to 30")->type_name("")->required();
    app->add_option("PARAMETER", parameters_, "parameter numbers, 0 to 999: 5 or P005")->type_name("")->required();
    watch_ = app->add_option("--watch", seconds_, "read again every so many seconds, 1 to 3600 (default: 1)")
                 ->expected(0, 1)
                 ->type_name("SECONDS");
    app->add_option("--times", times_, "end --watch after so many rounds (default: Ctrl-C ends it)")->type_name("N");
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
    if (watch_->count() == 0) return ReadAll(session, component, numbers);
    constexpr int kLongest = 3600;
    constexpr int kMostTimes = 1'000'000'000;
    WatchPlan plan{numbers, std::chrono::seconds(1), 0};
    if (!seconds_.empty()) plan.every = std::chrono::seconds(ParseNumber(seconds_, "--watch", 1, kLongest));
    if (!times_.empty()) plan.times = ParseNumber(times_, "--times", 1, kMostTimes);
    DriveLinkSession link(component);
    link.Open();
    const ExitCode code = WatchValues(session, component, plan);
    link.Close();
    return code;
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
  CLI::Option* watch_ = nullptr;
  std::string seconds_;
  std::string times_;
};

}  // namespace

std::unique_ptr<Command> MakeReadCommand() {
  return std::make_unique<ReadCommand>();
}

}  // namespace chartproject
