// Boxes, ribbons and slabs.
//
// The eye stands in front, to the right and above: of two faces that meet in the picture the one further right is the
// nearer one, and of two rows of depth the one in front. So painting from back to front, and in a row from left to
// right, always covers what is hidden.
#include "chart/picture/solid_series.h"

#include <array>
#include <cmath>

#include "chart/picture/series_path.h"
#include "chart/picture/series_style.h"

namespace chartproject {
namespace {

constexpr double kTopLight = 0.38;   ///< white in the top faces
constexpr double kSideShade = 0.34;  ///< black in the right faces

constexpr double kLeastOutlinedBarWidth = 4.0;
constexpr double kColumnWidth = 3.0;  ///< pixels of a column where rows are dense
/// Depth that the shapes leave free in their row, on each side.
constexpr double kRowMargin = 0.12;

struct Face {
  Plot const& plot;
  DepthSpan depth;

  /// The strip between two points of the front plane, drawn out in depth.
  [[nodiscard]] std::array<PointF, 4> Strip(PointF a, PointF b) const {
    return {plot.At(a, depth.front), plot.At(b, depth.front), plot.At(b, depth.back), plot.At(a, depth.back)};
  }
};

/// Faces that meet get an edge of their own colour: without it the ground shines through the joint.
Pen JointPen(Color color) {
  return {.color = color, .width = 0.8};
}

void DrawBox(const ChartSeries& series, const Rect& box, const Face& face, Scene& scene) {
  const bool outlined = series.showLine && box.width >= kLeastOutlinedBarWidth;
  const auto pen = [&](Color fill) {
    return outlined ? Pen{.color = EdgeTone(series.color), .width = 0.8} : JointPen(fill);
  };
  const PointF topLeft{box.x, box.y};
  const PointF topRight{box.Right(), box.y};
  const PointF bottomRight{box.Right(), box.Bottom()};
  const PointF bottomLeft{box.x, box.Bottom()};
  const Color top = Lighter(series.color, kTopLight);
  const Color side = Darker(series.color, kSideShade);
  scene.Polygon(face.Strip(topLeft, topRight), top, pen(top));
  if (box.height > 0) {
    scene.Polygon(face.Strip(topRight, bottomRight), side, pen(side));
    const auto at = [&](PointF point) { return face.plot.At(point, face.depth.front); };
    scene.Polygon(std::array{at(topLeft), at(topRight), at(bottomRight), at(bottomLeft)}, series.color,
                  pen(series.color));
  }
}

/// In each column the tallest bar is the body, and the fronts of all lie before every body: painted last, they meet
/// without a joint.
void DrawDenseBoxes(const ChartModel& model, const Plot& plot, const Face& face, Scene& scene) {
  const std::vector<BarColumn> bars = DenseBars(model, plot, kColumnWidth);
  for (const BarColumn& bar : bars) {
    const BarSpan& tallest = bar.spans.front();
    const Rect box{bar.left, tallest.top, bar.right - bar.left, tallest.bottom - tallest.top};
    DrawBox(model.series[static_cast<std::size_t>(tallest.column)], box, face, scene);
  }
  for (const BarColumn& bar : bars) {
    for (const BarSpan& span : bar.spans) {
      const PointF corner = plot.At({bar.left, span.top}, face.depth.front);
      scene.FillRect({corner.x, corner.y, bar.right - bar.left, span.bottom - span.top},
                     model.series[static_cast<std::size_t>(span.column)].color);
    }
  }
}

void DrawBoxes(const ChartModel& model, const Plot& plot, Scene& scene) {
  const int count = static_cast<int>(model.series.size());
  const BarPlace place = PlaceBars(plot, count);
  // A whole shift keeps the fronts' upright edges crisp.
  const double margin = plot.depthX > 0 ? std::round(kRowMargin * plot.depthX) / plot.depthX : 0;
  const Face face{plot, {margin, 1 - margin}};
  if (place.width < 1) {
    DrawDenseBoxes(model, plot, face, scene);
  } else {
    const double base = plot.BaseY();
    for (int row = 0; row < plot.rows; ++row) {
      for (int column = 0; column < count; ++column) {
        const ChartSeries& series = model.series[static_cast<std::size_t>(column)];
        const double value = series.values[static_cast<std::size_t>(row)];
        if (!std::isfinite(value)) continue;
        const double y = plot.Y(value);
        DrawBox(series, {place.Left(plot, row, column), std::min(y, base), place.width, std::abs(y - base)}, face,
                scene);
      }
    }
  }
  for (int column = 0; column < count; ++column) {
    DrawMarkers(model, column, plot, {(column + 0.5) * place.width - place.group / 2, face.depth.front}, scene);
  }
}

/// Light comes from above and the left: a rising top is lighter than a falling one, and an underside lies in shade.
Color StripTone(Color color, PointF a, PointF b, const Plot& plot) {
  const double run = b.x - a.x;
  const double rise = a.y - b.y;
  const double length = std::hypot(run, rise);
  if (length <= 0) return color;
  const bool seenFromAbove = rise * plot.depthX < run * plot.depthY;
  if (!seenFromAbove) return Darker(color, 0.25 + 0.2 * rise / length);
  return rise >= 0 ? Lighter(color, 0.22 + 0.2 * rise / length) : Darker(Lighter(color, 0.22), -0.3 * rise / length);
}

void DrawStrip(const ChartSeries& series, PointF a, PointF b, const Face& face, Scene& scene) {
  const Color tone = StripTone(series.color, a, b, face.plot);
  scene.Polygon(face.Strip(a, b), tone, JointPen(tone));
}

Path Moved(const Path& path, const Face& face) {
  Path moved;
  moved.reserve(path.size());
  for (const PointF& point : path) moved.push_back(face.plot.At(point, face.depth.front));
  return moved;
}

void DrawRibbon(const ChartSeries& series, const Path& path, const Face& face, Scene& scene) {
  for (std::size_t i = 1; i < path.size(); ++i) DrawStrip(series, path[i - 1], path[i], face, scene);
  if (path.size() == 1) {
    scene.Line(face.plot.At(path[0], face.depth.front), face.plot.At(path[0], face.depth.back),
               {.color = series.color, .width = 2});
  }
  scene.Polyline(Moved(path, face), {.color = EdgeTone(series.color), .width = 1});
}

/// A body between two paths whose points stand above each other.
struct Slab {
  Path upper;
  Path lower;

  void Add(double x, double top, double bottom) {
    upper.push_back({x, top});
    lower.push_back({x, bottom});
  }
};

void DrawSlab(const ChartSeries& series, const Slab& slab, const Face& face, Scene& scene) {
  for (std::size_t i = 1; i < slab.upper.size(); ++i) {
    DrawStrip(series, slab.lower[i - 1], slab.lower[i], face, scene);
    DrawStrip(series, slab.upper[i - 1], slab.upper[i], face, scene);
  }
  const Color side = Darker(series.color, kSideShade);
  scene.Polygon(face.Strip(slab.upper.back(), slab.lower.back()), side, JointPen(side));
  Path front = slab.upper;
  front.insert(front.end(), slab.lower.rbegin(), slab.lower.rend());
  scene.Polygon(Moved(front, face), series.color,
                series.showLine ? Pen{.color = EdgeTone(series.color), .width = 1} : kNoPen);
}

/// Between a path and the base, with a point at each crossing, so that each piece lies on one side of it.
Slab SlabOnBase(const Path& path, double base) {
  Slab slab;
  for (std::size_t i = 0; i < path.size(); ++i) {
    const PointF point = path[i];
    if (i > 0 && (path[i - 1].y - base) * (point.y - base) < 0) {
      const double share = (base - path[i - 1].y) / (point.y - path[i - 1].y);
      slab.Add(path[i - 1].x + share * (point.x - path[i - 1].x), base, base);
    }
    slab.Add(point.x, std::min(point.y, base), std::max(point.y, base));
  }
  return slab;
}

/// Between a dense series' extremes, and down to the base for an area.
Slab SlabOfSpans(const SpanRun& run, bool area, double base) {
  constexpr double kThickness = 1.5;
  Slab slab;
  for (const ColumnSpan& span : run) {
    if (area) {
      slab.Add(span.Middle(), std::min(span.top, base), std::max(span.bottom, base));
    } else {
      slab.Add(span.Middle(), span.top - kThickness / 2, span.bottom + kThickness / 2);
    }
  }
  return slab;
}

void DrawRow(const ChartModel& model, const ChartSeries& series, const Face& face, Scene& scene) {
  const bool area = model.kind == ChartKind::k3dArea;
  if (!area && !series.showLine) return;
  const double base = face.plot.BaseY();
  if (IsDense(face.plot, kColumnWidth)) {
    for (const SpanRun& run : SeriesSpans(series, face.plot, kColumnWidth)) {
      DrawSlab(series, SlabOfSpans(run, area, base), face, scene);
    }
    return;
  }
  for (const Path& path : SeriesPaths(series, model.kind, face.plot)) {
    area ? DrawSlab(series, SlabOnBase(path, base), face, scene) : DrawRibbon(series, path, face, scene);
  }
}

}  // namespace

DepthSpan DepthOfSeries(int column, int seriesCount) noexcept {
  return {(column + kRowMargin) / seriesCount, (column + 1 - kRowMargin) / seriesCount};
}

void DrawSolidSeries(const ChartModel& model, const Plot& plot, Scene& scene) {
  if (model.kind == ChartKind::k3dBar) {
    DrawBoxes(model, plot, scene);
    return;
  }
  const int count = static_cast<int>(model.series.size());
  for (int column = count - 1; column >= 0; --column) {
    const Face face{plot, DepthOfSeries(column, count)};
    DrawRow(model, model.series[static_cast<std::size_t>(column)], face, scene);
    DrawMarkers(model, column, plot, {.shiftX = 0, .depth = face.depth.front}, scene);
  }
}

}  // namespace chartproject
