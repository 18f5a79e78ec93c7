// Pieces of even pace, read in both directions.
#include "recording/companion/point_clock.h"

#include <algorithm>

#include "common/values/calendar.h"
#include "common/values/numbers.h"
#include "platform/run_time_error.h"

namespace chartproject {
namespace {

constexpr double kMillisecondsPerSecond = 1000;

/// The value at `at` on the straight piece of a chain that holds it, or that is nearest to it.
double OnChain(const std::vector<ClockKnot>& knots, double at, double ClockKnot::*from, double ClockKnot::*to) {
  const auto after = std::upper_bound(knots.begin() + 1, knots.end() - 1, at,
                                      [from](double value, const ClockKnot& knot) { return value < knot.*from; });
  const ClockKnot& low = *(after - 1);
  const ClockKnot& high = *after;
  if (high.*from == low.*from) return low.*to;
  return low.*to + (at - low.*from) * (high.*to - low.*to) / (high.*from - low.*from);
}

}  // namespace

std::optional<double> ScanSeconds(const ChartHeader& header, const NumberFormat& format) {
  if (header.Unit == "hh:mm:ss") return SecondsOfClockText(header.ScanTime);
  try {
    const double time = ToDouble(header.ScanTime, format);
    return header.Unit == "ms" ? time / kMillisecondsPerSecond : time;
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

PointClock::PointClock(const ChartHeader& header, const PointTimes* times, const Locale& locale) : locale_(&locale) {
  if (times != nullptr && times->Known()) {
    for (const TimeKnot& knot : times->Knots()) {
      knots_.push_back({static_cast<double>(knot.point), static_cast<double>(knot.elapsed)});
    }
  }
  if (knots_.size() < 2 || !(knots_.back().milliseconds > 0)) {
    knots_.clear();
    // Pieces of a thousand million points: their products with a scan time in milliseconds are exact.
    constexpr double kSpan = 1e9;
    const auto scan = ScanSeconds(header, locale.Numbers());
    if (scan && *scan > 0) knots_ = {{1, 0}, {1 + kSpan, *scan * kMillisecondsPerSecond * kSpan}};
  }
  if (const auto seconds = SecondsOfClockText(header.StartTime)) firstOfDay_ = *seconds * kMillisecondsPerSecond;
  firstDate_ = ParseDate(header.StartDate, locale);
}

double PointClock::ElapsedAt(double point) const {
  return OnChain(knots_, point, &ClockKnot::point, &ClockKnot::milliseconds);
}

double PointClock::PointAt(double elapsed) const {
  return OnChain(knots_, elapsed, &ClockKnot::milliseconds, &ClockKnot::point);
}

std::vector<ClockKnot> PointClock::Knots(double first, double last) const {
  std::vector<ClockKnot> part{{first, ElapsedAt(first)}};
  for (const ClockKnot& knot : knots_) {
    if (knot.point > first && knot.point < last) part.push_back(knot);
  }
  part.push_back({last, ElapsedAt(last)});
  return part;
}

std::string PointClock::DateText(std::int64_t day) const {
  if (firstDate_) return locale_->DateText(DaysAfter(*firstDate_, day));
  return (day < 0 ? "" : "+") + std::to_string(day) + " d";
}

}  // namespace chartproject
