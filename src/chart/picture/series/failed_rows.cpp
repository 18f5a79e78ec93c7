// Bands and strips over the back wall.
#include "chart/picture/series/failed_rows.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "chart/picture/series/series_style.h"

namespace chartproject {
namespace {

constexpr Color kBandColor{220, 30, 30, 46};
constexpr double kStripHeight = 4.0;
constexpr double kLeastWidth = 1.0;  ///< a single point of thousands is seen, too

/// A rectangle of the front plane, moved to the back wall.
void FillOnWall(const Plot& plot, const Rect& box, Color color, Scene& scene) {
  const PointF corner = plot.At({box.x, box.y}, plot.depthX > 0 ? 1 : 0);
  scene.FillRect({corner.x, corner.y, box.width, box.height}, color);
}

/// The rows' places in whole pixels; bands that touch are one, so that their tones do not add up.
std::vector<Rect> BandsOf(std::vector<RowRange> ranges, const Plot& plot) {
  std::ranges::sort(ranges, {}, &RowRange::first);
  std::vector<Rect> bands;
  for (const RowRange& range : ranges) {
    const double left = std::floor(plot.Edge(range.first));
    const double right =
        std::min(std::max(std::ceil(plot.Edge(range.last + 1)), left + kLeastWidth), plot.front.Right());
    if (!bands.empty() && left <= bands.back().Right()) {
      bands.back().width = std::max(bands.back().width, right - bands.back().x);
    } else {
      bands.push_back({left, plot.front.y, right - left, plot.front.height});
    }
  }
  return bands;
}

}  // namespace

void DrawFailedRows(const ChartModel& model, const Plot& plot, Scene& scene) {
  std::vector<RowRange> any;
  for (const ChartSeries& series : model.series) any.insert(any.end(), series.failed.begin(), series.failed.end());
  if (any.empty()) return;
  for (const Rect& band : BandsOf(std::move(any), plot)) FillOnWall(plot, band, kBandColor, scene);
  double top = plot.front.y;
  for (const ChartSeries& series : model.series) {
    if (series.failed.empty()) continue;
    for (const Rect& band : BandsOf(series.failed, plot)) {
      FillOnWall(plot, {band.x, top, band.width, kStripHeight},
                 IsFaint(series.color, model.backdrop) ? EdgeTone(series.color) : series.color, scene);
    }
    top += kStripHeight + 1;
  }
}

}  // namespace chartproject
