// Showing more or fewer points: the whole recording, a box, the wheel, and the way back.
#pragma once

#include <cstdint>
#include <vector>

#include "chart/view/chart_view.h"
#include "chart/window/actions/chart_actions.h"
#include "chart/window/control/chart_control.h"
#include "chart/window/sections/axes_section.h"
#include "chart/window/sections/scroll_section.h"

namespace chartproject {

class ZoomSection {
 public:
  /// @param form,chart,view,scroll,axes outlive the section
  ZoomSection(Form& form, ChartControl& chart, const ChartView& view, ScrollSection& scroll, AxesSection& axes);
  ZoomSection(const ZoomSection&) = delete;
  ZoomSection& operator=(const ZoomSection&) = delete;

  /// For another file: there is no way back.
  void Restart() { before_.clear(); }
  /// The same points are in lines that many further on.
  void Shift(std::int64_t lines);
  void Offer(ChartActions& actions);
  /// With Ctrl the wheel zooms at the pointer, whose point stays where it is. False without Ctrl.
  bool ZoomByWheel(const WheelInput& input);

 private:
  struct Place {
    std::int64_t startLine = 0;
    std::int64_t division = 1;  ///< in points
    friend bool operator==(const Place&, const Place&) = default;
  };
  /// A way back.
  struct Step {
    Place place;
    ChosenRanges ranges;
    friend bool operator==(const Step&, const Step&) = default;
  };
  [[nodiscard]] Step Now() const { return {{view_.StartLine(), view_.Division()}, axes_.Ranges()}; }
  void Remember(const Step& from);
  [[nodiscard]] Place Whole() const;
  /// @param share of the chart's width from its left edge, whose point stays
  void ZoomAt(double share, double factor);
  void GoTo(const Place& place, bool byWheel = false);
  void GoBack();
  void ShowBox(double firstRow, double endRow, const std::optional<BoxValues>& values);

  ChartControl& chart_;
  const ChartView& view_;
  ScrollSection& scroll_;
  AxesSection& axes_;
  std::vector<Step> before_;
  bool turning_ = false;  ///< one way back for all the turns of the wheel that follow each other
  std::int64_t heldLine_ = 0;
};

}  // namespace chartproject
