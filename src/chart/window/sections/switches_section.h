// Chart type, grid, lines and markers.
#pragma once

#include <functional>

#include "chart/view/chart_building.h"
#include "chart/window/actions/chart_actions.h"
#include "common/environment/environment.h"
#include "forms/controls.h"

namespace chartproject {

class SwitchesSection {
 public:
  SwitchesSection(Form& form, Environment& environment);
  SwitchesSection(const SwitchesSection&) = delete;
  SwitchesSection& operator=(const SwitchesSection&) = delete;

  Label lblChartType;
  ComboBox cboChartType;
  CheckBox chkGrid;
  CheckBox chkLine;
  CheckBox chkMarker;

  /// The user wants another look of the same chart.
  std::function<void()> changed;

  /// Fills the list of chart types.
  void Prepare();
  /// Check boxes and chart type as they were when a chart window was closed last.
  void ApplySaved();
  void Save();
  void Offer(ChartActions& actions);
  /// The look that the switches show. A grey grid box leaves the grid as it is.
  void Fill(ChartLook& look) const;

 private:
  void cboChartType_Click();
  void chkGrid_Click() { changed(); }
  void chkLine_Click() { changed(); }
  void chkMarker_Click() { changed(); }

  Environment& env_;
};

}  // namespace chartproject
