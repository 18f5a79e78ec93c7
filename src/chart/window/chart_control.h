// The chart control `mscChart1`: properties and data of one chart, drawn on Canvas, with readout and measuring cursors.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "chart/picture/chart_model.h"
#include "chart/window/chart_overlay.h"
#include "forms/controls.h"
#include "forms/picture_renderer.h"
#include "platform/locale.h"

namespace chartproject {

/// The axes and grids whose pens can be set.
enum class ChartAxis { kX, kY, kSecondY };

/// The two measuring cursors: a click places the first, a click with Shift the second.
enum class MeasuringCursor { kFirst = 0, kSecond = 1 };

/// Rows and columns count from 0. A column or row outside the counts throws RunTimeError 9, a property value outside
/// its range RunTimeError 380. Every setter has the chart painted again; the picture is worked out once a painting.
class ChartControl : public DrawnControl {
 public:
  ChartControl(Form& form, std::string_view name);

  // Properties. ------------------------------------------------------------------------------------------------------
  /// Everything as it was when the control was made, without data. Cursors and number format stay.
  void ResetToDefaults();
  /// 0 to 7. @see ChartKind
  [[nodiscard]] int ChartType() const noexcept { return static_cast<int>(model_.kind); }
  void SetChartType(int type);
  void SetTitles(std::string title, std::string categoryTitle, std::string valueTitle);
  void SetLegendVisible(bool visible);
  /// Pen of an axis' major grid: 0 none, 1 solid.
  [[nodiscard]] PenNumber GridPen(ChartAxis axis) const noexcept;
  void SetGridPen(ChartAxis axis, PenNumber style);
  /// Pen around the plot's walls: 0 none to 6.
  void SetWallPen(PenNumber style);
  /// Fills the plot's backdrop and draws its frame.
  void SetBackdrop(Color brush, FrameStyle frame);
  void SetCategoryScale(const CategoryScale& scale);
  /// How value labels are written.
  void SetNumberFormat(const NumberFormat& format);

  // Data. ------------------------------------------------------------------------------------------------------------
  /// One column a series. New columns are gaps in the colour of their place; those that stay keep data and properties.
  void SetColumnCount(int count);
  [[nodiscard]] int ColumnCount() const noexcept { return static_cast<int>(model_.series.size()); }
  /// New rows are gaps.
  void SetRowCount(int count);
  [[nodiscard]] int RowCount() const noexcept { return model_.rowCount; }
  /// Labels all the rows at once: row r is labelled `first` + r.
  void SetFirstRowLabel(std::int64_t first);
  [[nodiscard]] std::int64_t RowLabel(int row) const;
  /// NaN is a gap.
  void SetDataPoint(int column, int row, double value);
  [[nodiscard]] double DataPoint(int column, int row) const;
  /// All the values of a column at once; a count other than RowCount throws RunTimeError 380.
  void SetColumn(int column, std::vector<double> values);
  void SetColumnLabel(int column, std::string label);
  void SetShowLine(int column, bool show);
  [[nodiscard]] bool ShowLine(int column) const;
  void SetShowMarker(int column, bool show);
  [[nodiscard]] bool ShowMarker(int column) const;
  [[nodiscard]] const ChartModel& Model() const noexcept { return model_; }

  // Picture. ---------------------------------------------------------------------------------------------------------
  /// The chart alone, at its size on the form (its preferred size while it has none).
  /// @param scale dots to the pixel: 1 for the screen's own, more for paper
  [[nodiscard]] Bitmap CopyPicture(PictureRenderer& renderer, double scale = 1.0);
  void Paint(Canvas& canvas) override;
  void PaintOverlay(Canvas& canvas) override;
  [[nodiscard]] Size PreferredSize() const override { return {640, 360}; }

  // Readout and cursors. ---------------------------------------------------------------------------------------------
  /// The row under the mouse pointer.
  [[nodiscard]] std::optional<int> PointerRow() const noexcept { return pointerRow_; }
  /// Runs when PointerRow changes, also when the pointer leaves.
  Event pointerRowChanged;
  /// Lines of the box beside the pointer; drawn while there is a pointer row.
  void SetReadout(std::vector<ReadoutLine> lines);
  [[nodiscard]] const std::vector<ReadoutLine>& Readout() const noexcept { return readout_; }
  /// Lines of the box for the cursors; drawn while a cursor is set.
  void SetCursorReadout(std::vector<ReadoutLine> lines);
  [[nodiscard]] const std::vector<ReadoutLine>& CursorReadout() const noexcept { return cursorReadout_; }

  /// A cursor stands at a row's label, so it stays at its point of the file while the rows change under it.
  [[nodiscard]] std::optional<std::int64_t> CursorLabel(MeasuringCursor which) const noexcept;
  /// The cursor's row; nothing when it is not set or its point is not among the rows.
  [[nodiscard]] std::optional<int> CursorRow(MeasuringCursor which) const noexcept;
  void SetCursor(MeasuringCursor which, std::optional<std::int64_t> label);
  /// Runs when a cursor was placed, moved or taken away. Esc takes both away.
  Event cursorsChanged;

  /// Wheel steps and keys that the chart has no use for; the result says whether they were used.
  std::function<bool(int notches)> wheel;
  std::function<bool(Key key, bool shift)> key;

  // Input from the back end. -----------------------------------------------------------------------------------------
  [[nodiscard]] bool TabStop() const noexcept override { return true; }
  void MouseMoved(const MouseInput& input) override;
  void MouseLeft() override;
  void MousePressed(const MouseInput& input) override;
  bool WheelTurned(int notches) override;
  bool KeyPressed(Key pressed, bool shift) override;

 private:
  ChartSeries& SeriesAt(int column);
  [[nodiscard]] const ChartSeries& SeriesAt(int column) const;
  void CheckRow(int row) const;
  void ModelChanged();
  void MovePointer(std::optional<int> row);
  [[nodiscard]] std::optional<int> RowAt(PointF at) const;

  ChartModel model_;
  NumberFormat format_;
  std::optional<ChartScene> chart_;  ///< the scene last painted; nothing when it is out of date
  std::optional<int> pointerRow_;
  std::vector<ReadoutLine> readout_;
  std::vector<ReadoutLine> cursorReadout_;
  std::array<std::optional<std::int64_t>, 2> cursors_;
};

}  // namespace chartproject
