// The rules of the dialog's typed fields, as pure functions: text in, verdict and corrected text out.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/locale.h"

namespace chartproject {

/// Units of the time between points: "ms", "s" and "hh:mm:ss", in the order of the dialog's list.
enum class TimeUnit { kMilliseconds, kSeconds, kClockTime };

/// Bounds of the typed fields.
inline constexpr std::int32_t kMostPoints = 2'000'000'000;
inline constexpr std::int32_t kLeastMilliseconds = 200;
inline constexpr std::int32_t kMostMilliseconds = 65535;
inline constexpr std::int32_t kMostSeconds = 65;

/// The verdict of a field's rule on its new text.
enum class Verdict {
  kAccept,      ///< accepted, and what the field goes back to
  kLetStand,    ///< accepted while typing, checked again on lost focus
  kNotANumber,  ///< the last accepted text comes back without a message
  kOutOfRange,  ///< "Value out of range !", then the last accepted text comes back
};

struct NumberCheck {
  Verdict verdict = Verdict::kNotANumber;
  std::int32_t value = 0;  ///< of kAccept and kLetStand: the text as a whole number, halves to even
};

/// 1 to kMostPoints.
[[nodiscard]] NumberCheck CheckNumberOfPoints(std::string_view text, const NumberFormat& format);
/// Milliseconds 1 to 65535 (below 200 is accepted while typing) or seconds 1 to 65.
[[nodiscard]] NumberCheck CheckTimeBetweenPoints(std::string_view text, TimeUnit unit, const NumberFormat& format);

/// True for a text that ends in the locale's decimal sign: a number that is being typed. It is rounded with the next
/// letter or on lost focus; rounding it at once would turn 12.6 into 126.
[[nodiscard]] bool EndsInDecimalSign(std::string_view text, const NumberFormat& format);

/// Letters that follow each other within this time are one entry.
inline constexpr Instant kSameBurst = std::chrono::seconds(1);

/// Keeps what was typed of a number that is already rounded: the 5 of 12.65 arrives when the field shows 13.
class RoundedEntry {
 public:
  /// The number that is being typed.
  /// @param text the field's: the rounded number with further digits stands for what was typed with those digits
  [[nodiscard]] std::string Typed(const std::string& text, Instant now);
  void Round(std::string typed, std::string rounded, Instant now);

 private:
  std::string typed_;
  std::string rounded_;  ///< empty when nothing was rounded, or something else was typed since
  Instant at_{};
};

/// Bytes that a chart file needs on its disk, twice its size so that the spool file has room beside it:
/// 2 x (350 + 15 a point + 5 a value). Reckoned in single precision and taken with its seven digits.
[[nodiscard]] double EstimateBytes(std::int32_t points, int parameterCount);
/// The size that the chart file itself is expected to have.
[[nodiscard]] inline double ExpectedBytes(std::int32_t points, int parameterCount) {
  return EstimateBytes(points, parameterCount) / 2;
}

/// What is wrong with a time typed as hh:mm:ss.
enum class ClockTimeFault { kNone, kFormat, kRange };
[[nodiscard]] ClockTimeFault CheckClockTime(std::string_view text) noexcept;
/// Seconds of hours, minutes and seconds at characters 1, 4 and 7; 0 for places that hold no digits.
[[nodiscard]] int ClockTimeSeconds(std::string_view text) noexcept;

/// True for a number with either decimal sign and for the beginnings of one: "", "-", ",", ".", "-,", "-.". A decimal
/// sign that the locale does not use is accepted too: otherwise 12,5 would become 5 while it is typed.
[[nodiscard]] bool ContentAcceptable(std::string_view text, const NumberFormat& format);

}  // namespace chartproject
