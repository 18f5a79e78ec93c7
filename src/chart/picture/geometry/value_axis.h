// The value axis: a range of round numbers around the data, its ticks and their texts.
#pragma once

#include <cstdint>
#include <string>

#include "platform/locale.h"

namespace chartproject {

/// The least and greatest value to show; `empty` when there is none.
struct ValueRange {
  double minimum = 0;
  double maximum = 0;
  bool empty = true;

  /// Takes a value in; what is not finite is left out.
  void Include(double value) noexcept;
  friend bool operator==(const ValueRange&, const ValueRange&) = default;
};

/// Values beyond this magnitude are drawn at it, so that a range never overflows.
inline constexpr double kLargestShown = 1e307;

/// Ticks at whole multiples of a step of 1, 2 or 5 times a power of ten. The axis ends at its first and last tick,
/// unless it has ends of its own.
struct ValueAxis {
  int mantissa = 1;  ///< 1, 2 or 5
  int exponent = 0;
  std::int64_t firstTick = 0;  ///< in steps
  std::int64_t lastTick = 1;
  ValueRange ends{};  ///< empty where the ticks are the ends

  [[nodiscard]] int TickCount() const noexcept { return static_cast<int>(lastTick - firstTick) + 1; }
  /// Value of tick i, counted from the lower end.
  [[nodiscard]] double Tick(int i) const noexcept;
  [[nodiscard]] double Minimum() const noexcept { return ends.empty ? Tick(0) : ends.minimum; }
  [[nodiscard]] double Maximum() const noexcept { return ends.empty ? Tick(TickCount() - 1) : ends.maximum; }
};

/// The axis with the smallest step that needs at most `maximumSteps` steps (two where the range crosses zero).
/// Data may reach beyond an end by a fiftieth of a step.
/// @param withZero the axis shows zero, the base of bars and areas. Without it zero is shown only when it is near.
[[nodiscard]] ValueAxis ChooseValueAxis(const ValueRange& range, bool withZero, int maximumSteps);

/// The axis that shows a range as it is, also where data is outside of it: its ticks are those within it, none at
/// worst.
/// @param range not empty; one that is narrower than doubles can tell apart is widened
[[nodiscard]] ValueAxis FixedValueAxis(const ValueRange& range, int maximumSteps);

/// Text of tick i: as many decimals as the step needs, grouped, or with an exponent where that would be long.
[[nodiscard]] std::string TickText(const ValueAxis& axis, int i, const NumberFormat& format);

}  // namespace chartproject
