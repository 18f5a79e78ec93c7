// The chart control `mscChart1`: one chart, drawn on Canvas, with readout and measuring cursors.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "chart/picture/geometry/chart_model.h"
#include "chart/window/control/chart_overlay.h"
#include "forms/controls.h"
#include "forms/picture_renderer.h"
#include "platform/locale.h"

namespace chartproject {

/// The two measuring cursors: a click places the first, a click with Shift the second.
enum class MeasuringCursor { kFirst = 0, kSecond = 1 };

/// A named point of the chart.
struct ChartMark {
  std::int64_t label = 0;  ///< of its row
  std::string text;
  friend bool operator==(const ChartMark&, const ChartMark&) = default;
};

/// The part of a lane's height that a box covers, as shares from the lane's lower end.
struct BoxValues {
  std::size_t lane = 0;
  double low = 0;
  double high = 1;
};

/// What the user does with a chart that others answer; each may be empty.
struct ChartAnswers {
  /// Wheel steps and keys that the chart has no use for; the result says whether they were used.
  std::function<bool(const WheelInput& input)> wheel;
  std::function<bool(const KeyPress& press)> key;
  /// The chart's menu, and the item of it that the user chose.
  std::function<std::vector<MenuItem>()> menu;
  std::function<void(int id)> menuChosen;
  /// A box that the user dragged, in rows from the first one; with Shift also of values.
  std::function<void(double firstRow, double endRow, const std::optional<BoxValues>& values)> boxDrawn;
  /// The user takes hold of the chart (middle button, or the left one with the space key), and pulls it so many rows to
  /// the right of there.
  std::function<void()> panBegan;
  std::function<void(double rows)> panned;
};

/// Shows a chart model unchanged: the properties of a chart are fields of the model.
class ChartControl : public DrawnControl {
 public:
  ChartControl(Form& form, std::string_view name);

  /// Shows another chart. Cursors and number format stay.
  void SetModel(ChartModel model);
  [[nodiscard]] const ChartModel& Model() const noexcept { return model_; }
  /// How value labels are written.
  void SetNumberFormat(const NumberFormat& format);

  // Picture. ---------------------------------------------------------------------------------------------------------
  /// The chart alone, at its size on the form (its preferred size while it has none).
  /// @param scale dots to the pixel: 1 for the screen's own, more for paper
  [[nodiscard]] Bitmap CopyPicture(PictureRenderer& renderer, double scale = 1.0);
  void Paint(Canvas& canvas) override;
  void PaintOverlay(Canvas& canvas) override;
  [[nodiscard]] Size PreferredSize() const override { return {640, 360}; }
  /// The boxes of pointer and cursors, line by line.
  [[nodiscard]] std::string SpokenWords() const override;

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

  /// A cursor belongs to a row's label, so it stays at its point of the file while the rows change under it.
  [[nodiscard]] std::optional<std::int64_t> CursorLabel(MeasuringCursor which) const noexcept;
  /// The cursor's row; nothing when it is not set or its point is not among the rows.
  [[nodiscard]] std::optional<int> CursorRow(MeasuringCursor which) const noexcept;
  void SetCursor(MeasuringCursor which, std::optional<std::int64_t> label);
  /// Runs when a cursor was placed, moved or taken away. Esc takes both away.
  Event cursorsChanged;

  /// A point that was looked for, marked until another one is; the text names it. Nothing takes the mark away.
  void SetMark(std::optional<ChartMark> mark);
  [[nodiscard]] const std::optional<ChartMark>& Mark() const noexcept { return mark_; }

  /// The chart's parts with their value axes, as they were painted last; none before.
  [[nodiscard]] const std::vector<SceneLane>& Lanes() const noexcept { return lanes_; }

  /// What goes on to the form.
  ChartAnswers answers;

  /// How far from the plot's left edge a point is, as a share of its width; nothing outside it and before it was
  /// painted.
  [[nodiscard]] std::optional<double> ShareAt(PointF at) const;
  // Input from the back end. -----------------------------------------------------------------------------------------
  [[nodiscard]] bool TabStop() const noexcept override { return true; }
  void MouseMoved(const MouseInput& input) override;
  void MouseLeft() override;
  void MousePressed(const MouseInput& input) override;
  void MouseReleased(const MouseInput& input) override;
  bool WheelTurned(const WheelInput& input) override;
  bool KeyPressed(const KeyPress& press) override;
  void KeyReleased(const KeyPress& press) override;
  [[nodiscard]] std::vector<MenuItem> ContextMenu() override;
  void MenuChosen(int id) override;

 private:
  void ModelChanged();
  void MovePointer(std::optional<int> row);
  [[nodiscard]] std::optional<int> RowAt(PointF at) const;
  /// The box from the press to here; nothing while it is not one yet.
  [[nodiscard]] std::optional<Rect> Box() const;
  /// The lane in which the drag began, where it is one for values.
  [[nodiscard]] std::optional<std::size_t> DraggedLane() const;
  void Drag(const MouseInput& input);
  void EndDrag();

  ChartModel model_;
  NumberFormat format_;
  std::optional<ChartScene> chart_;  ///< the scene last painted; nothing when it is out of date
  std::optional<int> pointerRow_;
  PointF pointerAt_;  ///< where the pointer was last
  std::vector<ReadoutLine> readout_;
  std::vector<ReadoutLine> cursorReadout_;
  std::array<std::optional<std::int64_t>, 2> cursors_;
  std::optional<ChartMark> mark_;
  std::vector<SceneLane> lanes_;
  /// A button is down.
  struct Dragging {
    PointF from;
    PointF to;
    double rowWidth = 1;
    bool pan = false;
    bool box = false;                                      ///< far enough for a box: the press placed no cursor
    std::array<std::optional<std::int64_t>, 2> cursors{};  ///< before the press
    bool values = false;                                   ///< Shift is held: the box is one of values, too
  };
  std::optional<Dragging> drag_;
  Rect front_;  ///< of the plot as it was painted last, perhaps with another model
  bool spaceDown_ = false;
};

}  // namespace chartproject
