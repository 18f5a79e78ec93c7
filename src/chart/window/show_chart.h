// Shows a chart file in the chart window, and prints the chart when the user left the window by its print button.
#pragma once

#include <string>

#include "recording/file/component.h"

namespace chartproject {

/// Opens the chart window for a file and returns when the user has left it. A file that cannot be opened is logged and
/// shown, and no window stays. Never throws: every run-time error of the window ends in the error log.
/// @param strFileName full name of the chart file
/// @return false when no window came
bool ShowChart(Component& component, const std::string& strFileName);

/// The same; where a recording of that name is not in its chart file yet, the window follows it.
bool ShowFollowing(Component& component, const std::string& strFileName);

}  // namespace chartproject
