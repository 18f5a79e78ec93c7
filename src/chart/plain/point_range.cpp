// Moments to points.
#include "chart/plain/point_range.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <regex>

#include "common/values/calendar.h"

namespace chartproject {
namespace {

constexpr std::int64_t kMillisecondsPerSecond = 1000;

/// "2" is 200 milliseconds, "25" 250, "257" 257.
std::int64_t MillisecondsOf(std::string decimals) {
  constexpr std::size_t kDecimals = 3;
  decimals.resize(kDecimals, '0');
  return std::stoi(decimals);
}

/// @param milliseconds since midnight, local time
std::int64_t UtcMilliseconds(DateTime day, std::int64_t milliseconds, const TimeZone& zone) {
  const std::chrono::hh_mm_ss time{std::chrono::milliseconds(milliseconds)};
  day.hour = static_cast<int>(time.hours().count());
  day.minute = static_cast<int>(time.minutes().count());
  day.second = static_cast<int>(time.seconds().count());
  return zone.UtcSeconds(day) * kMillisecondsPerSecond + time.subseconds().count();
}

/// False for a day that the calendar lacks.
bool Exists(const DateTime& date) {
  return std::chrono::year_month_day(std::chrono::year(date.year),
                                     std::chrono::month(static_cast<unsigned>(date.month)),
                                     std::chrono::day(static_cast<unsigned>(date.day)))
      .ok();
}

}  // namespace

std::optional<AskedMoment> ParseMoment(const std::string& text) {
  static const std::regex kPattern(
      "(?:([0-9]{4})-([0-9]{2})-([0-9]{2})[ T]|([+]))?([0-9]{1,6}):([0-9]{2})(?::([0-9]{2})(?:[.,]([0-9]{1,3}))?)?");
  std::smatch match;
  if (!std::regex_match(text, match, kPattern)) return std::nullopt;
  const auto number = [&match](std::size_t group) { return match[group].matched ? std::stoi(match[group]) : 0; };
  constexpr std::int64_t kMinutes = 60;
  AskedMoment moment;
  moment.sinceFirst = match[4].matched;
  const std::int64_t seconds = (number(5) * kMinutes + number(6)) * kMinutes + number(7);
  moment.milliseconds = seconds * kMillisecondsPerSecond + (match[8].matched ? MillisecondsOf(match[8]) : 0);
  if (number(6) >= kMinutes || number(7) >= kMinutes) return std::nullopt;
  if (!moment.sinceFirst && moment.milliseconds >= kMillisecondsPerDay) return std::nullopt;
  if (match[1].matched) {
    moment.date = DateTime{number(1), number(2), number(3), 0, 0, 0, 0};
    if (!Exists(*moment.date)) return std::nullopt;
  }
  return moment;
}

std::optional<std::int64_t> FirstMoment(const PointClock& clock, const TimeZone& zone) {
  const auto day = clock.FirstDate();
  const auto time = clock.FirstOfDay();
  if (!day || !time) return std::nullopt;
  return UtcMilliseconds(*day, static_cast<std::int64_t>(*time), zone);
}

std::optional<double> SinceFirstPoint(const AskedMoment& moment, const PointClock& clock, const TimeZone& zone) {
  if (moment.sinceFirst) return static_cast<double>(moment.milliseconds);
  const auto first = FirstMoment(clock, zone);
  if (!first) return std::nullopt;
  DateTime day = *clock.FirstDate();
  if (moment.date) {
    day = *moment.date;
  } else if (static_cast<double>(moment.milliseconds) < *clock.FirstOfDay()) {
    day = DaysAfter(day, 1);
  }
  return static_cast<double>(UtcMilliseconds(day, moment.milliseconds, zone) - *first);
}

PointRange PointsBetween(std::optional<double> from, std::optional<double> to, const PointClock& clock) {
  // Moments are whole milliseconds, while a point may lie between two: half of one is as good as the moment.
  constexpr double kHalf = 0.5;
  PointRange range;
  if (from) range.first = std::max<std::int64_t>(1, static_cast<std::int64_t>(std::ceil(clock.PointAt(*from - kHalf))));
  if (to) range.last = static_cast<std::int64_t>(std::floor(clock.PointAt(*to + kHalf)));
  return range;
}

}  // namespace chartproject
