// Whole charts: layout at all sizes, painting order, shapes, and the cost of painting.
#include "chart/picture/chart_scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "chart/picture/series/series_style.h"
#include "chart/recording_canvas.h"

namespace chartproject {
namespace {

using testing::RecordingCanvas;

ChartModel ModelOf(int kind, std::vector<std::vector<double>> columns, int division = 1) {
  ChartModel model;
  model.kind = static_cast<ChartKind>(kind);
  model.legendVisible = false;
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

/// Of 100 x 100 pixels; its axis goes from -10 to 10.
Plot PlotOf(int rows) {
  return {.front = {10, 20, 100, 100},
          .rows = rows,
          .axis = {.mantissa = 1, .exponent = 1, .firstTick = -1, .lastTick = 1}};
}

TEST(Plot, MovesAlongItsDepthAndDrawsWhatIsBeyondAnyScaleAtItsLimit) {
  Plot plot = PlotOf(4);
  plot.depthX = 40;
  plot.depthY = 20;
  EXPECT_EQ(plot.At({10, 20}, 0.5), (PointF{30, 10}));
  plot.axis = {.mantissa = 1, .exponent = 307, .firstTick = -1, .lastTick = 1};
  EXPECT_EQ(plot.Y(std::numeric_limits<double>::max()), 20);
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
