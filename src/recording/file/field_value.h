// The number in a value field of a chart file.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/locale.h"

namespace chartproject {

/// An empty field is 0. A field that is not a number is a gap: NaN; a recording writes for example "--" for a reading
/// out of its range. Decimal comma and full stop are both accepted in every locale.
/// @param field the field's bytes, as they are in the file
[[nodiscard]] double FieldValue(std::string_view field, const NumberFormat& format);

/// So many digits fit exactly into a double, and so do the powers of ten up to there: one division rounds correctly.
inline constexpr int kExactDigits = 15;
inline constexpr std::array<double, kExactDigits + 1> kPowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                                      1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Reads a sign, digits and at most one comma or full stop: with a single one it is the decimal separator in every
/// locale, once it is made the locale's own. Here, because the readers of whole files pass each value through it.
/// @return the place after the number; null, with `value` unset, where none begins or it is too long to be exact
[[nodiscard]] inline const char* ReadPlainDecimal(const char* at, const char* end, double& value) noexcept {
  const auto isDigit = [](char c) { return static_cast<unsigned char>(c - '0') <= 9; };
  const bool negative = at != end && *at == '-';
  if (negative) ++at;
  const char* first = at;
  std::uint64_t number = 0;  // overflows only where there are too many digits
  for (; at != end && isDigit(*at); ++at) number = number * 10 + static_cast<std::uint64_t>(*at - '0');
  std::ptrdiff_t digits = at - first;
  std::ptrdiff_t decimals = 0;
  if (at != end && (*at == '.' || *at == ',')) {
    first = ++at;
    for (; at != end && isDigit(*at); ++at) number = number * 10 + static_cast<std::uint64_t>(*at - '0');
    decimals = at - first;
    digits += decimals;
  }
  if (digits == 0 || digits > kExactDigits) return nullptr;
  value = static_cast<double>(static_cast<std::int64_t>(number));
  if (decimals > 0) value /= kPowersOfTen[static_cast<std::size_t>(decimals)];
  if (negative) value = -value;
  return at;
}

}  // namespace chartproject
