// Options to a slice, a slice to a chart.
#include "host/commands/chart_picture.h"

#include <limits>

#include "chart/file/chart_source.h"
#include "chart/window/scroll_range.h"
#include "common/values/numbers.h"
#include "forms/form_host.h"
#include "host/commands/arguments.h"
#include "host/commands/chart_argument.h"
#include "host/commands/command.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr int kMostPoints = 2'000'000'000;

std::vector<std::string> SplitList(const std::string& text) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == ',') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

bool ParseSwitch(const std::string& text, const std::string& option) {
  if (text == "on") return true;
  if (text == "off") return false;
  throw RefusedError(option + ": on or off, not \"" + text + "\"");
}

}  // namespace

void ChartPictureOptions::AddTo(CLI::App& command) {
  command.add_option("--type", type_, "0 and 1 bars, 2 and 3 lines, 4 and 5 areas, 6 and 7 steps; even numbers in 3D")
      ->capture_default_str();
  command.add_option("--first", first_, "first point shown, counted from 1")->capture_default_str();
  command.add_option("--points-per-division", division_, "points in each of the 25 divisions")->capture_default_str();
  command.add_option("--scale", scales_, "multiplier of each series, for example 1,10");
  command.add_option("--grid", grid_, "on or off")->capture_default_str();
  command.add_option("--markers", markers_, "on or off")->capture_default_str();
  command.add_option("--lines", lines_, "on or off")->capture_default_str();
}

ChartPictureOptions::Choice ChartPictureOptions::Parse() const {
  Choice choice;
  ChartSettings& settings = choice.settings;
  settings.chartType = ParseNumber(type_, "--type", 0, 7);
  settings.pointsPerDivision =
      CheckedInteger16(ParseNumber(division_, "--points-per-division", 1, kMostPointsPerDivision));
  choice.first = ParseNumber(first_, "--first", 1, kMostPoints);
  choice.grid = ParseSwitch(grid_, "--grid");
  choice.markers = ParseSwitch(markers_, "--markers");
  choice.lines = ParseSwitch(lines_, "--lines");
  if (scales_.empty()) return choice;
  const std::vector<std::string> scales = SplitList(scales_);
  if (scales.size() > settings.scales.size()) throw RefusedError("--scale: four numbers at most");
  for (std::size_t s = 0; s < scales.size(); ++s) {
    constexpr int kMostScale = std::numeric_limits<std::int16_t>::max();
    settings.scales[s] = CheckedInteger16(ParseNumber(scales[s], "--scale", 1, kMostScale));
  }
  return choice;
}

ChartPictureForm::ChartPictureForm(FormHost& forms, Size size)
    : Form(forms, "frmPicture", [](const auto& /*routine*/, const auto& /*error*/) {}) {
  chart_.SetPlace({0, 0, size.width, size.height});
}

void ChartPictureForm::Build(Ports& ports, const std::string& fileName, ChartPictureOptions::Choice choice,
                             ChartHeader& header) {
  ChartSource source(ports);
  source.Open(fileName, header);
  if (!source.HasPoints()) throw RunTimeError(kInvalidFileFormat, Text::kChartFileWithoutPoints, {fileName});
  ChartSettings& settings = choice.settings;
  const std::int64_t start = std::int64_t{source.FirstLine()} + choice.first - 1;
  const std::int64_t end = start + SliceLength(settings.pointsPerDivision);
  const int columns = source.NamedSeries() == 0 ? kColumnCount : source.NamedSeries();
  const SliceReading reading = source.Read(CheckedInteger32(start), CheckedInteger32(end), columns);
  if (reading.end == SliceEnd::kMalformedLine) {
    constexpr std::size_t kMostShown = 80;
    throw RunTimeError(kInvalidFileFormat, Text::kLineIsNotAPoint,
                       {fileName, std::to_string(reading.malformedLine), reading.malformedText.substr(0, kMostShown)});
  }
  if (reading.slice.RowCount() == 0 && choice.first > 1) {
    const std::int64_t held = reading.slice.lastLine - source.FirstLine() + 1;
    throw RefusedError("--first: the file holds " + std::to_string(held) + " points, there is no point " +
                       std::to_string(choice.first));
  }
  settings.series = source.NamedSeries() == 0 ? reading.slice.columnsInUse : source.NamedSeries();
  settings.firstLine = source.FirstLine();
  chart_.SetNumberFormat(ports.locale.Numbers());
  BuildChart(chart_, reading.slice, settings);
  ShowGrid(chart_, choice.grid);
  ShowMarkers(chart_, choice.markers);
  ShowLines(chart_, choice.lines);
}

Bitmap ChartPictureForm::Picture(double scale) {
  return chart_.CopyPicture(*Host().Pictures(), scale);
}

}  // namespace chartproject
