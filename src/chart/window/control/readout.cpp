// Readings of points as lines of text.
#include "chart/window/control/readout.h"

#include <cmath>

#include "common/environment/language.h"
#include "common/values/measured_text.h"
#include "common/values/numbers.h"
#include "recording/companion/point_clock.h"

namespace chartproject {
namespace {

constexpr const char* kNoReading = "--";

std::string ValueText(double value, const NumberFormat& format) {
  return std::isnan(value) ? kNoReading : DoubleText(value, format);
}

/// A difference, free of the digits that subtracting decimals in binary brings along.
std::string DifferenceText(double from, double to, const NumberFormat& format) {
  if (std::isnan(from) || std::isnan(to)) return kNoReading;
  constexpr double kFinest = 1e9;
  const double difference = std::round((to - from) * kFinest) / kFinest;
  return (difference > 0 ? "+" : "") + DoubleText(difference + 0.0, format);
}

std::string TimeBetween(std::int64_t first, std::int64_t second, const ChartHeader& header, const PointTimes* times,
                        const NumberFormat& format) {
  if (times != nullptr) {
    const double from = times->ElapsedAt(static_cast<double>(first));
    return TimeText((times->ElapsedAt(static_cast<double>(second)) - from) / 1000, format);
  }
  const auto scan = ScanSeconds(header, format);
  return scan ? TimeText(*scan * static_cast<double>(second - first), format) : kNoReading;
}

/// The value at a cursor; one that was not read is marked, as there is no room for its reason.
std::string CursorValueText(const PointReading& point, std::size_t series, const NumberFormat& format) {
  const bool failed = series < point.failures.size() && !point.failures[series].empty();
  return ValueText(point.values[series], format) + (failed ? "!" : "");
}

}  // namespace

PointReading ReadPoint(const Slice& slice, int row, std::int32_t firstLine, int series) {
  const auto at = static_cast<std::size_t>(row);
  PointReading point{std::int64_t{1} + row + slice.startLine - firstLine, slice.times.at(at), {}};
  for (int column = 0; column < series; ++column) {
    point.values.push_back(slice.values.at(static_cast<std::size_t>(column)).at(at));
  }
  return point;
}

std::vector<ReadoutLine> PointReadout(const Environment& environment, const PointReading& point,
                                      const std::vector<std::string>& names) {
  const NumberFormat& format = environment.ports.locale.Numbers();
  std::vector<ReadoutLine> lines;
  lines.push_back({FillIn(LoadMessage(environment, Text::kReadoutPoint),
                          {std::to_string(point.number), environment.ports.codePage.Decode(point.time)})});
  for (std::size_t s = 0; s < point.values.size() && s < names.size(); ++s) {
    const std::string value = ValueText(point.values[s], format);
    const bool failed = s < point.failures.size() && !point.failures[s].empty();
    const std::string shown =
        failed ? FillIn(LoadMessage(environment, Text::kValueNotRead), {value, point.failures[s]}) : value;
    lines.push_back({names[s] + ": " + shown, static_cast<int>(s)});
  }
  return lines;
}

std::vector<ReadoutLine> CursorReadout(const Environment& environment, const ChartHeader& header,
                                       const std::array<std::optional<PointReading>, 2>& cursors,
                                       const std::vector<std::string>& names, const PointTimes* times) {
  const NumberFormat& format = environment.ports.locale.Numbers();
  std::vector<ReadoutLine> lines;
  for (std::size_t which = 0; which < cursors.size(); ++which) {
    if (!cursors[which]) continue;
    const std::string time = environment.ports.codePage.Decode(cursors[which]->time);
    lines.push_back({FillIn(LoadMessage(environment, Text::kCursorPoint),
                            {std::to_string(which + 1), std::to_string(cursors[which]->number), time})});
  }
  if (!cursors[0] || !cursors[1]) return lines;
  const PointReading& first = *cursors[0];
  const PointReading& second = *cursors[1];
  const std::int64_t points = second.number - first.number;
  const std::string time = TimeBetween(first.number, second.number, header, times, format);
  lines.push_back({FillIn(LoadMessage(environment, Text::kCursorDifference), {std::to_string(points), time})});
  for (std::size_t s = 0; s < first.values.size() && s < second.values.size() && s < names.size(); ++s) {
    lines.push_back({names[s] + ": " + CursorValueText(first, s, format) + " -> " + CursorValueText(second, s, format) +
                         " (" + DifferenceText(first.values[s], second.values[s], format) + ")",
                     static_cast<int>(s)});
  }
  return lines;
}

}  // namespace chartproject
