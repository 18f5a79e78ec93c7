// What is left to be seen of each layer.
#include "chart/picture/series/column_layers.h"

#include <algorithm>

namespace chartproject {

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
  if (top < bottom) scene_.FillRect({left_, top, right_ - left_, bottom - top}, color);
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
