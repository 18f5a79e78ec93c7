// Opening a chart file and distinguishing one that grew from one that was replaced.
#include "chart/file/chart_source.h"

#include <algorithm>
#include <utility>
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
  rows_.reset();
  Restart({rows ? CheckedInteger32(rows->line) : 0, rows ? rows->offset : 0}, *file);
}

void ChartSource::OpenUnfinished(const std::string& chartFile, UnfinishedRecording recording, ChartHeader& header) {
  const auto file = OpenRows(ports_.files, recording);
  header = recording.journal.header;
  fileName_ = chartFile;
  namedPoints_ = -1;
  namedSeries_ = ReadNamedSeries(header.NumberOfParameters, ports_.locale.Numbers());
  rows_ = std::move(recording);
  Restart({1, 0}, *file);
}

/// The chart file has the rows as they were, after its header.
void ChartSource::OpenFinished(ChartHeader& header) {
  LineIndex index = std::move(index_);
  FileSurvey survey = std::move(survey_);
  const LinePlace before{firstLine_, headerSize_};
  const std::uint64_t rows = seenSize_;
  const int series = namedSeries_;
  Open(std::string(fileName_), header);
  if (!HasPoints() || series != namedSeries_ || identity_.size - headerSize_ < rows) return;
  index.Shift(firstLine_ - before.line, headerSize_ - before.offset);
  survey.Shift(firstLine_ - before.line, headerSize_ - before.offset);
  index_ = std::move(index);
  survey_ = std::move(survey);
}

void ChartSource::Restart(const LinePlace& first, InputFile& file) {
  firstLine_ = static_cast<std::int32_t>(first.line);
  headerSize_ = first.offset;
  work_.reader.reset();
  work_.writer.reset();
  lookedForKept_ = kept_ = false;
  index_.Restart(first);
  wide_.reset();
  survey_.Restart(first, namedSeries_ == 0 ? kColumnCount : namedSeries_);
  identity_ = file.Identity();
  seenSize_ = identity_.size;
  headerPrint_ = HeaderPrint(file);
}

std::unique_ptr<InputFile> ChartSource::OpenFile() const {
  return rows_ ? OpenRows(ports_.files, *rows_) : ports_.files.OpenForReading(fileName_);
}

std::optional<std::int64_t> ChartSource::CountLines(const ScanProgress& progress) {
  const auto file = OpenFile();
  return index_.CountLines(*file, progress);
}

bool ChartSource::HasGrown() {
  const FileIdentity now = OpenFile()->Identity();
  const bool grew = now.volume == identity_.volume && now.index == identity_.index && now.size > seenSize_;
  if (grew) seenSize_ = now.size;
  return grew;
}

std::string ChartSource::KeyOf(InputFile& file) const {
  return kept::KeyOf(file, fileName_, {firstLine_, headerSize_}, survey_.Exact().SeriesCount(),
                     ports_.locale.Numbers());
}

void ChartSource::TakeKeptIndex(InputFile& file) {
  if (!keptFrom_ || rows_ || std::exchange(lookedForKept_, true)) return;
  if (file.Identity().size < *keptFrom_) return;
  work_.reader = std::make_unique<KeptReader>(ports_.files, fileName_, KeyOf(file));
  if (!work_.reader->ReadIndex({firstLine_, headerSize_}, index_)) work_.reader.reset();
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
  const auto file = OpenFile();
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
  const auto file = OpenFile();
  const double total = static_cast<double>(std::max<std::uint64_t>(1, file->Identity().size));
  return CountPoints(*file, {firstLine_, headerSize_},
                     [&](std::uint64_t offset) { return !progress || progress(static_cast<double>(offset) / total); });
}

SliceReading ChartSource::Read(std::int32_t startLine, std::int32_t endLine, int columns,
                               const ScanProgress& progress) {
  const auto file = OpenFile();
  if (startLine > index_.Reach()) TakeKeptIndex(*file);
  return ReadSlice(*file, index_, startLine, endLine, columns, ports_.locale.Numbers(), progress);
}

bool ChartSource::ForEach(std::int64_t first, std::int64_t last, const PointTaker& take, const ScanProgress& progress) {
  constexpr std::int64_t kLinesPerReport = 32768;
  constexpr std::size_t kMostShown = 80;
  if (!HasPoints()) return true;
  const std::int64_t before = std::int64_t{firstLine_} - 1;
  const auto file = OpenFile();
  if (before + first > index_.Reach()) TakeKeptIndex(*file);
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
  const auto file = OpenFile();
  const FileIdentity now = file->Identity();
  if (now.volume != identity_.volume || now.index != identity_.index || now.size < identity_.size) return false;
  // A clock that is set by hand does not run meanwhile.
  constexpr int kMostPieces = 64;
  bool more = true;
  for (int i = 0; more && i < kMostPieces && (i == 0 || ports_.clock.Now() < end); ++i) {
    more = SurveyPiece(*file);
  }
  return more;
}

bool ChartSource::SurveyPiece(InputFile& file) {
  if (Refining()) {
    wide_->ReadOn(file, index_, ports_.locale.Numbers());
    return true;
  }
  TakeKeptIndex(file);
  if (work_.reader) {
    if (work_.reader->ReadOn()) return true;
    kept_ = work_.reader->TakeOver(survey_);
    work_.reader.reset();
    return true;
  }
  if (work_.writer) {
    if (work_.writer->WriteOn()) return true;
    work_.writer.reset();
  }
  if (survey_.ReadOn(file, index_, ports_.locale.Numbers())) return true;
  if (!keptFrom_ || rows_ || std::exchange(kept_, true)) return false;
  if (!survey_.Settled() || file.Identity().size < *keptFrom_) return false;
  work_.writer = std::make_unique<KeptWriter>(ports_.files, fileName_, KeyOf(file), survey_, index_);
  return true;
}

Slice ChartSource::ReadWide(const WideRange& range, int columns, std::int64_t lines) {
  constexpr Instant kAtOnce = std::chrono::milliseconds(8);  // half a frame of the screen
  const bool surveyed = survey_.Exact().Lines() >= range.end;
  if (!surveyed || range.end - range.first > LinesToRead(survey_)) {
    wide_.reset();
    return WideSlice(survey_, range, columns, lines);
  }
  if (!wide_ || wide_->Range() != range || wide_->Result().columnsRead != columns) {
    wide_.emplace(range, columns, firstLine_);
    const Instant end = ports_.clock.Now() + kAtOnce;
    const auto file = OpenFile();
    while (wide_->ReadOn(*file, index_, ports_.locale.Numbers()) && ports_.clock.Now() < end) {
    }
  }
  return wide_->Done() ? wide_->Result() : WideSlice(survey_, range, columns, lines);
}

}  // namespace chartproject
