// The rules of the dialog's typed fields.
#include "acquire/dialog/input_rules.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "common/values/numbers.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

/// A whole number in a range; a number too large for 32 bits is out of any range.
NumberCheck CheckWholeNumber(std::string_view text, std::int32_t least, std::int32_t most, const NumberFormat& format) {
  if (!IsNumeric(text, format)) return {Verdict::kNotANumber, 0};
  try {
    const std::int32_t value = ToInteger32(text, format);
    return {value < least || value > most ? Verdict::kOutOfRange : Verdict::kAccept, value};
  } catch (const RunTimeError& error) {
    if (error.Number() != error_number::kOverflow) throw;
    return {Verdict::kOutOfRange, 0};
  }
}

bool IsDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}

/// The number in two places of a text; -1 when they hold anything but digits.
int TwoDigits(std::string_view text, std::size_t at) noexcept {
  if (at + 2 > text.size() || !IsDigit(text[at]) || !IsDigit(text[at + 1])) return -1;
  return (text[at] - '0') * 10 + (text[at + 1] - '0');
}

struct ClockTime {
  int hours, minutes, seconds;
};

ClockTime SplitClockTime(std::string_view text) noexcept {
  return {TwoDigits(text, 0), TwoDigits(text, 3), TwoDigits(text, 6)};
}

}  // namespace

NumberCheck CheckNumberOfPoints(std::string_view text, const NumberFormat& format) {
  return CheckWholeNumber(text, 1, kMostPoints, format);
}

NumberCheck CheckTimeBetweenPoints(std::string_view text, TimeUnit unit, const NumberFormat& format) {
  if (unit != TimeUnit::kMilliseconds) return CheckWholeNumber(text, 1, kMostSeconds, format);
  NumberCheck check = CheckWholeNumber(text, 1, kMostMilliseconds, format);
  if (check.verdict == Verdict::kAccept && check.value < kLeastMilliseconds) check.verdict = Verdict::kLetStand;
  return check;
}

bool EndsInDecimalSign(std::string_view text, const NumberFormat& format) {
  return text.ends_with(format.decimalSeparator);
}

std::string RoundedEntry::Typed(const std::string& text, Instant now) {
  const bool continues = !rounded_.empty() && now - at_ < kSameBurst && text.starts_with(rounded_) &&
                         text.find_first_not_of("0123456789", rounded_.size()) == std::string::npos;
  if (continues) return typed_ + text.substr(rounded_.size());
  rounded_.clear();
  return text;
}

void RoundedEntry::Round(std::string typed, std::string rounded, Instant now) {
  typed_ = std::move(typed);
  rounded_ = std::move(rounded);
  at_ = now;
}

double EstimateBytes(std::int32_t points, int parameterCount) {
  const auto v = static_cast<float>(points);
  const auto bytes = static_cast<float>(2.0 * (350.0 + v * 15.0 + v * (5.0 * parameterCount)));
  // Single precision has seven digits; the rest is noise of the binary fraction.
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), bytes, std::chars_format::scientific, 6);
  double shown = 0;
  std::from_chars(digits.data(), end.ptr, shown);
  return shown;
}

ClockTimeFault CheckClockTime(std::string_view text) noexcept {
  const ClockTime time = SplitClockTime(text);
  if (time.hours < 0 || time.minutes < 0 || time.seconds < 0) return ClockTimeFault::kFormat;
  if (time.hours + time.minutes + time.seconds == 0) return ClockTimeFault::kRange;
  return time.hours < 24 && time.minutes < 60 && time.seconds < 60 ? ClockTimeFault::kNone : ClockTimeFault::kRange;
}

int ClockTimeSeconds(std::string_view text) noexcept {
  const ClockTime time = SplitClockTime(text);
  return std::max(time.hours, 0) * 3600 + std::max(time.minutes, 0) * 60 + std::max(time.seconds, 0);
}

bool ContentAcceptable(std::string_view text, const NumberFormat& format) {
  constexpr std::array<std::string_view, 6> kBeginnings{"", "-", ",", ".", "-,", "-."};
  return std::ranges::find(kBeginnings, text) != kBeginnings.end() || IsTypedDecimal(text, format);
}

}  // namespace chartproject
