// The link's side of the replay.
#include "links/scenario_link.h"

#include <algorithm>
#include <unordered_map>

#include "common/values/numbers.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

class ScenarioLink : public DriveLink {
 public:
  ScenarioLink(std::shared_ptr<const ScenarioScript> script, Clock& clock, WaitUntil waitUntil, const LinkWait& wait)
      : script_(std::move(script)),
        clock_(clock),
        waitUntil_(std::move(waitUntil)),
        wait_(wait),
        opened_(clock.Now()) {}

  void SetP210Value(std::int16_t /*value*/) override {}
  void SetP529Value(std::int16_t /*value*/) override {}

  ReadOutcome ReadParameter(std::int16_t address, const std::string& /*modelCode*/, std::int16_t parameter,
                            std::int16_t /*unitCode*/) override {
    const std::int64_t now = (clock_.Now() - opened_) / std::chrono::milliseconds(1);
    std::int64_t& asked = asked_.try_emplace(address, -1).first->second;
    const std::int64_t delay = script_->DelayAt(address, now) + script_->LatenessBetween(address, asked, now);
    asked = now;
    if (delay > 0 && !WaitFor(std::chrono::milliseconds(delay))) return {ReadFailure::kGivenUp, {}};
    const ReadOutcome outcome = script_->OutcomeAt(address, now);
    if (outcome.failure == ReadFailure::kBroken) throw RunTimeError(error_number::kAutomation, outcome.detail);
    if (!outcome.Answered()) return outcome;
    const std::string* const text = script_->TextAt(address, parameter, now);
    if (text == nullptr) return {ReadFailure::kNoAnswer, {}};
    text_ = *text;
    return {};
  }

  ReadOutcome ProbeParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                             std::int16_t unitCode) override {
    return ReadParameter(address, modelCode, parameter, unitCode);
  }

  void OpenLink() override {
    opened_ = clock_.Now();
    asked_.clear();
  }
  void CloseLink() override {}

  /// Scripts are written with a full stop, or a comma, in every locale.
  double GetValue() override {
    static const NumberFormat kFullStop{".", ""};
    static const NumberFormat kComma{",", ""};
    if (IsNumeric(text_, kFullStop)) return ToDouble(text_, kFullStop);
    return IsNumeric(text_, kComma) ? ToDouble(text_, kComma) : 0;
  }
  std::string GetText() override { return text_; }
  [[nodiscard]] bool Simulated() const noexcept override { return true; }

 private:
  /// False when the reading is not wanted any more.
  bool WaitFor(std::chrono::milliseconds duration) {
    const Instant until = clock_.Now() + duration;
    while (clock_.Now() < until) {
      if (!wait_.GoOn()) return false;
      waitUntil_(std::min<Instant>(until, clock_.Now() + kLinkWaitSlice));
    }
    return wait_.GoOn();
  }

  std::shared_ptr<const ScenarioScript> script_;
  Clock& clock_;
  WaitUntil waitUntil_;
  const LinkWait& wait_;
  Instant opened_;
  std::unordered_map<int, std::int64_t> asked_;  ///< by address: the moment of the last reading, from the opening
  std::string text_;
};

}  // namespace

ScenarioLinkFactory::ScenarioLinkFactory(FileSystem& files, Clock& clock, WaitUntil waitUntil,
                                         const std::string& fileName)
    : clock_(clock),
      waitUntil_(std::move(waitUntil)),
      script_(std::make_shared<ScenarioScript>(ScenarioScript::Load(files, fileName))) {}

std::unique_ptr<DriveLink> ScenarioLinkFactory::Create(const LinkWait& wait) {
  return std::make_unique<ScenarioLink>(script_, clock_, waitUntil_, wait);
}

}  // namespace chartproject
