// Units of parameter values: the keywords of driver files and the codes that the drive link scales and formats by.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace chartproject {

struct Environment;

inline constexpr std::int16_t kUnknownUnitCode = 0;
inline constexpr std::int16_t kLastUnitCode = 76;
/// Codes that the system uses by name.
inline constexpr std::int16_t kDirectUnitCode = 7;           ///< "DirectF0"
inline constexpr std::int16_t kDividedBy100UnitCode = 20;    ///< "DividedBy100F1"
inline constexpr std::int16_t kDividedBy10UnitCode = 26;     ///< "DividedBy10F1"
inline constexpr std::int16_t kDependsOnP210UnitCode = 73;   ///< "DependsOnP210"
inline constexpr std::int16_t kDependsOnP529UnitCode = 74;   ///< "DependsOnP529"
inline constexpr std::int16_t kDigitalInputsUnitCode = 75;   ///< "DI1DI8"
inline constexpr std::int16_t kDigitalOutputsUnitCode = 76;  ///< "RL1RL2RL3DO1DO2"

/// The code of a keyword in any case, or 0 when there is none. The whole keyword counts, blanks too.
[[nodiscard]] std::int16_t FindUnitCode(std::string_view keyword);

/// As FindUnitCode; an unknown keyword is reported to the user. @param parameter named in that report
[[nodiscard]] std::int16_t UnitCode(Environment& environment, std::string_view keyword, int parameter);

/// The code that a read passes: that of the table, except that the words of digital inputs and outputs are read plain.
[[nodiscard]] constexpr std::int16_t ReadUnitCode(std::int16_t unitCode) noexcept {
  return unitCode == kDigitalInputsUnitCode || unitCode == kDigitalOutputsUnitCode ? kDirectUnitCode : unitCode;
}

/// "P" and three digits, for example P005.
[[nodiscard]] std::string ParameterName(int parameter);
/// Three digits, for example 005.
[[nodiscard]] std::string ParameterDigits(int parameter);

}  // namespace chartproject
