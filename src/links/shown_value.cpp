// The table of families, and the two ways into it.
#include "links/shown_value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "drive/unit_codes.h"

namespace chartproject {

namespace {

constexpr int kVariants = 6;
constexpr int kMostDecimals = 5;

/// A family of six unit codes, in the order of the codes.
struct Family {
  double divisor;  ///< of the stored number; 0 for a family that stores values as they are
  bool isSigned;   ///< as 16 bits of a drive
};

constexpr std::array kFamilies{
    Family{0, true},      // Current
    Family{0, false},     // Direct
    Family{1000, false},  // DividedBy1000
    Family{100, false},   // DividedBy100
    Family{10, false},    // DividedBy10
    Family{0, true},      // Frequency
    Family{0, true},      // Gain
    Family{0, true},      // Percentage
    Family{0, true},      // Power
    Family{0, false},     // Time
    Family{0, true},      // Voltage
    Family{0, true},      // 13BitsRPM
};
/// Of DependsOnP210 and DependsOnP529, which stand for a speed and a process variable.
constexpr Family kDepending{0, true};
constexpr Family kPlain{0, false};

const Family& FamilyOf(std::int16_t unitCode) noexcept {
  if (unitCode == kDependsOnP210UnitCode || unitCode == kDependsOnP529UnitCode) return kDepending;
  if (unitCode <= kUnknownUnitCode || unitCode >= kDependsOnP210UnitCode) return kPlain;
  return kFamilies.at(static_cast<std::size_t>((unitCode - 1) / kVariants));
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

}  // namespace

int ValueWriter::Limited(std::int16_t value) noexcept {
  return std::clamp<int>(value, 0, kMostDecimals);
}

int ValueWriter::DecimalsOf(std::int16_t unitCode) const noexcept {
  if (unitCode == kDependsOnP210UnitCode) return speedDecimals_;
  if (unitCode == kDependsOnP529UnitCode) return processDecimals_;
  return unitCode <= kUnknownUnitCode || unitCode > kLastUnitCode ? 0 : (unitCode - 1) % kVariants;
}

ShownValue ValueWriter::Write(double stored, std::int16_t unitCode) const {
  if (unitCode == kDigitalInputsUnitCode || unitCode == kDigitalOutputsUnitCode) {
    return {stored, TerminalsText(stored, unitCode == kDigitalInputsUnitCode ? 8 : 5)};
  }
  const double divisor = std::max(FamilyOf(unitCode).divisor, 1.0);
  const int decimals = DecimalsOf(unitCode);
  const double scale = std::pow(10, decimals);
  const double number = std::round(stored / divisor * scale) / scale + 0.0;  // never -0
  return {number, DecimalText(number, decimals, locale_.Numbers())};
}

ShownValue ValueWriter::WriteRegister(std::uint16_t bits, std::int16_t unitCode) const {
  const Family& family = FamilyOf(unitCode);
  const double stored = family.isSigned ? static_cast<std::int16_t>(bits) : bits;
  const bool hasPoint = family.divisor == 0 && unitCode < kDigitalInputsUnitCode;
  return Write(hasPoint ? stored / std::pow(10, DecimalsOf(unitCode)) : stored, unitCode);
}

}  // namespace chartproject
