// Tones and markers of series.
#include "chart/picture/series/series_style.h"

#include <array>
#include <cmath>

#include "chart/picture/geometry/decimation.h"

namespace chartproject {
namespace {

/// Least contrast between a line and the ground at which the line is easy to see. Ratio of relative luminances as the
/// Web Content Accessibility Guidelines define it, 1 to 21.
constexpr double kLeastContrast = 2.0;

std::uint8_t Mix(std::uint8_t from, int to, double share) noexcept {
  return static_cast<std::uint8_t>(std::lround(from + (to - from) * share));
}

double Luminance(Color color) noexcept {
  const auto linear = [](std::uint8_t level) {
    const double share = level / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

void DrawMarker(int shape, PointF at, double size, Color color, Scene& scene) {
  const double r = size / 2;
  const Pen edge{.color = EdgeTone(color), .width = 1};
  switch (shape % 4) {
    case 0:
      scene.Ellipse({at.x - r, at.y - r, size, size}, color, edge);
      break;
    case 1:
      scene.Polygon(
          std::array<PointF, 4>{
              {{at.x - r, at.y - r}, {at.x + r, at.y - r}, {at.x + r, at.y + r}, {at.x - r, at.y + r}}},
          color, edge);
      break;
    case 2:
      scene.Polygon(
          std::array<PointF, 3>{
              {{at.x, at.y - r * 1.15}, {at.x + r * 1.15, at.y + r * 0.85}, {at.x - r * 1.15, at.y + r * 0.85}}},
          color, edge);
      break;
    default:
      scene.Polygon(
          std::array<PointF, 4>{
              {{at.x, at.y - r * 1.25}, {at.x + r * 1.25, at.y}, {at.x, at.y + r * 1.25}, {at.x - r * 1.25, at.y}}},
          color, edge);
  }
}

/// Markers as the only sign of the points: in each narrow column the least and the greatest, one when they touch.
void DrawDenseMarkers(const ChartSeries& series, int shape, const Plot& plot, const MarkerPlace& place, Scene& scene) {
  constexpr double kSize = 4;
  const int columns = std::max(1, static_cast<int>(plot.front.width / kSize));
  for (int step = 0; step < columns; ++step) {
    const ValueRange range = ColumnRange(series.values, step, columns);
    if (range.empty) continue;
    const double x = plot.front.x + (step + 0.5) * plot.front.width / columns + place.shiftX;
    const double low = plot.Y(range.minimum);
    const double high = plot.Y(range.maximum);
    DrawMarker(shape, plot.At({x, low}, place.depth), kSize, series.color, scene);
    if (low - high > kSize / 2) DrawMarker(shape, plot.At({x, high}, place.depth), kSize, series.color, scene);
  }
}

}  // namespace

Color Lighter(Color color, double share) noexcept {
  return {Mix(color.red, 255, share), Mix(color.green, 255, share), Mix(color.blue, 255, share), color.alpha};
}

Color Darker(Color color, double share) noexcept {
  return {Mix(color.red, 0, share), Mix(color.green, 0, share), Mix(color.blue, 0, share), color.alpha};
}

Color WithAlpha(Color color, int alpha) noexcept {
  color.alpha = static_cast<std::uint8_t>(alpha);
  return color;
}

bool IsFaint(Color color, Color ground) noexcept {
  const double one = Luminance(color) + 0.05;
  const double other = Luminance(ground) + 0.05;
  return std::max(one, other) / std::min(one, other) < kLeastContrast;
}

Color EdgeTone(Color color) noexcept {
  return Darker(color, 0.45);
}

void DrawMarkers(const ChartModel& model, int column, const Plot& plot, const MarkerPlace& place, Scene& scene) {
  const ChartSeries& series = model.series[static_cast<std::size_t>(column)];
  if (!series.showMarker || plot.rows == 0) return;
  const int shape = series.shape >= 0 ? series.shape : column;
  const double size = std::min(plot.front.width, plot.front.height) < 150 ? 5 : 7;
  const double distance = size + 1;  // every point has its marker unless markers would overlap
  const bool pointsShow =
      series.showLine || Flat(model.kind) == ChartKind::k2dBar || Flat(model.kind) == ChartKind::k2dArea;
  if (!pointsShow && plot.RowWidth() < size) {
    DrawDenseMarkers(series, shape, plot, place, scene);
    return;
  }
  const auto stride = pointsShow ? std::max(std::int64_t{1}, std::int64_t(std::ceil(distance / plot.RowWidth()))) : 1;
  std::int64_t row = (stride - model.firstRowLabel % stride) % stride;
  for (; row < plot.rows; row += stride) {
    const double value = series.values[static_cast<std::size_t>(row)];
    if (!std::isfinite(value)) continue;
    const PointF at{plot.X(static_cast<int>(row)) + place.shiftX, plot.Y(value)};
    DrawMarker(shape, plot.At(at, place.depth), size, series.color, scene);
  }
}

}  // namespace chartproject
