// The companion file: a text that describes itself, written beside its chart file.
#include "recording/companion/companion.h"

#include <charconv>
#include <utility>

#include "common/values/line_reader.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "platform/run_time_error.h"
#include "recording/companion/companion_reader.h"

namespace chartproject {

namespace {

constexpr std::uint64_t kMostMegabytes = 8;
constexpr std::string_view kNewEnding = ".new";

void AppendLine(std::string& text, std::string_view line) {
  text.append(line).append(kLineEnd);
}

void AppendFailed(std::string& text, const Companion& companion) {
  AppendLine(text, "");
  AppendLine(text, kFailedSection);
  AppendLine(text, "' parameter, first and last point, failed readings among them, reason, what the link added");
  for (std::size_t column = 0; column < companion.failed.size(); ++column) {
    for (const FailedRange& range : companion.failed[column].Ranges()) {
      AppendLine(text, FailedRangeLine(column, companion.parameters[column], range));
    }
  }
}

void AppendPace(std::string& text, const Companion& companion) {
  const PaceSummary& pace = companion.pace;
  if (!pace.Known()) return;
  AppendLine(text, "");
  AppendLine(text, kPaceSection);
  AppendLine(text, "' milliseconds between points; Latest: how much later than asked the latest point came");
  for (const PaceKey& entry : kPaceKeys) {
    AppendLine(text, std::string(entry.key) + std::to_string(pace.*entry.field));
  }
  if (!pace.Slipped()) return;
  AppendLine(text, "");
  AppendLine(text, kTimesSection);
  AppendLine(text, "' point, milliseconds since the first point; between two lines the points are evenly spaced");
  AppendLine(text, std::string(kWithinKey) + std::to_string(companion.times.Within()));
  for (const TimeKnot& knot : companion.times.Knots()) {
    AppendLine(text, std::to_string(knot.point) + " " + std::to_string(knot.elapsed));
  }
}

/// Whether there is a companion of any recording under a name. What cannot be read, or is not a file, is not one.
bool IsCompanion(FileSystem& files, const std::string& name) {
  if (!files.FileExists(name)) return false;
  try {
    const auto file = files.OpenForReading(name);
    LineReader lines(*file, kLongestCompanionLine);
    TextLine line;
    return lines.Next(line) && line.text == kCompanionMark;
  } catch (const RunTimeError&) {
    return false;  // the caller leaves the file alone
  }
}

/// A recording is written where a link leads to. A link that must not be followed has no companion there.
std::string FileOfLink(FileSystem& files, const std::string& name) {
  try {
    return files.ResolveLink(name);
  } catch (const RunTimeError&) {
    return name;
  }
}

}  // namespace

std::array<int, kColumnCount> ParametersOf(const ChartHeader& header) {
  std::array<int, kColumnCount> parameters{};
  const std::array columns{&header.PXXX1, &header.PXXX2, &header.PXXX3, &header.PXXX4};
  for (std::size_t column = 0; column < columns.size(); ++column) {
    const std::string& text = *columns[column];
    int number = kUnusedParameter;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    parameters[column] = whole && number >= 0 && number < kUnusedParameter ? number : kUnusedParameter;
  }
  return parameters;
}

std::string CompanionName(const std::string& chartFileName) {
  return SideFileName(chartFileName, kCompanionEnding, 0);
}

std::string CompanionText(const Companion& companion, const ChartHeader& header, const CodePage& codePage) {
  std::string text;
  AppendLine(text, kCompanionMark);
  AppendLine(text, "' What the chart file beside this one cannot say: readings that failed (0 in the chart file), and");
  AppendLine(text, "' the real times of its points. UTF-8. The chart file can be used without this file.");
  for (const HeaderKey& key : kRecordingKeys) {
    AppendLine(text, std::string(key.key) + codePage.Decode(codePage.Encode(header.*key.field)));
  }
  AppendLine(text, std::string(kPointsKey) + std::to_string(companion.points));
  if (companion.recovered != Recovered::kNo) {
    AppendLine(text, std::string(kRecoveredKey).append(kRecoveredWords[static_cast<std::size_t>(companion.recovered)]));
  }
  if (AnyFailed(companion.failed)) AppendFailed(text, companion);
  AppendPace(text, companion);
  return text;
}

void SaveCompanion(FileSystem& files, const CodePage& codePage, const std::string& chartFileName,
                   const ChartHeader& header, const Companion& companion) {
  const std::string name = CompanionName(chartFileName);
  const bool taken = files.FileExists(name);
  const bool ours = taken && IsCompanion(files, name);
  if (!companion.IsNeeded()) {
    if (ours) files.Delete(name);
    return;
  }
  if (taken && !ours) throw RunTimeError(error_number::kPathFileAccess, Text::kNotACompanion, {name});
  const auto fresh =
      files.MakeSideFile({.target = name, .ending = kNewEnding, .rights = files.RightsOf(chartFileName)});
  const auto file = fresh->OpenForWriting();
  file->Write(CompanionText(companion, header, codePage));
  file->FlushAndClose();
  fresh->ReplaceTarget();
}

std::optional<Companion> LoadCompanion(FileSystem& files, const std::string& chartFileName, const ChartHeader& header) {
  const std::string name = CompanionName(FileOfLink(files, chartFileName));
  if (!IsCompanion(files, name)) return std::nullopt;
  const auto file = files.OpenForReading(name);
  RefuseLargeFile(name, file->Identity().size, kMostMegabytes);
  LineReader lines(*file, kLongestCompanionLine);
  CompanionReader reader(header);
  for (TextLine line; lines.Next(line);) {
    if (line.cut || !reader.TakeLine(line.text)) {
      throw RunTimeError(error_number::kInvalidFileFormat, Text::kCompanionLine, {name, std::to_string(line.number)});
    }
    if (reader.OfAnotherRecording()) return std::nullopt;
  }
  return reader.Finish();
}

}  // namespace chartproject
