// Digits that are worth showing.
#include "common/values/measured_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

#include "common/values/numbers.h"

namespace chartproject {

std::string NumberText(double value, int digits, const NumberFormat& format) {
  if (std::isnan(value)) return "--";
  char buffer[64];
  const auto end = std::to_chars(std::begin(buffer), std::end(buffer), value + 0.0, std::chars_format::general, digits);
  std::string text(std::begin(buffer), end.ptr);
  std::ranges::replace(text, 'e', 'E');
  if (const auto point = text.find('.'); point != std::string::npos) text.replace(point, 1, format.decimalSeparator);
  return text;
}

std::string TimeText(double seconds, const NumberFormat& format) {
  constexpr double kLongest = 60;
  const double rounded = std::round(std::fabs(seconds) * 1000) / 1000;
  const std::string sign = seconds < 0 && rounded > 0 ? "-" : "";
  const double whole = std::floor(rounded);
  if (rounded < kLongest && rounded != whole) return sign + DoubleText(rounded, format) + " s";
  const auto count = static_cast<std::int64_t>(whole);
  const std::string fraction =
      rounded == whole ? "" : DoubleText(std::round((rounded - whole) * 1000) / 1000, format).substr(1);
  return sign + FormatDigits(count / 3600, 2) + ":" + FormatDigits(count / 60 % 60, 2) + ":" +
         FormatDigits(count % 60, 2) + fraction;
}

}  // namespace chartproject
