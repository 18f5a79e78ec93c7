// Texts to points; a range that cannot be is refused with the range that can.
#include "host/arguments/range_options.h"

#include <algorithm>

#include "acquire/dialog/input_rules.h"
#include "backends/posix/posix_time_zone.h"
#include "common/values/text.h"
#include "host/arguments/arguments.h"
#include "host/arguments/command.h"
#include "texts/texts.h"

namespace chartproject {
namespace {

/// A range that begins after the last point. A first line that is not a point is worth a look at the whole file.
void RefuseOutside(ChartView& view, const PointRange& range, Language language) {
  const bool begins = range.first == 1 || !view.HasPoints() ||
                      (range.first <= kMostPoints && view.PointAlone(range.first).RowCount() > 0);
  if (begins) return;
  const std::int64_t held = view.Source().Count({}).value_or(PointCount{}).lastLine - view.FirstLine() + 1;
  if (range.first <= held) return;
  throw RefusedError(FillIn(TextIn(language, Text::kRangeOutside),
                            {std::to_string(std::max<std::int64_t>(0, held)), std::to_string(range.first)}));
}

}  // namespace

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

PointRange RangeOptions::Resolve(ChartView& view, Language language) const {
  const auto refuse = [language](Text text) { throw RefusedError(std::string(TextIn(language, text))); };
  if (!first_.empty() && !from_.empty()) refuse(Text::kRangeTwoBeginnings);
  if (!points_.empty() && !to_.empty()) refuse(Text::kRangeTwoEnds);
  PointRange range;
  if (!from_.empty() || !to_.empty()) {
    const PointClock& clock = view.Facts().Clock();
    range = PointsBetween(Moment(from_, "--from", clock, language), Moment(to_, "--to", clock, language), clock);
  }
  if (!first_.empty()) range.first = ParseNumber(first_, "--first", 1, kMostPoints);
  if (!points_.empty()) range.last = range.first + ParseNumber(points_, "--points", 1, kMostPoints) - 1;
  if (range.last < range.first) refuse(Text::kRangeEmpty);
  RefuseOutside(view, range, language);
  return range;
}

std::optional<double> RangeOptions::Moment(const std::string& text, const std::string& option, const PointClock& clock,
                                           Language language) const {
  if (text.empty()) return std::nullopt;
  const auto refuse = [&](Text reason) {
    throw RefusedError(FillIn(TextIn(language, reason), {option, VisibleText(text)}));
  };
  const auto moment = ParseMoment(text);
  if (!moment) refuse(Text::kRangeNotATime);
  if (!clock.Known()) refuse(Text::kRangeNoInterval);
  const auto since = SinceFirstPoint(*moment, clock, PosixTimeZone());
  if (!since) refuse(Text::kRangeNoStart);
  return since;
}

}  // namespace chartproject
