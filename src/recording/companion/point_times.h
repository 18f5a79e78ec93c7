// When the points of a recording were really taken, in bounded memory.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/clock.h"

namespace chartproject {

/// The moment of one point; between two of them the points are evenly spaced.
struct TimeKnot {
  std::int32_t point = 0;    ///< its number, from 1
  std::int64_t elapsed = 0;  ///< milliseconds since the first point
  friend bool operator==(const TimeKnot&, const TimeKnot&) = default;
};

/// Most knots that are kept.
inline constexpr std::size_t kMostTimeKnots = 2000;

/// Moments as a chain of straight pieces: a recording that keeps its pace is one piece, however long it is. A piece
/// grows while every point in it is as near to it as the tolerance. When the pieces become too many, the tolerance is
/// doubled and they are joined.
class PointTimes {
 public:
  PointTimes() : PointTimes(1) {}
  /// @param tolerance at first; in milliseconds, 1 or more
  explicit PointTimes(std::int64_t tolerance) : tolerance_(tolerance), within_(tolerance) {}
  /// As they were kept before, see Knots and Within; in ascending order.
  PointTimes(std::vector<TimeKnot> knots, std::int64_t within);

  /// @param knot later than the one before
  void Add(const TimeKnot& knot);

  /// The ends of the pieces, the last point included.
  [[nodiscard]] std::vector<TimeKnot> Knots() const;
  /// How far a moment may be from the real one, in milliseconds.
  [[nodiscard]] std::int64_t Within() const noexcept { return within_; }
  /// Milliseconds since the first point; outside of the known points the nearest piece goes on. Two points at least
  /// must be known.
  [[nodiscard]] double ElapsedAt(double point) const;
  [[nodiscard]] bool Known() const noexcept { return last_.point > 1; }

 private:
  void Extend(const TimeKnot& knot);
  void Coarsen();

  std::int64_t tolerance_;
  std::int64_t within_;
  std::vector<TimeKnot> knots_;  ///< ends of the complete pieces
  TimeKnot last_;                ///< end of the piece that still grows
  double slowest_ = 0;           ///< milliseconds a point that the growing piece may have, between these two
  double fastest_ = 0;
};

}  // namespace chartproject
