// read ADDRESS PARAMETER... [--watch [SECONDS] | --json]: reads parameters of one drive, once or again and again.
#include <algorithm>
#include <ostream>

#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/drive_link_session.h"
#include "drive/driver_file.h"
#include "drive/parameter_read.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"
#include "host/reports/json_output.h"
#include "host/reports/watched_values.h"
#include "host/session/session.h"
#include "recording/companion/companion_reader.h"

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
    app->add_flag("--json", json_, "as one JSON object")->excludes(watch_);
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
    if (watch_->count() == 0) {
      const std::vector<ColumnReading> readings = ReadAll(component, numbers);
      if (json_) {
        PrintJson(session, address, numbers, readings);
      } else {
        PrintLines(session, numbers, readings);
      }
      const bool all = std::ranges::all_of(readings, [](const auto& reading) { return reading.outcome.Answered(); });
      return all ? ExitCode::kDone : ExitCode::kRunTimeError;
    }
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
  static std::vector<ColumnReading> ReadAll(Component& component, const std::vector<std::int16_t>& numbers) {
    DriveLinkSession link(component);
    link.Open();
    std::vector<ColumnReading> readings;
    for (const std::int16_t number : numbers) readings.push_back(ReadColumn(component, number));
    link.Close();
    return readings;
  }

  static void PrintLines(Session& session, const std::vector<std::int16_t>& numbers,
                         const std::vector<ColumnReading>& readings) {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      const ColumnReading& reading = readings[i];
      const std::string& shown = reading.text.empty() ? "no value shown" : reading.text;
      session.Out() << ParameterName(numbers[i]) << " "
                    << VisibleText(reading.outcome.Answered() ? shown
                                                              : FailureText(Language::kEnglish, reading.outcome))
                    << "\n";
    }
  }

  static void PrintJson(Session& session, int address, const std::vector<std::int16_t>& numbers,
                        const std::vector<ColumnReading>& readings) {
    nlohmann::ordered_json document;
    document["address"] = address;
    nlohmann::ordered_json& list = document["readings"] = nlohmann::ordered_json::array();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      const ReadOutcome& outcome = readings[i].outcome;
      const bool answered = outcome.Answered();
      nlohmann::ordered_json entry;
      entry["parameter"] = ParameterName(numbers[i]);
      entry["text"] = answered ? nlohmann::ordered_json(readings[i].text) : nullptr;
      entry["reason"] = answered ? nullptr : nlohmann::ordered_json(FailureCode(outcome.failure));
      entry["detail"] = answered ? nullptr : nlohmann::ordered_json(FailureText(Language::kEnglish, outcome));
      list.push_back(std::move(entry));
    }
    PrintDocument(session.Out(), document);
  }

  std::string address_;
  std::vector<std::string> parameters_;
  bool json_ = false;
  CLI::Option* watch_ = nullptr;
  std::string seconds_;
  std::string times_;
};

}  // namespace

std::unique_ptr<Command> MakeReadCommand() {
  return std::make_unique<ReadCommand>();
}

}  // namespace chartproject
