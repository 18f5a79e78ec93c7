// A drive context on fake ports, with a link that answers what a test says.
#pragma once

#include <gmock/gmock.h>

#include <map>

#include "drive/drive_context.h"
#include "platform/run_time_error.h"
#include "support/fake_ports.h"

namespace chartproject {

/// Answers by parameter number; others fail. Notes every call.
class ScriptedLink : public DriveLink {
 public:
  struct Answer {
    double value;
    std::string text;
  };
  ScriptedLink(const std::map<int, Answer>& answers, std::vector<std::string>& calls)
      : answers_(answers), calls_(calls) {}

  void SetP210Value(std::int16_t value, std::int16_t& reply) override { Tell("P210", value, reply); }
  void SetP529Value(std::int16_t value, std::int16_t& reply) override { Tell("P529", value, reply); }
  void ReadParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter, std::int16_t unitCode,
                     std::int16_t& status) override {
    calls_.push_back("read " + std::to_string(address) + " " + modelCode + " " + std::to_string(parameter) + " unit " +
                     std::to_string(unitCode));
    const auto found = answers_.find(parameter);
    status = found == answers_.end() ? 7 : 0;
    if (status == 0) last_ = found->second;
  }
  void ProbeParameter(std::int16_t, const std::string&, std::int16_t, std::int16_t, std::int16_t& status) override {
    status = 7;
  }
  void OpenLink(std::int16_t& result) override { result = 0; }
  void CloseLink() override {}
  void GetValue(double& value) override { value = last_.value; }
  void GetText(std::string& text) override { text = last_.text; }

 private:
  void Tell(const std::string& what, std::int16_t value, std::int16_t& reply) {
    calls_.push_back("tell " + what + " " + std::to_string(value));
    reply = 99;  // nobody may look at it
  }
  const std::map<int, Answer>& answers_;
  std::vector<std::string>& calls_;
  Answer last_{};
};

struct DriveTest : ::testing::Test, DriveLinkFactory {
  std::unique_ptr<DriveLink> Create() override { return std::make_unique<ScriptedLink>(answers, calls); }

  /// The number of the run-time error that an action ends with; 0 for none.
  template <typename Action>
  static int ErrorOf(Action action) {
    try {
      action();
      return 0;
    } catch (const RunTimeError& error) {
      return error.Number();
    }
  }

  FakePorts fakes;
  DriveContext context{fakes.ports, fakes.forms, *this};
  std::map<int, ScriptedLink::Answer> answers;
  std::vector<std::string> calls;
};

}  // namespace chartproject
