// Places in a recording on any day, which no session in the chart window reaches.
#include "chart/chart_window_fixture.h"
#include "chart/window/find_forms.h"

namespace chartproject {
namespace {

TEST_F(ChartWindowTest, PlacesAreNumbersDurationsAndTimesOfDayOnAnyDay) {
  ChartHeader header;
  header.ScanTime = "500";
  header.Unit = "ms";
  header.StartTime = "23:59:50";
  const std::string first = fakes.locale.DateText({.year = 2026, .month = 11, .day = 30});
  header.StartDate = first;
  const PointClock clock(header, nullptr, fakes.locale);
  const std::string second = fakes.locale.DateText({.year = 2026, .month = 12, .day = 1});
  using enum CategoryUnit;
  const std::tuple<CategoryUnit, std::string, std::optional<std::int64_t>> cases[] = {
      {kPoints, " 12 ", 12},
      {kPoints, "1.5", std::nullopt},
      {kElapsed, "10", 21},
      {kElapsed, "00:01:00.5", 122},
      {kElapsed, "1:2", std::nullopt},
      {kTimeOfDay, "23:59:51", 3},
      {kTimeOfDay, "00:00:10", 41},
      {kTimeOfDay, second + " 00:00:10", 41},
      {kTimeOfDay, first + " 00:00:00", -172779},
      {kTimeOfDay, "10", std::nullopt}};
  for (const auto& [unit, text, point] : cases) EXPECT_EQ(PlaceOf(text, unit, clock, fakes.locale), point) << text;
}

}  // namespace
}  // namespace chartproject
