// A whole chart, worked out for a size: the picture and the place of every row in it.
#pragma once

#include <optional>
#include <vector>

#include "chart/picture/geometry/chart_model.h"
#include "chart/picture/geometry/plot.h"
#include "chart/picture/geometry/scene.h"
#include "forms/picture_renderer.h"
#include "platform/locale.h"

namespace chartproject {

/// Series that share a value axis.
struct SceneLane {
  Plot plot;
  std::vector<int> series;  ///< columns of the model, in the order of drawing
};

struct ChartScene {
  Size size;
  Font font;                     ///< of the labels
  Plot plot;                     ///< over all lanes: for the place of rows
  std::vector<SceneLane> lanes;  ///< from top to bottom, one at least
  Scene scene;

  /// The row whose slot holds a point of the plot (its depth included); nothing outside it.
  [[nodiscard]] std::optional<int> RowAt(PointF at) const;
};

/// The lane whose value axis, left of its plot, is at a point; null for a point that is not over an axis.
[[nodiscard]] const SceneLane* ValueAxisAt(const std::vector<SceneLane>& lanes, PointF at);

/// Works the chart out; `canvas` only measures texts. The same model, size and measures give the same scene. The cost
/// of painting it follows the size, not the number of rows.
[[nodiscard]] ChartScene BuildChartScene(const ChartModel& model, Size size, const Canvas& canvas,
                                         const NumberFormat& format);

/// Works out and paints in one go, over the whole canvas.
void PaintChart(const ChartModel& model, const NumberFormat& format, Canvas& canvas);

/// The chart as a picture. @param size in pixels of the screen; @param scale dots to the pixel, more than 1 for paper
[[nodiscard]] Bitmap DrawPicture(const ChartModel& model, const NumberFormat& format, Size size, double scale,
                                 PictureRenderer& renderer);

}  // namespace chartproject
