// The link's side of the replay.
#include "links/scenario_link.h"

#include "common/values/numbers.h"

namespace chartproject {

namespace {

class ScenarioLink : public DriveLink {
 public:
  ScenarioLink(std::shared_ptr<const ScenarioScript> script, Clock& clock)
      : script_(std::move(script)), clock_(clock), opened_(clock.Now()) {}

  void SetP210Value(std::int16_t /*value*/) override {}
  void SetP529Value(std::int16_t /*value*/) override {}

  bool ReadParameter(std::int16_t address, const std::string& /*modelCode*/, std::int16_t parameter,
                     std::int16_t /*unitCode*/) override {
    const std::int64_t now = (clock_.Now() - opened_) / std::chrono::milliseconds(1);
    const std::string* const text =
        script_->IsSilent(address, now) ? nullptr : script_->TextAt(address, parameter, now);
    if (text != nullptr) text_ = *text;
    return text != nullptr;
  }

  bool ProbeParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                      std::int16_t unitCode) override {
    return ReadParameter(address, modelCode, parameter, unitCode);
  }

  void OpenLink() override { opened_ = clock_.Now(); }
  void CloseLink() override {}

  /// Scripts are written with a full stop, or a comma, in every locale.
  double GetValue() override {
    static const NumberFormat kFullStop{".", ""};
    static const NumberFormat kComma{",", ""};
    if (IsNumeric(text_, kFullStop)) return ToDouble(text_, kFullStop);
    return IsNumeric(text_, kComma) ? ToDouble(text_, kComma) : 0;
  }
  std::string GetText() override { return text_; }

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
