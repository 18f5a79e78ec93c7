// Finding recordings that were interrupted: journals and spool files whose recording does not run any more.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "recording/file/row_survey.h"
#include "recording/journal/journal_reader.h"
#include "recording/journal/read_progress.h"

namespace chartproject {

/// A file that holds rows of an interrupted recording.
struct RowFile {
  std::string name;
  RowStart first;
};

/// What is left of one recording.
struct InterruptedRecording {
  std::string chartFile;                  ///< the chart file that it was for
  std::string journalFile;                ///< empty when only a spool file is left
  FileIdentity journalIdentity;           ///< of that file
  std::optional<JournalReading> journal;  ///< nothing without a journal file
  std::vector<RowFile> rowFiles;          ///< in the order of their rows; those that are there
  RowSurvey rows;                         ///< of all of them
};

/// How much of the rows is read: a window that only names a recording does not read tens of gigabytes.
inline constexpr std::uint64_t kGlanceBytes = 64'000'000;

/// The chart file of a journal's or spool file's name ("a.cht.tcf0", "a.cht.recording1"); any other name as it is.
[[nodiscard]] std::string ChartFileOf(const std::string& name);
/// Whether a name is that of a journal or of a spool file.
[[nodiscard]] bool IsJournalOrSpoolName(const std::string& name);

/// What is left beside a chart file, in the order of the names; also recordings without a point. A file that has such a
/// name, but is not such a file, is left out. Whether the recording still runs is shown by FileSystem::Lock only.
/// @param limit bytes of rows to read of each file; @param progress expects what a recovery reads; may be null.
/// Throws RunTimeError 57.
[[nodiscard]] std::vector<InterruptedRecording> FindBeside(FileSystem& files, const CodePage& codePage,
                                                           const std::string& chartFile,
                                                           std::uint64_t limit = kNoSurveyLimit,
                                                           ReadProgress* progress = nullptr);

/// The journal beside a chart file that was written last, with its rows as above: that of the recording that runs, or
/// that ran last. Nothing without a journal. Throws RunTimeError 57.
[[nodiscard]] std::optional<InterruptedRecording> FindNewest(FileSystem& files, const CodePage& codePage,
                                                             const std::string& chartFile, std::uint64_t limit);

/// Opens a file of a recording; null when it is not there, is removed at this moment, or is not a file at all.
[[nodiscard]] std::unique_ptr<InputFile> OpenIfThere(FileSystem& files, const std::string& name);

/// The chart files of a folder beside which there is a journal or a spool file, each once, in order. Throws
/// RunTimeError when the folder cannot be read.
[[nodiscard]] std::vector<std::string> InterruptedChartFiles(FileSystem& files, const std::string& folder);

/// Whether a recording of that chart file runs in this program or in another one. False where the folder takes no lock.
[[nodiscard]] bool IsBeingRecorded(FileSystem& files, const std::string& chartFile);

}  // namespace chartproject
