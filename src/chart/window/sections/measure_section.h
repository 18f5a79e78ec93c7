// Measuring: cursors by the keyboard, statistics between them, and their numbers on the clipboard.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "chart/measure/range_statistics.h"
#include "chart/window/actions/chart_actions.h"
#include "chart/window/control/chart_control.h"
#include "chart/window/sections/reading_section.h"
#include "chart/window/sections/readout_section.h"

namespace chartproject {

class MeasureSection {
 public:
  /// @param view,chart,reading,readout outlive the section; `reading` is not looked at before an event
  MeasureSection(Environment& environment, ChartView& view, ChartControl& chart, ReadingSection& reading,
                 ReadoutSection& readout);
  MeasureSection(const MeasureSection&) = delete;
  MeasureSection& operator=(const MeasureSection&) = delete;

  /// Brings a point into the slice that is shown.
  std::function<void(std::int64_t point)> show;

  void Offer(ChartActions& actions);
  /// For another file.
  void Restart();

 private:
  struct Measured {
    std::int64_t first = 0;
    std::int64_t last = 0;
    std::vector<SeriesStatistics> series;
  };

  void MoveCursor(MeasuringCursor which, int step);
  void ToggleStatistics();
  void CopyNumbers();
  [[nodiscard]] bool AnyCursor() const;
  /// Whether the numbers of the cursors' range are there; reads them, with progress, unless they are. False when given
  /// up.
  bool Measure();
  [[nodiscard]] bool IsMeasured() const;
  /// The lines that take the place of the values in the cursors' box; none while statistics are not shown.
  [[nodiscard]] std::vector<ReadoutLine> Lines();

  Environment& env_;
  ChartView& view_;
  ChartControl& chart_;
  ReadingSection& reading_;
  ReadoutSection& readout_;
  bool shown_ = false;
  std::optional<Measured> measured_;
};

}  // namespace chartproject
