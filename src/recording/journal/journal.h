// The journal of a recording: a small file beside the chart file that holds, while the recording runs, what is needed
// to rebuild it after a crash.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "platform/clock.h"
#include "platform/paced_file.h"
#include "platform/run_time_error.h"
#include "recording/file/chart_file_writer.h"
#include "recording/journal/failure_notes.h"

namespace chartproject {

/// The journal of "a.cht" is "a.cht.recording", or "a.cht.recording1" ... where that name is taken.
inline constexpr std::string_view kJournalEnding = ".recording";

/// Lines of a journal. It begins with the mark and the version, then come header lines as in a chart file, as far as
/// they are known; a later line holds over an earlier one. A recording in memory writes its rows after kRowsMark. A
/// recording that spools names its spool files instead, each by the number in its name.
namespace journal_line {
inline constexpr std::string_view kMark = "[RECORDING]";
inline constexpr std::string_view kVersion = "Journal=1";
inline constexpr std::string_view kInterval = "Interval=";     ///< milliseconds between points
inline constexpr std::string_view kBegun = "Begun=";           ///< local time of the first point, yyyy-mm-dd hh:mm:ss
inline constexpr std::string_view kSimulated = "Simulated=1";  ///< no drive gives the values
inline constexpr std::string_view kSpool = "Spool=";           ///< rows go on in the spool file of this number
inline constexpr std::string_view kLost = "Lost=";             ///< the file of that number is not ours any more
}  // namespace journal_line

/// Rows of a recording in a file beside its chart file.
struct KeptRows {
  std::string fileName;  ///< empty: there is none
  std::int64_t rows = 0;
};

/// Writes the journal of one recording. Nothing throws: a journal that cannot be written does not end the recording,
/// it is tried again with the next row, and Fault() is the reason meanwhile. A file that was out of reach for a while,
/// because its folder was moved away or its disk refused writing, goes on where it was.
class RecordingJournal {
 public:
  /// Both outlive the journal.
  RecordingJournal(FileSystem& files, const CodePage& codePage) : files_(files), codePage_(codePage) {}

  /// A new journal, for a recording that is armed. @param target the chart file, links resolved; @param simulated no
  /// drive gives the values
  void Begin(const std::string& target, const ChartHeader& header, std::int64_t millisecondsBetweenPoints,
             bool simulated);
  /// The first point is being kept. @param rowsHere the rows will be written here, by Keep
  void NoteFirstPoint(const ChartHeader& header, const DateTime& now, bool rowsHere);
  /// The rows go on in the spool file of that number; a number that was lost may come again.
  void NoteSpool(int number);
  void NoteLostSpool(int number);
  /// Writes what it does not have yet: rows, failed readings, and all that could not be written before.
  /// @param rows all rows taken so far, of a recording in memory; @param failed of them; @param point the last one
  /// @param atOnce false: rows that come faster than anybody can look at them may wait for the next ones, see SavedRows
  void Keep(std::span<const PointRow> rows, const FailedReadings& failed, std::int32_t point, bool atOnce = true);
  /// How many rows the file has.
  [[nodiscard]] std::size_t SavedRows() const noexcept { return rowsSaved_; }

  /// Why a crash would lose points now; empty while it would not.
  [[nodiscard]] const std::optional<RunTimeError>& Fault() const noexcept { return fault_; }
  /// What the file holds, read back; nothing when that cannot be seen.
  [[nodiscard]] KeptRows Kept() const;
  /// Ends the journal. @param keep the file stays: the rows are not in the chart file
  void End(bool keep);

 private:
  /// What a call of Keep gives; nothing while only the head changes.
  struct State {
    std::span<const PointRow> rows;
    const FailedReadings* failed = nullptr;
    std::int32_t point = 0;
    bool atOnce = true;
  };
  void Save(const State& state);
  void SaveOnce(const State& state);
  void MakeFile();

  FileSystem& files_;
  const CodePage& codePage_;
  std::string target_;
  std::array<int, kColumnCount> parameters_{};
  std::string head_;  ///< all lines before the rows (UTF-8)
  std::unique_ptr<SideFile> file_;
  const PacedFile* paced_ = nullptr;  ///< the same file, where it knows when it was written
  std::size_t headSaved_ = 0;         ///< bytes of head_ that are in the file
  std::size_t rowsSaved_ = 0;
  FailureNotes notesSaved_;
  std::optional<RunTimeError> fault_;
};

}  // namespace chartproject
