// All the state of one instance of the component.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>

#include "drive/drive_context.h"
#include "recording/file/chart_header.h"

namespace chartproject {

class Form;
class LiveChart;

/// The state that the acquisition dialog and the chart window share. It is in the lowest layer that can see all of its
/// parts. ChartClass owns the one of a process; tests make their own.
struct Component : DriveContext {
  using DriveContext::DriveContext;

  std::string strChartFileName;      ///< the current chart file name
  std::string selectedDriveAddress;  ///< as listed in the acquisition dialog, two digits
  std::string timeText;              ///< the time between points as last checked
  std::string contentText;           ///< the comparison value as last checked
  ChartHeader chartHeader;
  std::set<std::string> simulatedRecordings;  ///< files recorded from simulated drives while the component lives
  /// Shows a chart file in the chart window, which is a layer above; set when the component is created.
  std::function<void(Component&, const std::string&)> showChart;
  /// Makes a form's chart of the points that a recording takes, which is a layer above, too; empty for none.
  std::function<std::unique_ptr<LiveChart>(Component&, Form&)> makeLiveChart;
  /// Called when a recording is in its chart file, with the file's full name; empty where nobody wants to know.
  std::function<void(Component&, const std::string&)> chartRecorded;
};

}  // namespace chartproject
