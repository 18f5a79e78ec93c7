// Lines, steps and bars in a plot of 100 x 100 pixels whose axis goes from -10 to 10.
#include "chart/series_path.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <limits>

namespace chartproject {
namespace {

using ::testing::ElementsAre;

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

Plot PlotOf(int rows) {
  return {.front = {10, 20, 100, 100},
          .rows = rows,
          .axis = {.mantissa = 1, .exponent = 1, .firstTick = -1, .lastTick = 1}};
}

ChartModel ModelOf(std::vector<std::vector<double>> columns) {
  ChartModel model;
  model.rowCount = static_cast<int>(columns[0].size());
  for (auto& column : columns) model.series.push_back({.label = {}, .values = std::move(column), .color = {}});
  return model;
}

TEST(SeriesPaths, ALineJoinsTheMiddlesOfTheSlotsAndAStepHoldsItsValueOverThem) {
  const ChartModel model = ModelOf({{0, 10, kGap, -5}});
  EXPECT_THAT(SeriesPaths(model.series[0], ChartKind::k2dLine, PlotOf(4)),
              ElementsAre(Path{{22.5, 70}, {47.5, 20}}, Path{{97.5, 95}}));
  EXPECT_THAT(SeriesPaths(model.series[0], ChartKind::k3dStep, PlotOf(4)),
              ElementsAre(Path{{10, 70}, {35, 70}, {35, 20}, {60, 20}}, Path{{85, 95}, {110, 95}}));
}

TEST(SeriesSpans, CoverTheExtremesOfTheirColumnsAndTouch) {
  std::vector<double> values(400, 0);  // four rows a pixel column
  values[1] = 10;
  values[2] = -10;
  std::fill(values.begin() + 8, values.begin() + 12, 5.0);    // column 2 lies above column 1: it reaches down to it
  std::fill(values.begin() + 12, values.begin() + 16, kGap);  // column 3
  values[17] = kGap;                                          // too small a gap to show
  const std::vector<SpanRun> runs = SeriesSpans(ModelOf({values}).series[0], PlotOf(400), 1);
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_THAT(runs[0],
              ElementsAre(ColumnSpan{10, 11, 20, 120}, ColumnSpan{11, 12, 70, 70}, ColumnSpan{12, 13, 45, 70}));
  EXPECT_EQ(runs[1].size(), 96U);
  EXPECT_EQ(runs[1][0], (ColumnSpan{14, 15, 70, 70}));
}

TEST(SeriesSpans, AreOfTheWidthAskedFor) {
  const ChartModel model = ModelOf({std::vector<double>(400, 0)});
  EXPECT_EQ(SeriesSpans(model.series[0], PlotOf(400), 2.5)[0].size(), 40U);
  EXPECT_TRUE(IsDense(PlotOf(101), 1));
  EXPECT_FALSE(IsDense(PlotOf(100), 1));
}

TEST(PlaceBars, GroupsStandInTheMiddleOfTheirSlots) {
  const Plot plot = PlotOf(4);
  const BarPlace place = PlaceBars(plot, 3);  // 25 pixels a slot, 20 % of it free
  EXPECT_EQ(place.width, 6);
  EXPECT_EQ((std::array{place.Left(plot, 0, 0), place.Left(plot, 0, 2), place.Left(plot, 3, 0)}),
            (std::array{14.0, 26.0, 89.0}));
  EXPECT_EQ(PlaceBars(PlotOf(50), 4).width, 0) << "too thin to stand side by side";
}

TEST(DenseBars, TheTallestComesFirstInEveryPixelColumn) {
  std::vector<double> low(300, 2);
  std::vector<double> high(300, 8);
  high[1] = -10;
  low[299] = kGap;
  const std::vector<BarColumn> bars = DenseBars(ModelOf({low, high}), PlotOf(300), 1);
  ASSERT_EQ(bars.size(), 100U);
  EXPECT_EQ(std::pair(bars[0].left, bars[0].right), std::pair(10.0, 11.0));
  ASSERT_EQ(bars[0].spans.size(), 2U);
  const BarSpan& tall = bars[0].spans[0];  // from 8 to -10; the other stands on zero
  const BarSpan& small = bars[0].spans[1];
  EXPECT_EQ(std::tuple(tall.column, tall.top, tall.bottom), std::tuple(1, 30, 120));
  EXPECT_EQ(std::tuple(small.column, small.top, small.bottom), std::tuple(0, 60, 70));
}

TEST(Plot, MovesAlongItsDepthAndDrawsWhatIsBeyondAnyScaleAtItsLimit) {
  Plot plot = PlotOf(4);
  plot.depthX = 40;
  plot.depthY = 20;
  EXPECT_EQ(plot.At({10, 20}, 0.5), (PointF{30, 10}));
  plot.axis = {.mantissa = 1, .exponent = 307, .firstTick = -1, .lastTick = 1};
  EXPECT_EQ(plot.Y(std::numeric_limits<double>::max()), 20);
}

}  // namespace
}  // namespace chartproject
