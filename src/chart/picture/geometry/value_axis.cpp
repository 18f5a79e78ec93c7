// Choice of round ticks, and their texts.
#include "chart/picture/geometry/value_axis.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace chartproject {
namespace {

/// Smaller magnitudes are taken for zero: below lie numbers that lose digits.
constexpr double kSmallestShown = 1e-300;
/// A range narrower than this share of its values is widened; finer ticks would all read the same.
constexpr double kNarrowestShare = 1e-9;
/// Zero is shown when the gap below the data is at most this share of the data's far end.
constexpr double kNearZeroShare = 0.3;
/// By this share of a step, less than a pixel, data may reach beyond the last tick: noise around zero adds no step.
constexpr double kOvershoot = 0.02;
constexpr double kLogarithmNoise = 1e-9;
/// From here on, and for steps below 10^-5, texts carry an exponent.
constexpr double kLongestFixed = 1e7;
constexpr int kFinestFixedExponent = -5;

/// Asked for each point that is drawn: the powers that a double holds exactly come from a table.
double PowerOfTen(int exponent) {
  static constexpr std::array<double, 23> kExact = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                    1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                    1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  return exponent >= 0 && exponent < static_cast<int>(kExact.size()) ? kExact[static_cast<std::size_t>(exponent)]
                                                                     : std::pow(10.0, exponent);
}

/// Positive exponents multiply and negative ones divide: both keep 3 x 0.1 at 0.3.
double Multiple(std::int64_t steps, int mantissa, int exponent) {
  const double whole = static_cast<double>(steps) * mantissa;
  return exponent >= 0 ? whole * PowerOfTen(exponent) : whole / PowerOfTen(-exponent);
}

struct Bounds {
  double low;
  double high;
};

Bounds BoundsToShow(const ValueRange& range, bool withZero) {
  double low = range.empty ? 0 : std::clamp(range.minimum, -kLargestShown, kLargestShown);
  double high = range.empty ? 0 : std::clamp(range.maximum, -kLargestShown, kLargestShown);
  const double largest = std::max(std::abs(low), std::abs(high));
  if (largest < kSmallestShown) return {0, 1};
  if (withZero || (low > 0 && low <= kNearZeroShare * high)) low = std::min(low, 0.0);
  if (withZero || (high < 0 && high >= kNearZeroShare * low)) high = std::max(high, 0.0);
  if (high - low < kNarrowestShare * largest) {
    const double margin = largest * 0.05;
    low = std::max(low - margin, -kLargestShown);
    high = std::min(high + margin, kLargestShown);
  }
  return {low, high};
}

void NextStep(ValueAxis& axis) {
  axis.mantissa = axis.mantissa == 1 ? 2 : axis.mantissa == 2 ? 5 : 1;
  if (axis.mantissa == 1) ++axis.exponent;
}

void FormerStep(ValueAxis& axis) {
  if (axis.mantissa == 1) --axis.exponent;
  axis.mantissa = axis.mantissa == 1 ? 5 : axis.mantissa == 5 ? 2 : 1;
}

std::string ToText(double value, std::chars_format kind, int decimals) {
  char buffer[400];
  const auto end = std::to_chars(std::begin(buffer), std::end(buffer), value, kind, decimals);
  return {std::begin(buffer), end.ptr};
}

int ExponentOf(double magnitude) {
  return static_cast<int>(std::floor(std::log10(magnitude) + kLogarithmNoise));
}

}  // namespace

void ValueRange::Include(double value) noexcept {
  if (!std::isfinite(value)) return;
  minimum = empty ? value : std::min(minimum, value);
  maximum = empty ? value : std::max(maximum, value);
  empty = false;
}

double ValueAxis::Tick(int i) const noexcept {
  return Multiple(firstTick + i, mantissa, exponent);
}

ValueAxis ChooseValueAxis(const ValueRange& range, bool withZero, int maximumSteps) {
  const auto [low, high] = BoundsToShow(range, withZero);
  const int allowed = std::max(maximumSteps, low < 0 && high > 0 ? 2 : 1);
  ValueAxis axis;
  axis.exponent = ExponentOf((high - low) / allowed);
  for (;; NextStep(axis)) {
    const double step = Multiple(1, axis.mantissa, axis.exponent);
    axis.firstTick = static_cast<std::int64_t>(std::floor(low / step + kOvershoot));
    axis.lastTick = static_cast<std::int64_t>(std::ceil(high / step - kOvershoot));
    if (axis.lastTick > axis.firstTick && axis.lastTick - axis.firstTick <= allowed) return axis;
  }
}

ValueAxis FixedValueAxis(const ValueRange& range, int maximumSteps) {
  ValueRange ends{std::clamp(range.minimum, -kLargestShown, kLargestShown),
                  std::clamp(range.maximum, -kLargestShown, kLargestShown), false};
  const double largest = std::max({std::abs(ends.minimum), std::abs(ends.maximum), kSmallestShown});
  if (!(ends.maximum - ends.minimum >= kNarrowestShare * largest)) {
    const double middle = ends.minimum / 2 + ends.maximum / 2;
    ends.minimum = middle - kNarrowestShare * largest;
    ends.maximum = middle + kNarrowestShare * largest;
  }
  ValueAxis axis;
  axis.ends = ends;
  const double width = ends.maximum - ends.minimum;
  axis.exponent = ExponentOf(width / std::max(maximumSteps, 1));
  while (width / Multiple(1, axis.mantissa, axis.exponent) > maximumSteps) NextStep(axis);
  const auto place = [&] {
    const double step = Multiple(1, axis.mantissa, axis.exponent);
    axis.firstTick = static_cast<std::int64_t>(std::ceil(ends.minimum / step - kLogarithmNoise));
    axis.lastTick = static_cast<std::int64_t>(std::floor(ends.maximum / step + kLogarithmNoise));
  };
  for (place(); axis.lastTick <= axis.firstTick; place()) FormerStep(axis);  // one tick alone gives no scale
  return axis;
}

std::string TickText(const ValueAxis& axis, int i, const NumberFormat& format) {
  const double value = axis.Tick(i);
  if (axis.firstTick + i == 0) return "0";
  const double largest = std::max(std::abs(axis.Minimum()), std::abs(axis.Maximum()));
  const bool fixed = largest < kLongestFixed && axis.exponent >= kFinestFixedExponent;
  std::string text =
      fixed ? ToText(value, std::chars_format::fixed, std::max(0, -axis.exponent))
            : ToText(value, std::chars_format::scientific, std::max(0, ExponentOf(std::abs(value)) - axis.exponent));
  std::replace(text.begin(), text.end(), 'e', 'E');
  const auto point = text.find('.');
  const auto wholeEnd = point != std::string::npos ? point : std::min(text.find('E'), text.size());
  if (point != std::string::npos) text.replace(point, 1, format.decimalSeparator);
  const std::size_t wholeStart = value < 0 ? 1 : 0;
  for (std::size_t at = wholeEnd; at > wholeStart + 3; at -= 3) text.insert(at - 3, format.groupSeparator);
  return text;
}

}  // namespace chartproject
