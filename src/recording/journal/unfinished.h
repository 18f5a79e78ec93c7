// The rows of a recording that is not in its chart file yet, read while it runs.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "recording/companion/failed_readings.h"
#include "recording/journal/interrupted.h"

namespace chartproject {

/// A recording that runs, in this program or in another one, or that was interrupted.
struct UnfinishedRecording {
  std::string journalFile;
  FileIdentity journalIdentity;
  JournalReading journal;
  std::vector<RowFile> rowFiles;  ///< in the order of their rows
};

/// Looks beside a chart file, for the journal that was written last. Nothing without a journal, and before the first
/// row. Throws RunTimeError 57.
[[nodiscard]] std::optional<UnfinishedRecording> FindUnfinished(FileSystem& files, const CodePage& codePage,
                                                                const std::string& chartFile);

/// The rows one after the other, from offset 0 and line 1 on, as one file that grows; a journal without the lines that
/// are not rows. Its identity is that of the first file of rows, its size that of all. Throws RunTimeError 53 when a
/// file is not there any more.
[[nodiscard]] std::unique_ptr<InputFile> OpenRows(FileSystem& files, const UnfinishedRecording& recording);

}  // namespace chartproject
