// Time to work out and paint a chart of 1280x720, and of 1920x1080 with lanes, times, the whole of a long recording:
// how it grows with the points (it must not), with each type, and with noise, the hardest picture to draw. Painted on
// an image in memory, as the windows are.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <random>

#include "backends/qt/qt_canvas.h"
#include "chart/file/envelope.h"
#include "chart/live/live_points.h"
#include "chart/picture/chart_scene.h"
#include "chart/picture/overview_scene.h"

namespace chartproject {
namespace {

constexpr Size kSize = {1280, 720};

/// Four series: slow waves with a little noise as drives have them, or noise alone.
ChartModel ModelOf(int kind, int rows, bool noise) {
  std::mt19937 generator(7);  // NOLINT(cert-msc51-cpp): the same points in every run
  const auto random = [&] { return static_cast<double>(generator() % 10000) / 10000.0; };
  ChartModel model;
  model.kind = static_cast<ChartKind>(kind);
  model.legendVisible = false;
  model.backdrop = {255, 255, 230};
  model.categoryScale = {false, rows / 25, rows / 25, true};
  model.rowCount = rows;
  for (int s = 0; s < 4; ++s) {
    ChartSeries series{.label = {}, .values = {}, .color = kSeriesColors[static_cast<std::size_t>(s)]};
    for (int row = 0; row < rows; ++row) {
      const double wave = 30 * std::sin(6.28 * (1 + s * 0.5) * row / rows + s);
      series.values.push_back(noise ? 1000 * random() : 60 + 20 * s + wave + 6 * random());
    }
    model.series.push_back(std::move(series));
  }
  return model;
}

void PaintOnce(benchmark::State& state, int kind, int rows, bool noise) {
  const ChartModel model = ModelOf(kind, rows, noise);
  QImage image(static_cast<int>(kSize.width), static_cast<int>(kSize.height), QImage::Format_ARGB32_Premultiplied);
  for (auto step : state) {
    QPainter painter(&image);
    QtCanvas canvas(painter, kSize);
    PaintChart(model, {}, canvas);
  }
}

void LineOfRows(benchmark::State& state) {
  PaintOnce(state, 3, static_cast<int>(state.range(0)), false);
}
void TypeOf32750Rows(benchmark::State& state) {
  PaintOnce(state, static_cast<int>(state.range(0)), 32750, false);
}
void TypeOf32750NoisyRows(benchmark::State& state) {
  PaintOnce(state, static_cast<int>(state.range(0)), 32750, true);
}

/// Four series of 32,750 points on a whole screen: the plain chart, a time of day over midnight, lanes, and both with a
/// range of values that cuts the series off. @param range of the state: 0 to 3
void WholeScreen(benchmark::State& state) {
  constexpr Size kScreen = {1920, 1080};
  const auto look = state.range(0);
  ChartModel model = ModelOf(static_cast<int>(state.range(1)), 32750, state.range(2) != 0);
  model.lanes = look >= 2;
  if (look == 1 || look == 3) {
    model.categoryUnit = CategoryUnit::kTimeOfDay;
    model.rowTimes = {{0, 80e6}, {10000, 81e6}, {32749, 90e6}};
    model.dateText = [](std::int64_t day) { return "2026-11-" + std::to_string(22 + day); };
  }
  for (ChartSeries& series : model.series) {
    series.axisTitle = "Motor speed, rpm";
    if (look == 3) series.range = ValueRange{70, 90, false};
  }
  QImage image(static_cast<int>(kScreen.width), static_cast<int>(kScreen.height), QImage::Format_ARGB32_Premultiplied);
  for (auto step : state) {
    QPainter painter(&image);
    QtCanvas canvas(painter, kScreen);
    PaintChart(model, {}, canvas);
  }
}

/// As many blocks as an envelope ever has, of noisy waves.
Envelope LongEnvelope() {
  std::mt19937 generator(7);  // NOLINT(cert-msc51-cpp): the same blocks in every run
  Envelope envelope;
  envelope.Restart(kColumnCount);
  for (std::size_t block = 0; block + 1 < Envelope::kMostBlocks; ++block) {
    RowExtremes extremes;
    for (std::size_t s = 0; s < extremes.size(); ++s) {
      const double wave = 30 * std::sin(static_cast<double>(block) / 1e4 + static_cast<double>(s));
      extremes[s] = {wave - static_cast<double>(generator() % 10), wave + static_cast<double>(generator() % 10)};
    }
    envelope.Add(extremes);
  }
  return envelope;
}

/// The strip under the chart, out of the blocks of a recording of any length.
void Strip(benchmark::State& state) {
  constexpr Size kStrip = {1920, 64};
  const Envelope envelope = LongEnvelope();
  OverviewModel model;
  model.points = envelope.Lines();
  model.colors.assign(kSeriesColors.begin(), kSeriesColors.begin() + kColumnCount);
  model.range = [&](int series, std::int64_t first, std::int64_t end) {
    const Extremes extremes = envelope.Over(series, first, end);
    return ValueRange{extremes.least, extremes.greatest, extremes.Empty()};
  };
  model.label = [](std::int64_t point) { return std::to_string(point); };
  QImage image(static_cast<int>(kStrip.width), static_cast<int>(kStrip.height), QImage::Format_ARGB32_Premultiplied);
  for (auto step : state) {
    QPainter painter(&image);
    QtCanvas canvas(painter, kStrip);
    BuildOverview(model, kStrip, canvas).scene.Paint(canvas);
  }
}

/// A point of a recording in the dialog: the chart of the last points, worked out and painted. @param range of the
/// state: points before it
void LivePoint(benchmark::State& state) {
  constexpr Size kArea = {700, 260};
  LivePoints points;
  points.Restart(4);
  std::int32_t point = 0;
  const auto take = [&] {
    ++point;
    points.Take(point, {std::sin(point * 0.1), std::cos(point * 0.1), point % 7 * 1.0, 3}, {point % 50 == 0});
  };
  while (point < state.range(0)) take();
  QImage image(static_cast<int>(kArea.width), static_cast<int>(kArea.height), QImage::Format_ARGB32_Premultiplied);
  for (auto step : state) {
    take();
    QPainter painter(&image);
    QtCanvas canvas(painter, kArea);
    PaintChart(points.Model(), {}, canvas);
  }
}

BENCHMARK(LivePoint)->Arg(0)->Arg(1000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(Strip)->Unit(benchmark::kMillisecond);
BENCHMARK(WholeScreen)
    ->ArgNames({"look", "type", "noise"})
    ->ArgsProduct({{0, 1, 2, 3}, {3, 2}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(LineOfRows)->Arg(25)->Arg(250)->Arg(2500)->Arg(32750)->Unit(benchmark::kMillisecond);
BENCHMARK(TypeOf32750Rows)->DenseRange(0, 7)->Unit(benchmark::kMillisecond);
BENCHMARK(TypeOf32750NoisyRows)->DenseRange(0, 7)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace chartproject

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
