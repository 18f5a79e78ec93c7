// Writing chart files: header, rows kept in memory or in a spool file, and what is done when that fails.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/file_system.h"
#include "recording/file/chart_file.h"
#include "recording/file/chart_header.h"

namespace chartproject {

/// Free bytes that a run leaves on its disk: with less, a spooling run ends and its rows are not copied.
inline constexpr std::uint64_t kReservedSpace = 100'000'000;

/// The texts of one point. A column that is not in use, and a point that was never taken, is empty.
struct PointRow {
  std::string time;  ///< hh:mm:ss
  std::array<std::string, kColumnCount> values;
};

/// The program's ending of a file that will replace another one when it is complete.
inline constexpr std::string_view kUnfinishedEnding = ".new";

/// Copies a file's whole lines from its current place on, unchanged. An end without a line end is a row that was cut
/// short: it is left out unless it is a whole row. Throws RunTimeError.
/// @param keepAlive called every few megabytes; may be empty
void CopyLines(InputFile& from, OutputFile& to, const std::function<void()>& keepAlive);

/// Lines 1 to 20 of a chart file with their line ends (UTF-8).
[[nodiscard]] std::string HeaderLines(const ChartHeader& header);

/// Appends a row with its line end: the time, four values each after a "#", two closing "#" (UTF-8).
void AppendRowLine(std::string& lines, const PointRow& row);

/// The spool file that belongs to a chart file.
inline constexpr std::string_view kSpoolEnding = ".tcf0";
[[nodiscard]] std::string SpoolFileName(const std::string& chartFileName);
/// Makes it; one that is already there is deleted, but points that came there since the start are not: the new file
/// then has the next free name (".tcf1" ...). Throws RunTimeError.
[[nodiscard]] std::unique_ptr<SideFile> MakeSpoolFile(FileSystem& files, const std::string& chartFileName);

/// What became of a run's points.
struct ChartWriteResult {
  enum class Kind {
    kNothing,      ///< there was no point to write
    kWritten,      ///< the chart file is complete
    kRowsInSpool,  ///< too little space: header-only chart file, rows in keptFile
    kFailed,       ///< the chart file is as it was before; rows in keptFile unless that is empty
  };
  Kind kind = Kind::kNothing;
  std::string keptFile;         ///< the file that holds the rows when the chart file does not; empty: they are lost
  std::uint64_t freeSpace = 0;  ///< bytes, of kRowsInSpool
  std::int64_t rows = 0;        ///< points in the chart file, read back from it, of kWritten
  std::int64_t lost = 0;        ///< points that no file holds, of kFailed; keptFile holds the others
  std::string reason;           ///< the system's, of kFailed
};

/// The rows of a recording that spooled them.
struct SpooledRows {
  std::span<const std::unique_ptr<SideFile>> files;  ///< at least one; one that cannot be read any more is left out
  std::int64_t points = 0;                           ///< points taken
  std::string_view held{};                           ///< rows after those of the files, in the code page
};

/// Writes chart files beside their final name and renames them when they are complete and flushed, so that an existing
/// file is replaced by a whole one or not at all. Writing throws nothing: the result reports failures.
class ChartFileWriter {
 public:
  ChartFileWriter(FileSystem& files, const CodePage& codePage) : files_(files), codePage_(codePage) {}

  /// Throws RunTimeError when no file can be made beside the chart file, or when the one that is there cannot be
  /// replaced: reported before a run rather than after it.
  void CheckTarget(const std::string& fileName) const;

  /// Writes header and rows. When that fails the rows are saved beside the target, or else in `rescueFolder`, or else
  /// in the folder for temporary files.
  /// @param journal asked after a failure: a file that holds the rows already; may be empty, as its answer may be
  [[nodiscard]] ChartWriteResult WriteRows(const std::string& fileName, const ChartHeader& header,
                                           std::span<const PointRow> rows, const std::string& rescueFolder,
                                           const std::function<std::string()>& journal = {}) const;

  /// Writes the header and copies the lines of the spool files after it. They are kept unless that was done.
  /// @param keepAlive called every few megabytes, so that a window stays awake; may be empty
  [[nodiscard]] ChartWriteResult WriteSpool(const std::string& fileName, const ChartHeader& header,
                                            const SpooledRows& spool, const std::string& rescueFolder,
                                            const std::function<void()>& keepAlive = {}) const;

 private:
  FileSystem& files_;
  const CodePage& codePage_;
};

}  // namespace chartproject
