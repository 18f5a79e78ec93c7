// Opening a chart file and distinguishing one that grew from one that was replaced.
#include "chart/file/chart_source.h"

#include <algorithm>
#include <vector>

#include "common/values/numbers.h"
#include "platform/run_time_error.h"
#include "recording/file/chart_file.h"

namespace chartproject {
namespace {

std::int32_t ReadNamedPoints(const std::string& text, const NumberFormat& format) {
  try {
    return std::max(ToInteger32(text, format), -1);
  } catch (const RunTimeError&) {
    return -1;
  }
}

int ReadNamedSeries(const std::string& text, const NumberFormat& format) {
  try {
    const std::int32_t count = ToInteger32(text, format);
    return count >= 1 && count <= kColumnCount ? static_cast<int>(count) : 0;
  } catch (const RunTimeError&) {
    return 0;
  }
}

}  // namespace

void ChartSource::Open(const std::string& fileName, ChartHeader& header) {
  if (fileName.empty()) throw RunTimeError(error_number::kFileNotFound, Text::kNoChartFileName);
  const auto file = ports_.files.OpenForReading(fileName);
  const HeaderReading reading = ReadChartHeader(*file, ports_.codePage, header);
  if (reading.keys == 0) throw RunTimeError(error_number::kInvalidFileFormat, Text::kNotAChartFile, {fileName});
  fileName_ = fileName;
  const NumberFormat& format = ports_.locale.Numbers();
  namedPoints_ = ReadNamedPoints(header.NumberOfPoints, format);
  namedSeries_ = ReadNamedSeries(header.NumberOfParameters, format);

  file->Seek(0);
  const auto rows = LocateRows(*file);
  firstLine_ = rows ? CheckedInteger32(rows->line) : 0;
  headerSize_ = rows ? rows->offset : 0;
  index_.Restart({firstLine_, headerSize_});
  survey_.Restart({firstLine_, headerSize_}, namedSeries_ == 0 ? kColumnCount : namedSeries_);
  identity_ = file->Identity();
  headerPrint_ = HeaderPrint(*file);
}

std::uint64_t ChartSource::HeaderPrint(InputFile& file) const {
  constexpr std::uint64_t kMostBytes = std::uint64_t{64} * 1024;
  std::vector<char> bytes(static_cast<std::size_t>(std::min(headerSize_, kMostBytes)));
  file.Seek(0);
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const std::size_t count = file.Read(std::span(bytes).subspan(filled));
    if (count == 0) break;
    filled += count;
  }
  // FNV-1a, 64 bits.
  std::uint64_t print = 0xCBF29CE484222325U;
  for (const char c : bytes) print = (print ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  return print;
}

bool ChartSource::Replaced() {
  const auto file = ports_.files.OpenForReading(fileName_);
  const FileIdentity now = file->Identity();
  if (now == identity_) return false;
  const bool grew = now.volume == identity_.volume && now.index == identity_.index && now.size >= identity_.size;
  // A new recording into the same file has other dates in its header.
  if (!grew || HeaderPrint(*file) != headerPrint_) return true;
  identity_ = now;
  return false;
}

std::optional<PointCount> ChartSource::Count(const ScanProgress& progress) const {
  if (!HasPoints()) return PointCount{};
  const auto file = ports_.files.OpenForReading(fileName_);
  const double total = static_cast<double>(std::max<std::uint64_t>(1, file->Identity().size));
  return CountPoints(*file, {firstLine_, headerSize_},
                     [&](std::uint64_t offset) { return !progress || progress(static_cast<double>(offset) / total); });
}

SliceReading ChartSource::Read(std::int32_t startLine, std::int32_t endLine, int columns,
                               const ScanProgress& progress) {
  const auto file = ports_.files.OpenForReading(fileName_);
  return ReadSlice(*file, index_, startLine, endLine, columns, ports_.locale.Numbers(), progress);
}

bool ChartSource::ForEach(std::int64_t first, std::int64_t last, const PointTaker& take, const ScanProgress& progress) {
  constexpr std::int64_t kLinesPerReport = 32768;
  constexpr std::size_t kMostShown = 80;
  if (!HasPoints()) return true;
  const std::int64_t before = std::int64_t{firstLine_} - 1;
  const auto file = ports_.files.OpenForReading(fileName_);
  const LineSearch search = index_.Find(*file, before + first, progress);
  if (search.end == LineSearchEnd::kGivenUp) return false;
  PointReader points(*file, {search.place.line, search.place.offset});
  points.SkipTo(before + first);
  const double total = static_cast<double>(std::max<std::int64_t>(1, last - first + 1));
  for (PointLine line; points.NextNumber() <= before + last && points.Next(line);) {
    const std::int64_t point = line.number - before;
    const bool report = point % kLinesPerReport == 0 && progress;
    if (report && !progress(static_cast<double>(point - first) / total)) return false;
    if (line.kind == LineKind::kMalformed) {
      throw RunTimeError(error_number::kInvalidFileFormat, Text::kLineIsNotAPoint,
                         {fileName_, std::to_string(line.number), std::string(line.text.substr(0, kMostShown))});
    }
    if (line.kind == LineKind::kPoint && !take(point, line.row)) return false;
  }
  return true;
}

bool ChartSource::SurveyOn(Instant time) {
  if (!HasPoints()) return false;
  const Instant end = ports_.clock.Now() + time;
  const auto file = ports_.files.OpenForReading(fileName_);
  const FileIdentity now = file->Identity();
  if (now.volume != identity_.volume || now.index != identity_.index || now.size < identity_.size) return false;
  // A clock that is set by hand does not run meanwhile.
  constexpr int kMostPieces = 64;
  bool more = true;
  for (int i = 0; more && i < kMostPieces && (i == 0 || ports_.clock.Now() < end); ++i) {
    more = survey_.ReadOn(*file, index_, ports_.locale.Numbers());
  }
  return more;
}

Slice ChartSource::ReadWide(const WideRange& range, int columns, std::int64_t lines) {
  const bool surveyed = survey_.Exact().Lines() >= range.end;
  if (!surveyed || range.end - range.first > LinesToRead(survey_)) return WideSlice(survey_, range, columns, lines);
  const auto file = ports_.files.OpenForReading(fileName_);
  return ReadWideSlice(*file, index_, firstLine_, range, columns, ports_.locale.Numbers());
}

}  // namespace chartproject
