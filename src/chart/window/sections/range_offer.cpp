// Ranges and their texts.
#include "chart/window/sections/range_offer.h"

#include <algorithm>

#include "common/environment/language.h"

namespace chartproject {

std::optional<PointRange> CursorRange(const ChartControl& chart) {
  const auto first = chart.CursorLabel(MeasuringCursor::kFirst);
  const auto second = chart.CursorLabel(MeasuringCursor::kSecond);
  if (!first || !second) return std::nullopt;
  return PointRange{std::min(*first, *second), std::max(*first, *second)};
}

std::vector<RangeEntry> OfferRanges(const Environment& environment, const ChartView& view, const ChartControl& chart) {
  std::vector<RangeEntry> entries;
  const auto shown = view.ShownRange();
  if (!shown) return entries;
  const auto add = [&](Text text, const PointRange& range) {
    entries.push_back(
        {FillIn(LoadMessage(environment, text), {std::to_string(range.first), std::to_string(range.last)}), range});
  };
  entries.push_back({FillIn(LoadMessage(environment, Text::kRangeAll), {std::to_string(view.Points())}), {}});
  if (*shown != PointRange{1, view.Points()}) add(Text::kRangeVisible, *shown);
  if (const auto cursors = CursorRange(chart); cursors && *cursors != *shown) add(Text::kRangeCursors, *cursors);
  return entries;
}

}  // namespace chartproject
