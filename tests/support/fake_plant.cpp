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
  void SetP210Value(std::int16_t value) override { plant_.Note("tell P210 " + std::to_string(value)); }
  void SetP529Value(std::int16_t value) override { plant_.Note("tell P529 " + std::to_string(value)); }
  ReadOutcome ReadParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                            std::int16_t unitCode) override {
    plant_.Note("read " + std::to_string(address) + " " + modelCode + " " + std::to_string(parameter) + " unit " +
                std::to_string(unitCode));
    if (plant_.whileReading) plant_.whileReading();
    const auto found = plant_.texts.find(parameter);
    const bool answers = (found != plant_.texts.end() || plant_.others) && !plant_.silent.contains(parameter);
    if (answers) text_ = found == plant_.texts.end() ? *plant_.others : found->second;
    return answers ? ReadOutcome{} : plant_.failure;
  }
  ReadOutcome ProbeParameter(std::int16_t, const std::string&, std::int16_t, std::int16_t) override {
    return plant_.failure;
  }
  void OpenLink() override { plant_.Note("open"); }
  void CloseLink() override { plant_.Note("close"); }
  double GetValue() override { return LeadingNumber(text_); }
  std::string GetText() override { return text_; }
  [[nodiscard]] bool Simulated() const noexcept override { return plant_.simulated; }

 private:
  FakePlant& plant_;
  std::string text_;
};

}  // namespace

std::unique_ptr<DriveLink> FakePlant::Create(const LinkWait& /*wait*/) {
  Note("create");
  return std::make_unique<FakeLink>(*this);
}

void FakePlant::Note(const std::string& step) {
  steps.push_back(step);
  if (!failAt.empty() && step.starts_with(failAt)) throw RunTimeError(error_number::kAutomation, step + " failed");
}

}  // namespace chartproject
