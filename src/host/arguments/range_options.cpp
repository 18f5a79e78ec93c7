// Texts to points; a range that cannot be is refused with the range that can.
#include "host/arguments/range_options.h"

#include "acquire/dialog/input_rules.h"
#include "backends/posix/posix_time_zone.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"

namespace chartproject {

void RangeOptions::AddTo(CLI::App& command, const std::string& usual) {
  command.add_option("--first", first_, "first point, counted from 1 [default: 1]")->type_name("N");
  command.add_option("--points", points_, "so many points [default: " + usual + "]")->type_name("N");
  command
      .add_option("--from", from_,
                  "points from this time on: \"2026-01-31 14:05:00\", 14:05, or +00:10:00 after the first point")
      ->type_name("TIME");
  command.add_option("--to", to_, "points up to this time")->type_name("TIME");
}

bool RangeOptions::Given() const noexcept {
  return !first_.empty() || !points_.empty() || !from_.empty() || !to_.empty();
}

PointRange RangeOptions::Resolve(const PointClock& clock) const {
  if (!first_.empty() && !from_.empty()) throw RefusedError("--first and --from: both say where the points begin");
  if (!points_.empty() && !to_.empty()) throw RefusedError("--points and --to: both say where the points end");
  PointRange range;
  if (!from_.empty() || !to_.empty()) {
    range = PointsBetween(Moment(from_, "--from", clock), Moment(to_, "--to", clock), clock);
  }
  if (!first_.empty()) range.first = ParseNumber(first_, "--first", 1, kMostPoints);
  if (!points_.empty()) range.last = range.first + ParseNumber(points_, "--points", 1, kMostPoints) - 1;
  if (range.last < range.first) throw RefusedError("--from, --to: no point of the recording lies between");
  return range;
}

std::optional<double> RangeOptions::Moment(const std::string& text, const std::string& option,
                                           const PointClock& clock) const {
  if (text.empty()) return std::nullopt;
  const auto moment = ParseMoment(text);
  if (!moment) {
    throw RefusedError(option + ": \"" + text +
                       "\" is not a time; use for example \"2026-01-31 14:05:00\", 14:05:00 or +00:10:00");
  }
  if (!clock.Known()) throw RefusedError(option + ": the file does not say how far its points are apart");
  const auto since = SinceFirstPoint(*moment, clock, PosixTimeZone());
  if (!since) {
    throw RefusedError(option +
                       ": the file does not say when it was recorded; use for example +00:10:00, a time after "
                       "its first point");
  }
  return since;
}

}  // namespace chartproject
