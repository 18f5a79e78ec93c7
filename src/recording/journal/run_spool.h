// The spool file of a running recording, the files in which it went on when somebody removed, replaced or cut it, and
// the rows that wait in memory while no file takes them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "recording/file/chart_file_writer.h"
#include "recording/journal/journal.h"

namespace chartproject {

/// Rows that wait in memory at most, in bytes: some hundred thousand.
inline constexpr std::size_t kMostHeldBytes = 8'000'000;

class RunSpool {
 public:
  /// All outlive the spool.
  RunSpool(FileSystem& files, RecordingJournal& journal) : files_(files), journal_(journal) {}

  /// Appends a row, in the code page, to the spool file, which is made at the first row. A spool file that was lost is
  /// left as it is: the row goes into a new one. While neither can be opened, because the folder was moved away or the
  /// disk refuses writing, up to kMostHeldBytes of rows wait in memory and go into the file as soon as that is
  /// possible. Throws RunTimeError when the row could not be kept.
  /// @return the disk's sizes when they were last known
  DiskSpace Append(const std::string& target, std::string_view row);
  /// Tries once more to write the rows that wait.
  void WriteHeld(const std::string& target);

  /// All files that hold rows, in order. One that was removed can still be read where the system keeps an open file.
  [[nodiscard]] std::span<const std::unique_ptr<SideFile>> Files() const noexcept { return parts_; }
  /// Rows that no file has yet, and why; empty while there is none.
  [[nodiscard]] const std::string& Held() const noexcept { return held_; }
  [[nodiscard]] const std::optional<RunTimeError>& Fault() const noexcept { return fault_; }
  /// What became of the file before the one that is written now; nothing while all rows are in one file.
  [[nodiscard]] const std::optional<RunTimeError>& Lost() const noexcept { return lost_; }
  /// The file that is written now; empty before the first row.
  [[nodiscard]] std::string Name() const { return parts_.empty() ? std::string() : parts_.back()->Name(); }
  /// Ends the spool: its files go unless they were kept.
  void End();

 private:
  static constexpr std::uint64_t kUnknownSpace = std::numeric_limits<std::uint64_t>::max();
  DiskSpace AppendToFile(const std::string& target, std::string_view rows);

  FileSystem& files_;
  RecordingJournal& journal_;
  std::vector<std::unique_ptr<SideFile>> parts_;
  std::optional<RunTimeError> lost_;
  std::string held_;  ///< whole rows, in the code page
  std::optional<RunTimeError> fault_;
  DiskSpace space_{0, kUnknownSpace, kUnknownSpace};  ///< after the last row that a file took
};

}  // namespace chartproject
