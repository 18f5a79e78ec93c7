// Time to work out and paint a chart of 1280x720: how it grows with the points (it must not), with each type, and with
// noise, the hardest picture to draw. Painted on an image in memory, as the windows are.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <random>

#include "backends/qt/qt_canvas.h"
#include "chart/picture/chart_scene.h"

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
