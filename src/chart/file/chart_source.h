// One chart file, open in the chart window: its header's numbers, where its points begin, and its slices.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "chart/file/file_survey.h"
#include "chart/file/kept_reader.h"
#include "chart/file/kept_writer.h"
#include "chart/file/slice_reader.h"
#include "chart/file/wide_slice.h"
#include "platform/ports.h"
#include "recording/file/chart_header.h"
#include "recording/file/point_reader.h"
#include "recording/journal/unfinished.h"

namespace chartproject {

/// Receives a point by its number, counted from 1; returning false ends the reading. The row's texts hold until it
/// returns.
using PointTaker = std::function<bool(std::int64_t point, const ChartRow& row)>;

/// Between two reads the file is closed; each read finds out whether it is still the same one.
class ChartSource {
 public:
  explicit ChartSource(const Ports& ports) : ports_(ports) {}

  /// Reads the header into `header` (a key that the file lacks leaves its field as it was) and finds the first point.
  /// Reads no further than that, however long the file is. Throws RunTimeError when the file cannot be read, 321 when
  /// it has no header.
  void Open(const std::string& fileName, ChartHeader& header);
  /// Opens a recording that is not in its chart file yet, to be read as if it were: its rows from line 1 on, the header
  /// that its journal has. NamedPoints is -1. Throws as Open.
  void OpenUnfinished(const std::string& chartFile, UnfinishedRecording recording, ChartHeader& header);
  /// Opens the chart file of the recording that was open unfinished; what is known of its rows holds on. Throws as
  /// Open.
  void OpenFinished(ChartHeader& header);
  /// Null for a chart file.
  [[nodiscard]] const UnfinishedRecording* Unfinished() const noexcept { return rows_ ? &*rows_ : nullptr; }
  /// Surveys of long files are kept in the user's cache folder, and taken over from there. @param least bytes of a long
  /// file
  void KeepSurveys(std::uint64_t least = kept::kLeastFile) noexcept { keptFrom_ = least; }

  [[nodiscard]] const std::string& FileName() const noexcept { return fileName_; }
  /// False for a file without the line that the points follow.
  [[nodiscard]] bool HasPoints() const noexcept { return firstLine_ > 0; }
  /// Line of the first point, counted from 1; 0 when there is none.
  [[nodiscard]] std::int32_t FirstLine() const noexcept { return firstLine_; }

  /// N: points that the header names; -1 when it names no whole number of 32 bits.
  [[nodiscard]] std::int32_t NamedPoints() const noexcept { return namedPoints_; }
  /// P: series that the header names, 1 to 4; 0 when it names anything else.
  [[nodiscard]] int NamedSeries() const noexcept { return namedSeries_; }

  /// Reads all the points; nothing when the user cancels. Throws RunTimeError.
  [[nodiscard]] std::optional<PointCount> Count(const ScanProgress& progress) const;

  /// Lines that have an end, in a file that may grow. Nothing when the user cancels. Throws RunTimeError.
  [[nodiscard]] std::optional<std::int64_t> CountLines(const ScanProgress& progress = {});
  /// Whether the file has grown since Open, and since the last call. Throws RunTimeError.
  [[nodiscard]] bool HasGrown();

  /// Whether the file was replaced since Open: it must be opened again. A file that only grew is the same.
  [[nodiscard]] bool Replaced();

  /// Throws RunTimeError when the file cannot be read.
  [[nodiscard]] SliceReading Read(std::int32_t startLine, std::int32_t endLine, int columns,
                                  const ScanProgress& progress = {});
  /// Reads points one after the other, however many there are, up to the end of the file at most. False when `take` or
  /// the progress function ended it. Throws RunTimeError 321 at a line that is not a point, and when the file cannot be
  /// read.
  /// @param first,last numbers of points
  bool ForEach(std::int64_t first, std::int64_t last, const PointTaker& take, const ScanProgress& progress = {});

  // The whole file. --------------------------------------------------------------------------------------------------
  [[nodiscard]] const FileSurvey& Survey() const noexcept { return survey_; }
  /// Goes on with the survey for about `time`, at least by one piece. True while something is left; false too when the
  /// file is not the one that was opened. Throws RunTimeError when it cannot be read.
  bool SurveyOn(Instant time);

  /// A slice of more points than rows: exact where the survey has passed it, else as it is known by now. Its lines are
  /// not set. Where millions of lines must be read for it, it is as exact as the survey's blocks at first (Refining).
  /// @param lines of the whole file. Throws RunTimeError when the file cannot be read.
  [[nodiscard]] Slice ReadWide(const WideRange& range, int columns, std::int64_t lines);
  /// The lines of the last wide slice are still to be read: SurveyOn does that, before anything else. The same slice
  /// can be read exactly then.
  [[nodiscard]] bool Refining() const noexcept { return wide_ && !wide_->Done(); }

 private:
  /// Reading a kept survey, or keeping one. A copy of the source does not go on with it: its survey is its own.
  struct KeptWork {
    KeptWork() = default;
    KeptWork(const KeptWork& /*other*/) noexcept {}
    KeptWork& operator=(const KeptWork& /*other*/) = delete;
    KeptWork(KeptWork&&) noexcept = default;
    KeptWork& operator=(KeptWork&&) noexcept = default;
    ~KeptWork() = default;
    std::unique_ptr<KeptReader> reader;
    std::unique_ptr<KeptWriter> writer;
  };

  [[nodiscard]] std::unique_ptr<InputFile> OpenFile() const;
  void Restart(const LinePlace& first, InputFile& file);
  [[nodiscard]] std::uint64_t HeaderPrint(InputFile& file) const;
  [[nodiscard]] std::string KeyOf(InputFile& file) const;
  void TakeKeptIndex(InputFile& file);
  /// The next piece of the survey, of a kept one that is taken over, or of keeping it. True while something is left.
  bool SurveyPiece(InputFile& file);

  const Ports& ports_;
  std::string fileName_;
  FileIdentity identity_;
  std::uint64_t headerSize_ = 0;   ///< bytes before the first point
  std::uint64_t headerPrint_ = 0;  ///< of those bytes
  std::int32_t firstLine_ = 0;
  std::int32_t namedPoints_ = -1;
  int namedSeries_ = 0;
  LineIndex index_;
  FileSurvey survey_;
  std::optional<WideReading> wide_;
  std::uint64_t seenSize_ = 0;               ///< of the file, when it was last asked whether it has grown
  std::optional<UnfinishedRecording> rows_;  ///< the files of rows, in the place of a chart file
  std::optional<std::uint64_t> keptFrom_;    ///< bytes of a file whose survey is kept; nothing for none
  bool lookedForKept_ = false;
  bool kept_ = false;  ///< the survey came from the cache folder, or went there
  KeptWork work_;
};

}  // namespace chartproject
