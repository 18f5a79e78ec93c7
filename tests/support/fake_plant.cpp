// The fake plant's link.
#include "support/fake_plant.h"

#include "common/values/numbers.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

class FakeLink : public DriveLink {
 public:
  explicit FakeLink(FakePlant& plant) : plant_(plant) {}
  ~FakeLink() override { plant_.steps.emplace_back("destroy"); }
  void SetP210Value(std::int16_t value, std::int16_t& reply) override { Tell("P210", value, reply); }
  void SetP529Value(std::int16_t value, std::int16_t& reply) override { Tell("P529", value, reply); }
  void ReadParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter, std::int16_t unitCode,
                     std::int16_t& status) override {
    plant_.Note("read " + std::to_string(address) + " " + modelCode + " " + std::to_string(parameter) + " unit " +
                std::to_string(unitCode));
    if (plant_.whileReading) plant_.whileReading();
    const auto found = plant_.texts.find(parameter);
    const bool answers = (found != plant_.texts.end() || plant_.others) && !plant_.silent.contains(parameter);
    status = answers ? 0 : 7;
    if (answers) text_ = found == plant_.texts.end() ? *plant_.others : found->second;
  }
  void ProbeParameter(std::int16_t, const std::string&, std::int16_t, std::int16_t, std::int16_t& status) override {
    status = 7;
  }
  void OpenLink(std::int16_t& result) override {
    plant_.Note("open");
    result = 0;
  }
  void CloseLink() override { plant_.Note("close"); }
  void GetValue(double& value) override { value = LeadingNumber(text_); }
  void GetText(std::string& text) override { text = text_; }

 private:
  void Tell(const std::string& what, std::int16_t value, std::int16_t& reply) {
    plant_.Note("tell " + what + " " + std::to_string(value));
    reply = 99;  // nobody may look at it
  }
  FakePlant& plant_;
  std::string text_;
};

}  // namespace

std::unique_ptr<DriveLink> FakePlant::Create() {
  Note("create");
  return std::make_unique<FakeLink>(*this);
}

void FakePlant::Note(const std::string& step) {
  steps.push_back(step);
  if (!failAt.empty() && step.starts_with(failAt)) throw RunTimeError(error_number::kAutomation, step + " failed");
}

}  // namespace chartproject
