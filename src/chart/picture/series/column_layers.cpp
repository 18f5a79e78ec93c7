// What is left to be seen of each layer.
#include "chart/picture/series/column_layers.h"

#include <algorithm>

namespace chartproject {

void RectanglesByColor::Fill(const Rect& box, Color color) {
  auto same = std::find_if(boxes_.begin(), boxes_.end(), [color](const auto& each) { return each.first == color; });
  if (same == boxes_.end()) same = boxes_.insert(same, {color, {}});
  same->second.push_back(box);
}

void RectanglesByColor::AddTo(Scene& scene) const {
  for (const auto& [color, boxes] : boxes_) scene.FillRects(boxes, color);
}

void ColumnOfLayers::Add(double top, double bottom, Color color) {
  double from = top;
  for (const Covered& covered : covered_) {
    if (covered.bottom <= from) continue;
    if (covered.top >= bottom) break;
    Fill(from, covered.top, color);
    from = covered.bottom;
  }
  Fill(from, bottom, color);
  Cover(top, bottom);
}

void ColumnOfLayers::Fill(double top, double bottom, Color color) {
  if (top < bottom) boxes_.Fill({left_, top, right_ - left_, bottom - top}, color);
}

void ColumnOfLayers::Cover(double top, double bottom) {
  const auto first =
      std::find_if(covered_.begin(), covered_.end(), [top](const Covered& each) { return each.bottom >= top; });
  auto last = first;
  for (; last != covered_.end() && last->top <= bottom; ++last) {
    top = std::min(top, last->top);
    bottom = std::max(bottom, last->bottom);
  }
  covered_.insert(covered_.erase(first, last), {top, bottom});
}

}  // namespace chartproject
