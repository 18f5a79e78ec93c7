// Parameter reads on top of the machines.
#include "links/simulated_link.h"

#include <algorithm>
#include <array>
#include <optional>

#include "drive/drive_models.h"
#include "drive/drive_table.h"
#include "links/shown_value.h"
#include "links/simulated_machine.h"
#include "links/simulated_parameters.h"

namespace chartproject {

namespace {

/// The simulated model that answers for a known one: itself, or the first of its line (the letters before the "-").
std::string_view SimulatedModelFor(std::string_view modelCode) {
  const auto* const known = std::ranges::find_if(
      kDriveModels, [modelCode](const DriveModel& model) { return modelCode == std::string_view(&model.code, 1); });
  if (known == kDriveModels.end()) return {};
  if (!SimulatedParameters(known->name).empty()) return known->name;
  constexpr std::array<std::string_view, 4> kStandIns{"KRA-09", "KRD-04", "TSR-05", "PVE-05"};
  const auto* const standIn =
      std::ranges::find(kStandIns, known->name.substr(0, 3), [](std::string_view name) { return name.substr(0, 3); });
  return standIn == kStandIns.end() ? std::string_view() : *standIn;
}

class SimulatedLink : public DriveLink {
 public:
  SimulatedLink(Clock& clock, const Locale& locale) : clock_(clock), writer_(locale), opened_(clock.Now()) {}

  void SetP210Value(std::int16_t value) override { writer_.SetSpeedDecimals(value); }
  void SetP529Value(std::int16_t value) override { writer_.SetProcessDecimals(value); }

  ReadOutcome ReadParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                            std::int16_t unitCode) override {
    const std::optional<double> stored = StoredValue(address, modelCode, parameter);
    if (stored) value_ = writer_.Write(*stored, unitCode);
    return {stored ? ReadFailure::kNone : ReadFailure::kNoAnswer, {}};
  }

  ReadOutcome ProbeParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                             std::int16_t unitCode) override {
    return ReadParameter(address, modelCode, parameter, unitCode);
  }

  void OpenLink() override { opened_ = clock_.Now(); }
  void CloseLink() override {}
  double GetValue() override { return value_.number; }
  std::string GetText() override { return value_.text; }
  [[nodiscard]] bool Simulated() const noexcept override { return true; }

 private:
  [[nodiscard]] std::optional<double> StoredValue(std::int16_t address, std::string_view modelCode,
                                                  std::int16_t number) const {
    if (address < 1 || address > kLastDriveAddress) return std::nullopt;
    const std::string_view model = SimulatedModelFor(modelCode);
    const std::span<const SimulatedParameter> parameters = SimulatedParameters(model);
    const auto found = std::ranges::find(parameters, number, &SimulatedParameter::number);
    if (found == parameters.end()) return std::nullopt;
    const ParameterKind& kind = *FindParameterKind(found->kind);
    if (kind.quantity == Quantity::kSetting) return kind.setting;
    const std::chrono::duration<double> elapsed = clock_.Now() - opened_;
    return SimulatedMachine(*FindMachineProfile(model), address).ValueOf(kind.quantity, elapsed.count());
  }

  Clock& clock_;
  ValueWriter writer_;
  Instant opened_;
  ShownValue value_;
};

}  // namespace

std::unique_ptr<DriveLink> SimulatedLinkFactory::Create(const LinkWait& /*wait*/) {
  return std::make_unique<SimulatedLink>(clock_, locale_);
}

}  // namespace chartproject
