// What leaves the chart window: export, print, picture; and its close button.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "chart/view/chart_view.h"
#include "chart/window/actions/chart_actions.h"
#include "chart/window/control/chart_control.h"
#include "chart/window/sections/range_offer.h"
#include "chart/window/sections/reading_section.h"
#include "forms/controls.h"
#include "recording/file/component.h"

namespace chartproject {

class OutputSection {
 public:
  /// @param component,view,chart,reading outlive the section; `reading` is not looked at before an event
  OutputSection(Form& form, Component& component, const ChartView& view, ChartControl& chart, ReadingSection& reading);
  OutputSection(const OutputSection&) = delete;
  OutputSection& operator=(const OutputSection&) = delete;

  CommandButton cmdExport;
  CommandButton cmdPrint;
  CommandButton cmdOK;

  /// Asks a question and for one of the entries' ranges; nothing when the answer was No.
  std::function<std::optional<PointRange>(const std::string& question, const std::vector<RangeEntry>& entries)> ask;

  void Offer(ChartActions& actions);
  /// The user left the window by its print button.
  [[nodiscard]] bool PrintRequested() const noexcept { return printRequested_; }

 private:
  void cmdExport_Click();
  void cmdPrint_Click();
  void cmdOK_Click();
  [[nodiscard]] Bitmap Picture();
  void CopyPicture();
  void SavePicture();

  Form& form_;
  Component& component_;
  const ChartView& view_;
  ChartControl& chart_;
  ReadingSection& reading_;
  bool printRequested_ = false;
};

}  // namespace chartproject
