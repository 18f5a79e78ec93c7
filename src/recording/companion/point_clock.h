// The time of each point of a recording: since the first point, and of the day.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/locale.h"
#include "recording/companion/point_times.h"
#include "recording/file/chart_header.h"

namespace chartproject {

inline constexpr std::int64_t kMillisecondsPerDay = 86'400'000;

/// Seconds between two points from the header's scan time; nothing when it cannot be read.
[[nodiscard]] std::optional<double> ScanSeconds(const ChartHeader& header, const NumberFormat& format);

/// A point and its moment, in milliseconds; points may lie between two of the file.
struct ClockKnot {
  double point = 0;
  double milliseconds = 0;
  friend bool operator==(const ClockKnot&, const ClockKnot&) = default;
};

/// By the recorded pace where the recording did not keep the one that was asked for, else by scan time times points.
/// Points are counted from 1; the times of day of a file's rows are whole seconds, too coarse for either.
class PointClock {
 public:
  PointClock() = default;
  /// @param times the recorded pace; null where the points came as asked. @param locale wrote the header's dates; it
  /// outlives the clock
  PointClock(const ChartHeader& header, const PointTimes* times, const Locale& locale);

  /// False when the file does not say how far its points are apart: then no other answer means anything.
  [[nodiscard]] bool Known() const noexcept { return knots_.size() > 1; }
  /// Milliseconds since the first point. Before and after the known points the nearest piece goes on.
  [[nodiscard]] double ElapsedAt(double point) const;
  /// The (broken) number of the point at so many milliseconds since the first one.
  [[nodiscard]] double PointAt(double elapsed) const;
  /// Points `first` to `last` and the ends of the pieces between them: between two knots points are evenly spaced.
  [[nodiscard]] std::vector<ClockKnot> Knots(double first, double last) const;

  /// Milliseconds from midnight to the first point; nothing when the header's start time cannot be read.
  [[nodiscard]] std::optional<double> FirstOfDay() const noexcept { return firstOfDay_; }
  /// The day of the first point; nothing when the header's start date cannot be read.
  [[nodiscard]] std::optional<DateTime> FirstDate() const noexcept { return firstDate_; }
  /// The date of a day, counted from 0 for that of the first point, as the user writes dates; "+1 d" where the header's
  /// date cannot be read.
  [[nodiscard]] std::string DateText(std::int64_t day) const;

 private:
  std::vector<ClockKnot> knots_;
  std::optional<double> firstOfDay_;
  std::optional<DateTime> firstDate_;
  const Locale* locale_ = nullptr;
};

}  // namespace chartproject
