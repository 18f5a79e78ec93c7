// One pass over the rows.
#include "recording/file/row_survey.h"

#include <algorithm>
#include <optional>

#include "recording/file/point_reader.h"

namespace chartproject {

namespace {

constexpr std::uint64_t kDigestPrime = 1099511628211U;
constexpr std::int64_t kLinesPerKeepAlive = 131'072;
constexpr int kHalfADay = 12 * 3600;

/// Seconds since midnight of "hh:mm:ss"; nothing for another text.
std::optional<int> SecondsOfDay(std::string_view time) {
  if (time.size() != std::string_view("hh:mm:ss").size() || time[2] != ':' || time[5] != ':') return std::nullopt;
  int fields[3] = {};
  for (std::size_t i = 0; i < time.size(); ++i) {
    if (i % 3 == 2) continue;
    if (time[i] < '0' || time[i] > '9') return std::nullopt;
    fields[i / 3] = fields[i / 3] * 10 + (time[i] - '0');
  }
  return (fields[0] * 60 + fields[1]) * 60 + fields[2];
}

void AddDigest(std::uint64_t& digest, std::string_view text) {
  for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * kDigestPrime;
  digest = (digest ^ static_cast<unsigned char>('\n')) * kDigestPrime;
}

}  // namespace

void AddRows(RowSurvey& survey, InputFile& file, const RowStart& first, std::uint64_t limit,
             const std::function<void()>& keepAlive) {
  PointReader reader(file, first);
  std::optional<int> before = SecondsOfDay(survey.lastTime);
  for (PointLine line; reader.Next(line);) {
    if (keepAlive && line.number % kLinesPerKeepAlive == 0) keepAlive();
    if (line.kind == LineKind::kMalformed) ++survey.malformed;
    if (line.kind == LineKind::kPoint && !line.row.time.empty()) {
      ++survey.points;
      if (survey.firstTime.empty()) survey.firstTime = line.row.time;
      if (survey.lastTime != line.row.time) {
        survey.lastTime = line.row.time;
        const std::optional<int> now = SecondsOfDay(line.row.time);
        if (now && before && *before - *now >= kHalfADay) ++survey.midnights;
        if (now) before = now;
      }
      for (int column = kColumnCount; column > survey.columns; --column) {
        if (!line.row.values[static_cast<std::size_t>(column - 1)].empty()) survey.columns = column;
      }
      AddDigest(survey.digest, line.text);
    }
    if (line.offset - first.offset >= limit) {
      survey.toTheEnd = false;
      return;
    }
  }
}

RowSurvey SurveyChartFile(InputFile& file, const std::function<void()>& keepAlive) {
  RowSurvey survey;
  if (const auto start = LocateRows(file)) AddRows(survey, file, *start, kNoSurveyLimit, keepAlive);
  return survey;
}

}  // namespace chartproject
