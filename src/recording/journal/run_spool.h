// The spool file of a running recording, and the files in which it went on when somebody removed, replaced or cut it.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "recording/file/chart_file_writer.h"
#include "recording/journal/journal.h"

namespace chartproject {

class RunSpool {
 public:
  /// All outlive the spool.
  RunSpool(FileSystem& files, RecordingJournal& journal) : files_(files), journal_(journal) {}

  /// Appends a row, in the code page, to the spool file, which is made at the first row. A spool file that was lost is
  /// left as it is: the row goes into a new one. Throws RunTimeError when the row could not be kept.
  /// @return the disk's sizes afterwards
  DiskSpace Append(const std::string& target, std::string_view row);

  /// All files that hold rows, in order. One that was removed can still be read where the system keeps an open file.
  [[nodiscard]] std::span<const std::unique_ptr<SideFile>> Files() const noexcept { return parts_; }
  /// What became of the file before the one that is written now; nothing while all rows are in one file.
  [[nodiscard]] const std::optional<RunTimeError>& Lost() const noexcept { return lost_; }
  /// The file that is written now; empty before the first row.
  [[nodiscard]] std::string Name() const { return parts_.empty() ? std::string() : parts_.back()->Name(); }
  /// Ends the spool: its files go unless they were kept.
  void End();

 private:
  FileSystem& files_;
  RecordingJournal& journal_;
  std::vector<std::unique_ptr<SideFile>> parts_;
  std::optional<RunTimeError> lost_;
};

}  // namespace chartproject
