// Numbers read from and written as texts. Digits are converted by from_chars and to_chars, which know no locale; the
// separators of the user's locale are put in and taken out here.
#include "common/values/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr std::string_view kNoBreakSpace = "\u00A0";
constexpr std::string_view kNarrowNoBreakSpace = "\u202F";

bool IsDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}

bool IsBlank(char c) noexcept {
  return c == ' ' || c == '\t';
}

/// Reads a text from the front, piece by piece, and collects the number in the form that from_chars takes.
class NumberScanner {
 public:
  NumberScanner(std::string_view text, const NumberFormat& format) : rest_(text), format_(format) {}

  /// The number as plain text ("-12.5e3"); nothing when the text is not a number.
  std::optional<std::string> Scan() {
    SkipBlanks();
    Sign();
    const bool wholePart = Digits(true);
    bool fraction = false;
    if (Take(format_.decimalSeparator)) {
      plain_ += '.';
      fraction = Digits(false);
    }
    if ((!wholePart && !fraction) || !Exponent()) return std::nullopt;
    SkipBlanks();
    if (!rest_.empty()) return std::nullopt;
    return plain_;
  }

 private:
  bool Take(std::string_view piece) noexcept {
    if (piece.empty() || !rest_.starts_with(piece)) return false;
    rest_.remove_prefix(piece.size());
    return true;
  }

  void SkipBlanks() noexcept {
    while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
  }

  void Sign() {
    if (Take("-")) {
      plain_ += '-';
    } else {
      Take("+");
    }
  }

  bool TakeGroupSeparator() {
    const std::string_view group = format_.groupSeparator;
    if (Take(group)) return true;
    // Users of a locale that groups with a no-break space type an ordinary space.
    if (group != kNoBreakSpace && group != kNarrowNoBreakSpace) return false;
    if (Take(kNoBreakSpace) || Take(kNarrowNoBreakSpace)) return true;
    return rest_.size() >= 2 && IsDigit(rest_[1]) && Take(" ");
  }

  /// True when there was a digit. Group separators may follow any digit, so that a number is one at every keystroke.
  bool Digits(bool grouped) {
    bool any = false;
    while (!rest_.empty()) {
      if (IsDigit(rest_.front())) {
        plain_ += rest_.front();
        rest_.remove_prefix(1);
        any = true;
      } else if (!(grouped && any && TakeGroupSeparator())) {
        break;
      }
    }
    return any;
  }

  /// False for an exponent without digits.
  bool Exponent() {
    if (!Take("e") && !Take("E")) return true;
    plain_ += 'e';
    Sign();
    return Digits(false);
  }

  std::string_view rest_;
  const NumberFormat& format_;
  std::string plain_;
};

/// Of a plain number too large or too small for its type: true when it is too small and reads as 0.
bool IsTiny(std::string_view plain) {
  // Far beyond any type's range, and far enough from the integer's own that adding the mantissa's digits cannot
  // overflow.
  constexpr std::int64_t kMostExponent = std::int64_t{1} << 40;
  const std::size_t exponentAt = plain.find_first_of("eE");
  std::int64_t exponent = 0;
  if (exponentAt != std::string_view::npos) {
    std::string_view text = plain.substr(exponentAt + 1);
    if (text.starts_with('+')) text.remove_prefix(1);  // from_chars reads no plus sign
    const auto result = std::from_chars(text.data(), text.data() + text.size(), exponent);
    if (result.ec == std::errc::result_out_of_range) exponent = text.front() == '-' ? -kMostExponent : kMostExponent;
  }
  const std::string_view mantissa = plain.substr(0, exponentAt);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t firstDigit = std::min(mantissa.find_first_of("123456789"), mantissa.size());
  return static_cast<std::int64_t>(point) - static_cast<std::int64_t>(firstDigit) +
             std::clamp(exponent, -kMostExponent, kMostExponent) <
         0;
}

template <typename Number>
Number FromPlain(std::string_view plain) {
  Number value = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (IsTiny(plain)) return 0;
    throw RunTimeError(error_number::kOverflow, Text::kOverflow, {std::string(plain)});
  }
  return value;
}

template <typename Number>
Number FromText(std::string_view text, const NumberFormat& format) {
  const std::optional<std::string> plain = NumberScanner(text, format).Scan();
  if (!plain) throw RunTimeError(error_number::kTypeMismatch, Text::kTypeMismatch, {std::string(text)});
  return FromPlain<Number>(*plain);
}

template <typename Integer>
Integer Fit(double whole) {
  if (whole >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
      whole <= static_cast<double>(std::numeric_limits<Integer>::max())) {
    return static_cast<Integer>(whole);
  }
  throw RunTimeError(error_number::kOverflow, "Overflow");
}

/// In the default rounding mode, which the system never changes, nearbyint takes a half to the even neighbour.
double RoundHalfEven(double value) noexcept {
  return std::nearbyint(value);
}

std::string GeneralText(double value, int significantDigits, const NumberFormat& format) {
  if (value == 0) return "0";  // and -0
  std::array<char, 64> buffer{};
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, significantDigits);
  std::string text;
  for (const char* at = buffer.data(); at != end.ptr; ++at) {
    if (*at == '.') {
      text += format.decimalSeparator;
    } else {
      text += *at == 'e' ? 'E' : *at;
    }
  }
  return text;
}

/// Decimal digits of a number, and how many of them are before the decimal separator.
struct DecimalDigits {
  std::string digits;
  std::size_t wholeCount;
};

/// The digits that a user sees (15 significant ones), with a zero in front that can take a carry.
DecimalDigits VisibleDigits(double magnitude) {
  constexpr int kSignificantDigits = 15;
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific,
                                 kSignificantDigits - 1);
  // "d.dddde+xx"
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  const std::size_t exponentAt = text.find('e');
  const std::string mantissa = std::string(1, text[0]).append(text.substr(2, exponentAt - 2));
  std::size_t exponent = 0;
  std::from_chars(text.data() + exponentAt + 2, text.data() + text.size(), exponent);
  if (text[exponentAt + 1] == '-') return {std::string(exponent + 1, '0') + mantissa, 2};
  return {"0" + mantissa, exponent + 2};
}

struct RoundedNumber {
  bool negative;
  std::string whole;  ///< at least one digit
  std::string fraction;
};

/// Rounds to a number of decimals, halves away from zero. It rounds the digits and not the binary fraction: 1.005 is
/// 1.01 to its reader, though the nearest double lies below it.
RoundedNumber RoundForDisplay(double value, std::size_t decimals) {
  if (!std::isfinite(value)) throw RunTimeError(error_number::kOverflow, "Overflow");
  auto [digits, wholeCount] = VisibleDigits(std::fabs(value));
  const std::size_t kept = wholeCount + decimals;
  digits.resize(std::max(digits.size(), kept + 1), '0');
  const bool up = digits[kept] >= '5';
  digits.resize(kept);
  if (up) {
    std::size_t at = kept - 1;
    while (digits[at] == '9') digits[at--] = '0';
    ++digits[at];
  }
  const std::size_t firstDigit = digits.find_first_not_of('0');
  const std::size_t firstShown = std::min(firstDigit, wholeCount - 1);
  return {value < 0 && firstDigit != std::string::npos, digits.substr(firstShown, wholeCount - firstShown),
          digits.substr(wholeCount)};
}

}  // namespace

bool IsNumeric(std::string_view text, const NumberFormat& format) {
  return NumberScanner(text, format).Scan().has_value();
}

double ToDouble(std::string_view text, const NumberFormat& format) {
  return FromText<double>(text, format);
}

float ToSingle(std::string_view text, const NumberFormat& format) {
  return FromText<float>(text, format);
}

std::int16_t ToInteger16(std::string_view text, const NumberFormat& format) {
  return RoundToInteger16(ToDouble(text, format));
}

std::int32_t ToInteger32(std::string_view text, const NumberFormat& format) {
  return RoundToInteger32(ToDouble(text, format));
}

std::int16_t RoundToInteger16(double value) {
  return Fit<std::int16_t>(RoundHalfEven(value));
}

std::int32_t RoundToInteger32(double value) {
  return Fit<std::int32_t>(RoundHalfEven(value));
}

std::int16_t CheckedInteger16(std::int64_t value) {
  return Fit<std::int16_t>(static_cast<double>(value));
}

std::int32_t CheckedInteger32(std::int64_t value) {
  return Fit<std::int32_t>(static_cast<double>(value));
}

double LeadingNumber(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  if (text.starts_with('+') && text.size() > 1 && text[1] != '-') text.remove_prefix(1);
  // from_chars would read "inf" and "nan" too.
  const std::size_t first = text.starts_with('-') ? 1 : 0;
  if (first >= text.size() || (!IsDigit(text[first]) && text[first] != '.')) return 0;
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  if (IsTiny(text.substr(0, static_cast<std::size_t>(result.ptr - text.data())))) return 0;
  throw RunTimeError(error_number::kOverflow, Text::kOverflow, {std::string(text)});
}

std::string SingleText(float value, const NumberFormat& format) {
  return GeneralText(static_cast<double>(value), 7, format);
}

std::string DoubleText(double value, const NumberFormat& format) {
  return GeneralText(value, 15, format);
}

std::string FormatTwoDecimals(double value, const NumberFormat& format) {
  const RoundedNumber number = RoundForDisplay(value, 2);
  return (number.negative ? "-" : "") + number.whole + format.decimalSeparator + number.fraction;
}

std::string FormatGrouped(double value, const NumberFormat& format) {
  const RoundedNumber number = RoundForDisplay(value, 0);
  std::string text = number.negative ? "-" : "";
  for (std::size_t i = 0; i < number.whole.size(); ++i) {
    if (i > 0 && (number.whole.size() - i) % 3 == 0) text += format.groupSeparator;
    text += number.whole[i];
  }
  return text;
}

std::string FormatDigits(std::int64_t value, int digits) {
  std::string text = std::to_string(value);
  const std::size_t sign = value < 0 ? 1 : 0;
  const std::size_t wanted = static_cast<std::size_t>(digits) + sign;
  if (text.size() < wanted) text.insert(sign, wanted - text.size(), '0');
  return text;
}

std::string FormatTimeOfDay(int hour, int minute, int second) {
  return FormatDigits(hour, 2) + ":" + FormatDigits(minute, 2) + ":" + FormatDigits(second, 2);
}

std::string FormatSeconds(std::int64_t seconds) {
  return FormatDigits(seconds / 3600, 2) + ":" + FormatDigits(seconds / 60 % 60, 2) + ":" +
         FormatDigits(seconds % 60, 2);
}

std::string FileSizeText(double bytes, const NumberFormat& format) {
  if (bytes < 1024) return BytesText(bytes, format);
  constexpr std::array kUnits{" kB", " MB", " GB"};
  constexpr double kRoundedUp = 1023.995;  // which two decimals show as 1024
  std::size_t unit = 0;
  for (bytes /= 1024; bytes >= kRoundedUp && unit + 1 < kUnits.size(); ++unit) bytes /= 1024;
  return FormatTwoDecimals(bytes, format) + kUnits[unit];
}

std::string BytesText(double bytes, const NumberFormat& format) {
  return FormatGrouped(bytes, format) + " bytes";
}

std::string LocaleDecimal(std::string_view text, const NumberFormat& format) {
  std::string result(text);
  const bool fullStop = format.decimalSeparator == ".";
  const std::size_t at = result.find(fullStop ? ',' : '.');
  if (at != std::string::npos) result.replace(at, 1, format.decimalSeparator);
  return result;
}

bool IsTypedDecimal(std::string_view text, const NumberFormat& format) {
  return IsNumeric(text, format) || IsNumeric(LocaleDecimal(text, format), format);
}

double ToTypedDecimal(std::string_view text, const NumberFormat& format) {
  constexpr std::size_t kGroup = 3;  // digits
  if (!IsNumeric(text, format)) return ToDouble(LocaleDecimal(text, format), format);
  const char foreign = format.decimalSeparator == "." ? ',' : '.';
  const std::size_t at = text.find(foreign);
  if (at == std::string_view::npos || text.find(foreign, at + 1) != std::string_view::npos ||
      text.find(format.decimalSeparator) != std::string_view::npos) {
    return ToDouble(text, format);
  }
  const std::size_t end = std::min(text.find_first_not_of("0123456789", at + 1), text.size());
  return ToDouble(end - at - 1 == kGroup ? std::string(text) : LocaleDecimal(text, format), format);
}

}  // namespace chartproject
