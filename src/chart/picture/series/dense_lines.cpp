// Dense series as pixel columns.
#include "chart/picture/series/dense_lines.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "chart/picture/series/column_layers.h"
#include "chart/picture/series/series_path.h"
#include "chart/picture/series/series_style.h"

namespace chartproject {
namespace {

constexpr double kLineWidth = 1.0;          ///< a wider one shows nothing more
constexpr double kCalmSpan = 1.5;           ///< pixels that a calm line covers of a column at most
constexpr std::size_t kPieceColumns = 256;  ///< of an area: surfaces are slow with polygons of many long edges

bool IsCalm(const ColumnSpan& span) {
  return span.bottom - span.top <= kCalmSpan;
}

/// The smooth line through the calm columns [first, last), led on to the middle of the restless ones beside them.
Path CalmPath(const SpanRun& run, std::size_t first, std::size_t last) {
  Path path;
  const auto add = [&](const ColumnSpan& span, double y) { path.push_back({span.Middle(), y}); };
  const auto middle = [](const ColumnSpan& span) { return (span.top + span.bottom) / 2; };
  if (first > 0) add(run[first - 1], std::clamp(middle(run[first]), run[first - 1].top, run[first - 1].bottom));
  for (std::size_t i = first; i < last; ++i) add(run[i], middle(run[i]));
  if (last < run.size()) add(run[last], std::clamp(middle(run[last - 1]), run[last].top, run[last].bottom));
  if (path.size() == 1) path = {{path[0].x - 1.5, path[0].y}, {path[0].x + 1.5, path[0].y}};
  return path;
}

/// A restless column of a series.
struct Stroke {
  int key = 0;  ///< see DenseOrder
  std::size_t series = 0;
  double top = 0;
  double bottom = 0;
};

void StrokeCalmParts(const SpanRun& run, const Pen& pen, Scene& scene) {
  for (std::size_t first = 0, last = 0; first < run.size(); first = last) {
    const bool calm = IsCalm(run[first]);
    while (last < run.size() && IsCalm(run[last]) == calm) ++last;
    if (calm) scene.Polyline(CalmPath(run, first, last), pen);
  }
}

/// The restless columns of all series, column by column.
void StrokeRestlessParts(const ChartModel& model, const Plot& plot, const std::vector<std::vector<SpanRun>>& runs,
                         Scene& scene) {
  const int count = static_cast<int>(model.series.size());
  std::vector<std::vector<Stroke>> columns(static_cast<std::size_t>(ColumnCount(plot, 1)));
  for (std::size_t s = 0; s < runs.size(); ++s) {
    if (!model.series[s].showLine) continue;
    for (const SpanRun& run : runs[s]) {
      for (const ColumnSpan& span : run) {
        if (IsCalm(span)) continue;
        const int column = static_cast<int>(span.left - plot.front.x);
        const int key = DenseOrder(column, count).Key(static_cast<int>(s), span.bottom - span.top);
        columns[static_cast<std::size_t>(column)].push_back({key, s, span.top, span.bottom});
      }
    }
  }
  std::vector<bool> faint;
  for (const ChartSeries& series : model.series) faint.push_back(IsFaint(series.color, model.backdrop));
  for (std::size_t column = 0; column < columns.size(); ++column) {
    std::vector<Stroke>& strokes = columns[column];
    std::sort(strokes.begin(), strokes.end(),
              [](const Stroke& one, const Stroke& other) { return one.key > other.key; });
    const double left = plot.front.x + static_cast<double>(column);
    ColumnOfLayers layers(left, left + 1, scene);
    for (const Stroke& stroke : strokes) {
      const Color color = model.series[stroke.series].color;
      const auto add = [&](double margin, Color tone) {
        layers.Add(std::round(stroke.top - margin), std::round(stroke.bottom + margin), tone);
      };
      add(kLineWidth / 2, color);
      if (faint[stroke.series]) add((kLineWidth + kFaintEdge) / 2, EdgeTone(color));
    }
  }
}

using Columns = std::span<const ColumnSpan>;

/// What the fill of an area covers of columns: between the values and the base, without what the line covers.
SpanRun FilledPart(Columns columns, bool lineShown, double base) {
  SpanRun filled;
  for (const ColumnSpan& span : columns) {
    filled.push_back(span);
    filled.back().top = std::min(lineShown ? span.bottom : span.top, base);
    filled.back().bottom = std::max(lineShown ? span.top : span.bottom, base);
  }
  return filled;
}

ColumnSpan CommonPart(Columns columns) {
  ColumnSpan common{columns.front().left, columns.back().right, columns.front().top, columns.front().bottom};
  for (const ColumnSpan& span : columns) {
    common.top = std::max(common.top, span.top);
    common.bottom = std::min(common.bottom, span.bottom);
  }
  return {common.left, common.right, std::round(common.top), std::round(common.bottom)};
}

void FillSmooth(Columns filled, Color color, Scene& scene) {
  Path upper{{filled.front().left, filled.front().top}};
  Path lower{{filled.front().left, filled.front().bottom}};
  for (const ColumnSpan& span : filled) {
    upper.push_back({span.Middle(), span.top});
    lower.push_back({span.Middle(), span.bottom});
  }
  upper.push_back({filled.back().right, filled.back().top});
  lower.push_back({filled.back().right, filled.back().bottom});
  upper.insert(upper.end(), lower.rbegin(), lower.rend());
  scene.Polygon(upper, color, kNoPen);
}

/// As few rectangles as show it: a large one that all the columns share, and small ones at its edges, under the noise.
void FillRestless(Columns filled, Color color, Scene& scene) {
  constexpr std::size_t kBlock = 4;
  const auto fill = [&](const ColumnSpan& part, double top, double bottom) {
    if (top < bottom) scene.FillRect({part.left, top, part.right - part.left, bottom - top}, color);
  };
  const ColumnSpan common = CommonPart(filled);
  const bool shared = common.top < common.bottom;
  if (shared) fill(common, common.top, common.bottom);
  for (std::size_t first = 0; first < filled.size(); first += kBlock) {
    const ColumnSpan block = CommonPart(filled.subspan(first, std::min(kBlock, filled.size() - first)));
    if (shared) {
      fill(block, block.top, common.top);
      fill(block, common.bottom, block.bottom);
    } else {
      fill(block, block.top, block.bottom);
    }
  }
}

void FillArea(const SpanRun& run, const ChartSeries& series, double base, Scene& scene) {
  const Color color = WithAlpha(series.color, kAreaAlpha);
  for (std::size_t first = 0; first < run.size(); first += kPieceColumns) {
    const Columns columns = Columns(run).subspan(first, std::min(kPieceColumns, run.size() - first));
    const SpanRun filled = FilledPart(columns, series.showLine, base);
    constexpr double kSmoothSpan = 8;  // pixels of noise up to which the edge is drawn as a curve
    const bool calm = std::all_of(columns.begin(), columns.end(),
                                  [](const ColumnSpan& span) { return span.bottom - span.top <= kSmoothSpan; });
    calm ? FillSmooth(filled, color, scene) : FillRestless(filled, color, scene);
  }
}

}  // namespace

void DrawDenseLines(const ChartModel& model, const Plot& plot, Scene& scene) {
  std::vector<std::vector<SpanRun>> runs;
  for (const ChartSeries& series : model.series) runs.push_back(SeriesSpans(series, plot, 1));
  for (std::size_t s = 0; model.kind == ChartKind::k2dArea && s < runs.size(); ++s) {
    for (const SpanRun& run : runs[s]) FillArea(run, model.series[s], std::round(plot.BaseY()), scene);
  }
  StrokeRestlessParts(model, plot, runs, scene);
  for (std::size_t s = 0; s < runs.size(); ++s) {
    const ChartSeries& series = model.series[s];
    if (!series.showLine) continue;
    if (IsFaint(series.color, model.backdrop)) {
      for (const SpanRun& run : runs[s]) {
        StrokeCalmParts(run, {.color = EdgeTone(series.color), .width = kLineWidth + kFaintEdge}, scene);
      }
    }
    for (const SpanRun& run : runs[s]) StrokeCalmParts(run, {.color = series.color, .width = kLineWidth}, scene);
  }
}

}  // namespace chartproject
