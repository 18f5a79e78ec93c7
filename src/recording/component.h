// All the state of one instance of the component.
#pragma once

#include <functional>
#include <string>

#include "drive/drive_context.h"
#include "recording/chart_header.h"

namespace chartproject {

/// It stands on this floor, the lowest that can see all of it, so that the acquisition dialog and the chart window
/// share it; ChartClass owns the one of a process, tests make their own.
struct Component : DriveContext {
  using DriveContext::DriveContext;

  std::string strChartFileName;      ///< the current chart file name
  std::string selectedDriveAddress;  ///< as listed in the acquisition dialog, two digits
  std::string timeText;              ///< the time between points as last checked
  std::string contentText;           ///< the comparison value as last checked
  ChartHeader chartHeader;
  /// Shows a chart file in the chart window, which stands a floor above; set when the component is created.
  std::function<void(Component&, const std::string&)> showChart;
};

}  // namespace chartproject
