// Reading values: plain decimals at once, everything else by the rules of the user's locale.
#include "recording/file/field_value.h"

#include <array>
#include <cstdint>
#include <limits>

#include "common/values/numbers.h"
#include "platform/run_time_error.h"

namespace chartproject {
namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

/// So many digits fit exactly into a double, and so do the powers of ten up to there: one division rounds correctly.
constexpr int kExactDigits = 15;
constexpr std::array<double, kExactDigits + 1> kPowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                               1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Sign, digits and at most one comma or full stop: with a single one it is the decimal separator in every locale,
/// once it is made the locale's own. False for anything else and for a number that is too long to be exact.
bool ReadPlainDecimal(std::string_view field, double& value) noexcept {
  std::size_t at = 0;
  const bool negative = field[0] == '-';
  if (negative) ++at;
  std::int64_t digits = 0;
  int digitCount = 0;
  int decimals = -1;  // digits after the separator; negative before it
  for (; at < field.size(); ++at) {
    const char c = field[at];
    if (c >= '0' && c <= '9') {
      digits = digits * 10 + (c - '0');
      if (++digitCount > kExactDigits) return false;
      if (decimals >= 0) ++decimals;
    } else if ((c == '.' || c == ',') && decimals < 0) {
      decimals = 0;
    } else {
      return false;
    }
  }
  if (digitCount == 0) return false;
  value = static_cast<double>(digits);
  if (decimals > 0) value /= kPowersOfTen[static_cast<std::size_t>(decimals)];
  if (negative) value = -value;
  return true;
}

}  // namespace

double FieldValue(std::string_view field, const NumberFormat& format) {
  if (field.empty()) return 0;
  double value = 0;
  if (ReadPlainDecimal(field, value)) return value;
  const std::string text = LocaleDecimal(field, format);
  if (!IsNumeric(text, format)) return kGap;
  try {
    return ToDouble(text, format);
  } catch (const RunTimeError&) {
    return kGap;  // larger than any number
  }
}

}  // namespace chartproject
