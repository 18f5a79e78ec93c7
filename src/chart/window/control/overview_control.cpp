// From the mouse over the strip to points.
#include "chart/window/control/overview_control.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace chartproject {

void OverviewControl::SetModel(OverviewModel model) {
  model_ = std::move(model);
  strip_.reset();
  Invalidate();
}

void OverviewControl::ShowSlice(std::int64_t first, std::int64_t end) {
  if (std::pair(first, end) == std::pair(first_, end_)) return;
  first_ = first;
  end_ = end;
  InvalidateOverlay();
}

void OverviewControl::Paint(Canvas& canvas) {
  const Size size = canvas.Extent();
  if (!strip_ || !(strip_->size == size)) strip_ = BuildOverview(model_, size, canvas);
  strip_->scene.Paint(canvas);
}

void OverviewControl::PaintOverlay(Canvas& canvas) {
  if (strip_) BuildOverviewFrame(model_, *strip_, first_, end_).Paint(canvas);
}

std::int64_t OverviewControl::PointAt(double x) const {
  const double share = std::clamp((x - strip_->plot.x) / strip_->plot.width, 0.0, 1.0);
  return std::llround(share * static_cast<double>(model_.points));
}

void OverviewControl::MousePressed(const MouseInput& input) {
  if (input.button != MouseButton::kLeft || !strip_ || model_.points <= 0) return;
  const std::int64_t point = PointAt(input.at.x);
  const bool inFrame = point >= first_ && point < end_;
  held_ = inFrame ? point - first_ : (end_ - first_) / 2;
  if (!inFrame && moved) moved(point - *held_);
}

void OverviewControl::MouseMoved(const MouseInput& input) {
  if (input.button != MouseButton::kLeft) held_.reset();
  if (held_ && strip_ && moved) moved(PointAt(input.at.x) - *held_);
}

void OverviewControl::MouseDoubleClicked(const MouseInput& input) {
  if (input.button == MouseButton::kLeft && toTheEnd) toTheEnd();
}

}  // namespace chartproject
