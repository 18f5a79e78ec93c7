// The whole recording at a glance: the strip under the chart, and the survey of the file in the window's idle time.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "chart/view/chart_view.h"
#include "chart/window/actions/chart_actions.h"
#include "chart/window/control/overview_control.h"
#include "chart/window/sections/reading_section.h"
#include "chart/window/sections/scroll_section.h"
#include "forms/timer.h"

namespace chartproject {

class OverviewSection {
 public:
  /// @param view,scroll,reading outlive the section; `reading` is not looked at before an event
  OverviewSection(Form& form, Environment& environment, ChartView& view, ScrollSection& scroll,
                  const ReadingSection& reading);
  OverviewSection(const OverviewSection&) = delete;
  OverviewSection& operator=(const OverviewSection&) = delete;

  OverviewControl ovwRecording;
  Timer tmrSurvey;

  /// More is known of the file than the wide slice shows.
  std::function<void()> advanced;

  /// The strip is hidden or not, as it was when a chart window was closed last.
  void Prepare();
  void Save();
  /// Another file was opened.
  void Restart();
  /// A slice is shown, of this file or of another one; the survey goes on where the file has grown.
  void Follow(const ChartLook& look);
  /// The file has grown: the survey goes on.
  void Resume() { tmrSurvey.SetEnabled(true); }
  void Offer(ChartActions& actions);

 private:
  void tmrSurvey_Tick();
  void ShowStrip();
  void ShowModel();

  Form& form_;
  Environment& env_;
  ChartView& view_;
  ScrollSection& scroll_;
  const ReadingSection& reading_;
  bool wanted_ = true;
  std::array<std::int16_t, kColumnCount> scales_{1, 1, 1, 1};
  Instant shownAt_{};
  std::int64_t shownLines_ = -1;  ///< of the survey that the strip shows
};

}  // namespace chartproject
