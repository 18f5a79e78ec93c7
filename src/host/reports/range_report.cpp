// From the options to the numbers.
#include "host/reports/range_report.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "chart/view/chart_view.h"
#include "common/values/numbers.h"
#include "host/arguments/command.h"
#include "texts/texts.h"

namespace chartproject {
namespace {

struct Figure {
  std::string_view word;
  double SeriesStatistics::*value;
};
constexpr std::array<Figure, 6> kFigures{{
    {"minimum", &SeriesStatistics::minimum},
    {"maximum", &SeriesStatistics::maximum},
    {"mean", &SeriesStatistics::mean},
    {"rms", &SeriesStatistics::rms},
    {"slope", &SeriesStatistics::slope},
    {"integral", &SeriesStatistics::integral},
}};

}  // namespace

RangeReport MeasureChosenRange(Ports& ports, const std::string& chartFile, const RangeOptions& options,
                               Language language) {
  ChartHeader header;
  ChartView view(ports, header);
  view.Open(chartFile);
  RangeReport report;
  report.range = options.Resolve(view, language);
  const std::int64_t held = view.Source().Count({}).value_or(PointCount{}).lastLine - view.FirstLine() + 1;
  if (held < report.range.first) throw RefusedError(std::string(TextIn(language, Text::kNoPointOfRange)));
  report.range.last = std::min(report.range.last, held);
  const MeasureRequest request{report.range.first, report.range.last, view.SeriesCount(), &view.Facts().Clock(),
                               view.Facts().Failed()};
  const auto measured = MeasureRange(view.Source(), request, ports.locale.Numbers());
  for (int series = 0; measured && series < view.SeriesCount(); ++series) {
    report.series.push_back({view.Series(series).number, (*measured)[static_cast<std::size_t>(series)]});
  }
  return report;
}

void PrintRange(const RangeReport& report, const NumberFormat& numbers, std::ostream& out) {
  out << "Points " << report.range.first << " to " << report.range.last << "\n";
  for (const RangeReport::Series& series : report.series) {
    out << "  " << series.number << ": " << series.values.count << " values";
    for (const Figure& figure : kFigures) {
      const double value = series.values.*figure.value;
      out << ", " << figure.word << " " << (std::isnan(value) ? "--" : DoubleText(value, numbers));
    }
    out << ", crossings of the mean " << series.values.crossings << "\n";
  }
}

void AddRange(nlohmann::ordered_json& document, const RangeReport& report) {
  nlohmann::ordered_json range;
  range["first"] = report.range.first;
  range["last"] = report.range.last;
  range["series"] = nlohmann::ordered_json::array();
  for (const RangeReport::Series& series : report.series) {
    nlohmann::ordered_json part;
    part["parameter"] = series.number;
    part["values"] = series.values.count;
    part["leftOut"] = series.values.leftOut;
    for (const Figure& figure : kFigures) {
      const double value = series.values.*figure.value;
      part[std::string(figure.word)] = std::isnan(value) ? nlohmann::ordered_json() : nlohmann::ordered_json(value);
    }
    part["crossings"] = series.values.crossings;
    range["series"].push_back(std::move(part));
  }
  document["range"] = std::move(range);
}

}  // namespace chartproject
