// Dense series as pixel columns.
#include "chart/picture/dense_lines.h"

#include <algorithm>
#include <cmath>

#include "chart/picture/series_path.h"
#include "chart/picture/series_style.h"

namespace chartproject {
namespace {

constexpr double kLineWidth = 1.0;  ///< a wider one shows nothing more
constexpr double kCalmSpan = 1.5;   ///< pixels that a calm line covers of a column at most
/// Columns filled in one go as far as they have it in common: many narrow fills are slow on every surface.
constexpr std::size_t kGroup = 16;

/// Fills spans with whole coordinates; no pixel is filled twice, so the colour may be translucent.
void FillSpans(std::span<const ColumnSpan> spans, Color color, Scene& scene) {
  for (std::size_t first = 0; first < spans.size(); first += kGroup) {
    const auto group = spans.subspan(first, std::min(kGroup, spans.size() - first));
    double top = group[0].top;
    double bottom = group[0].bottom;
    for (const ColumnSpan& span : group) {
      top = std::max(top, span.top);
      bottom = std::min(bottom, span.bottom);
    }
    const bool common = top < bottom;
    if (common) scene.FillRect({group[0].left, top, group.back().right - group[0].left, bottom - top}, color);
    for (const ColumnSpan& span : group) {
      const double width = span.right - span.left;
      if (!common) {
        scene.FillRect({span.left, span.top, width, span.bottom - span.top}, color);
        continue;
      }
      if (span.top < top) scene.FillRect({span.left, span.top, width, top - span.top}, color);
      if (span.bottom > bottom) scene.FillRect({span.left, bottom, width, span.bottom - bottom}, color);
    }
  }
}

ColumnSpan Rounded(const ColumnSpan& span, double margin) {
  return {span.left, span.right, std::round(span.top - margin), std::round(span.bottom + margin)};
}

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
  if (path.size() == 1) path.push_back({path[0].x + 1, path[0].y});
  return path;
}

void StrokeRun(const SpanRun& run, Color color, double width, Scene& scene) {
  for (std::size_t first = 0, last = 0; first < run.size(); first = last) {
    const bool calm = IsCalm(run[first]);
    while (last < run.size() && IsCalm(run[last]) == calm) ++last;
    if (calm) {
      scene.Polyline(CalmPath(run, first, last), {.color = color, .width = width});
      continue;
    }
    SpanRun restless;
    for (std::size_t i = first; i < last; ++i) restless.push_back(Rounded(run[i], width / 2));
    FillSpans(restless, color, scene);
  }
}

void FillArea(const SpanRun& run, Color color, double base, Scene& scene) {
  SpanRun area;
  for (const ColumnSpan& span : run) {
    const ColumnSpan whole = Rounded(span, 0);
    area.push_back({whole.left, whole.right, std::min(whole.top, base), std::max(whole.bottom, base)});
  }
  FillSpans(area, WithAlpha(color, kAreaAlpha), scene);
}

}  // namespace

void DrawDenseLines(const ChartModel& model, const Plot& plot, Scene& scene) {
  std::vector<std::vector<SpanRun>> runs;
  for (const ChartSeries& series : model.series) runs.push_back(SeriesSpans(series, plot, 1));
  for (std::size_t s = 0; model.kind == ChartKind::k2dArea && s < runs.size(); ++s) {
    for (const SpanRun& run : runs[s]) FillArea(run, model.series[s].color, std::round(plot.BaseY()), scene);
  }
  for (std::size_t s = 0; s < runs.size(); ++s) {
    const ChartSeries& series = model.series[s];
    if (!series.showLine) continue;
    if (IsFaint(series.color, model.backdrop)) {
      for (const SpanRun& run : runs[s]) StrokeRun(run, EdgeTone(series.color), kLineWidth + kFaintEdge, scene);
    }
    for (const SpanRun& run : runs[s]) StrokeRun(run, series.color, kLineWidth, scene);
  }
}

}  // namespace chartproject
