// Pointer line, cursors and boxes.
#include "chart/window/control/chart_overlay.h"

#include <algorithm>
#include <cmath>

#include "chart/picture/cursor_lines.h"
#include "chart/picture/series/series_style.h"
#include "chart/picture/series/solid_series.h"

namespace chartproject {
namespace {

constexpr Color kBoxFill = {255, 255, 255, 236};
constexpr Color kBoxEdge = {150, 150, 142};
constexpr Color kBoxText = {40, 40, 38};
constexpr Color kTransparent = {0, 0, 0, 0};
constexpr Color kPointerColor = {120, 120, 112};
constexpr double kPadding = 6;
constexpr double kSwatch = 8;
constexpr double kCellGap = 14;  ///< between two columns of a table
constexpr Color kMarkColor = {24, 112, 60};
constexpr double kEdge = 3;         ///< least distance of a box from the chart's edge
constexpr double kPointerGap = 12;  ///< between the pointer's line and its box

double LineX(const Plot& plot, int row) {
  return std::floor(plot.X(row)) + 0.5;
}

/// Widths of the table in a box: of its first column, and of each column of cells.
struct TableWidths {
  double text = 0;
  std::vector<double> cells{};
};

TableWidths WidthsOf(const std::vector<ReadoutLine>& lines, const Font& font, const Canvas& canvas) {
  TableWidths widths;
  for (const ReadoutLine& line : lines) {
    if (line.cells.empty()) continue;
    widths.text = std::max(widths.text, std::ceil(canvas.MeasureText(line.text, font).width));
    if (widths.cells.size() < line.cells.size()) widths.cells.resize(line.cells.size());
    for (std::size_t i = 0; i < line.cells.size(); ++i) {
      widths.cells[i] = std::max(widths.cells[i], std::ceil(canvas.MeasureText(line.cells[i], font).width));
    }
  }
  return widths;
}

Size BoxSize(const std::vector<ReadoutLine>& lines, const Font& font, const Canvas& canvas) {
  Size size;
  for (const ReadoutLine& line : lines) {
    const Size text = canvas.MeasureText(line.text, font);
    const double indent = line.series >= 0 ? kSwatch + 5 : 0;
    size.width = std::max(size.width, std::ceil(text.width) + indent);
    size.height += std::ceil(text.height);
  }
  const TableWidths widths = WidthsOf(lines, font, canvas);
  double table = widths.text;
  for (const double cell : widths.cells) table += kCellGap + cell;
  return {std::max(size.width, table) + 2 * kPadding, size.height + 2 * kPadding};
}

/// Moved into the chart; nothing when it is larger than the chart.
std::optional<Rect> Inside(Rect box, Size chart) {
  if (box.width > chart.width - 2 * kEdge || box.height > chart.height - 2 * kEdge) return std::nullopt;
  box.x = std::clamp(box.x, kEdge, chart.width - kEdge - box.width);
  box.y = std::clamp(box.y, kEdge, chart.height - kEdge - box.height);
  return box;
}

bool Overlap(const Rect& a, const Rect& b) {
  return a.x < b.Right() && b.x < a.Right() && a.y < b.Bottom() && b.y < a.Bottom();
}

void DrawBox(const std::vector<ReadoutLine>& lines, const Rect& box, const ChartModel& model, const Font& font,
             const Canvas& canvas, Scene& scene) {
  const double x = std::round(box.x) + 0.5;
  double y = std::round(box.y) + 0.5;
  const double right = x + box.width;
  const double bottom = y + box.height;
  scene.Polygon(std::array<PointF, 4>{{{x, y}, {right, y}, {right, bottom}, {x, bottom}}}, kBoxFill,
                {.color = kBoxEdge});
  y += kPadding;
  const TableWidths widths = WidthsOf(lines, font, canvas);
  for (const ReadoutLine& line : lines) {
    const double height = std::ceil(canvas.MeasureText(line.text, font).height);
    double left = x + kPadding;
    if (line.series >= 0 && line.series < static_cast<int>(model.series.size())) {
      const Color color = model.series[static_cast<std::size_t>(line.series)].color;
      scene.Ellipse({left, y + (height - kSwatch) / 2, kSwatch, kSwatch}, color, {.color = EdgeTone(color)});
      left += kSwatch + 5;
    }
    scene.Text({line.text, {left, y}, font, kBoxText, Align::kLeft});
    double end = x + kPadding + widths.text;
    for (std::size_t i = 0; i < line.cells.size(); ++i) {
      end += kCellGap + widths.cells[i];
      scene.Text({line.cells[i], {end, y}, font, kBoxText, Align::kRight});
    }
    y += height;
  }
}

/// Rings around the points of a row in one lane.
void DrawRings(int row, const ChartModel& model, const SceneLane& lane, Scene& scene) {
  const Plot& plot = lane.plot;
  const int count = static_cast<int>(lane.series.size());
  for (int i = 0; i < count; ++i) {
    const ChartSeries& series = model.series.at(static_cast<std::size_t>(lane.series[static_cast<std::size_t>(i)]));
    const double value = series.values[static_cast<std::size_t>(row)];
    if (!std::isfinite(value)) continue;
    const double depth = Is3d(model.kind) ? DepthOfSeries(plot, i, count).front : 0;
    const PointF at = plot.At({plot.X(row), plot.Y(value)}, depth);
    if (!plot.axis.ends.empty && !plot.Reach().Contains(at)) continue;
    // A ring: what is in it, a marker for one, stays to be seen.
    scene.Ellipse({at.x - 5.5, at.y - 5.5, 11, 11}, kTransparent, {.color = {255, 255, 255}, .width = 3});
    scene.Ellipse({at.x - 5.5, at.y - 5.5, 11, 11}, kTransparent, {.color = EdgeTone(series.color), .width = 1.5});
  }
}

void DrawPointer(int row, const ChartModel& model, const ChartScene& chart, Scene& scene) {
  const double x = LineX(chart.plot, row);
  const Rect& front = chart.plot.front;
  scene.Line({x, front.y}, {x, front.Bottom()}, {.color = kPointerColor, .style = PenStyle::kDash});
  if (Flat(model.kind) == ChartKind::k2dBar) return;
  for (const SceneLane& lane : chart.lanes) DrawRings(row, model, lane, scene);
}

/// The mark's line and, under the cursors' names, its own in a box beside the line.
void DrawMark(int row, const std::string& text, const ChartModel& model, const ChartScene& chart, const Canvas& canvas,
              Scene& scene) {
  const double x = LineX(chart.plot, row);
  const Rect& front = chart.plot.front;
  scene.Line({x, front.y}, {x, front.Bottom()}, {.color = kMarkColor, .width = 1.5, .style = PenStyle::kDash});
  const std::vector<ReadoutLine> lines{{text, -1, {}}};
  const Size size = BoxSize(lines, chart.font, canvas);
  const double top = front.y + canvas.MeasureText("1", chart.font).height + kEdge;
  const bool left = x < front.x + front.width / 2;
  const double beside = left ? x + kPointerGap : x - kPointerGap - size.width;
  const auto box = Inside({beside, top, size.width, size.height}, chart.size);
  if (box) DrawBox(lines, *box, model, chart.font, canvas, scene);
}

}  // namespace

Scene BuildOverlay(const ChartOverlay& overlay, const ChartModel& model, const ChartScene& chart,
                   const Canvas& canvas) {
  Scene scene;
  const Plot& plot = chart.plot;
  const Rect& front = plot.front;
  for (std::size_t which = 0; which < overlay.cursorRows.size(); ++which) {
    if (overlay.cursorRows[which]) DrawCursorLine(which, *overlay.cursorRows[which], chart, canvas, scene);
  }
  if (overlay.markRow) DrawMark(*overlay.markRow, overlay.markText, model, chart, canvas, scene);
  if (overlay.box) {
    constexpr Color kZoomFill = {20, 92, 160, 40};
    const Rect& box = *overlay.box;
    scene.FillRect(box, kZoomFill);
    for (const double x : {box.x, box.Right()}) {
      scene.Line({std::floor(x) + 0.5, box.y}, {std::floor(x) + 0.5, box.Bottom()}, {.color = kCursorColors[0]});
    }
    if (box.height < chart.plot.front.height - 1) {
      for (const double y : {box.y, box.Bottom()}) {
        scene.Line({box.x, std::floor(y) + 0.5}, {box.Right(), std::floor(y) + 0.5}, {.color = kCursorColors[0]});
      }
    }
  }
  if (overlay.pointerRow) DrawPointer(*overlay.pointerRow, model, chart, scene);

  const bool pointerLeft = overlay.pointerRow && plot.X(*overlay.pointerRow) < front.x + front.width / 2;
  const auto pointerBox = [&]() -> std::optional<Rect> {
    if (!overlay.pointerRow || overlay.readout.empty()) return std::nullopt;
    const Size size = BoxSize(overlay.readout, chart.font, canvas);
    const double x = plot.X(*overlay.pointerRow);
    const double beside = pointerLeft ? x + kPointerGap : x - kPointerGap - size.width;
    return Inside({beside, front.y + kPadding, size.width, size.height}, chart.size);
  }();
  if (pointerBox) DrawBox(overlay.readout, *pointerBox, model, chart.font, canvas, scene);
  if (overlay.cursorReadout.empty()) return scene;

  const Size size = BoxSize(overlay.cursorReadout, chart.font, canvas);
  const double x = pointerLeft ? front.Right() - size.width - kPadding : front.x + kPadding;
  const auto box = Inside({x, front.Bottom() - size.height - kPadding, size.width, size.height}, chart.size);
  if (box && !(pointerBox && Overlap(*box, *pointerBox))) {
    DrawBox(overlay.cursorReadout, *box, model, chart.font, canvas, scene);
  }
  return scene;
}

}  // namespace chartproject
