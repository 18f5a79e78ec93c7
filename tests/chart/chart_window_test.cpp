// Small parts of the chart window that no session reaches: places on any day, the window over a page being printed.
#include "chart/chart_window_fixture.h"
#include "chart/window/find_forms.h"
#include "chart/window/status_form.h"

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

TEST_F(ChartWindowTest, TheStatusIsAWindowInTheMiddleOfTheScreenUntilItIsEmpty) {
  StatusForm status(component);
  status.ShowText("Printing ...");
  EXPECT_EQ(status.Controls().front()->Caption() + "|" + status.Caption(), "Printing ...|Kestrel v5.60");
  EXPECT_TRUE(status.IsShown());
  EXPECT_EQ(status.Pointer(), MousePointer::kHourglass);
  EXPECT_EQ(2 * status.Left() + status.Width(), fakes.forms.ScreenSize().width);
  EXPECT_EQ(2 * status.Top() + status.Height(), fakes.forms.ScreenSize().height);
  status.ShowText("");
  EXPECT_FALSE(status.IsLoaded());
  EXPECT_EQ(status.Pointer(), MousePointer::kDefault);
}

}  // namespace
}  // namespace chartproject
