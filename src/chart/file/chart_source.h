// One chart file, open in the chart window: its header's numbers, where its points begin, and its slices.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "chart/file/file_survey.h"
#include "chart/file/slice_reader.h"
#include "chart/file/wide_slice.h"
#include "platform/ports.h"
#include "recording/file/chart_header.h"
#include "recording/file/point_reader.h"

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
  /// not set. @param lines of the whole file. Throws RunTimeError when the file cannot be read.
  [[nodiscard]] Slice ReadWide(const WideRange& range, int columns, std::int64_t lines);

 private:
  [[nodiscard]] std::uint64_t HeaderPrint(InputFile& file) const;

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
};

}  // namespace chartproject
