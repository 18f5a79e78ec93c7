// The values under the mouse pointer and at the measuring cursors.
#pragma once

#include <array>
#include <functional>
#include <optional>

#include "chart/view/chart_view.h"
#include "chart/window/actions/chart_actions.h"
#include "chart/window/control/chart_control.h"
#include "chart/window/control/readout.h"

namespace chartproject {

class ReadoutSection {
 public:
  /// @param chart,view,header outlive the section
  ReadoutSection(ChartControl& chart, Environment& environment, ChartView& view, const ChartHeader& header);
  ReadoutSection(const ReadoutSection&) = delete;
  ReadoutSection& operator=(const ReadoutSection&) = delete;

  /// The row under the pointer is another one, or has other values.
  void PointerRowChanged();
  void ForgetCursors();
  /// The box of the cursors says what is known now.
  void CursorsChanged();
  /// What it says of the points of the cursors, values included.
  [[nodiscard]] std::vector<ReadoutLine> CursorLines() const;
  /// Names of the series, for example "P005".
  [[nodiscard]] std::vector<std::string> Names() const;

  /// Lines that take the place of the values in the cursors' box; none leave it as it is.
  std::function<std::vector<ReadoutLine>()> instead;
  void Offer(ChartActions& actions);

 private:
  [[nodiscard]] PointReading Point(const Slice& slice, int row) const;
  /// The points of a row of a wide slice and what they reach.
  [[nodiscard]] std::vector<ReadoutLine> RangeReadout(int row) const;

  ChartControl& chart_;
  Environment& env_;
  ChartView& view_;
  const ChartHeader& header_;
  std::array<std::optional<PointReading>, 2> cursors_;
};

}  // namespace chartproject
