// The chart of the last points: as many as fit, moved on by whole divisions, failed readings shaded, values in figures.
#include <gtest/gtest.h>

#include "chart/chart_words.h"
#include "chart/live/live_chart_control.h"
#include "chart/recording_canvas.h"
#include "forms/form.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

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
  Transcript transcript("chart_live");
  const auto paint = [&](const std::string& step, Size size) {
    testing::RecordingCanvas canvas{size};
    chart.Paint(canvas);
    transcript.Step(step);
    transcript.Add(testing::InWords(canvas.drawn) + chart.SpokenWords());
  };
  chart.Take(1, {"08:00:00", {"1500", "7"}}, {});
  paint("a point", {600, 300});
  chart.Take(2, {"08:00:01", {"1501", "--"}}, {false, true});
  paint("a failed reading, no room", {220, 300});
  chart.Take(3, {"08:00:02", {"1502", "8"}}, {});
  paint("less room", {90, 300});
}

}  // namespace
}  // namespace chartproject
