// Properties, data, painting and input of the chart control.
#include "chart/window/chart_control.h"

#include <limits>

#include "platform/run_time_error.h"

namespace chartproject {
namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();
constexpr int kMostPenStyles = 6;

void CheckProperty(bool valid, const char* property) {
  if (valid) return;
  throw RunTimeError(error_number::kInvalidPropertyValue, std::string("Invalid value for the chart's ") + property);
}

[[noreturn]] void ThrowSubscript(const char* what, int index) {
  throw RunTimeError(error_number::kSubscriptOutOfRange,
                     std::string("The chart has no ") + what + " " + std::to_string(index));
}

}  // namespace

ChartControl::ChartControl(Form& form, std::string_view name) : DrawnControl(form, "MSChart", name) {}

void ChartControl::ModelChanged() {
  const bool wasPainted = chart_.has_value();
  chart_.reset();
  // Many properties change between two paintings: one request is enough.
  if (wasPainted) Invalidate();
}

void ChartControl::ResetToDefaults() {
  model_ = ChartModel();
  ModelChanged();
}

void ChartControl::SetChartType(int type) {
  CheckProperty(type >= 0 && type <= 7, "type");
  model_.kind = static_cast<ChartKind>(type);
  ModelChanged();
}

void ChartControl::SetTitles(std::string title, std::string categoryTitle, std::string valueTitle) {
  model_.title = std::move(title);
  model_.categoryTitle = std::move(categoryTitle);
  model_.valueTitle = std::move(valueTitle);
  ModelChanged();
}

void ChartControl::SetLegendVisible(bool visible) {
  model_.legendVisible = visible;
  ModelChanged();
}

PenNumber ChartControl::GridPen(ChartAxis axis) const noexcept {
  switch (axis) {
    case ChartAxis::kX:
      return model_.categoryGrid;
    case ChartAxis::kY:
      return model_.valueGrid;
    default:
      return model_.secondValueGrid;
  }
}

void ChartControl::SetGridPen(ChartAxis axis, PenNumber style) {
  CheckProperty(style >= 0 && style <= kMostPenStyles, "grid pen");
  PenNumber& pen = axis == ChartAxis::kX   ? model_.categoryGrid
                   : axis == ChartAxis::kY ? model_.valueGrid
                                           : model_.secondValueGrid;
  pen = style;
  ModelChanged();
}

void ChartControl::SetWallPen(PenNumber style) {
  CheckProperty(style >= 0 && style <= kMostPenStyles, "wall pen");
  model_.wallPen = style;
  ModelChanged();
}

void ChartControl::SetBackdrop(Color brush, FrameStyle frame) {
  model_.backdrop = brush;
  model_.backdropFilled = true;
  model_.frame = frame;
  ModelChanged();
}

void ChartControl::SetCategoryScale(const CategoryScale& scale) {
  CheckProperty(scale.divisionsPerLabel > 0 && scale.divisionsPerTick > 0, "category scale");
  model_.categoryScale = scale;
  ModelChanged();
}

void ChartControl::SetNumberFormat(const NumberFormat& format) {
  format_ = format;
  ModelChanged();
}

void ChartControl::SetColumnCount(int count) {
  CheckProperty(count >= 0, "column count");
  const std::size_t before = model_.series.size();
  model_.series.resize(static_cast<std::size_t>(count));
  for (std::size_t column = before; column < model_.series.size(); ++column) {
    model_.series[column].color = kSeriesColors[column % kSeriesColors.size()];
    model_.series[column].values.assign(static_cast<std::size_t>(model_.rowCount), kGap);
  }
  ModelChanged();
}

void ChartControl::SetRowCount(int count) {
  CheckProperty(count >= 0, "row count");
  model_.rowCount = count;
  for (ChartSeries& series : model_.series) series.values.resize(static_cast<std::size_t>(count), kGap);
  if (pointerRow_ && *pointerRow_ >= count) MovePointer(std::nullopt);
  ModelChanged();
}

void ChartControl::SetFirstRowLabel(std::int64_t first) {
  model_.firstRowLabel = first;
  ModelChanged();
}

std::int64_t ChartControl::RowLabel(int row) const {
  CheckRow(row);
  return model_.firstRowLabel + row;
}

void ChartControl::SetDataPoint(int column, int row, double value) {
  CheckRow(row);
  SeriesAt(column).values[static_cast<std::size_t>(row)] = value;
  ModelChanged();
}

double ChartControl::DataPoint(int column, int row) const {
  CheckRow(row);
  return SeriesAt(column).values[static_cast<std::size_t>(row)];
}

void ChartControl::SetColumn(int column, std::vector<double> values) {
  ChartSeries& series = SeriesAt(column);
  CheckProperty(values.size() == static_cast<std::size_t>(model_.rowCount), "column values");
  series.values = std::move(values);
  ModelChanged();
}

void ChartControl::SetColumnLabel(int column, std::string label) {
  SeriesAt(column).label = std::move(label);
  ModelChanged();
}

void ChartControl::SetShowLine(int column, bool show) {
  SeriesAt(column).showLine = show;
  ModelChanged();
}

bool ChartControl::ShowLine(int column) const {
  return SeriesAt(column).showLine;
}

void ChartControl::SetShowMarker(int column, bool show) {
  SeriesAt(column).showMarker = show;
  ModelChanged();
}

bool ChartControl::ShowMarker(int column) const {
  return SeriesAt(column).showMarker;
}

ChartSeries& ChartControl::SeriesAt(int column) {
  if (column < 0 || column >= ColumnCount()) ThrowSubscript("column", column);
  return model_.series[static_cast<std::size_t>(column)];
}

const ChartSeries& ChartControl::SeriesAt(int column) const {
  if (column < 0 || column >= ColumnCount()) ThrowSubscript("column", column);
  return model_.series[static_cast<std::size_t>(column)];
}

void ChartControl::CheckRow(int row) const {
  if (row < 0 || row >= model_.rowCount) ThrowSubscript("row", row);
}

Bitmap ChartControl::CopyPicture(PictureRenderer& renderer, double scale) {
  const Size placed{Place().width, Place().height};
  const bool hasPlace = placed.width >= 1 && placed.height >= 1;
  return renderer.Render(hasPlace ? placed : PreferredSize(), scale,
                         [this](Canvas& canvas) { PaintChart(model_, format_, canvas); });
}

void ChartControl::Paint(Canvas& canvas) {
  const Size size = canvas.Extent();
  if (!chart_ || !(chart_->size == size)) chart_ = BuildChartScene(model_, size, canvas, format_);
  chart_->scene.Paint(canvas);
}

void ChartControl::PaintOverlay(Canvas& canvas) {
  if (!chart_) return;
  // Between a reset and the new rows the pointer's row may not be there.
  const bool pointerShows = pointerRow_ && *pointerRow_ < model_.rowCount;
  const ChartOverlay overlay{pointerShows ? pointerRow_ : std::nullopt,
                             {CursorRow(MeasuringCursor::kFirst), CursorRow(MeasuringCursor::kSecond)},
                             readout_,
                             cursorReadout_};
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

std::optional<std::int64_t> ChartControl::CursorLabel(MeasuringCursor which) const noexcept {
  return cursors_[static_cast<std::size_t>(which)];
}

std::optional<int> ChartControl::CursorRow(MeasuringCursor which) const noexcept {
  const auto label = CursorLabel(which);
  if (!label || *label < model_.firstRowLabel || *label - model_.firstRowLabel >= model_.rowCount) return std::nullopt;
  return static_cast<int>(*label - model_.firstRowLabel);
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
  const auto row = RowAt(input.at);
  if (row) SetCursor(input.shift ? MeasuringCursor::kSecond : MeasuringCursor::kFirst, RowLabel(*row));
}

bool ChartControl::WheelTurned(int notches) {
  return wheel && wheel(notches);
}

bool ChartControl::KeyPressed(Key pressed, bool shift) {
  if (pressed == Key::kEscape && (cursors_[0] || cursors_[1])) {
    SetCursor(MeasuringCursor::kFirst, std::nullopt);
    SetCursor(MeasuringCursor::kSecond, std::nullopt);
    return true;
  }
  return key && key(pressed, shift);
}

}  // namespace chartproject
