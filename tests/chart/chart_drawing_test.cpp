// What is drawn of charts, shape by shape, held against texts that were read.
#include <gtest/gtest.h>

#include <limits>

#include "chart/chart_words.h"
#include "chart/picture/chart_scene.h"
#include "chart/picture/overview_scene.h"
#include "chart/picture/series/series_style.h"
#include "chart/recording_canvas.h"
#include "chart/window/control/chart_overlay.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

ChartModel ModelOf(int kind, const std::vector<std::vector<double>>& columns) {
  ChartModel model;
  model.kind = static_cast<ChartKind>(kind);
  model.legendVisible = false;
  model.categoryScale = {false, 1, 1, true};
  model.rowCount = static_cast<int>(columns.at(0).size());
  for (const auto& column : columns) {
    model.series.push_back({.label = "S" + std::to_string(model.series.size() + 1),
                            .values = column,
                            .color = kSeriesColors[model.series.size()],
                            .axisTitle = "Speed"});
  }
  return model;
}

/// Triangles of whole numbers, so that nothing hangs on the last digit of a sine.
std::vector<double> Saw(int rows, int period, int height, int phase) {
  std::vector<double> values;
  for (int row = 0; row < rows; ++row) values.push_back((row * 7 + phase) % period * height / period - height / 3);
  return values;
}

std::string Drawn(const ChartModel& model, Size size) {
  testing::RecordingCanvas canvas(size);
  PaintChart(model, {}, canvas);
  return testing::InWords(canvas.drawn);
}

TEST(ChartDrawing, EachTypeWithGapsMarkersAndFailedRows) {
  Transcript transcript("chart_types");
  for (int kind = 0; kind < kChartKindCount; ++kind) {
    ChartModel model = ModelOf(kind, {{3, -4, kGap, 6}, {1, 2, 5, kGap}, {kGap, -2, 2, 2}, {0, 4, 4, 1}});
    model.series[0].failed = {{1, 1}, {3, 3}};
    for (ChartSeries& series : model.series) series.showMarker = kind % 4 >= 2;
    model.series[3].showLine = false;
    model.categoryGrid = model.valueGrid = model.secondValueGrid = kind / 4;
    transcript.Step("type " + std::to_string(kind));
    transcript.Add(Drawn(model, {200, 120}));
    if (!Is3d(model.kind)) continue;
    transcript.Step("the lower series with more points, type " + std::to_string(kind));
    transcript.Add(Drawn(ModelOf(kind, {{9, kGap, kGap, kGap}, {3, 3, 3, 3}, {kGap, kGap, kGap, kGap}}), {120, 90}));
  }
}

TEST(ChartDrawing, EachTypeWithMorePointsThanPixels) {
  Transcript transcript("chart_dense");
  for (int kind = 0; kind < kChartKindCount; ++kind) {
    std::vector<double> gaps = Saw(300, 90, 40, 11);
    std::fill(gaps.begin() + 100, gaps.begin() + 160, kGap);
    ChartModel model = ModelOf(kind, {Saw(300, 60, 60, 0), gaps, std::vector<double>(300, 8)});
    model.series[0].failed = {{20, 90}, {150, 150}};
    model.series[0].showMarker = true;
    model.series[2].showMarker = true;
    model.series[2].showLine = false;
    model.categoryScale = {false, 12, 12, true};
    transcript.Step("type " + std::to_string(kind));
    transcript.Add(Drawn(model, {64, 60}));
  }
}

TEST(ChartDrawing, RestlessAreasFarFromZeroAndAroundIt) {
  Transcript transcript("chart_areas");
  std::vector<double> high = Saw(300, 90, 40, 11);
  std::vector<double> low = Saw(300, 60, 50, 7);
  for (double& value : high) value += 70;
  for (double& value : low) value -= 60;
  for (const bool line : {true, false}) {
    ChartModel model = ModelOf(5, {high, low, Saw(300, 31, 30, 3)});
    for (ChartSeries& series : model.series) series.showLine = line;
    transcript.Step(line ? "with lines" : "without lines");
    transcript.Add(Drawn(model, {80, 90}));
  }
}

TEST(ChartDrawing, AxesTitlesLegendLanesRangesAndSmallSizes) {
  Transcript transcript("chart_frames");
  const ChartModel plain = ModelOf(3, {{10, 40, 20}, {1, -1, 0}});
  const auto step = [&](const char* title, Size size, const std::function<void(ChartModel&)>& change) {
    ChartModel model = plain;
    change(model);
    transcript.Step(title);
    transcript.Add(Drawn(model, size));
  };
  const auto titles = [](ChartModel& model) {
    model.title = "Trend";
    model.categoryTitle = "Points";
    model.valueTitle = "Values";
    model.legendVisible = true;
    model.frame = FrameStyle::kDouble;
    model.wallPen = 6;
    model.backdrop = {255, 255, 230};
  };
  const auto times = [](ChartModel& model) {
    model.categoryUnit = CategoryUnit::kTimeOfDay;
    model.rowTimes = {{0, 86'398'000}, {2, 86'402'000}};
    model.dateText = [](std::int64_t day) { return "day " + std::to_string(day); };
    model.lanes = true;
  };
  step("titles, legend, double frame", {320, 200}, titles);
  step("the same in space", {320, 200}, [&](ChartModel& model) {
    titles(model);
    model.kind = ChartKind::k3dArea;
  });
  for (const Size size : {Size{150, 100}, Size{90, 60}}) {
    step("less and less room", size, titles);
    step("less and less room, lanes", size, times);
  }
  step("single frame, no backdrop, dashed and dotted grids", {200, 120}, [](ChartModel& model) {
    model.frame = FrameStyle::kSingle;
    model.backdropFilled = false;
    model.categoryGrid = 2;
    model.valueGrid = 3;
    model.secondValueGrid = 0;
    model.wallPen = 0;
  });
  step("lanes and times over midnight", {240, 160}, times);
  step("a fixed range, one series hidden", {200, 120}, [](ChartModel& model) {
    model.valueRange = ValueRange{15, 30, false};
    model.series[1].visible = false;
  });
  step("a lane with a range", {200, 160}, [](ChartModel& model) {
    model.lanes = true;
    model.series[1].range = ValueRange{-0.5, 0.25, false};
  });
  step("nothing visible", {200, 120}, [](ChartModel& model) {
    for (ChartSeries& series : model.series) series.visible = false;
  });
  step("divisions chosen by the chart", {200, 120}, [](ChartModel& model) {
    model.categoryScale = {};
    model.rowCount = 40;
    model.series.resize(1);
    model.series[0].values = Saw(40, 30, 3000000, 0);
    model.firstRowLabel = 999'990;
  });
}

TEST(ChartDrawing, TheStripOfAWholeRecordingAndTheFrameInIt) {
  Transcript transcript("chart_strip");
  OverviewModel model;
  model.points = 1000;
  model.colors = {kSeriesColors[0], kSeriesColors[1]};
  model.backdrop = {255, 255, 230};
  model.range = [](int series, std::int64_t first, std::int64_t end) {
    if (series == 1 && first > 300 && first < 700) return ValueRange();
    return ValueRange{static_cast<double>(first % 400), static_cast<double>(end % 400 + 50 * series), false};
  };
  for (const bool labels : {false, true}) {
    if (labels) model.label = [](std::int64_t point) { return std::to_string(point) + " s"; };
    for (const Size size : {Size{40, 30}, Size{90, 40}}) {
      const testing::RecordingCanvas canvas(size);
      const OverviewScene strip = BuildOverview(model, size, canvas);
      transcript.Step("strip " + testing::InWords(strip.plot));
      transcript.Add(testing::InWords(strip.scene));
      for (const auto& [first, end] :
           {std::pair(0, 25), std::pair(400, 600), std::pair(999, 1000), std::pair(0, 1000)}) {
        transcript.Add("frame " + std::to_string(first) + " to " + std::to_string(end));
        transcript.Add(testing::InWords(BuildOverviewFrame(model, strip, first, end)));
      }
    }
  }
}

TEST(ChartDrawing, OverlaysWithAndWithoutRoom) {
  Transcript transcript("chart_overlays");
  for (const int kind : {1, 2, 3}) {
    for (const Size size : {Size{200, 120}, Size{150, 74}, Size{96, 60}}) {
      ChartModel model = ModelOf(kind, {{3, -4, kGap, 6}, {1, 2, 5, kGap}});
      model.lanes = kind == 3;
      if (kind == 2) model.valueRange = ValueRange{0, 4, false};
      const testing::RecordingCanvas canvas(size);
      const ChartScene chart = BuildChartScene(model, size, canvas, {});
      for (int row = 0; row < 4; ++row) {
        ChartOverlay overlay{.pointerRow = row,
                             .cursorRows = {3 - row, row / 2},
                             .readout = {{"Point " + std::to_string(row + 1)}, {"3", row / 2}},
                             .cursorReadout = {{"2 points"}, {"P1", -1, {"8", "15"}}},
                             .markRow = row,
                             .markText = "mark"};
        if (row == 3) overlay.readout.clear();
        if (row == 2) overlay.box = Rect{50, 20, 30, 10};
        transcript.Step("type " + std::to_string(kind) + ", width " + testing::Half(size.width) + ", row " +
                        std::to_string(row));
        transcript.Add(testing::InWords(BuildOverlay(overlay, model, chart, canvas)));
      }
    }
  }
}

TEST(ChartDrawing, ColoursThatAreHardToSeeOnAGround) {
  Transcript transcript("chart_colours");
  for (const int ground : {0, 40, 128, 230, 255}) {
    const Color behind = {static_cast<std::uint8_t>(ground), static_cast<std::uint8_t>(ground), 100};
    std::string line = testing::InWords(behind) + ":";
    for (const Color full : {Color{255, 255, 255}, Color{255, 0, 0}, Color{0, 255, 0}, Color{0, 0, 255}}) {
      bool faint = false;
      for (int level = 0; level < 256; ++level) {
        const Color color = Darker(full, 1 - level / 255.0);
        if (IsFaint(color, behind) != faint) line += " " + testing::InWords(color);
        faint = IsFaint(color, behind);
      }
      line += " |";
    }
    transcript.Add(line + ' ' + testing::InWords(Lighter(behind, 0.3)) + ' ' + testing::InWords(EdgeTone(behind)));
  }
}

}  // namespace
}  // namespace chartproject
