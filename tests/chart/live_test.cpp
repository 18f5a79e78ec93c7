// The chart of the last points: as many as fit, moved on by whole divisions, failed readings shaded, values in figures.
#include <gmock/gmock.h>

#include "chart/live/live_chart_control.h"
#include "chart/recording_canvas.h"
#include "forms/form.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::Contains;

TEST(LivePointsTest, GrowsThenMovesOnByADivision) {
  LivePoints points;
  points.Restart(1);
  // Points taken; first label, rows, points a division, number of values.
  const std::tuple<int, int, int, int, int> steps[] = {
      {1, 1, 25, 1, 1},        {25, 1, 25, 1, 25},      {26, 1, 50, 2, 26},
      {101, 1, 250, 10, 101},  {500, 1, 500, 20, 500},  {501, 21, 500, 20, 481},
      {520, 21, 500, 20, 500}, {521, 41, 500, 20, 481}, {9'999, 9'501, 500, 20, 499}};
  int taken = 0;
  for (const auto& [count, first, rows, perDivision, values] : steps) {
    while (taken < count) {
      ++taken;
      points.Take(taken, {static_cast<double>(taken)}, {taken % 100 < 3});
      points.Take(taken, {-1}, {});  // the same point again
    }
    const ChartModel model = points.Model();
    EXPECT_EQ(model.firstRowLabel, first) << count;
    EXPECT_EQ(model.rowCount, rows) << count;
    EXPECT_EQ(model.categoryScale.divisionsPerLabel, perDivision) << count;
    EXPECT_EQ(std::ranges::count_if(model.series[0].values, [](double value) { return value > 0; }), values) << count;
    EXPECT_EQ(model.series[0].values[static_cast<std::size_t>(values) - 1], count);
  }
  const auto shaded = points.Model().series[0].failed;
  ASSERT_EQ(shaded.size(), 5U);
  EXPECT_EQ(shaded[1].first, 99);  // point 9,600
  EXPECT_EQ(shaded[1].last, 101);
}

TEST(LiveChartTest, ShowsTheLastValuesAndPaintsNoMoreOftenThanAScreenShows) {
  FakePorts fakes;
  FakePlant plant;
  Component component{fakes.ports, fakes.forms, plant};
  component.language = Language::kEnglish;
  auto& parameters = component.parameterTables.At(2).parameters;
  parameters[3].name = "Motor speed";
  parameters[3].text5 = "rpm";
  Form form(fakes.forms, "frmTest", {});
  LiveChartControl chart(form, component);
  chart.SetVisible(true);
  chart.Begin(2, std::array<std::int16_t, 2>{3, 5});
  testing::RecordingCanvas canvas{{600, 300}};
  chart.Take(1, {"08:00:00", {"1500", "7"}}, {});
  chart.Paint(canvas);
  EXPECT_THAT(canvas.Texts(), Contains("P003 Motor speed = 1500 rpm"));
  chart.Take(2, {"08:00:01", {"1501", "--"}}, {false, true});
  testing::RecordingCanvas narrow{{220, 300}};
  chart.Paint(narrow);
  EXPECT_THAT(narrow.Texts(), Contains("P003 = 1501 rpm"));
  EXPECT_THAT(narrow.Texts(), Contains("P005 = \u2013"));
  EXPECT_EQ(chart.SpokenWords(), "Chart of the last points; P003 Motor speed 1501 rpm; P005 \u2013 ");
}

}  // namespace
}  // namespace chartproject
