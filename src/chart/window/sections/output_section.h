// The buttons that leave the chart window: export, print, close.
#pragma once

#include "chart/view/chart_view.h"
#include "chart/window/actions/chart_actions.h"
#include "chart/window/sections/reading_section.h"
#include "forms/controls.h"
#include "recording/file/component.h"

namespace chartproject {

class OutputSection {
 public:
  /// @param component,view,reading outlive the section; `reading` is not looked at before an event
  OutputSection(Form& form, Component& component, const ChartView& view, ReadingSection& reading);
  OutputSection(const OutputSection&) = delete;
  OutputSection& operator=(const OutputSection&) = delete;

  CommandButton cmdExport;
  CommandButton cmdPrint;
  CommandButton cmdOK;

  void Offer(ChartActions& actions);
  /// The user left the window by its print button.
  [[nodiscard]] bool PrintRequested() const noexcept { return printRequested_; }

 private:
  void cmdExport_Click();
  void cmdPrint_Click();
  void cmdOK_Click();

  Form& form_;
  Component& component_;
  const ChartView& view_;
  ReadingSection& reading_;
  bool printRequested_ = false;
};

}  // namespace chartproject
