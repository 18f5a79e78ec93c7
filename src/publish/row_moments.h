// The moment of each point for a database: equal each time a point is sent, during its recording and after.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "chart/plain/local_moments.h"
#include "recording/companion/point_clock.h"

namespace chartproject {

/// Start plus points times interval, and the real times of a finished recording that did not keep its pace. While a
/// recording runs, or after a crash, nobody knows its real times but its rows, to the second: then a row whose time of
/// day is two seconds or more ahead moves the count to its own time. Times never go back.
class RowMoments {
 public:
  /// Where the count is: a point and its moment, in milliseconds since 1970 UTC.
  struct Anchor {
    std::int64_t point = 1;
    std::int64_t moment = 0;
    friend bool operator==(const Anchor&, const Anchor&) = default;
  };

  /// @param header of the recording; @param realTimes of its companion; null to follow the rows. All outlive this
  /// object. Throws RunTimeError 321 with `fileName` when the header does not say when and how fast was recorded.
  RowMoments(const ChartHeader& header, const PointTimes* realTimes, const Locale& locale, const TimeZone& zone,
             const std::string& fileName);

  /// Milliseconds since 1970 UTC. Points are asked for in their order. @param time of the row, hh:mm:ss
  [[nodiscard]] std::int64_t At(std::int64_t point, std::string_view time);

  /// To go on at a point that comes next, equal moments as before.
  [[nodiscard]] const Anchor& State() const noexcept { return anchor_; }
  void Restore(const Anchor& anchor);
  /// Of the first point.
  [[nodiscard]] const Anchor& Begin() const noexcept { return begin_; }

 private:
  PointClock clock_;
  bool followsRows_ = false;
  std::int64_t interval_ = 0;  ///< milliseconds
  LocalMoments local_;
  Anchor begin_;
  Anchor anchor_;
  std::string lastTime_;
};

}  // namespace chartproject
