// Backdrop, walls, grid, axes and texts.
#include "chart/picture/chart_frame.h"

#include <array>
#include <cmath>

#include "chart/picture/series/series_style.h"

namespace chartproject {
namespace {

constexpr Color kTextColor = {64, 64, 60};
constexpr Color kAxisColor = {112, 112, 104};
constexpr double kFrameInset = 2.0;  ///< between the two lines of a double frame

PenStyle StyleOf(PenNumber number) {
  switch (number) {
    case 0:
      return PenStyle::kNone;
    case 1:
      return PenStyle::kSolid;
    case 2:
      return PenStyle::kDash;
    default:
      return PenStyle::kDot;
  }
}

/// One-pixel lines are crisp when they run through the middle of pixels.
double Crisp(double at) {
  return std::floor(at) + 0.5;
}

void StrokeRect(const Rect& box, const Pen& pen, Scene& scene) {
  scene.Polyline(
      std::array<PointF, 5>{
          {{box.x, box.y}, {box.Right(), box.y}, {box.Right(), box.Bottom()}, {box.x, box.Bottom()}, {box.x, box.y}}},
      pen);
}

void DrawBackdrop(const ChartModel& model, Size size, Scene& scene) {
  if (model.backdropFilled) scene.FillRect({0, 0, size.width, size.height}, model.backdrop);
  if (model.frame == FrameStyle::kNone) return;
  const Pen pen{.color = Darker(model.backdrop, 0.28), .width = 1};
  StrokeRect({0.5, 0.5, size.width - 1, size.height - 1}, pen, scene);
  if (model.frame == FrameStyle::kSingle) return;
  const double inset = 0.5 + kFrameInset;
  StrokeRect({inset, inset, size.width - 2 * inset, size.height - 2 * inset}, pen, scene);
}

/// The back wall, and for depth the left wall and the floor, each in its own tone.
void DrawWalls(const ChartModel& model, const Plot& plot, Scene& scene) {
  const Rect& front = plot.front;
  const Pen edge{.color = Darker(model.backdrop, 0.3), .width = 1, .style = StyleOf(model.wallPen)};
  const double left = front.x + 0.5;
  const double right = front.Right() - 0.5;
  const double top = front.y + 0.5;
  const double bottom = front.Bottom() + 0.5;
  const std::array<PointF, 4> back = {plot.At({left, top}, 1), plot.At({right, top}, 1), plot.At({right, bottom}, 1),
                                      plot.At({left, bottom}, 1)};
  if (plot.depthX <= 0) {
    scene.Polygon(back, Lighter(model.backdrop, 0.5), edge);
    return;
  }
  scene.Polygon(back, Lighter(model.backdrop, 0.5), edge);
  scene.Polygon(std::array{PointF{left, top}, back[0], back[3], PointF{left, bottom}}, Darker(model.backdrop, 0.035),
                edge);
  scene.Polygon(std::array{PointF{left, bottom}, back[3], back[2], PointF{right, bottom}}, Darker(model.backdrop, 0.06),
                edge);
}

/// A line around the room at a height: over the left wall and the back wall.
void DrawLevel(const Plot& plot, double y, const Pen& pen, Scene& scene) {
  const PointF left{plot.front.x, y};
  const PointF right{plot.front.Right(), y};
  if (plot.depthX > 0) {
    scene.Polyline(std::array{left, plot.At(left, 1), plot.At(right, 1)}, pen);
  } else {
    scene.Line(left, right, pen);
  }
}

void DrawGrid(const ChartModel& model, const CategoryAxis& categories, const Plot& plot, Scene& scene) {
  const Color color = Darker(model.backdrop, 0.14);
  const Pen valuePen{.color = color, .style = StyleOf(model.valueGrid != 0 ? model.valueGrid : model.secondValueGrid)};
  for (int i = 0; i < plot.axis.TickCount(); ++i) DrawLevel(plot, Crisp(plot.Y(plot.axis.Tick(i))), valuePen, scene);

  const Pen rowPen{.color = color, .style = StyleOf(model.categoryGrid)};
  for (const double position : categories.ticks) {
    const double x = Crisp(plot.Edge(position));
    const PointF floor{x, plot.front.Bottom()};
    const PointF top{x, plot.front.y};
    if (plot.depthX > 0) {
      scene.Polyline(std::array{floor, plot.At(floor, 1), plot.At(top, 1)}, rowPen);
    } else {
      scene.Line(floor, top, rowPen);
    }
  }
  if (plot.axis.Minimum() < 0 && plot.axis.Maximum() > 0) {
    DrawLevel(plot, Crisp(plot.BaseY()), {.color = Darker(model.backdrop, 0.42)}, scene);
  }
}

void DrawTitles(const ChartModel& model, const ChartLayout& layout, Size size, const Canvas& canvas, Scene& scene) {
  const double room = size.width - 2 * layout.margin;
  const auto add = [&](const std::string& text, PointF at, const Font& font, Align align) {
    if (!text.empty() && canvas.MeasureText(text, font).width <= room) {
      scene.Text({text, at, font, kTextColor, align});
    }
  };
  add(model.title, {size.width / 2, layout.margin}, layout.titleFont, Align::kCenter);
  add(model.valueTitle, {layout.margin, layout.titleBottom}, layout.font, Align::kLeft);
  add(model.categoryTitle, {size.width / 2, size.height - layout.margin - layout.textHeight}, layout.font,
      Align::kCenter);
}

void DrawLegend(const ChartModel& model, const ChartLayout& layout, Scene& scene) {
  if (!layout.legend) return;
  double y = layout.legend->y;
  for (const int column : VisibleSeries(model)) {
    const ChartSeries& series = model.series[static_cast<std::size_t>(column)];
    const Rect swatch{layout.legend->x, y + (layout.textHeight - kSwatchSize) / 2, kSwatchSize, kSwatchSize};
    scene.FillRect(swatch, series.color);
    StrokeRect(swatch, {.color = EdgeTone(series.color)}, scene);
    scene.Text({series.label, {swatch.Right() + 6, y}, layout.font, kTextColor, Align::kLeft});
    y += layout.textHeight + 4;
  }
}

/// The lines of a lane's axes, its ticks and their texts, and its title with the colour of its series.
void DrawValueAxis(const ChartModel& model, const ChartLayout& layout, const ChartLane& lane, const Canvas& canvas,
                   Scene& scene) {
  const Plot& plot = lane.plot;
  const Pen pen{.color = kAxisColor};
  const double left = plot.front.x - 0.5;
  const double bottom = plot.front.Bottom() + 0.5;
  scene.Line({left, plot.front.y}, {left, bottom}, pen);
  scene.Line({left, bottom}, {plot.front.Right(), bottom}, pen);
  for (std::size_t i = 0; i < lane.valueTexts.size(); ++i) {
    const double y = plot.Y(plot.axis.Tick(static_cast<int>(i)));
    scene.Line({left - kTickLength, Crisp(y)}, {left, Crisp(y)}, pen);
    const PointF at{plot.front.x - kTickLength - kTickGap, std::round(y - layout.textHeight / 2)};
    scene.Text({lane.valueTexts[i], at, layout.font, kTextColor, Align::kRight});
  }
  const double room = plot.front.width - kSwatchSize - kTickGap;
  if (lane.title.empty() || canvas.MeasureText(lane.title, layout.font).width > room) return;
  const Color color = model.series[static_cast<std::size_t>(lane.series.front())].color;
  const Rect swatch{plot.front.x, std::round(lane.titleY + (layout.textHeight - kSwatchSize) / 2), kSwatchSize,
                    kSwatchSize};
  scene.FillRect(swatch, color);
  StrokeRect({swatch.x + 0.5, swatch.y + 0.5, kSwatchSize - 1, kSwatchSize - 1}, {.color = EdgeTone(color)}, scene);
  scene.Text({lane.title, {swatch.Right() + kTickGap + 2, lane.titleY}, layout.font, kTextColor, Align::kLeft});
}

}  // namespace

void DrawChartBackground(const ChartModel& model, const ChartLayout& layout, Size size, Scene& scene) {
  DrawBackdrop(model, size, scene);
  for (const ChartLane& lane : layout.lanes) {
    DrawWalls(model, lane.plot, scene);
    DrawGrid(model, layout.categories, lane.plot, scene);
  }
}

void DrawChartAxes(const ChartModel& model, const ChartLayout& layout, Size size, const Canvas& canvas, Scene& scene) {
  for (const ChartLane& lane : layout.lanes) DrawValueAxis(model, layout, lane, canvas, scene);
  const Rect& lowest = layout.lanes.back().plot.front;
  for (const double position : layout.categories.ticks) {
    const double x = Crisp(layout.plot.Edge(position));
    scene.Line({x, lowest.Bottom() + 0.5}, {x, lowest.Bottom() + 0.5 + kTickLength}, {.color = kAxisColor});
  }
  for (const CategoryLabel& label : layout.categories.labels) {
    const PointF at{layout.plot.Edge(label.position), lowest.Bottom() + kTickLength + kTickGap};
    scene.Text({label.text, at, layout.font, kTextColor, Align::kCenter});
    if (label.date.empty()) continue;
    scene.Text({label.date, {at.x, at.y + layout.textHeight}, layout.font, kTextColor, Align::kCenter});
  }
  if (layout.hasTitles) DrawTitles(model, layout, size, canvas, scene);
  DrawLegend(model, layout, scene);
}

}  // namespace chartproject
