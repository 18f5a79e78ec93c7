// frmChart, the chart window: one chart file, a slice of it as a chart, and the controls that change what is shown.
#pragma once

#include <string>

#include "chart/view/chart_view.h"
#include "chart/window/actions/chart_actions.h"
#include "chart/window/control/chart_control.h"
#include "chart/window/sections/axes_section.h"
#include "chart/window/sections/follow_section.h"
#include "chart/window/sections/measure_section.h"
#include "chart/window/sections/output_section.h"
#include "chart/window/sections/overview_section.h"
#include "chart/window/sections/reading_section.h"
#include "chart/window/sections/readout_section.h"
#include "chart/window/sections/report_section.h"
#include "chart/window/sections/scale_section.h"
#include "chart/window/sections/scroll_section.h"
#include "chart/window/sections/search_section.h"
#include "chart/window/sections/series_section.h"
#include "chart/window/sections/switches_section.h"
#include "chart/window/sections/zoom_section.h"
#include "forms/controls.h"
#include "forms/form.h"
#include "recording/file/component.h"

namespace chartproject {

/// Connects the sections: a change in one of them is chosen in the view, read from the file and shown by the others.
class ChartForm : public Form {
  Component& component_;
  ChartView view_;
  ChartLook look_;  ///< of the chart that is shown

 public:
  /// @param component outlives the form
  explicit ChartForm(Component& component);
  ~ChartForm() override;

  // Controls and sections, in tab order. -----------------------------------------------------------------------------
  RichTextBox rtfInfo{*this, "rtfInfo"};
  SeriesSection series{*this};
  ChartControl mscChart1{*this, "mscChart1"};
  ScrollSection scroll{*this, component_, view_, reading};
  OverviewSection overview{*this, component_, view_, scroll, reading};
  ScaleSection scales{*this, component_};
  SwitchesSection switches{*this, component_};
  OutputSection output{*this, component_, view_, mscChart1, reading};
  ReadingSection reading{*this, component_};
  FollowSection follow{*this, component_, view_, scroll, overview, reading};

  /// Reads the header, checks the drive, finds the points and shows the first slice. An error is logged and shown.
  /// False when nothing can be shown: then the window is not worth showing either.
  bool OpenFile(const std::string& strFileName);
  /// The same, of a recording that is not in its chart file yet where there is one of that name: it is followed.
  bool OpenFollowing(const std::string& strFileName);

  /// Check boxes and chart type as they were when a chart window was closed last.
  void ApplySavedSwitches() { switches.ApplySaved(); }

  /// The user left the window by its print button.
  [[nodiscard]] bool PrintRequested() const noexcept { return output.PrintRequested(); }
  /// What the printed page shows of the window, without its picture.
  [[nodiscard]] ChartPage DescribePage() const { return view_.Page(component_, look_); }
  [[nodiscard]] const ChartView& View() const noexcept { return view_; }

 protected:
  void OnLoad() override;
  void OnActivate() override;
  bool OnQueryClose() override;
  void OnUnload() override;

 private:
  void NumberTexts();
  void ConnectSections();
  void OfferSearches();
  void OfferOutput();
  void PlaceControls();
  void LoadPictures();
  void RestorePlace();
  void SavePlace();

  [[nodiscard]] bool DriveIsKnown() const;
  void ShowFile(const std::string& strFileName);
  void OpenFinished();
  void ShowTitle();
  void ShowInfo();
  /// Reads the chosen slice and shows it. False when the chart stays as it was.
  bool LoadSlice();
  void ShowSlice();
  /// Shows the chosen slice without a message, and without a change of what the user is about to type.
  bool Reload();
  /// The chart in the look of the switches.
  void ShowChart();
  /// Scrolls until a point is among the rows, in their middle where the file allows it.
  void ShowPoint(std::int64_t point);
  /// N becomes what the file holds, where the slice shows another end. True when another slice has to be read then.
  bool MeasureFile();

  bool following_ = false;  ///< the user asked for a recording that may run
  ChartActions actions_;
  ReadoutSection readout_{mscChart1, component_, view_, component_.chartHeader};
  AxesSection axes_{component_, view_, mscChart1, series};
  ZoomSection zoom_{*this, mscChart1, view_, scroll, axes_};
  MeasureSection measure_{component_, view_, mscChart1, reading, readout_};
  ReportSection report_{*this, component_, view_, mscChart1, look_, reading};
  SearchSection search_{component_, view_, mscChart1, reading, readout_};
};

}  // namespace chartproject
