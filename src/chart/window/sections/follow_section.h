// A file that grows while the window shows it: a recording that runs, or any other.
#pragma once

#include <functional>
#include <string>

#include "chart/view/chart_view.h"
#include "chart/window/sections/overview_section.h"
#include "chart/window/sections/reading_section.h"
#include "chart/window/sections/scroll_section.h"
#include "forms/timer.h"

namespace chartproject {

/// Looks at the file in the window's idle time. A slice at the end stays there; any other one stays where it is. Of a
/// recording that runs the chart shows up to 500 points at first, and all of them after Fit.
class FollowSection {
 public:
  /// All outlive the section; `reading` and `overview` are not looked at before an event
  FollowSection(Form& form, Environment& environment, ChartView& view, ScrollSection& scroll, OverviewSection& overview,
                ReadingSection& reading);
  FollowSection(const FollowSection&) = delete;
  FollowSection& operator=(const FollowSection&) = delete;

  Timer tmrFollow;

  /// Shows the slice that was chosen, quietly. False when the file holds a line that is not a point.
  std::function<bool()> reload;
  /// The recording is in its chart file: the window goes over to that.
  std::function<void()> openFinished;

  /// A file was opened. Of an unfinished recording its end is chosen.
  void Restart();
  /// Goes over to the chart file where the recording has ended by now. False when there is no such file either.
  bool CatchUp();

 private:
  enum class State : std::uint8_t { kRunning, kInterrupted, kStopped };

  void tmrFollow_Tick();
  void Look();
  void PointsCame(std::int32_t before);
  void ShowState();
  /// Points of a division for the slice that is shown, now that there are more points.
  [[nodiscard]] std::int64_t NextDivision(std::int32_t before) const;

  Environment& env_;
  ChartView& view_;
  ScrollSection& scroll_;
  OverviewSection& overview_;
  ReadingSection& reading_;
  State state_ = State::kRunning;
  int quietLooks_ = 0;  ///< since the last point
};

}  // namespace chartproject
