// The link's side of the replay.
#include "links/scenario_link.h"

#include "common/values/numbers.h"

namespace chartproject {

namespace {

constexpr std::int16_t kSuccess = 0;
constexpr std::int16_t kNoAnswer = 1;

class ScenarioLink : public DriveLink {
 public:
  ScenarioLink(std::shared_ptr<const ScenarioScript> script, Clock& clock)
      : script_(std::move(script)), clock_(clock), opened_(clock.Now()) {}

  void SetP210Value(std::int16_t /*value*/, std::int16_t& reply) override { reply = kSuccess; }
  void SetP529Value(std::int16_t /*value*/, std::int16_t& reply) override { reply = kSuccess; }

  void ReadParameter(std::int16_t address, const std::string& /*modelCode*/, std::int16_t parameter,
                     std::int16_t /*unitCode*/, std::int16_t& status) override {
    const std::int64_t now = (clock_.Now() - opened_) / std::chrono::milliseconds(1);
    const std::string* const text =
        script_->IsSilent(address, now) ? nullptr : script_->TextAt(address, parameter, now);
    status = text == nullptr ? kNoAnswer : kSuccess;
    if (text != nullptr) text_ = *text;
  }

  void ProbeParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter, std::int16_t unitCode,
                      std::int16_t& status) override {
    ReadParameter(address, modelCode, parameter, unitCode, status);
  }

  void OpenLink(std::int16_t& result) override {
    opened_ = clock_.Now();
    result = kSuccess;
  }
  void CloseLink() override {}

  /// Scripts are written with a full stop, or a comma, whatever the user's locale.
  void GetValue(double& value) override {
    static const NumberFormat kFullStop{".", ""};
    static const NumberFormat kComma{",", ""};
    value = 0;
    if (IsNumeric(text_, kFullStop)) {
      value = ToDouble(text_, kFullStop);
    } else if (IsNumeric(text_, kComma)) {
      value = ToDouble(text_, kComma);
    }
  }
  void GetText(std::string& text) override { text = text_; }

 private:
  std::shared_ptr<const ScenarioScript> script_;
  Clock& clock_;
  Instant opened_;
  std::string text_;
};

}  // namespace

ScenarioLinkFactory::ScenarioLinkFactory(FileSystem& files, Clock& clock, const std::string& fileName)
    : clock_(clock), script_(std::make_shared<ScenarioScript>(ScenarioScript::Load(files, fileName))) {}

std::unique_ptr<DriveLink> ScenarioLinkFactory::Create() {
  return std::make_unique<ScenarioLink>(script_, clock_);
}

}  // namespace chartproject
