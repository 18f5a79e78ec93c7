// The eight chart types as pictures, beside stored ones. Texts are grey blocks of a fixed size, so that no font
// matters. With CHARTPROJECT_UPDATE_IMAGES=1 in the environment the stored pictures are rewritten; look at them
// then.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "backends/qt/qt_canvas.h"
#include "chart/picture/chart_scene.h"

namespace chartproject {
namespace {

constexpr Size kSize = {360, 220};
/// Surfaces differ in the last shades of their edges: a pixel counts from this difference of one of its colours on.
constexpr int kNoticed = 60;
constexpr double kMostNoticedShare = 0.004;

class BlockTextCanvas : public QtCanvas {
 public:
  using QtCanvas::QtCanvas;
  void DrawText(std::string_view text, PointF at, const Font& font, Color /*color*/, Align align) override {
    const Size size = MeasureText(text, font);
    const double share = align == Align::kLeft ? 0 : align == Align::kCenter ? 0.5 : 1;
    FillRect({std::round(at.x - share * size.width), at.y + 2, size.width, size.height - 4}, {170, 170, 160});
  }
  [[nodiscard]] Size MeasureText(std::string_view text, const Font& font) const override {
    return {std::round(static_cast<double>(text.size()) * font.points * 0.75), std::round(font.points * 1.6)};
  }
};

ChartModel ModelOf(int kind) {
  ChartModel model;
  model.kind = static_cast<ChartKind>(kind);
  model.legendVisible = false;
  model.backdrop = {255, 255, 230};
  model.frame = FrameStyle::kDouble;
  model.wallPen = 6;
  model.categoryScale = {false, 1, 1, true};
  model.rowCount = 25;
  for (int s = 0; s < 4; ++s) {
    ChartSeries series{.label = {}, .values = {}, .color = kSeriesColors[static_cast<std::size_t>(s)]};
    for (int row = 0; row < model.rowCount; ++row) {
      series.values.push_back(20 + 12 * s + 35 * std::sin(row * 0.3 + s * 1.3) + (row * 7 + s) % 5);
    }
    series.values[6 + 4 * static_cast<std::size_t>(s)] = std::numeric_limits<double>::quiet_NaN();
    series.showMarker = s % 2 == 0;
    model.series.push_back(std::move(series));
  }
  return model;
}

QImage Render(const ChartModel& model) {
  QImage image(static_cast<int>(kSize.width), static_cast<int>(kSize.height), QImage::Format_RGB32);
  QPainter painter(&image);
  BlockTextCanvas canvas(painter, kSize);
  PaintChart(model, {}, canvas);
  return image;
}

double NoticedShare(const QImage& one, const QImage& other) {
  int noticed = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const QRgb a = one.pixel(x, y);
      const QRgb b = other.pixel(x, y);
      const int most =
          std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
      noticed += most >= kNoticed ? 1 : 0;
    }
  }
  return static_cast<double>(noticed) / (one.width() * one.height());
}

class ChartImage : public ::testing::TestWithParam<int> {};

TEST_P(ChartImage, LooksAsStored) {
  const QString name = QString("chart_type_%1.png").arg(GetParam());
  const QString stored = QString(CHARTPROJECT_SOURCE_DIR "/tests/qt/images/") + name;
  const QImage drawn = Render(ModelOf(GetParam()));
  if (std::getenv("CHARTPROJECT_UPDATE_IMAGES") != nullptr) {
    ASSERT_TRUE(drawn.save(stored));
  }
  const QImage expected(stored);
  ASSERT_EQ(expected.size(), drawn.size()) << stored.toStdString();
  const double share = NoticedShare(expected, drawn);
  if (share > kMostNoticedShare) drawn.save(QString(CHARTPROJECT_BINARY_DIR "/") + name);
  EXPECT_LE(share, kMostNoticedShare) << "drawn picture: " CHARTPROJECT_BINARY_DIR "/" << name.toStdString();
}

/// Pixels of a series' own hue, in any tone of it.
int PixelsOf(Color series, const QImage& image) {
  const int hue = QColor(series.red, series.green, series.blue).hue();
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      count += pixel.saturation() > 120 && std::abs(pixel.hue() - hue) < 12 ? 1 : 0;
    }
  }
  return count;
}

TEST_P(ChartImage, NoneOfFourDenseSeriesHidesAnother) {
  std::uint32_t seed = 7;
  const auto random = [&seed] { return (seed = seed * 1664525 + 1013904223) >> 16; };
  for (const bool nested : {false, true}) {  // noise of one height, or the later within the earlier
    ChartModel model = ModelOf(GetParam());
    model.rowCount = 32750;
    model.categoryScale = {false, 1310, 1310, true};
    for (std::size_t s = 0; s < model.series.size(); ++s) {
      model.series[s].showMarker = false;
      model.series[s].values.clear();
      for (int row = 0; row < model.rowCount; ++row) {
        model.series[s].values.push_back(nested ? 10.0 * (4 - s) + random() % 8 : random() % 1000);
      }
    }
    const QImage image = Render(model);
    for (const ChartSeries& series : model.series) {
      EXPECT_GT(PixelsOf(series.color, image), 300) << series.color.red << " " << series.color.green << nested;
    }
  }
}

TEST_P(ChartImage, OnePointIsSeen) {
  ChartModel model = ModelOf(GetParam());
  model.rowCount = 1;
  for (ChartSeries& series : model.series) {
    series.values = {50};
    series.showMarker = false;
  }
  model.series.resize(1);
  EXPECT_GE(PixelsOf(model.series[0].color, Render(model)), 12);
}

INSTANTIATE_TEST_SUITE_P(Types, ChartImage, ::testing::Range(0, 8));

}  // namespace
}  // namespace chartproject
