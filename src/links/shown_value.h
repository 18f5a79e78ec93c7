// How the program's own links write a value: decimals and scale by unit code. docs/links.md has the table.
#pragma once

#include <cstdint>
#include <string>

#include "platform/locale.h"

namespace chartproject {

/// A value as a link gives it: the number is the one that the text shows, so that what is compared is what is seen.
struct ShownValue {
  double number = 0;
  std::string text;
};

/// The rules by unit code, with the values of the parameters 210 and 529 that two of the codes depend on.
class ValueWriter {
 public:
  /// @param locale outlives the writer
  explicit ValueWriter(const Locale& locale) : locale_(locale) {}

  /// Decimals of the codes DependsOnP210 and DependsOnP529; 0 before, limited to 0 to 5.
  void SetSpeedDecimals(std::int16_t value) noexcept { speedDecimals_ = Limited(value); }
  void SetProcessDecimals(std::int16_t value) noexcept { processDecimals_ = Limited(value); }

  /// A value as its unit measures it, but for the families DividedBy...: those divide what is stored first.
  [[nodiscard]] ShownValue Write(double stored, std::int16_t unitCode) const;
  /// The 16 bits of a drive: a value without its decimal point, signed in the families whose values can be negative.
  [[nodiscard]] ShownValue WriteRegister(std::uint16_t bits, std::int16_t unitCode) const;

 private:
  [[nodiscard]] static int Limited(std::int16_t value) noexcept;
  [[nodiscard]] int DecimalsOf(std::int16_t unitCode) const noexcept;

  const Locale& locale_;
  int speedDecimals_ = 0;
  int processDecimals_ = 0;
};

}  // namespace chartproject
