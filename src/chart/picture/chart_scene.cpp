// Putting a chart together.
#include "chart/picture/chart_scene.h"

#include <algorithm>
#include <cmath>

#include "chart/picture/chart_frame.h"
#include "chart/picture/chart_layout.h"
#include "chart/picture/series/failed_rows.h"
#include "chart/picture/series/flat_series.h"
#include "chart/picture/series/series_path.h"
#include "chart/picture/series/solid_series.h"

namespace chartproject {

std::optional<int> ChartScene::RowAt(PointF at) const {
  const Rect& front = plot.front;
  const Rect reach{front.x, front.y - plot.depthY, front.width, front.height + plot.depthY};
  if (plot.rows <= 0 || !reach.Contains(at)) return std::nullopt;
  return std::min(plot.rows - 1, static_cast<int>((at.x - front.x) / plot.RowWidth()));
}

ChartScene BuildChartScene(const ChartModel& model, Size size, const Canvas& canvas, const NumberFormat& format) {
  const ChartLayout layout = LayOutChart(model, size, canvas, format);
  ChartScene chart{.size = size, .font = layout.font, .plot = layout.plot, .scene = {}};
  constexpr double kDenseColumn = 3;
  if (Is3d(model.kind) && IsDense(chart.plot, kDenseColumn)) chart.plot.depthRows = RowsByHeight(model);
  DrawChartBackground(model, layout, size, chart.scene);
  DrawFailedRows(model, chart.plot, chart.scene);
  Is3d(model.kind) ? DrawSolidSeries(model, chart.plot, chart.scene) : DrawFlatSeries(model, chart.plot, chart.scene);
  DrawChartAxes(model, layout, size, canvas, chart.scene);
  return chart;
}

void PaintChart(const ChartModel& model, const NumberFormat& format, Canvas& canvas) {
  BuildChartScene(model, canvas.Extent(), canvas, format).scene.Paint(canvas);
}

Bitmap DrawPicture(const ChartModel& model, const NumberFormat& format, Size size, double scale,
                   PictureRenderer& renderer) {
  return renderer.Render(size, scale, [&](Canvas& canvas) { PaintChart(model, format, canvas); });
}

}  // namespace chartproject
