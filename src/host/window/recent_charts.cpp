// The list is a section of its own in the settings: File1 is the latest.
#include "host/window/recent_charts.h"

#include <algorithm>

#include "chart/window/show_chart.h"
#include "common/environment/language.h"
#include "common/error_log.h"
#include "recording/file/chart_file.h"

namespace chartproject {

namespace {

constexpr std::string_view kSection = "MyCharts";

std::string KeyOf(std::size_t place) {
  return "strRecent" + std::to_string(place + 1);
}

bool HasHeader(const Ports& ports, const std::string& fileName) {
  try {
    ChartHeader header;
    return ReadChartHeader(*ports.files.OpenForReading(fileName), ports.codePage, header).keys > 0;
  } catch (const RunTimeError&) {
    return false;  // its window says why
  }
}

std::vector<std::string> StoredCharts(Ports& ports) {
  std::vector<std::string> names;
  for (std::size_t place = 0; place < kRecentCharts; ++place) {
    std::string name = ports.settings.Read(kSection, KeyOf(place)).value_or("");
    if (!name.empty()) names.push_back(std::move(name));
  }
  return names;
}

}  // namespace

std::vector<std::string> RecentCharts(Ports& ports) {
  std::vector<std::string> names = StoredCharts(ports);
  std::erase_if(names, [&ports](const std::string& name) { return !ports.files.FileExists(name); });
  return names;
}

void RememberChart(Component& component, const std::string& fileName) noexcept {
  try {
    if (!HasHeader(component.ports, fileName)) return;  // no chart falls out of the list for it
    std::vector<std::string> names = StoredCharts(component.ports);
    if (!names.empty() && names.front() == fileName) return;
    std::erase(names, fileName);
    names.insert(names.begin(), fileName);
    names.resize(std::min(names.size(), kRecentCharts));
    std::vector<StoredSetting> rows;
    for (std::size_t place = 0; place < names.size(); ++place) rows.push_back({KeyOf(place), names[place]});
    component.ports.settings.Write(kSection, rows);
  } catch (const std::exception& error) {
    NoteRunTimeError(component, "RememberChart", AsRunTimeError(error));
  }
}

bool ShowAndRemember(Component& component, const std::string& fileName) {
  RememberChart(component, fileName);
  return ShowChart(component, fileName);
}

void RememberAllCharts(Component& component) {
  component.showChart = ShowAndRemember;
  component.chartRecorded = RememberChart;
}

std::optional<std::string> AskForChart(Component& component) {
  return component.ports.dialogs.ShowOpenFile(
      {component.settings.strFolder, LoadMessage(component, Text::kStartChartFiles) + " (*.cht)|*.cht", 1, 4096});
}

}  // namespace chartproject
