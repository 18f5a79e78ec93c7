// A line and a number.
#include "chart/picture/cursor_lines.h"

#include <cmath>
#include <string>

namespace chartproject {

void DrawCursorLine(std::size_t which, int row, const ChartScene& chart, const Canvas& canvas, Scene& scene) {
  const double x = std::floor(chart.plot.X(row)) + 0.5;
  const Rect& front = chart.plot.front;
  const Color color = kCursorColors.at(which);
  scene.Line({x, front.y}, {x, front.Bottom()}, {.color = color, .width = 1.5});
  const std::string name = std::to_string(which + 1);
  const Size text = canvas.MeasureText(name, chart.font);
  scene.FillRect({x - text.width / 2 - 3, front.y - 1, text.width + 6, text.height}, color);
  scene.Text({name, {x, front.y - 1}, chart.font, {255, 255, 255}, Align::kCenter});
}

}  // namespace chartproject
