// Painting and input of the chart control.
#include "chart/window/control/chart_control.h"

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
  if (pointerRow_ && *pointerRow_ >= model_.rowCount) MovePointer(std::nullopt);
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
  chart_->scene.Paint(canvas);
}

void ChartControl::PaintOverlay(Canvas& canvas) {
  if (!chart_) return;
  ChartOverlay overlay{
      pointerRow_, {CursorRow(MeasuringCursor::kFirst), CursorRow(MeasuringCursor::kSecond)}, readout_, cursorReadout_};
  if (mark_) {
    overlay.markRow = RowOf(mark_->label);
    overlay.markText = mark_->text;
  }
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
  return words;
}

std::optional<std::int64_t> ChartControl::CursorLabel(MeasuringCursor which) const noexcept {
  return cursors_[static_cast<std::size_t>(which)];
}

std::optional<int> ChartControl::CursorRow(MeasuringCursor which) const noexcept {
  const auto label = CursorLabel(which);
  return label ? RowOf(*label) : std::nullopt;
}

std::optional<int> ChartControl::RowOf(std::int64_t label) const noexcept {
  if (label < model_.firstRowLabel || label - model_.firstRowLabel >= model_.rowCount) return std::nullopt;
  return static_cast<int>(label - model_.firstRowLabel);
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

void ChartControl::MouseMoved(const MouseInput& input) {
  MovePointer(RowAt(input.at));
}

void ChartControl::MouseLeft() {
  MovePointer(std::nullopt);
}

void ChartControl::MousePressed(const MouseInput& input) {
  if (input.button == MouseButton::kMiddle) return;
  const auto row = RowAt(input.at);
  if (row) SetCursor(input.shift ? MeasuringCursor::kSecond : MeasuringCursor::kFirst, model_.firstRowLabel + *row);
}

bool ChartControl::WheelTurned(const WheelInput& input) {
  return wheel && wheel(input);
}

bool ChartControl::KeyPressed(const KeyPress& press) {
  if (press.key == Key::kEscape && mark_) {
    SetMark(std::nullopt);
    return true;
  }
  if (press.key == Key::kEscape && (cursors_[0] || cursors_[1])) {
    SetCursor(MeasuringCursor::kFirst, std::nullopt);
    SetCursor(MeasuringCursor::kSecond, std::nullopt);
    return true;
  }
  return key && key(press);
}

std::vector<MenuItem> ChartControl::ContextMenu() {
  return menu ? menu() : std::vector<MenuItem>();
}

void ChartControl::MenuChosen(int id) {
  if (menuChosen) menuChosen(id);
}

}  // namespace chartproject
