// Options to a slice, a slice to a chart.
#include "host/reports/chart_picture.h"

#include <algorithm>
#include <limits>

#include "acquire/dialog/input_rules.h"
#include "common/error_log.h"
#include "common/values/numbers.h"
#include "host/arguments/arguments.h"
#include "host/arguments/chart_argument.h"
#include "host/arguments/command.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

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

CategoryUnit ParseAxis(const std::string& text) {
  if (text == "points") return CategoryUnit::kPoints;
  if (text == "elapsed") return CategoryUnit::kElapsed;
  if (text == "time") return CategoryUnit::kTimeOfDay;
  throw RefusedError("--axis: points, elapsed or time, not \"" + text + "\"");
}

constexpr std::int64_t kMostRows = std::int64_t{kDivisions} * kMostPointsPerDivision;

/// The chosen range as far as the file has it, where that has to be known: an end that is the file's own, and a range
/// of more points than are drawn one by one.
PointRange Limited(ChartView& view, const ChartPictureOptions::Choice& choice, Language language) {
  PointRange range = choice.range.Resolve(view, language);
  const bool toTheEnd = choice.whole && !choice.pointsPerDivision && !range.HasEnd();
  if (!toTheEnd && !(range.HasEnd() && range.Count() > kMostRows)) return range;
  const std::int64_t held = view.Source().Count({}).value_or(PointCount{}).lastLine - view.FirstLine() + 1;
  range.last = std::min(range.last, held);
  return range;
}

void LoadSlice(ChartView& view, const PointRange& range, const std::optional<std::int16_t>& pointsPerDivision) {
  if (range.HasEnd() && !pointsPerDivision) {
    view.LoadRange(range);
    return;
  }
  const std::int64_t begin = std::int64_t{view.FirstLine()} + range.first - 1;
  view.SetPointsPerDivision(pointsPerDivision.value_or(1));
  view.ScrollTo(begin);
  if (range.HasEnd()) view.EndBefore(begin + range.Count());
  view.Load();
}

}  // namespace

void ChartPictureOptions::AddTo(CLI::App& command) {
  command.add_option("--type", type_, "0 and 1 bars, 2 and 3 lines, 4 and 5 areas, 6 and 7 steps; even numbers in 3D")
      ->type_name("0|1|2|3|4|5|6|7")
      ->capture_default_str();
  range_.AddTo(command, "25 divisions");
  command
      .add_option("--points-per-division", division_,
                  "points in each of the 25 divisions [default: 1, or as few as show the range]")
      ->type_name("N");
  command.add_option("--scale", scales_, "multiplier of each series, for example 1,10")->type_name("N[,N...]");
  command.add_option("--grid", grid_, "lines of the grid")->type_name("on|off")->capture_default_str();
  command.add_option("--markers", markers_, "a marker at each point")->type_name("on|off")->capture_default_str();
  command.add_option("--axis", axis_, "what the category axis counts")
      ->type_name("points|elapsed|time")
      ->capture_default_str();
  command.add_flag("--fit", fit_, "the whole recording, or all from --first or --from on, as the key F shows it");
  command.add_flag("--lanes", lanes_, "one value axis for each series, one below the other");
  command.add_option("--hide", hidden_, "series that are left out, counted from 1, for example 2,3")
      ->type_name("N[,N...]");
  command.add_flag("--legend", legend_, "names of the series beside the chart");
  command.add_option("--lines", lines_, "the lines of line charts")->type_name("on|off")->capture_default_str();
}

ChartPictureOptions::Choice ChartPictureOptions::Parse() const {
  Choice choice;
  ChartLook& look = choice.look;
  look.kind = static_cast<ChartKind>(ParseNumber(type_, "--type", 0, kChartKindCount - 1));
  if (!division_.empty()) {
    choice.pointsPerDivision =
        CheckedInteger16(ParseNumber(division_, "--points-per-division", 1, kMostPointsPerDivision));
  }
  if (fit_ && !division_.empty()) throw RefusedError("--fit: as many points in a division as show all, not so many");
  choice.range = range_;
  choice.whole = fit_;
  look.grid = ParseSwitch(grid_, "--grid");
  look.markers = ParseSwitch(markers_, "--markers");
  look.lines = ParseSwitch(lines_, "--lines");
  look.axis = ParseAxis(axis_);
  look.lanes = lanes_;
  look.legend = legend_;
  if (!hidden_.empty()) {
    for (const std::string& series : SplitList(hidden_)) {
      look.hidden.at(static_cast<std::size_t>(ParseNumber(series, "--hide", 1, kColumnCount) - 1)) = true;
    }
  }
  if (scales_.empty()) return choice;
  const std::vector<std::string> scales = SplitList(scales_);
  if (scales.size() > look.scales.size()) throw RefusedError("--scale: four numbers at most");
  for (std::size_t s = 0; s < scales.size(); ++s) {
    constexpr int kMostScale = std::numeric_limits<std::int16_t>::max();
    look.scales[s] = CheckedInteger16(ParseNumber(scales[s], "--scale", 1, kMostScale));
  }
  return choice;
}

PointRange LoadChosenSlice(ChartView& view, const std::string& fileName, const ChartPictureOptions::Choice& choice,
                           Language language) {
  view.Open(fileName);
  if (!view.HasPoints())
    throw RunTimeError(error_number::kInvalidFileFormat, Text::kChartFileWithoutPoints, {fileName});
  if (view.Facts().AxisFor(choice.look.axis) != choice.look.axis) {
    throw RefusedError("--axis: the header of the file does not say the times of its points");
  }
  const PointRange range = Limited(view, choice, language);
  LoadSlice(view, range, choice.pointsPerDivision);
  if (view.Fault().number > 0) {
    constexpr std::size_t kMostShown = 80;
    throw RunTimeError(error_number::kInvalidFileFormat, Text::kLineIsNotAPoint,
                       {fileName, std::to_string(view.Fault().number), view.Fault().text.substr(0, kMostShown)});
  }
  return range.HasEnd() ? range : view.ShownRange().value_or(range);
}

void NameSeriesIfKnown(ChartView& view, Component& component) {
  try {
    if (!component.driveTable.At(view.DriveAddress()).Type.empty()) view.NameSeries(component);
  } catch (const RunTimeError& error) {
    NoteRunTimeError(component, "NameSeries", error);  // an address outside the table
  }
}

}  // namespace chartproject
