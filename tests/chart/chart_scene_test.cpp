// Whole charts: layout at all sizes, painting order, shapes, and the cost of painting; lines, steps and bars of a plot.
#include "chart/picture/chart_scene.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <set>

#include "chart/picture/chart_layout.h"
#include "chart/picture/series/series_path.h"
#include "chart/picture/series/series_style.h"
#include "chart/recording_canvas.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;
using testing::RecordingCanvas;

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();
constexpr Color kPaleYellow = {255, 255, 230};

ChartModel ModelOf(int kind, std::vector<std::vector<double>> columns, int division = 1) {
  ChartModel model;
  model.kind = static_cast<ChartKind>(kind);
  model.legendVisible = false;
  model.backdrop = kPaleYellow;
  model.categoryScale = {false, division, division, true};
  model.rowCount = columns.empty() ? 0 : static_cast<int>(columns[0].size());
  for (auto& column : columns) {
    model.series.push_back({.label = {}, .values = std::move(column), .color = kSeriesColors[model.series.size() % 4]});
  }
  return model;
}

std::vector<double> Wave(int rows, double height, double phase) {
  std::vector<double> values;
  values.reserve(static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) values.push_back(height * std::sin(row * 0.37 + phase));
  return values;
}

ChartScene Build(const ChartModel& model, Size size = {640, 360}) {
  return BuildChartScene(model, size, RecordingCanvas(size), {});
}

/// Fills of the shapes that show a series: all of a tone of its colour.
std::vector<Color> Fills(const ChartScene& chart, const std::set<SceneShape::Kind>& kinds) {
  std::vector<Color> fills;
  for (const SceneShape& shape : chart.scene.Shapes()) {
    const bool tinted = shape.fill.red != shape.fill.green || shape.fill.green < shape.fill.blue;
    if (kinds.contains(shape.kind) && tinted) fills.push_back(shape.fill);
  }
  return fills;
}

int CountPolylines(const ChartScene& chart, Color color) {
  int count = 0;
  for (const SceneShape& shape : chart.scene.Shapes()) {
    count += shape.kind == SceneShape::Kind::kPolyline && shape.pen.color == color ? 1 : 0;
  }
  return count;
}

std::size_t PointCount(const ChartScene& chart) {
  std::size_t count = 0;
  for (const SceneShape& shape : chart.scene.Shapes()) count += 1 + shape.count;
  return count;
}

class EveryType : public ::testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Types, EveryType, ::testing::Range(0, 8));

TEST_P(EveryType, TextsNeverOverlapAtAnySizeAndData) {
  std::vector<ChartModel> models = {
      ModelOf(GetParam(), {Wave(25, 100, 0), Wave(25, 60, 1), Wave(25, 30, 2), Wave(25, 10, 3)}),
      ModelOf(GetParam(), {Wave(32750, 1e-9, 0)}, 1310), ModelOf(GetParam(), {{1e300, -1e300}}),
      ModelOf(GetParam(), {{32767000}}), ModelOf(GetParam(), {})};
  models[1].firstRowLabel = 1999967251;
  models[2].title = "Trend";
  models[2].categoryTitle = "Points";
  models[2].valueTitle = "Value";
  models[2].legendVisible = true;
  models[2].series[0].label = "P003";
  models.push_back(models[0]);
  models.back().lanes = true;
  models.back().categoryUnit = CategoryUnit::kTimeOfDay;
  models.back().rowTimes = {{0, 86390000}, {24, 86414000}};
  models.back().dateText = [](std::int64_t day) { return "day " + std::to_string(day); };
  for (ChartSeries& series : models.back().series) series.axisTitle = "Motor speed, rpm";
  for (const ChartModel& model : models) {
    for (const Size size : {Size{120, 90}, Size{200, 90}, Size{121, 333}, Size{320, 200}, Size{640, 360},
                            Size{1280, 720}, Size{2500, 1400}}) {
      const RecordingCanvas canvas(size);
      const ChartScene chart = Build(model, size);
      std::vector<Rect> boxes;
      for (const SceneText& text : chart.scene.Texts()) {
        const Rect box = canvas.BoxOf(text);
        EXPECT_GE(std::min(box.x, box.y), 0) << text.text << " at " << size.width;
        EXPECT_LE(box.Right(), size.width) << text.text;
        EXPECT_LE(box.Bottom(), size.height) << text.text << " at " << size.width;
        for (const Rect& other : boxes) {
          EXPECT_FALSE(box.x < other.Right() && other.x < box.Right() && box.y < other.Bottom() &&
                       other.y < box.Bottom())
              << text.text << " at " << size.width << "x" << size.height;
        }
        boxes.push_back(box);
      }
      EXPECT_GT(chart.plot.front.width, size.width * 0.4);
      EXPECT_GT(chart.plot.front.height, size.height * 0.3);
    }
  }
}

TEST_P(EveryType, ShapesStayInsideTheChart) {
  const ChartScene chart = Build(ModelOf(GetParam(), {Wave(25, 100, 0), {Wave(25, 60, 1)}, Wave(25, 1e300, 2)}));
  for (const SceneShape& shape : chart.scene.Shapes()) {
    for (const PointF& point : chart.scene.Points(shape)) {
      EXPECT_GE(std::min(point.x, point.y), 0) << point.x << " " << point.y;
      EXPECT_LE(point.x, 640);
      EXPECT_LE(point.y, 360);
    }
  }
}

TEST_P(EveryType, CostFollowsPixelsNotPoints) {
  const auto chartOf = [&](int rows) {
    ChartModel model = ModelOf(GetParam(), {Wave(rows, 100, 0), Wave(rows, 90, 1)}, rows / 25);
    for (ChartSeries& series : model.series) series.showMarker = true;
    return Build(model);
  };
  const std::size_t few = PointCount(chartOf(8000));
  const std::size_t many = PointCount(chartOf(400000));
  EXPECT_LT(many, 30000U);
  EXPECT_LT(static_cast<double>(many), 1.2 * static_cast<double>(few));
}

TEST_P(EveryType, GapsAloneDrawNoSeries) {
  const ChartScene chart = Build(ModelOf(GetParam(), {{kGap, kGap, kGap}}));
  EXPECT_THAT(Fills(chart, {SceneShape::Kind::kPolygon, SceneShape::Kind::kEllipse}),
              ::testing::Not(::testing::Contains(kSeriesColors[0])));
  EXPECT_EQ(CountPolylines(chart, kSeriesColors[0]), 0);
}

TEST(ChartScene, APointWithoutNeighboursIsADotAndSmallChartsHaveThinLines) {
  for (const auto& [size, width] : {std::pair(Size{640, 360}, 2.0), std::pair(Size{150, 100}, 1.0)}) {
    const ChartScene chart = Build(ModelOf(3, {{2, 2, kGap, 4, kGap}}), size);
    std::vector<Rect> dots;
    for (const SceneShape& shape : chart.scene.Shapes()) {
      if (shape.kind == SceneShape::Kind::kEllipse) dots.push_back(shape.box);
      const bool line = shape.kind == SceneShape::Kind::kPolyline && shape.pen.color == kSeriesColors[0];
      EXPECT_TRUE(!line || shape.pen.width == width) << shape.pen.width;
    }
    EXPECT_THAT(dots, ElementsAre(Rect{chart.plot.X(3) - 2.5, chart.plot.Y(4) - 2.5, 5, 5}));
  }
}

TEST(ChartScene, MarkersStayAtTheirPointsWhileTheRowsScroll) {
  const auto markedLabels = [](std::int64_t first) {
    ChartModel model = ModelOf(3, {std::vector<double>(250, 1.0)}, 10);
    model.firstRowLabel = first;
    model.series[0].showMarker = true;
    const ChartScene chart = Build(model);
    std::set<std::int64_t> labels;
    for (const SceneShape& shape : chart.scene.Shapes()) {
      if (shape.kind == SceneShape::Kind::kEllipse) {
        labels.insert(first + *chart.RowAt({shape.box.x + shape.box.width / 2, 100}));
      }
    }
    return labels;
  };
  const auto before = markedLabels(1);
  const auto after = markedLabels(4);
  EXPECT_GT(before.size(), 20U);
  for (const std::int64_t label : before) EXPECT_TRUE(label < 4 || after.contains(label)) << label;
}

TEST(ChartScene, FindsTheRowUnderAPoint) {
  const ChartScene chart = Build(ModelOf(3, {Wave(25, 1, 0)}));
  const Rect& front = chart.plot.front;
  EXPECT_EQ(chart.RowAt({front.x, front.y}), 0);
  EXPECT_EQ(chart.RowAt({chart.plot.X(7), front.y + 5}), 7);
  EXPECT_EQ(chart.RowAt({front.Right() - 0.01, front.y}), 24);
  EXPECT_EQ(chart.RowAt({front.Right(), front.y}), std::nullopt);
  EXPECT_EQ(chart.RowAt({front.x, front.Bottom()}), std::nullopt);
}

/// Of 100 x 100 pixels; its axis goes from -10 to 10.
Plot PlotOf(int rows) {
  return {.front = {10, 20, 100, 100},
          .rows = rows,
          .axis = {.mantissa = 1, .exponent = 1, .firstTick = -1, .lastTick = 1}};
}

TEST(SeriesPaths, ALineJoinsTheMiddlesOfTheSlotsAndAStepHoldsItsValueOverThem) {
  const ChartModel model = ModelOf(3, {{0, 10, kGap, -5}});
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
  const std::vector<SpanRun> runs = SeriesSpans(ModelOf(3, {values}).series[0], PlotOf(400), 1);
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_THAT(runs[0],
              ElementsAre(ColumnSpan{10, 11, 20, 120}, ColumnSpan{11, 12, 70, 70}, ColumnSpan{12, 13, 45, 70}));
  EXPECT_EQ(runs[1].size(), 96U);
  EXPECT_EQ(runs[1][0], (ColumnSpan{14, 15, 70, 70}));
}

TEST(SeriesSpans, AreOfTheWidthAskedFor) {
  const ChartModel model = ModelOf(3, {std::vector<double>(400, 0)});
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
  const std::vector<BarColumn> bars = DenseBars(ModelOf(3, {low, high}), PlotOf(300), 1);
  ASSERT_EQ(bars.size(), 100U);
  EXPECT_EQ(std::pair(bars[0].left, bars[0].right), std::pair(10.0, 11.0));
  ASSERT_EQ(bars[0].spans.size(), 2U);
  const BarSpan& tall = bars[0].spans[0];  // from 8 to -10; the other begins at zero
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

TEST_P(EveryType, LanesHaveAnAxisEachAndHiddenSeriesNeither) {
  ChartModel model = ModelOf(GetParam(), {{1, 2, 3}, {100, 300, 200}, {7, 7, 8}});
  const auto tops = [](const ChartScene& chart) {
    std::vector<double> maxima;
    for (const SceneLane& lane : chart.lanes) maxima.push_back(lane.plot.axis.Maximum());
    return maxima;
  };
  EXPECT_THAT(tops(Build(model)), ElementsAre(300));
  model.series[1].visible = false;
  EXPECT_THAT(tops(Build(model)), ElementsAre(8));
  model.lanes = true;
  const ChartScene lanes = Build(model);
  EXPECT_THAT(tops(lanes), ElementsAre(3, 8));
  EXPECT_THAT(lanes.lanes[1].series, ElementsAre(2));
  const Rect& upper = lanes.lanes[0].plot.front;
  const Rect& lower = lanes.lanes[1].plot.Reach();
  EXPECT_LT(upper.Bottom(), lower.y);
  EXPECT_EQ(upper.width, lanes.lanes[1].plot.front.width);
  EXPECT_EQ(ValueAxisAt(lanes.lanes, {upper.x - 1, upper.y + 1}), lanes.lanes.data());
  EXPECT_EQ(ValueAxisAt(lanes.lanes, {upper.x - 1, lower.Bottom() - 1}), &lanes.lanes[1]);
  EXPECT_EQ(ValueAxisAt(lanes.lanes, {upper.x + 1, upper.y + 1}), nullptr);
  for (ChartSeries& series : model.series) series.visible = false;
  EXPECT_TRUE(Fills(Build(model), {SceneShape::Kind::kRectangle, SceneShape::Kind::kPolygon}).empty());
}

TEST_P(EveryType, AFixedRangeKeepsSeriesInsideThePlot) {
  ChartModel model = ModelOf(GetParam(), {{-5, 1e300, 12.5, 3}});
  model.valueRange = ValueRange{2.25, 13, false};
  const ChartScene chart = Build(model);
  EXPECT_EQ(chart.lanes[0].plot.Y(2.25), chart.plot.front.Bottom());
  EXPECT_EQ(chart.lanes[0].plot.Y(13), chart.plot.front.y);
  bool clipped = false;
  for (const SceneShape& shape : chart.scene.Shapes()) {
    if (shape.kind == SceneShape::Kind::kClip) {
      EXPECT_EQ(shape.box.height, chart.plot.Reach().height);
      clipped = true;
    }
    if (shape.kind == SceneShape::Kind::kUnclip) clipped = false;
    for (const PointF& point : chart.scene.Points(shape)) {
      EXPECT_TRUE(clipped || point.y >= 0) << point.y;
      EXPECT_LT(std::abs(point.y), 5000);
    }
  }
}

}  // namespace
}  // namespace chartproject
