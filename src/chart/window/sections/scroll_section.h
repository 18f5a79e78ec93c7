// Moving the slice over the file: scroll bar, points per division, keys and wheel over the chart.
#pragma once

#include <functional>

#include "chart/view/chart_view.h"
#include "chart/window/actions/chart_actions.h"
#include "chart/window/sections/reading_section.h"
#include "forms/controls.h"

namespace chartproject {

class ScrollSection {
 public:
  /// @param view,reading outlive the section; `reading` is not looked at before an event
  ScrollSection(Form& form, Environment& environment, ChartView& view, const ReadingSection& reading);
  ScrollSection(const ScrollSection&) = delete;
  ScrollSection& operator=(const ScrollSection&) = delete;

  HScrollBar hsbGraph;
  Label lblPointsPerDivision;
  Slider sldPointsPerDivision;

  /// Reads the slice that was chosen and shows it; false when the chart stays as it was.
  std::function<bool()> load;

  /// For a file that was opened: at its first point, one point a division.
  void Restart();
  /// Range and steps of the bar for the file and the points per division.
  void Prepare();
  /// Bar and slider show the slice that is chosen.
  void Follow();
  /// The slider shows the points per division that are chosen.
  void ShowPointsPerDivision();

  /// Adds the actions that scroll to those of the window.
  void Offer(ChartActions& actions);
  /// Chooses start and division at once, as near as the file has them, and shows them. Throws RunTimeError.
  /// @param division in points
  void ShowDivisions(std::int64_t startLine, std::int64_t division);
  /// Scrolls to a line, as near as the file has it. Throws RunTimeError.
  void ScrollTo(std::int64_t startLine);
  void ScrollByWheel(int notches);
  void ScrollToEnd();

 private:
  void hsbGraph_Change();
  void sldPointsPerDivision_Change();
  void ScrollBy(std::int64_t points) { ScrollTo(view_.StartLine() + points); }
  /// Points of a page: one division less than the slice has.
  [[nodiscard]] std::int64_t Page() const { return view_.Division() * (kDivisions - 1); }

  Environment& env_;
  ChartView& view_;
  const ReadingSection& reading_;
  bool quiet_ = false;     ///< bar and slider follow the slice instead of choosing it
  bool deferred_ = false;  ///< the bar chooses the slice, the caller loads it
};

}  // namespace chartproject
