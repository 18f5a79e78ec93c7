// What is known of a file's points beside their values: when they were taken, and which readings failed, and why.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "chart/file/slice_reader.h"
#include "chart/picture/geometry/chart_model.h"
#include "platform/ports.h"
#include "recording/companion/companion.h"
#include "recording/companion/failed_readings.h"
#include "recording/companion/point_clock.h"
#include "recording/file/chart_header.h"
#include "recording/journal/unfinished.h"

namespace chartproject {

/// From the header, and from the companion beside the chart file or the journal of a recording that is not in one yet.
class PointFacts {
 public:
  /// What a chart file has beside it. Throws RunTimeError when its companion cannot be used: then the header's times
  /// are known.
  void Load(const Ports& ports, const std::string& fileName, const ChartHeader& header);
  /// The same of a recording that is not in its chart file yet; failed readings are known after Follow.
  void LoadUnfinished(const Ports& ports, const UnfinishedRecording& recording, const ChartHeader& header);
  /// The recording has so many points now: its failed readings are read where the journal says more of them. Throws
  /// RunTimeError.
  void Follow(const Ports& ports, const UnfinishedRecording& recording, std::int32_t points);

  /// What the file itself cannot say; null where it has no companion.
  [[nodiscard]] const Companion* Readings() const noexcept { return companion_ ? &*companion_ : nullptr; }
  /// Readings that failed; null where none are known.
  [[nodiscard]] const FailedReadings* Failed() const noexcept { return companion_ ? &companion_->failed : nullptr; }
  /// Why the reading of a point failed; nothing when it did not, as far as is known.
  /// @param series counted from 0; @param point its number in the file, from 1
  [[nodiscard]] std::optional<ReadOutcome> Failure(int series, std::int64_t point) const;
  /// The rows of a slice with failed readings. @param first number of the slice's first point
  [[nodiscard]] std::vector<RowRange> FailedRows(std::size_t series, const Slice& slice, std::int64_t first) const;

  /// The times of the points, see PointClock::Known.
  [[nodiscard]] const PointClock& Clock() const noexcept { return clock_; }
  /// The real times of the points; null when they are those of the header.
  [[nodiscard]] const PointTimes* RealTimes() const noexcept;
  /// What the category axis can count of what was asked for: points where the times are not known, and the time since
  /// the first point where only the time of day is not.
  [[nodiscard]] CategoryUnit AxisFor(CategoryUnit wanted) const noexcept;
  /// Lets a model's rows have times. @param unit see AxisFor
  void CountTimes(CategoryUnit unit, ChartModel& model) const;

 private:
  std::optional<Companion> companion_;
  PointClock clock_;
  FileIdentity failuresReadOf_;  ///< the journal, when failed readings were read from it
};

}  // namespace chartproject
