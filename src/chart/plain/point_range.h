// Part of a recording: from one point to another, by their numbers or by time.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "platform/time_zone.h"
#include "recording/companion/point_clock.h"

namespace chartproject {

/// Points by their numbers, counted from 1 as the chart window counts them: a line after the rows' mark each.
struct PointRange {
  std::int64_t first = 1;
  std::int64_t last = std::numeric_limits<std::int64_t>::max();  ///< included; may be after the recording's end

  [[nodiscard]] bool HasEnd() const noexcept { return last != PointRange{}.last; }
  /// Of a range that has an end.
  [[nodiscard]] std::int64_t Count() const noexcept { return last - first + 1; }
  [[nodiscard]] bool IsAll() const noexcept { return *this == PointRange{}; }
  friend bool operator==(const PointRange&, const PointRange&) = default;
};

/// A moment as the user wrote it: a time of day, with or without its date, or a time since the first point.
struct AskedMoment {
  std::optional<DateTime> date;   ///< the day; hour and below are 0
  std::int64_t milliseconds = 0;  ///< since midnight, or since the first point
  bool sinceFirst = false;
};

/// Reads "2026-01-31 14:05:00" (or with a "T" between), "14:05", "14:05:30.5", or "+01:30:00" since the first point;
/// seconds may have up to three decimals, after a full stop or comma. Nothing for any other text.
[[nodiscard]] std::optional<AskedMoment> ParseMoment(const std::string& text);

/// Milliseconds since 1970-01-01 00:00 UTC of a recording's first point; nothing when its header does not say.
[[nodiscard]] std::optional<std::int64_t> FirstMoment(const PointClock& clock, const TimeZone& zone);

/// Milliseconds from the first point of a recording to a moment; before it negative. A time of day without a date is
/// the first one at or after the first point. Nothing when the file does not say when it began.
[[nodiscard]] std::optional<double> SinceFirstPoint(const AskedMoment& moment, const PointClock& clock,
                                                    const TimeZone& zone);

/// The points at or after `from` and at or before `to`, both in milliseconds since the first point; one that is missing
/// does not limit. The range is empty (last before first) when no point lies between.
/// @param clock is known
[[nodiscard]] PointRange PointsBetween(std::optional<double> from, std::optional<double> to, const PointClock& clock);

}  // namespace chartproject
