// Names first, then what the files say.
#include "recording/journal/interrupted.h"

#include <algorithm>
#include <utility>

#include "common/values/text.h"
#include "platform/run_time_error.h"
#include "recording/journal/journal.h"

namespace chartproject {

namespace {

/// Names that are looked at; a recording takes a further one only when a file is in its way.
constexpr int kNamesTried = 10;
constexpr std::string_view kSpoolStem = ".tcf";
/// How often a recovery reads the rows: it looks at them, copies them, and reads the copy back.
constexpr std::uint64_t kReadings = 3;

/// The place of a side ending with its digits at the end of a name; npos for another name.
std::size_t EndingAt(std::string_view name) {
  const std::size_t last = name.find_last_not_of("0123456789");
  if (last == std::string_view::npos || name.size() - last > 3) return std::string_view::npos;
  const std::string_view stem = name.substr(0, last + 1);
  if (stem.ends_with(kJournalEnding)) return stem.size() - kJournalEnding.size();
  if (stem.ends_with(kSpoolStem) && last + 1 < name.size()) return stem.size() - kSpoolStem.size();
  return std::string_view::npos;
}

/// How the rows are read.
struct Reading {
  std::uint64_t limit = kNoSurveyLimit;
  ReadProgress* progress = nullptr;
};

/// Adds a file's rows. A file that holds something else, and not one point, is somebody's own: it is left out.
void AddRowFile(FileSystem& files, InterruptedRecording& found, RowFile file, const Reading& reading) {
  auto input = OpenIfThere(files, file.name);
  if (!input) return;
  if (reading.progress != nullptr) {
    reading.progress->Expect(kReadings * input->Identity().size);
    input = reading.progress->Follow(std::move(input));
  }
  const std::int64_t before = found.rows.points;
  AddRows(found.rows, *input, file.first, reading.limit);
  const bool journal = file.name == found.journalFile;
  if (!journal && found.rows.points == before && input->Identity().size > 0) return;
  found.rowFiles.push_back(std::move(file));
}

std::optional<InterruptedRecording> JournalAt(FileSystem& files, const CodePage& codePage, const std::string& chartFile,
                                              int number, const Reading& reading) {
  InterruptedRecording found;
  found.chartFile = chartFile;
  found.journalFile = SideFileName(chartFile, kJournalEnding, number);
  const auto file = OpenIfThere(files, found.journalFile);
  if (!file) return std::nullopt;
  found.journal = ReadJournal(*file, codePage);
  if (!found.journal) return std::nullopt;
  found.journalIdentity = file->Identity();
  if (found.journal->rows) AddRowFile(files, found, {found.journalFile, *found.journal->rows}, reading);
  for (const int spool : found.journal->spools) {
    AddRowFile(files, found, {SideFileName(chartFile, kSpoolEnding, spool), {1, 0}}, reading);
  }
  return found;
}

}  // namespace

std::string ChartFileOf(const std::string& name) {
  const std::size_t ending = EndingAt(name);
  return ending == std::string::npos ? name : name.substr(0, ending);
}

bool IsJournalOrSpoolName(const std::string& name) {
  return EndingAt(name) != std::string::npos;
}

std::vector<InterruptedRecording> FindBeside(FileSystem& files, const CodePage& codePage, const std::string& chartFile,
                                             std::uint64_t limit, ReadProgress* progress) {
  const Reading reading{limit, progress};
  std::vector<InterruptedRecording> all;
  for (int number = 0; number < kNamesTried; ++number) {
    if (auto found = JournalAt(files, codePage, chartFile, number, reading)) all.push_back(std::move(*found));
  }
  for (int number = 0; number < kNamesTried; ++number) {
    const std::string name = SideFileName(chartFile, kSpoolEnding, number);
    const bool taken = std::ranges::any_of(all, [&name](const InterruptedRecording& one) {
      return std::ranges::any_of(one.rowFiles, [&name](const RowFile& file) { return file.name == name; });
    });
    if (taken) continue;
    InterruptedRecording bare;
    bare.chartFile = chartFile;
    AddRowFile(files, bare, {name, {1, 0}}, reading);
    if (bare.rows.points > 0) all.push_back(std::move(bare));
  }
  return all;
}

std::optional<InterruptedRecording> FindNewest(FileSystem& files, const CodePage& codePage,
                                               const std::string& chartFile, std::uint64_t limit) {
  std::optional<InterruptedRecording> newest;
  for (int number = 0; number < kNamesTried; ++number) {
    auto found = JournalAt(files, codePage, chartFile, number, {limit, nullptr});
    if (!found) continue;
    if (newest && found->journalIdentity.modifiedNanos < newest->journalIdentity.modifiedNanos) continue;
    newest = std::move(found);
  }
  return newest;
}

std::unique_ptr<InputFile> OpenIfThere(FileSystem& files, const std::string& name) {
  if (!files.FileExists(name)) return nullptr;
  try {
    return files.OpenForReading(name);
  } catch (const RunTimeError&) {
    return nullptr;  // removed at this moment; a pipe, a folder, a file of somebody else: not a recording's
  }
}

std::vector<std::string> InterruptedChartFiles(FileSystem& files, const std::string& folder) {
  std::vector<std::string> found;
  for (const std::string& name : files.FilesIn(folder)) {
    if (!IsJournalOrSpoolName(name)) continue;
    std::string chartFile = JoinPath(folder, ChartFileOf(name));
    if (std::ranges::find(found, chartFile) == found.end()) found.push_back(std::move(chartFile));
  }
  return found;
}

bool IsBeingRecorded(FileSystem& files, const std::string& chartFile) {
  try {
    return files.Lock(chartFile).lock == nullptr;
  } catch (const RunTimeError&) {
    return false;  // a folder that takes no lock takes no recording either
  }
}

}  // namespace chartproject
