// Parameter reads on top of the machines.
#include "links/simulated_link.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "drive/drive_models.h"
#include "drive/drive_table.h"
#include "drive/unit_codes.h"
#include "links/simulated_machine.h"
#include "links/simulated_parameters.h"

namespace chartproject {

namespace {

constexpr int kVariants = 6;
constexpr int kMostDecimals = 5;

/// Of the codes in their order: what a stored number is divided by. 1 for all families but three.
double DivisorOf(std::int16_t unitCode) {
  constexpr std::int16_t kFirstBy1000 = 13;
  constexpr std::int16_t kFirstBy100 = 19;
  constexpr std::int16_t kFirstBy10 = 25;
  constexpr std::int16_t kFirstBehind = 31;
  if (unitCode < kFirstBy1000 || unitCode >= kFirstBehind) return 1;
  if (unitCode < kFirstBy100) return 1000;
  return unitCode < kFirstBy10 ? 100 : 10;
}

std::string DecimalText(double value, int decimals, const NumberFormat& numbers) {
  std::array<char, 64> buffer{};
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
  std::string text(buffer.data(), end.ptr);
  if (const std::size_t point = text.find('.'); point != std::string::npos) {
    text.replace(point, 1, numbers.decimalSeparator);
  }
  return text;
}

/// One letter a terminal: A for active, I for inactive.
std::string TerminalsText(double word, int terminals) {
  std::string text;
  for (int i = 0; i < terminals; ++i) text += (static_cast<unsigned>(word) >> i & 1U) != 0 ? 'A' : 'I';
  return text;
}

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
  SimulatedLink(Clock& clock, const Locale& locale) : clock_(clock), locale_(locale), opened_(clock.Now()) {}

  void SetP210Value(std::int16_t value) override { speedDecimals_ = Decimals(value); }
  void SetP529Value(std::int16_t value) override { processDecimals_ = Decimals(value); }

  ReadOutcome ReadParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                            std::int16_t unitCode) override {
    const std::optional<double> stored = StoredValue(address, modelCode, parameter);
    if (stored) Show(*stored, unitCode);
    return {stored ? ReadFailure::kNone : ReadFailure::kNoAnswer, {}};
  }

  ReadOutcome ProbeParameter(std::int16_t address, const std::string& modelCode, std::int16_t parameter,
                             std::int16_t unitCode) override {
    return ReadParameter(address, modelCode, parameter, unitCode);
  }

  void OpenLink() override { opened_ = clock_.Now(); }
  void CloseLink() override {}
  double GetValue() override { return value_; }
  std::string GetText() override { return text_; }
  [[nodiscard]] bool Simulated() const noexcept override { return true; }

 private:
  static int Decimals(std::int16_t value) { return std::clamp<int>(value, 0, kMostDecimals); }

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

  [[nodiscard]] int DecimalsOf(std::int16_t unitCode) const {
    if (unitCode == kDependsOnP210UnitCode) return speedDecimals_;
    if (unitCode == kDependsOnP529UnitCode) return processDecimals_;
    return unitCode <= kUnknownUnitCode || unitCode > kLastUnitCode ? 0 : (unitCode - 1) % kVariants;
  }

  /// The number is the one that the text shows, so that what is compared is what is seen.
  void Show(double stored, std::int16_t unitCode) {
    if (unitCode == kDigitalInputsUnitCode || unitCode == kDigitalOutputsUnitCode) {
      value_ = stored;
      text_ = TerminalsText(stored, unitCode == kDigitalInputsUnitCode ? 8 : 5);
      return;
    }
    const int decimals = DecimalsOf(unitCode);
    const double scale = std::pow(10, decimals);
    value_ = std::round(stored / DivisorOf(unitCode) * scale) / scale + 0.0;  // never -0
    text_ = DecimalText(value_, decimals, locale_.Numbers());
  }

  Clock& clock_;
  const Locale& locale_;
  Instant opened_;
  int speedDecimals_ = 0;
  int processDecimals_ = 0;
  double value_ = 0;
  std::string text_;
};

}  // namespace

std::unique_ptr<DriveLink> SimulatedLinkFactory::Create(const LinkWait& /*wait*/) {
  return std::make_unique<SimulatedLink>(clock_, locale_);
}

}  // namespace chartproject
