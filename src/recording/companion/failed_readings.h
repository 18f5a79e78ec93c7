// The readings of a recording that failed: how many, where and why, for each column.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "drive/read_outcome.h"
#include "recording/file/chart_file.h"

namespace chartproject {

/// Points in a row whose reading failed for one reason.
struct FailedRange {
  std::int32_t first = 0;  ///< number of a point, from 1
  std::int32_t last = 0;
  std::int32_t failed = 0;  ///< of its points; all of them, unless ranges had to be joined
  ReadOutcome reason;
  friend bool operator==(const FailedRange&, const FailedRange&) = default;
};

/// Most ranges that are kept for a column. Where there are more, neighbours are joined, two and two.
inline constexpr std::size_t kMostFailedRanges = 2000;
/// Most bytes that are kept of a reason's detail, which comes from outside.
inline constexpr std::size_t kLongestReasonDetail = 120;

/// The failed readings of one column, in the order of their points.
class FailedColumn {
 public:
  /// @param point later than the point before
  void Note(std::int32_t point, const ReadOutcome& reason);
  /// As Note, of a range that comes after those so far.
  void Append(FailedRange range);

  [[nodiscard]] std::int64_t Count() const noexcept { return count_; }
  [[nodiscard]] std::int32_t FirstPoint() const noexcept { return ranges_.empty() ? 0 : ranges_.front().first; }
  [[nodiscard]] std::int32_t LastPoint() const noexcept { return ranges_.empty() ? 0 : ranges_.back().last; }
  /// Of the last point; kNone when none failed.
  [[nodiscard]] ReadOutcome LastReason() const { return ranges_.empty() ? ReadOutcome{} : ranges_.back().reason; }
  [[nodiscard]] const std::vector<FailedRange>& Ranges() const noexcept { return ranges_; }
  /// The range that holds a point; null when its reading did not fail.
  [[nodiscard]] const FailedRange* Find(std::int32_t point) const;
  friend bool operator==(const FailedColumn&, const FailedColumn&) = default;

 private:
  void JoinNeighbours();

  std::int64_t count_ = 0;
  std::vector<FailedRange> ranges_;
};

/// By column, from 0.
using FailedReadings = std::array<FailedColumn, kColumnCount>;

[[nodiscard]] bool AnyFailed(const FailedReadings& readings) noexcept;

}  // namespace chartproject
