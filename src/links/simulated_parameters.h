// The parameters of the simulated drives: what each is called, in which unit, and what it shows of the machine.
// The simulated link answers by this table, and the driver files of a ready project are written from it.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace chartproject {

/// What a parameter shows of the machine that the drive runs.
enum class Quantity : std::uint8_t {
  kSetting,              ///< a fixed value
  kSpeedReference,       ///< rpm
  kSpeed,                ///< rpm
  kSpeedPercent,         ///< of nominal speed
  kReferencePercent,     ///< of nominal speed
  kFrequency,            ///< Hz
  kCurrent,              ///< A
  kCurrentPercent,       ///< of nominal current
  kTorque,               ///< % of nominal torque
  kPower,                ///< kW
  kPowerFactor,          ///< hundredths
  kMainsVoltage,         ///< V
  kBusVoltage,           ///< V
  kOutputVoltage,        ///< V
  kStatusWord,           ///< see DecodeStatus
  kDigitalInputs,        ///< bit 0 is the first input
  kDigitalOutputs,       ///< bit 0 is the first relay
  kHeatsinkTemperature,  ///< degrees Celsius
  kMotorTemperature,     ///< degrees Celsius
  kProcess,              ///< a pressure at the outlet of the machine, %
  kHours,                ///< since the machine was built
  kEnergy,               ///< kWh since the machine was built
  kPosition              ///< revolutions since the link was opened
};

/// One kind of parameter, as several models have it under different numbers.
struct ParameterKind {
  std::string_view english;  ///< also its key
  std::string_view portuguese;
  std::string_view spanish;
  std::string_view unit;    ///< keyword, see UnitCode
  std::string_view symbol;  ///< of the unit
  Quantity quantity;
  double setting;  ///< value of a kSetting; hundredths for the family DividedBy100, tenths for DividedBy10
  double low;      ///< smallest and largest value, for the driver files
  double high;
};

/// A parameter of a model.
struct SimulatedParameter {
  std::int16_t number;
  std::string_view kind;       ///< ParameterKind::english
  std::string_view unit = {};  ///< instead of the kind's, when given
};

/// The kind with that English name; null when the name is unknown.
[[nodiscard]] const ParameterKind* FindParameterKind(std::string_view english) noexcept;

/// The parameters of a model, by number; empty when the model is not simulated.
[[nodiscard]] std::span<const SimulatedParameter> SimulatedParameters(std::string_view model) noexcept;

/// The unit keyword that a parameter has in its model.
[[nodiscard]] std::string_view UnitOf(const SimulatedParameter& parameter, const ParameterKind& kind) noexcept;

}  // namespace chartproject
