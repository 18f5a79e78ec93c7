// The charts that were recorded or shown last, for the start window.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "recording/file/component.h"

namespace chartproject {

/// No more are kept.
inline constexpr std::size_t kRecentCharts = 4;

/// Full names, the latest first, of those that are still there. Throws RunTimeError when the settings cannot be read.
[[nodiscard]] std::vector<std::string> RecentCharts(Ports& ports);

/// Puts a chart file in front of the list, in the settings store. That it cannot be stored is noted in the log only:
/// the chart itself is worth more than its place in a list. Never throws.
void RememberChart(Component& component, const std::string& fileName) noexcept;

/// Remembers the chart, then shows it as ShowChart does. @return false when no window came
bool ShowAndRemember(Component& component, const std::string& fileName);

/// From now on what the acquisition dialog records or shows is remembered, too.
void RememberAllCharts(Component& component);

/// Asks for a chart file, beginning in the project's folder. @return its full name, or nothing when the user gave up
[[nodiscard]] std::optional<std::string> AskForChart(Component& component);

}  // namespace chartproject
