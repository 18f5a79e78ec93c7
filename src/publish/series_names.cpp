// Taken from the file's name and its header.
#include "publish/series_names.h"

#include <algorithm>
#include <charconv>

#include "common/values/numbers.h"
#include "common/values/text.h"
#include "publish/recording_feed.h"
#include "recording/companion/companion.h"

namespace chartproject {
namespace {

constexpr std::string_view kChartEnding = ".cht";
constexpr std::string_view kRecoveredStem = ".recovered";

/// "Test" of "Test.cht"; another name as it is.
std::string_view Stem(std::string_view name) {
  const bool ends = name.size() > kChartEnding.size() && ToUpperAscii(name).ends_with(ToUpperAscii(kChartEnding));
  return ends ? name.substr(0, name.size() - kChartEnding.size()) : name;
}

}  // namespace

std::vector<std::string> NamesBeforeRecovery(const std::string& chartFile) {
  std::vector<std::string> names{chartFile};
  std::string_view stem = Stem(chartFile);
  while (!stem.empty() && stem.back() >= '0' && stem.back() <= '9') stem.remove_suffix(1);
  if (stem.size() == chartFile.size() || !stem.ends_with(kRecoveredStem)) return names;
  stem.remove_suffix(kRecoveredStem.size());
  names.push_back(std::string(stem).append(kChartEnding));
  names.emplace_back(stem);
  return names;
}

std::string RecordingName(const std::string& chartFile, const ChartHeader& header) {
  const std::vector<std::string> names = NamesBeforeRecovery(chartFile);
  const std::string& ran = names.size() > 1 ? names[1] : names[0];
  constexpr std::size_t kDigits = 8;
  return std::string(BaseName(Stem(ran))) + "-" + RecordingMark(header, ran).substr(0, kDigits);
}

std::vector<std::string> FieldNames(const ChartHeader& header) {
  int count = 1;
  const std::string& text = header.NumberOfParameters;
  std::from_chars(text.data(), text.data() + text.size(), count);
  const std::array<int, kColumnCount> parameters = ParametersOf(header);
  std::vector<std::string> given;
  for (int column = 0; column < std::clamp(count, 1, kColumnCount); ++column) {
    const int parameter = parameters[static_cast<std::size_t>(column)];
    given.push_back(parameter == kUnusedParameter ? "column" + std::to_string(column + 1)
                                                  : "P" + FormatDigits(parameter, 3));
  }
  std::vector<std::string> names = given;
  for (std::size_t column = 0; column < names.size(); ++column) {
    const auto end = given.begin() + static_cast<std::ptrdiff_t>(column);
    const auto before = std::count(given.begin(), end, given[column]);
    if (before > 0) names[column] += "_" + std::to_string(before + 1);
  }
  return names;
}

}  // namespace chartproject
