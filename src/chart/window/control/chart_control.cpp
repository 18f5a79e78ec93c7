// Painting and input of the chart control.
#include "chart/window/control/chart_control.h"

#include <algorithm>
#include <cmath>

namespace chartproject {

ChartControl::ChartControl(Form& form, std::string_view name) : DrawnControl(form, "MSChart", name) {}

void ChartControl::ModelChanged() {
  const bool wasPainted = chart_.has_value();
  chart_.reset();
  // The model may change more than once between two paintings: one request is enough.
  if (wasPainted) Invalidate();
}

void ChartControl::SetModel(ChartModel model) {
  model_ = std::move(model);
  // The pointer stays where it is, over another row; where no scene says which, its share of the width does.
  if (pointerRow_) {
    const auto share = ShareAt(pointerAt_);
    const int row = share ? static_cast<int>(*share * model_.rowCount) : *pointerRow_;
    MovePointer(row < model_.rowCount ? std::optional(row) : std::nullopt);
  }
  ModelChanged();
}

void ChartControl::SetNumberFormat(const NumberFormat& format) {
  format_ = format;
  ModelChanged();
}

Bitmap ChartControl::CopyPicture(PictureRenderer& renderer, double scale) {
  const Size placed{Place().width, Place().height};
  const bool hasPlace = placed.width >= 1 && placed.height >= 1;
  ChartModel page = model_;
  for (ChartSeries& series : page.series) series.failed.clear();
  return DrawPicture(page, format_, hasPlace ? placed : PreferredSize(), scale, renderer);
}

void ChartControl::Paint(Canvas& canvas) {
  const Size size = canvas.Extent();
  if (!chart_ || !(chart_->size == size)) chart_ = BuildChartScene(model_, size, canvas, format_);
  lanes_ = chart_->lanes;
  front_ = chart_->plot.front;
  for (const SceneLane& lane : lanes_) {
    const double bottom = std::max(front_.Bottom(), lane.plot.front.Bottom());
    front_.y = std::min(front_.y, lane.plot.front.y);
    front_.height = bottom - front_.y;
  }
  chart_->scene.Paint(canvas);
}

void ChartControl::PaintOverlay(Canvas& canvas) {
  if (!chart_) return;
  ChartOverlay overlay{
      pointerRow_, {CursorRow(MeasuringCursor::kFirst), CursorRow(MeasuringCursor::kSecond)}, readout_, cursorReadout_};
  if (mark_) {
    overlay.markRow = model_.RowOf(mark_->label);
    overlay.markText = mark_->text;
  }
  overlay.box = Box();
  BuildOverlay(overlay, model_, *chart_, canvas).Paint(canvas);
}

void ChartControl::SetReadout(std::vector<ReadoutLine> lines) {
  readout_ = std::move(lines);
  InvalidateOverlay();
}

void ChartControl::SetCursorReadout(std::vector<ReadoutLine> lines) {
  cursorReadout_ = std::move(lines);
  InvalidateOverlay();
}

std::string ChartControl::SpokenWords() const {
  std::string words;
  for (const auto* box : {&readout_, &cursorReadout_}) {
    if (box == &readout_ && !pointerRow_) continue;
    for (const ReadoutLine& line : *box) {
      words += (words.empty() ? "" : "; ") + line.text;
      for (const std::string& cell : line.cells) words += " " + cell;
    }
  }
  if (mark_) words += (words.empty() ? "" : "; ") + mark_->text;
  if (!words.empty()) return words;
  for (const ChartSeries& series : model_.series) {
    if (series.visible) words += (words.empty() ? "" : "; ") + series.label;
  }
  return words;
}

std::optional<std::int64_t> ChartControl::CursorLabel(MeasuringCursor which) const noexcept {
  return cursors_[static_cast<std::size_t>(which)];
}

std::optional<int> ChartControl::CursorRow(MeasuringCursor which) const noexcept {
  const auto label = CursorLabel(which);
  return label ? model_.RowOf(*label) : std::nullopt;
}

void ChartControl::SetMark(std::optional<ChartMark> mark) {
  mark_ = std::move(mark);
  InvalidateOverlay();
}

void ChartControl::SetCursor(MeasuringCursor which, std::optional<std::int64_t> label) {
  auto& cursor = cursors_[static_cast<std::size_t>(which)];
  if (cursor == label) return;
  cursor = label;
  if (!cursors_[0] && !cursors_[1]) cursorReadout_.clear();
  Raise(cursorsChanged);
  InvalidateOverlay();
}

void ChartControl::MovePointer(std::optional<int> row) {
  if (row == pointerRow_) return;
  pointerRow_ = row;
  Raise(pointerRowChanged);
  InvalidateOverlay();
}

std::optional<int> ChartControl::RowAt(PointF at) const {
  return chart_ ? chart_->RowAt(at) : std::nullopt;
}

std::optional<double> ChartControl::ShareAt(PointF at) const {
  if (!front_.Contains(at)) return std::nullopt;
  return (at.x - front_.x) / front_.width;
}

std::optional<Rect> ChartControl::Box() const {
  if (!drag_ || !drag_->box) return std::nullopt;
  const double left = std::clamp(std::min(drag_->from.x, drag_->to.x), front_.x, front_.Right());
  const double right = std::clamp(std::max(drag_->from.x, drag_->to.x), front_.x, front_.Right());
  const auto lane = DraggedLane();
  if (!lane) return Rect{left, front_.y, right - left, front_.height};
  const Rect& front = lanes_[*lane].plot.front;
  const double top = std::clamp(std::min(drag_->from.y, drag_->to.y), front.y, front.Bottom());
  const double bottom = std::clamp(std::max(drag_->from.y, drag_->to.y), front.y, front.Bottom());
  return Rect{left, top, right - left, bottom - top};
}

std::optional<std::size_t> ChartControl::DraggedLane() const {
  constexpr double kLeastHeight = 5;  // pixels: a drag along the axis is meant for points
  if (!drag_ || !drag_->values || std::abs(drag_->to.y - drag_->from.y) < kLeastHeight) return std::nullopt;
  for (std::size_t lane = 0; lane < lanes_.size(); ++lane) {
    const Rect& front = lanes_[lane].plot.front;
    if (drag_->from.y >= front.y && drag_->from.y < front.Bottom()) return lane;
  }
  return std::nullopt;
}

void ChartControl::Drag(const MouseInput& input) {
  constexpr double kLeastDrag = 5;  // pixels: a click may tremble
  drag_->to = input.at;
  drag_->values = input.shift;
  if (drag_->pan) {
    if (answers.panned) answers.panned((input.at.x - drag_->from.x) / drag_->rowWidth);
    return;
  }
  if (!drag_->box && std::abs(input.at.x - drag_->from.x) >= kLeastDrag) {
    drag_->box = true;
    SetCursor(MeasuringCursor::kFirst, drag_->cursors[0]);
    SetCursor(MeasuringCursor::kSecond, drag_->cursors[1]);
  }
  InvalidateOverlay();
}

void ChartControl::EndDrag() {
  drag_.reset();
  InvalidateOverlay();
}

void ChartControl::MouseMoved(const MouseInput& input) {
  if (drag_ && input.button == MouseButton::kNone) EndDrag();  // released where the chart does not hear of it
  if (drag_) Drag(input);
  pointerAt_ = input.at;
  MovePointer(drag_ && (drag_->box || drag_->pan) ? std::nullopt : RowAt(input.at));
}

void ChartControl::MouseLeft() {
  MovePointer(std::nullopt);
}

void ChartControl::MousePressed(const MouseInput& input) {
  const auto row = RowAt(input.at);
  if (!row) return;
  const bool pan = input.button == MouseButton::kMiddle || spaceDown_;
  drag_ =
      Dragging{.from = input.at, .to = input.at, .rowWidth = chart_->plot.RowWidth(), .pan = pan, .cursors = cursors_};
  if (pan) {
    if (answers.panBegan) answers.panBegan();
    return;
  }
  SetCursor(input.shift ? MeasuringCursor::kSecond : MeasuringCursor::kFirst, model_.LabelOf(*row));
}

void ChartControl::MouseReleased(const MouseInput& /*input*/) {
  const auto box = Box();
  if (!drag_) return;
  std::optional<BoxValues> values;
  if (const auto lane = DraggedLane(); lane && box) {
    const Rect& front = lanes_[*lane].plot.front;
    values = {*lane, (front.Bottom() - box->Bottom()) / front.height, (front.Bottom() - box->y) / front.height};
  }
  EndDrag();
  const auto rowsAt = [this](double x) { return (x - front_.x) / front_.width * model_.rowCount; };
  if (box && answers.boxDrawn) answers.boxDrawn(rowsAt(box->x), rowsAt(box->Right()), values);
}

bool ChartControl::WheelTurned(const WheelInput& input) {
  return answers.wheel && answers.wheel(input);
}

bool ChartControl::KeyPressed(const KeyPress& press) {
  spaceDown_ = press.key == Key::kSpace;
  if (spaceDown_) return true;
  if (press.key == Key::kEscape && drag_ && drag_->box) {
    EndDrag();
    return true;
  }
  if (press.key == Key::kEscape && mark_) {
    SetMark(std::nullopt);
    return true;
  }
  if (press.key == Key::kEscape && (cursors_[0] || cursors_[1])) {
    SetCursor(MeasuringCursor::kFirst, std::nullopt);
    SetCursor(MeasuringCursor::kSecond, std::nullopt);
    return true;
  }
  return answers.key && answers.key(press);
}

void ChartControl::KeyReleased(const KeyPress& press) {
  if (press.key == Key::kSpace) spaceDown_ = false;
}

std::vector<MenuItem> ChartControl::ContextMenu() {
  return answers.menu ? answers.menu() : std::vector<MenuItem>();
}

void ChartControl::MenuChosen(int id) {
  if (answers.menuChosen) answers.menuChosen(id);
}

}  // namespace chartproject
