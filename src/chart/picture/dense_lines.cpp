// Dense series as pixel columns.
#include "chart/picture/dense_lines.h"

#include <algorithm>
#include <cmath>
#include <map>

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
  if (path.size() == 1) path = {{path[0].x - 1.5, path[0].y}, {path[0].x + 1.5, path[0].y}};
  return path;
}

/// A restless column of a series.
struct Stroke {
  int series = 0;
  double top = 0;
  double bottom = 0;
};

/// Paints layers that share a column, the uppermost one first; no pixel is painted twice.
class ColumnOfLayers {
 public:
  ColumnOfLayers(double left, double right, Scene& scene) : left_(left), right_(right), scene_(scene) {}

  void Add(double top, double bottom, Color color) {
    double from = top;
    for (const Covered& covered : covered_) {
      if (covered.bottom <= from) continue;
      if (covered.top >= bottom) break;
      Fill(from, covered.top, color);
      from = covered.bottom;
    }
    Fill(from, bottom, color);
    const auto place = std::find_if(covered_.begin(), covered_.end(), [top](const Covered& c) { return c.top >= top; });
    covered_.insert(place, {top, bottom});
    Join();
  }

 private:
  struct Covered {
    double top;
    double bottom;
  };
  void Fill(double top, double bottom, Color color) {
    if (top < bottom) scene_.FillRect({left_, top, right_ - left_, bottom - top}, color);
  }
  void Join() {
    std::vector<Covered> joined;
    for (const Covered& each : covered_) {
      if (joined.empty() || each.top > joined.back().bottom) {
        joined.push_back(each);
      } else {
        joined.back().bottom = std::max(joined.back().bottom, each.bottom);
      }
    }
    covered_ = std::move(joined);
  }

  double left_;
  double right_;
  Scene& scene_;
  std::vector<Covered> covered_;  ///< apart from each other, from above to below
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
  std::map<double, std::pair<double, std::vector<Stroke>>> columns;  // by left edge: right edge and strokes
  for (std::size_t s = 0; s < runs.size(); ++s) {
    if (!model.series[s].showLine) continue;
    for (const SpanRun& run : runs[s]) {
      for (const ColumnSpan& span : run) {
        if (IsCalm(span)) continue;
        auto& column = columns[span.left];
        column.first = span.right;
        column.second.push_back({static_cast<int>(s), span.top, span.bottom});
      }
    }
  }
  for (auto& [left, column] : columns) {
    auto& [right, strokes] = column;
    const DenseOrder before(static_cast<int>(left - plot.front.x), static_cast<int>(model.series.size()));
    std::sort(strokes.begin(), strokes.end(), [&before](const Stroke& one, const Stroke& other) {
      return before(other.series, other.bottom - other.top, one.series, one.bottom - one.top);
    });
    ColumnOfLayers layers(left, right, scene);
    for (const Stroke& stroke : strokes) {
      const Color color = model.series[static_cast<std::size_t>(stroke.series)].color;
      const auto add = [&](double margin, Color tone) {
        layers.Add(std::round(stroke.top - margin), std::round(stroke.bottom + margin), tone);
      };
      add(kLineWidth / 2, color);
      if (IsFaint(color, model.backdrop)) add((kLineWidth + kFaintEdge) / 2, EdgeTone(color));
    }
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
