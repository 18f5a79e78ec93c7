// A section for each database and recording, "key=value" lines.
#include "publish/publish_position.h"

#include <charconv>
#include <optional>

#include "common/values/line_reader.h"
#include "common/values/text.h"
#include "platform/run_time_error.h"
#include "publish/line_protocol.h"

namespace chartproject {
namespace {

constexpr std::string_view kMark = "[CHART PUBLISHED]";
constexpr std::string_view kSection = "[DATABASE]";
constexpr std::string_view kNewEnding = ".new";
constexpr std::size_t kLongestLine = kLongestSeriesKey + 100;
constexpr std::uint64_t kMostMegabytes = 1;
constexpr std::int64_t kMostPoints = 2'147'483'647;
constexpr std::int64_t kMostMoment = 253'402'300'799'999;  // the end of the year 9999, in milliseconds

void AddLine(std::string& text, std::string_view key, std::string_view value) {
  text.append(key).append(value).append(kLineEnd);
}

/// Whole numbers with blanks between; nothing when one is missing or negative, or when there is anything else.
template <std::size_t N>
std::optional<std::array<std::int64_t, N>> NumbersIn(std::string_view text, std::int64_t most) {
  std::array<std::int64_t, N> numbers{};
  const char* at = text.data();
  const char* const end = at + text.size();
  for (std::size_t i = 0; i < N; ++i) {
    if (i > 0 && (at == end || *at++ != ' ')) return std::nullopt;
    const auto [after, error] = std::from_chars(at, end, numbers[i]);
    if (error != std::errc() || numbers[i] < 0 || numbers[i] > most) return std::nullopt;
    at = after;
  }
  if (at != end) return std::nullopt;
  return numbers;
}

void TakeLine(std::string_view line, PublishPosition& position) {
  const std::string_view value = AfterEquals(line);
  const auto is = [line](std::string_view key) { return line.starts_with(key); };
  if (is("Address=")) {
    position.address = value;
  } else if (is("Measurement=")) {
    position.measurement = value;
  } else if (is("Recording=")) {
    position.recording = value;
  } else if (is("Series=")) {
    position.series = value;
  } else if (is("Times=")) {
    position.rowTimes = value == "rows";
  } else if (is("Acknowledged=")) {
    if (const auto number = NumbersIn<1>(value, kMostPoints)) position.acknowledged = (*number)[0];
  } else if (is("Resume=")) {
    const auto numbers = NumbersIn<3>(value, kMostMoment);
    if (!numbers || (*numbers)[0] < 1 || (*numbers)[0] > kMostPoints || (*numbers)[1] < 1) return;
    if ((*numbers)[1] <= (*numbers)[0]) position.resume = {(*numbers)[0], {(*numbers)[1], (*numbers)[2]}};
  } else if (is("Completed=")) {
    if (const auto number = NumbersIn<1>(value, kMostMoment)) position.completed = (*number)[0];
  } else if (is("Settled=")) {
    position.settled = value == "1";
  }
}

bool IsPositionFile(FileSystem& files, const std::string& name) {
  const auto file = files.OpenForReading(name);
  LineReader lines(*file, kLongestLine);
  TextLine line;
  return lines.Next(line) && line.text == kMark;
}

}  // namespace

std::string PositionName(const std::string& chartFile) {
  return SideFileName(chartFile, kPositionEnding, 0);
}

std::vector<PublishPosition> LoadPositions(FileSystem& files, const std::string& name) {
  std::vector<PublishPosition> positions;
  if (!files.FileExists(name) || !IsPositionFile(files, name)) return positions;
  const auto file = files.OpenForReading(name);
  RefuseLargeFile(name, file->Identity().size, kMostMegabytes);
  LineReader lines(*file, kLongestLine);
  for (TextLine line; lines.Next(line);) {
    if (line.cut) continue;
    if (line.text == kSection && positions.size() < kMostPositions) {
      positions.emplace_back();
    } else if (!positions.empty()) {
      TakeLine(line.text, positions.back());
    }
  }
  std::erase_if(positions, [](const PublishPosition& one) {
    return !IsMeasurement(one.measurement) || !IsSeriesKeyOf(one.series, one.measurement);
  });
  return positions;
}

void SavePositions(FileSystem& files, const std::string& name, const std::string& chartFile,
                   const std::vector<PublishPosition>& positions) {
  if (files.FileExists(name) && !IsPositionFile(files, name)) {
    throw RunTimeError(error_number::kPathFileAccess, Text::kFileIsThere, {name});
  }
  std::string text;
  AddLine(text, kMark, "");
  AddLine(text, "' How far the recording beside this file was sent to databases. UTF-8. Without this file all of it",
          "");
  AddLine(text, "' is sent again.", "");
  for (const PublishPosition& one : positions) {
    AddLine(text, "", "");
    AddLine(text, kSection, "");
    AddLine(text, "Address=", one.address);
    AddLine(text, "Measurement=", one.measurement);
    AddLine(text, "Recording=", one.recording);
    AddLine(text, "Series=", one.series);
    AddLine(text, "Times=", one.rowTimes ? "rows" : "file");
    AddLine(text, "Acknowledged=", std::to_string(one.acknowledged));
    AddLine(text, "Resume=",
            std::to_string(one.resume.next) + " " + std::to_string(one.resume.anchor.point) + " " +
                std::to_string(one.resume.anchor.moment));
    if (one.completed > 0) AddLine(text, "Completed=", std::to_string(one.completed));
    if (one.settled) AddLine(text, "Settled=", "1");
  }
  const auto fresh = files.MakeSideFile({.target = name, .ending = kNewEnding, .rights = files.RightsOf(chartFile)});
  const auto file = fresh->OpenForWriting();
  file->Write(text);
  file->FlushAndClose();
  fresh->ReplaceTarget();
}

}  // namespace chartproject
