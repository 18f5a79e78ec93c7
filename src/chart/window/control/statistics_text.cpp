// Numbers and their names, in the user's language and locale.
#include "chart/window/control/statistics_text.h"

#include <algorithm>

#include "common/environment/language.h"
#include "common/values/measured_text.h"
#include "common/values/text.h"

namespace chartproject {
namespace {

constexpr int kShownDigits = 6;
constexpr int kAllDigits = 15;

struct StatisticsRow {
  Text name;
  double SeriesStatistics::*number;
};
constexpr std::array<StatisticsRow, 6> kRows{{{Text::kStatMinimum, &SeriesStatistics::minimum},
                                              {Text::kStatMaximum, &SeriesStatistics::maximum},
                                              {Text::kStatMean, &SeriesStatistics::mean},
                                              {Text::kStatRms, &SeriesStatistics::rms},
                                              {Text::kStatSlope, &SeriesStatistics::slope},
                                              {Text::kStatIntegral, &SeriesStatistics::integral}}};

std::vector<ReadoutLine> Table(const Environment& environment, const std::vector<std::string>& names,
                               const std::vector<SeriesStatistics>& statistics, int digits) {
  const NumberFormat& format = environment.ports.locale.Numbers();
  std::vector<ReadoutLine> lines{{"", -1, names}};
  const auto add = [&](Text name, const auto& cell) {
    ReadoutLine line{LoadMessage(environment, name)};
    for (const SeriesStatistics& series : statistics) line.cells.push_back(cell(series));
    lines.push_back(std::move(line));
  };
  for (const StatisticsRow& row : kRows) {
    add(row.name, [&](const SeriesStatistics& series) { return NumberText(series.*row.number, digits, format); });
  }
  add(Text::kStatCrossings, [](const SeriesStatistics& series) { return std::to_string(series.crossings); });
  const bool gaps = std::ranges::any_of(statistics, [](const SeriesStatistics& series) { return series.leftOut > 0; });
  if (gaps) add(Text::kStatNotMeasured, [](const SeriesStatistics& series) { return std::to_string(series.leftOut); });
  return lines;
}

}  // namespace

std::vector<ReadoutLine> StatisticsLines(const Environment& environment, const std::vector<std::string>& names,
                                         const std::vector<SeriesStatistics>& statistics) {
  return Table(environment, names, statistics, kShownDigits);
}

std::string StatisticsText(const Environment& environment, const std::vector<std::string>& names,
                           const std::vector<SeriesStatistics>& statistics) {
  std::string text;
  for (const ReadoutLine& line : Table(environment, names, statistics, kAllDigits)) {
    text += line.text;
    for (const std::string& cell : line.cells) text += "\t" + cell;
    text += kLineEnd;
  }
  return text;
}

}  // namespace chartproject
