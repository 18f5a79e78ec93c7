// Flat bars, lines, areas and steps.
#include "chart/picture/series/flat_series.h"

#include <array>
#include <cmath>

#include "chart/picture/series/column_layers.h"
#include "chart/picture/series/dense_lines.h"
#include "chart/picture/series/series_path.h"
#include "chart/picture/series/series_style.h"

namespace chartproject {
namespace {

constexpr double kLineWidth = 2.0;  ///< in a chart of some size; smaller ones have thinner lines
constexpr double kLeastOutlinedBarWidth = 4.0;
constexpr double kAreaPieceWidth = 8.0;
constexpr double kThinBarShade = 0.25;   ///< black in faint bars of one pixel
constexpr double kLeastDotRadius = 2.5;  ///< of a point without neighbours

void DrawBar(const ChartSeries& series, const Rect& bar, Color ground, Scene& scene) {
  if (!series.showLine || bar.width < kLeastOutlinedBarWidth) {
    // Too thin for an outline, a faint bar has a dark right edge; too thin for that, too, it is darker as a whole.
    const bool faint = IsFaint(series.color, ground);
    const bool edged = series.showLine && bar.width >= 2 && faint;
    if (edged) scene.FillRect({bar.Right() - 1, bar.y, 1, bar.height}, EdgeTone(series.color));
    const Color color = faint && bar.width < 2 ? Darker(series.color, kThinBarShade) : series.color;
    scene.FillRect({bar.x, bar.y, bar.width - (edged ? 1 : 0), bar.height}, color);
    return;
  }
  scene.Polygon(
      std::array<PointF, 4>{{{bar.x, bar.y}, {bar.Right(), bar.y}, {bar.Right(), bar.Bottom()}, {bar.x, bar.Bottom()}}},
      series.color, {.color = EdgeTone(series.color), .width = 1});
}

void DrawBars(const ChartModel& model, const Plot& plot, Scene& scene) {
  const int count = static_cast<int>(model.series.size());
  const BarPlace place = PlaceBars(plot, count);
  if (place.width < 1) {
    for (const BarColumn& bar : DenseBars(model, plot, 1)) {
      ColumnOfLayers layers(bar.left, bar.right, scene);
      for (auto span = bar.spans.rbegin(); span != bar.spans.rend(); ++span) {
        const Color color = model.series[static_cast<std::size_t>(span->column)].color;
        layers.Add(std::round(span->top), std::round(span->bottom), color);
      }
    }
  } else {
    const double base = plot.BaseY();
    for (int row = 0; row < plot.rows; ++row) {
      for (int column = 0; column < count; ++column) {
        const ChartSeries& series = model.series[static_cast<std::size_t>(column)];
        const double value = series.values[static_cast<std::size_t>(row)];
        if (!std::isfinite(value)) continue;
        const double y = plot.Y(value);
        DrawBar(series, {place.Left(plot, row, column), std::min(y, base), place.width, std::abs(y - base)},
                model.backdrop, scene);
      }
    }
  }
  for (int column = 0; column < count; ++column) {
    DrawMarkers(model, column, plot, {.shiftX = (column + 0.5) * place.width - place.group / 2}, scene);
  }
}

/// A point between two gaps has no line: it is drawn as a dot of the line's width.
void StrokePath(const Path& path, const Pen& pen, Scene& scene) {
  if (path.size() > 1) {
    scene.Polyline(path, pen);
    return;
  }
  const double r = std::max(kLeastDotRadius, pen.width * 0.75);
  scene.Ellipse({path[0].x - r, path[0].y - r, 2 * r, 2 * r}, pen.color, kNoPen);
}

void StrokeSeries(const std::vector<Path>& paths, Color color, Color ground, double width, Scene& scene) {
  if (IsFaint(color, ground)) {
    for (const Path& path : paths) {
      StrokePath(path, {.color = EdgeTone(color), .width = width + kFaintEdge}, scene);
    }
  }
  for (const Path& path : paths) StrokePath(path, {.color = color, .width = width}, scene);
}

/// The pieces of a path between the multiples of a width, with points added where it is cut.
std::vector<Path> CutAtMultiples(const Path& path, double width) {
  std::vector<Path> pieces(1, Path{path.front()});
  for (std::size_t i = 1; i < path.size(); ++i) {
    const PointF to = path[i];
    while (true) {
      const PointF from = pieces.back().back();
      const double cut = (std::floor(from.x / width) + 1) * width;
      if (cut >= to.x) break;
      const PointF between{cut, from.y + (to.y - from.y) * (cut - from.x) / (to.x - from.x)};
      pieces.back().push_back(between);
      pieces.push_back({between});
    }
    pieces.back().push_back(to);
  }
  return pieces;
}

/// In pieces that meet at whole pixels, where no joint shows: surfaces are slow with polygons of many long edges.
void FillArea(const std::vector<Path>& paths, Color color, double baseY, Scene& scene) {
  for (const Path& path : paths) {
    if (path.size() == 1) {
      scene.Line(path[0], {path[0].x, baseY}, {.color = WithAlpha(color, 2 * kAreaAlpha), .width = kLineWidth});
      continue;
    }
    for (Path& piece : CutAtMultiples(path, kAreaPieceWidth)) {
      const double left = piece.front().x;
      piece.push_back({piece.back().x, baseY});
      piece.push_back({left, baseY});
      scene.Polygon(piece, WithAlpha(color, kAreaAlpha), kNoPen);
    }
  }
}

void DrawLines(const ChartModel& model, const Plot& plot, Scene& scene) {
  const double width = std::clamp(std::min(plot.front.width, plot.front.height) / 120, 1.0, kLineWidth);
  std::vector<std::vector<Path>> paths;
  for (const ChartSeries& series : model.series) paths.push_back(SeriesPaths(series, model.kind, plot));
  for (std::size_t s = 0; model.kind == ChartKind::k2dArea && s < paths.size(); ++s) {
    FillArea(paths[s], model.series[s].color, plot.BaseY(), scene);
  }
  for (std::size_t s = 0; s < paths.size(); ++s) {
    const ChartSeries& series = model.series[s];
    if (series.showLine) StrokeSeries(paths[s], series.color, model.backdrop, width, scene);
  }
}

}  // namespace

void DrawFlatSeries(const ChartModel& model, const Plot& plot, Scene& scene) {
  if (model.kind == ChartKind::k2dBar) {
    DrawBars(model, plot, scene);
    return;
  }
  IsDense(plot, 1) ? DrawDenseLines(model, plot, scene) : DrawLines(model, plot, scene);
  for (std::size_t s = 0; s < model.series.size(); ++s) DrawMarkers(model, static_cast<int>(s), plot, {}, scene);
}

}  // namespace chartproject
