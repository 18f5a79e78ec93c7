// Boxes, ribbons and slabs.
//
// The eye is in front, to the right and above: of two faces that meet in the picture the one further right is nearer,
// and of two rows of depth the one in front. Painting from back to front, and in a row from left to right, therefore
// always covers what is hidden.
#include "chart/picture/series/solid_series.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <span>

#include "chart/picture/series/column_layers.h"
#include "chart/picture/series/series_path.h"
#include "chart/picture/series/series_style.h"

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

/// Top and right side of a box, crisp.
void DrawCrispBody(Color color, const Rect& box, const Face& face, Scene& scene) {
  const PointF topRight{box.Right(), box.y};
  scene.Crisp(face.Strip({box.x, box.y}, topRight), Lighter(color, kTopLight));
  scene.Crisp(face.Strip(topRight, {box.Right(), box.Bottom()}), Darker(color, kSideShade));
}

/// A rectangle of the front plane at the face's depth, in whole pixels that reach what adjoins it.
void FillFront(double left, double right, double top, double bottom, Color color, const Face& face, Scene& scene) {
  const PointF shift = face.plot.At({0, 0}, face.depth.front);
  const double y = std::floor(top + shift.y);
  scene.FillRect({std::round(left + shift.x), y, right - left, std::ceil(bottom + shift.y) - y}, color);
}

/// In each column the tallest bar is the body, and the fronts of all lie before every body: painted last, they meet
/// without a joint.
void DrawDenseBoxes(const ChartModel& model, const Plot& plot, const Face& face, Scene& scene) {
  const std::vector<BarColumn> bars = DenseBars(model, plot, kColumnWidth);
  const auto colorOf = [&](const BarSpan& span) { return model.series[static_cast<std::size_t>(span.column)].color; };
  for (const BarColumn& bar : bars) {
    const BarSpan& tallest = *std::max_element(bar.spans.begin(), bar.spans.end(), [](const auto& a, const auto& b) {
      return a.bottom - a.top < b.bottom - b.top;
    });
    const Rect box{bar.left, tallest.top, bar.right - bar.left, tallest.bottom - tallest.top};
    DrawCrispBody(colorOf(tallest), box, face, scene);
  }
  const PointF shift = plot.At({0, 0}, face.depth.front);
  for (const BarColumn& bar : bars) {
    ColumnOfLayers layers(std::round(bar.left + shift.x), std::round(bar.right + shift.x), scene);
    for (auto span = bar.spans.rbegin(); span != bar.spans.rend(); ++span) {
      layers.Add(std::floor(span->top + shift.y), std::ceil(span->bottom + shift.y), colorOf(*span));
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

/// Whether the upper side of a strip faces the eye, and not its underside.
bool SeenFromAbove(PointF a, PointF b, const Plot& plot) {
  return (a.y - b.y) * plot.depthX < (b.x - a.x) * plot.depthY;
}

/// Light comes from above and the left: a rising top is lighter than a falling one, and an underside lies in shade.
Color StripTone(Color color, PointF a, PointF b, const Plot& plot) {
  const double run = b.x - a.x;
  const double rise = a.y - b.y;
  const double length = std::hypot(run, rise);
  if (length <= 0) return color;
  if (!SeenFromAbove(a, b, plot)) return Darker(color, 0.25 + 0.2 * rise / length);
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

/// A body between two paths whose points are above each other.
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

/// A stretch of columns of a dense series that are drawn alike.
using Stretch = std::span<const ColumnSpan>;

/// Fronts of calm columns: a smooth shape.
void DrawCalmFront(const ChartSeries& series, Stretch columns, const Face& face, Scene& scene) {
  Path upper{{columns.front().left, columns.front().top}};
  Path lower{{columns.front().left, columns.front().bottom}};
  for (const ColumnSpan& column : columns) {
    upper.push_back({column.Middle(), column.top});
    lower.push_back({column.Middle(), column.bottom});
  }
  upper.push_back({columns.back().right, columns.back().top});
  lower.push_back({columns.back().right, columns.back().bottom});
  Path front = upper;
  front.insert(front.end(), lower.rbegin(), lower.rend());
  scene.Polygon(Moved(front, face), series.color, kNoPen);
  if (series.showLine) scene.Polyline(Moved(upper, face), {.color = EdgeTone(series.color), .width = 1});
}

/// The body of a dense series. Of the strips between two columns only the side that faces the eye is drawn.
void DrawDenseBody(const ChartSeries& series, const SpanRun& body, const std::vector<bool>& calm, const Face& face,
                   Scene& scene) {
  const auto strip = [&](PointF a, PointF b) {
    scene.Crisp(face.Strip(a, b), StripTone(series.color, a, b, face.plot));
  };
  for (std::size_t i = 1; i < body.size(); ++i) {
    const ColumnSpan& one = body[i - 1];
    const ColumnSpan& other = body[i];
    const PointF lower{one.Middle(), one.bottom};
    const PointF nextLower{other.Middle(), other.bottom};
    if (!SeenFromAbove(lower, nextLower, face.plot)) strip(lower, nextLower);
    const PointF upper{one.Middle(), one.top};
    const PointF nextUpper{other.Middle(), other.top};
    if (SeenFromAbove(upper, nextUpper, face.plot)) strip(upper, nextUpper);
  }
  const ColumnSpan& end = body.back();
  scene.Crisp(face.Strip({end.right, end.top}, {end.right, end.bottom}), Darker(series.color, kSideShade));
  for (std::size_t first = 0, last = 0; first < body.size(); first = last) {
    while (last < body.size() && calm[last] == calm[first]) ++last;
    const Stretch stretch = Stretch(body).subspan(first, last - first);
    if (calm[first]) {
      DrawCalmFront(series, stretch, face, scene);
      continue;
    }
    for (const ColumnSpan& column : stretch) {
      FillFront(column.left, column.right, column.top, column.bottom, series.color, face, scene);
    }
  }
}

/// Between a dense series' extremes, and down to the base for an area.
void DrawDenseRun(const ChartSeries& series, const SpanRun& run, bool area, const Face& face, Scene& scene) {
  constexpr double kThickness = 1.5;
  constexpr double kCalmSpan = 4;  // pixels that a calm series covers of a column at most
  const double base = face.plot.BaseY();
  SpanRun body;
  std::vector<bool> calm;
  for (const ColumnSpan& span : run) {
    calm.push_back(span.bottom - span.top <= kCalmSpan);
    body.push_back(span);
    body.back().top = area ? std::min(span.top, base) : span.top - kThickness / 2;
    body.back().bottom = area ? std::max(span.bottom, base) : span.bottom + kThickness / 2;
  }
  DrawDenseBody(series, body, calm, face, scene);
}

void DrawRow(const ChartModel& model, const ChartSeries& series, const Face& face, Scene& scene) {
  const bool area = model.kind == ChartKind::k3dArea;
  if (!area && !series.showLine) return;
  const double base = face.plot.BaseY();
  if (IsDense(face.plot, kColumnWidth)) {
    for (const SpanRun& run : SeriesSpans(series, face.plot, kColumnWidth)) {
      DrawDenseRun(series, run, area, face, scene);
    }
    return;
  }
  for (const Path& path : SeriesPaths(series, model.kind, face.plot)) {
    area ? DrawSlab(series, SlabOnBase(path, base), face, scene) : DrawRibbon(series, path, face, scene);
  }
}

}  // namespace

DepthSpan DepthOfSeries(const Plot& plot, int column, int seriesCount) noexcept {
  const int row = plot.depthRows.empty() ? column : plot.depthRows[static_cast<std::size_t>(column)];
  return {(row + kRowMargin) / seriesCount, (row + 1 - kRowMargin) / seriesCount};
}

std::vector<int> RowsByHeight(const ChartModel& model) {
  std::vector<std::pair<double, std::size_t>> means;
  for (const ChartSeries& series : model.series) {
    double sum = 0;
    double count = 0;
    for (const double value : series.values) {
      if (!std::isfinite(value)) continue;
      sum += value;
      ++count;
    }
    means.emplace_back(count > 0 ? sum / count : 0, means.size());
  }
  std::sort(means.begin(), means.end());
  std::vector<int> rows(means.size());
  for (std::size_t row = 0; row < means.size(); ++row) rows[means[row].second] = static_cast<int>(row);
  return rows;
}

void DrawSolidSeries(const ChartModel& model, const Plot& plot, Scene& scene) {
  if (model.kind == ChartKind::k3dBar) {
    DrawBoxes(model, plot, scene);
    return;
  }
  const int count = static_cast<int>(model.series.size());
  std::vector<int> columns(static_cast<std::size_t>(count));
  std::iota(columns.begin(), columns.end(), 0);
  std::sort(columns.begin(), columns.end(), [&](int one, int other) {
    return DepthOfSeries(plot, one, count).front > DepthOfSeries(plot, other, count).front;
  });
  for (const int column : columns) {
    const Face face{plot, DepthOfSeries(plot, column, count)};
    DrawRow(model, model.series[static_cast<std::size_t>(column)], face, scene);
    DrawMarkers(model, column, plot, {.shiftX = 0, .depth = face.depth.front}, scene);
  }
}

}  // namespace chartproject
