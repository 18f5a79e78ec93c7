// The new file is complete and read back before anything goes.
#include "recording/journal/recovery.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include "common/values/text.h"
#include "platform/run_time_error.h"
#include "recording/file/chart_file_writer.h"
#include "recording/file/point_reader.h"
#include "recording/journal/failure_notes.h"

namespace chartproject {

namespace {

constexpr std::int64_t kMostPoints = 2'000'000'000;
constexpr std::int64_t kMillisecondsOfDay = 86'400'000;

DateTime DayAfter(const DateTime& moment, std::int64_t days) {
  const std::chrono::sys_days first{std::chrono::year{moment.year} / moment.month / moment.day};
  const std::chrono::year_month_day day{first + std::chrono::days{days}};
  DateTime later = moment;
  later.year = static_cast<int>(day.year());
  later.month = static_cast<int>(static_cast<unsigned>(day.month()));
  later.day = static_cast<int>(static_cast<unsigned>(day.day()));
  return later;
}

/// Days from the first point to the last. The times show each midnight unless points are half a day or more apart;
/// then the plan says how many days passed.
std::int64_t DaysPassed(const InterruptedRecording& recording) {
  const std::int64_t interval = recording.journal->millisecondsBetweenPoints;
  if (interval < kMillisecondsOfDay / 2) return recording.rows.midnights;
  const DateTime& begun = *recording.journal->begun;
  const std::int64_t begin = ((begun.hour * 60 + begun.minute) * 60 + begun.second) * 1000LL;
  constexpr std::int64_t kMostDays = 10'000;
  const std::int64_t most = kMostDays * kMillisecondsOfDay / interval;
  return (begin + interval * std::min(recording.rows.points - 1, most)) / kMillisecondsOfDay;
}

/// The header of the chart file itself when it holds no point: its rows were not copied for lack of space.
bool TakeHeaderWithoutRows(Ports& ports, const std::string& chartFile, ChartHeader& header) {
  if (!ports.files.FileExists(chartFile)) return false;
  try {
    const auto file = ports.files.OpenForReading(chartFile);
    ChartHeader found;
    if (!ReadChartHeader(*file, ports.codePage, found).rowsFollow) return false;
    file->Seek(0);
    if (SurveyChartFile(*file).points > 0) return false;
    header = found;
    return true;
  } catch (const RunTimeError&) {
    return false;  // it says nothing about the rows
  }
}

/// What the rows alone show of their recording.
void TakeFromRows(const RowSurvey& rows, ChartHeader& header) {
  header.StartDate.clear();
  header.EndDate.clear();
  header.StartTime = rows.firstTime;
  header.EndTime = rows.lastTime;
  header.NumberOfPoints = std::to_string(rows.points);
  if (header.NumberOfParameters.empty()) header.NumberOfParameters = std::to_string(std::max(rows.columns, 1));
}

/// The rows of a journal without its notes.
void CopyJournalRows(InputFile& from, const RowStart& first, OutputFile& to) {
  PointReader rows(from, first);
  for (PointLine line; rows.Next(line);) {
    if (line.kind == LineKind::kPoint) to.Write(std::string(line.text).append(kLineEnd));
  }
}

void CopyRows(FileSystem& files, const InterruptedRecording& recording, OutputFile& to, ReadProgress* progress) {
  for (const RowFile& part : recording.rowFiles) {
    const auto from = Followed(files.OpenForReading(part.name), progress);
    if (part.name == recording.journalFile) {
      CopyJournalRows(*from, part.first, to);
      continue;
    }
    from->Seek(part.first.offset);
    CopyLines(*from, to, {});
  }
}

/// Whether the chart file holds exactly these points: only the removing of the journal was interrupted.
bool HoldsAllPoints(Ports& ports, const InterruptedRecording& recording, ReadProgress* progress) {
  if (!ports.files.FileExists(recording.chartFile)) return false;
  try {
    auto file = ports.files.OpenForReading(recording.chartFile);
    if (progress != nullptr) progress->Expect(file->Identity().size);
    return SurveyChartFile(*Followed(std::move(file), progress)).SamePoints(recording.rows);
  } catch (const RunTimeError&) {
    return false;
  }
}

/// Makes the chart file `name`. @return its points, read back; nothing when a file has the name
std::optional<std::int64_t> MakeChartFile(Ports& ports, const std::string& name, const InterruptedRecording& recording,
                                          const ChartHeader& header, ReadProgress* progress) {
  if (ports.files.FileExists(name) || ports.files.FolderExists(name)) return std::nullopt;
  const auto fresh = ports.files.MakeSideFile({.target = name, .ending = kUnfinishedEnding});
  const auto file = fresh->OpenForWriting();
  file->Write(ports.codePage.Encode(HeaderLines(header)));
  CopyRows(ports.files, recording, *file, progress);
  file->FlushAndClose();
  const RowSurvey written = SurveyChartFile(*Followed(fresh->OpenForReading(), progress));
  if (!written.SamePoints(recording.rows)) {
    throw RunTimeError(error_number::kDeviceIo, Text::kReadBackDiffers, {name});
  }
  if (!fresh->TakeTarget()) return std::nullopt;
  return written.points;
}

/// Notes beside the chart file what a crash left of the readings. A companion that belongs to it is kept: the recording
/// itself knew more.
void NoteReadings(Ports& ports, const InterruptedRecording& recording, RecoveryResult& result) {
  try {
    ChartHeader header;
    (void)ReadChartHeader(*ports.files.OpenForReading(result.chartFile), ports.codePage, header);
    if (LoadCompanion(ports.files, result.chartFile, header)) return;
    Companion companion;
    companion.points = static_cast<std::int32_t>(std::min<std::int64_t>(result.points, kMostPoints));
    companion.parameters = ParametersOf(header);
    companion.recovered = recording.journal ? Recovered::kFromJournal : Recovered::kFromRows;
    if (recording.journal) {
      companion.simulated = recording.journal->simulated;
      const auto journal = ports.files.OpenForReading(recording.journalFile);
      companion.failed = ReadFailureNotes(*journal, ports.codePage, companion.points);
    }
    SaveCompanion(ports.files, ports.codePage, result.chartFile, header, companion);
  } catch (const RunTimeError& error) {
    result.companionFault = error;
  }
}

bool Remove(FileSystem& files, const InterruptedRecording& recording) {
  try {
    Discard(files, recording);
    return true;
  } catch (const RunTimeError&) {
    return false;  // the points are safe: what is left is found again and recognised
  }
}

}  // namespace

ChartHeader RecoveredHeader(Ports& ports, const InterruptedRecording& recording, const ChartHeader* like) {
  ChartHeader header;
  if (!recording.journal) {
    if (like == nullptr && TakeHeaderWithoutRows(ports, recording.chartFile, header)) return header;
    if (like != nullptr) header = *like;
    TakeFromRows(recording.rows, header);
    return header;
  }
  header = recording.journal->header;
  header.EndTime = recording.rows.lastTime;
  header.EndDate = header.StartDate;
  const std::int64_t days = recording.journal->begun ? DaysPassed(recording) : 0;
  if (days > 0) header.EndDate = ports.locale.DateText(DayAfter(*recording.journal->begun, days));
  return header;
}

std::string RecoveredName(const std::string& chartFile, int number) {
  constexpr std::string_view kEnding = ".cht";
  const bool known = chartFile.size() > kEnding.size() && ToUpperAscii(chartFile).ends_with(ToUpperAscii(kEnding));
  std::string name = known ? chartFile.substr(0, chartFile.size() - kEnding.size()) : chartFile;
  name += ".recovered";
  if (number > 0) name += std::to_string(number);
  return name.append(kEnding);
}

RecoveryResult Recover(Ports& ports, const InterruptedRecording& recording, const RecoveryRequest& request) {
  RecoveryResult result;
  result.malformed = recording.rows.malformed;
  if (recording.rows.points == 0) {
    result.leftBehind = !Remove(ports.files, recording);
    return result;
  }
  if (request.output.empty() && HoldsAllPoints(ports, recording, request.progress)) {
    result.chartFile = recording.chartFile;
    result.points = recording.rows.points;
    result.wasWhole = true;
    NoteReadings(ports, recording, result);
    result.leftBehind = !Remove(ports.files, recording);
    return result;
  }
  const ChartHeader header = RecoveredHeader(ports, recording, request.like);
  std::vector<std::string> names;
  if (!request.output.empty()) {
    names.push_back(request.output);
  } else {
    if (!request.besides) names.push_back(recording.chartFile);
    for (int n = 0; n < kMostSideNames; ++n) names.push_back(RecoveredName(recording.chartFile, n));
  }
  for (const std::string& name : names) {
    const auto points = MakeChartFile(ports, name, recording, header, request.progress);
    if (!points) continue;
    result.chartFile = name;
    result.points = *points;
    NoteReadings(ports, recording, result);
    result.leftBehind = !Remove(ports.files, recording);
    return result;
  }
  throw RunTimeError(error_number::kPathFileAccess, Text::kFileIsThere, {names.back()});
}

void Discard(FileSystem& files, const InterruptedRecording& recording) {
  // The journal goes last: while it is there, what is left is known as one recording.
  for (const RowFile& part : recording.rowFiles) {
    if (part.name != recording.journalFile && files.FileExists(part.name)) files.Delete(part.name);
  }
  if (!recording.journalFile.empty() && files.FileExists(recording.journalFile)) files.Delete(recording.journalFile);
}

std::optional<std::vector<RecoveryResult>> RecoverBeside(Ports& ports, const std::string& chartFile,
                                                         const RecoveryRequest& request) {
  LockAttempt attempt;
  try {
    attempt = ports.files.Lock(chartFile);
    if (!attempt.lock) return std::nullopt;
  } catch (const RunTimeError&) {
    attempt.lock = nullptr;  // a folder that takes no lock takes no recording; its files can still be read
  }
  std::vector<RecoveryResult> results;
  for (const InterruptedRecording& recording :
       FindBeside(ports.files, ports.codePage, chartFile, kNoSurveyLimit, request.progress)) {
    results.push_back(Recover(ports, recording, request));
  }
  return results;
}

std::optional<std::int64_t> DiscardBeside(Ports& ports, const std::string& chartFile) {
  const LockAttempt attempt = ports.files.Lock(chartFile);
  if (!attempt.lock) return std::nullopt;
  std::int64_t points = 0;
  for (const InterruptedRecording& recording : FindBeside(ports.files, ports.codePage, chartFile)) {
    Discard(ports.files, recording);
    points += recording.rows.points;
  }
  return points;
}

std::vector<RecoveryResult> RecoverLeftovers(Ports& ports, const std::string& chartFile, ReadProgress& progress) {
  std::vector<RecoveryResult> results;
  const std::string spool = SpoolFileName(chartFile);
  try {
    // Rows that cannot be read are not deleted unseen: the recording is refused.
    if (ports.files.FileExists(spool)) (void)ports.files.OpenForReading(spool);
  } catch (const NotARegularFile&) {
    results.clear();  // it holds no rows
  }
  for (const InterruptedRecording& recording :
       FindBeside(ports.files, ports.codePage, chartFile, kNoSurveyLimit, &progress)) {
    RecoveryResult result = Recover(ports, recording, {.besides = true, .progress = &progress});
    if (!result.chartFile.empty()) results.push_back(std::move(result));
  }
  return results;
}

}  // namespace chartproject
