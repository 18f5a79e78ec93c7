// Which points of a file are to be shown: a slice of 25 divisions, and its place on the scroll bar.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

#include "chart/file/wide_slice.h"
#include "chart/view/scroll_range.h"

namespace chartproject {

/// The arithmetic of lines, points and divisions; nothing is read.
class ChosenSlice {
 public:
  /// What was chosen; a slice that was not read is taken back with it.
  struct Choice {
    std::int32_t startLine = 0;
    std::int32_t endLine = 0;
    std::int16_t pointsPerDivision = 1;
    WideDivision wide;                                                ///< no points: the slice is not wide
    std::int64_t wideEnd = std::numeric_limits<std::int64_t>::max();  ///< line that a wide slice ends before
  };

  /// Line of the first point, counted from 1.
  [[nodiscard]] std::int32_t FirstLine() const noexcept { return firstLine_; }
  /// N: points of the file's header, or what the file was found to hold.
  [[nodiscard]] std::int32_t Points() const noexcept { return points_; }

  [[nodiscard]] std::int32_t StartLine() const noexcept { return choice_.startLine; }
  [[nodiscard]] std::int32_t EndLine() const noexcept { return choice_.endLine; }
  [[nodiscard]] std::int16_t PointsPerDivision() const noexcept { return choice_.pointsPerDivision; }
  /// Nominal length in points: 25 divisions.
  [[nodiscard]] std::int32_t Length() const { return SliceLength(choice_.pointsPerDivision); }
  /// Points of a division: PointsPerDivision(), or more in a wide slice, which is drawn from the survey.
  [[nodiscard]] std::int64_t Division() const noexcept {
    return choice_.wide.points > 0 ? choice_.wide.points : choice_.pointsPerDivision;
  }
  /// Points of 25 divisions.
  [[nodiscard]] std::int64_t Span() const noexcept { return Division() * kDivisions; }
  /// Chooses a slice of any number of points a division; from kMostPointsPerDivision on the next round one.
  void SetDivision(std::int64_t points);
  /// Throws RunTimeError 6 for a line beyond 32 bits.
  void ScrollTo(std::int64_t startLine);
  /// Makes the slice shorter until it is scrolled: it ends before a line, where it has as many.
  void EndBefore(std::int64_t line) {
    choice_.wideEnd = line;
    choice_.endLine = static_cast<std::int32_t>(std::min<std::int64_t>(choice_.endLine, line));
  }
  /// The slice for a value of the scroll bar over the file. Throws RunTimeError 6.
  void ScrollToBarValue(int value, int maximum);
  [[nodiscard]] std::int16_t BarValue(int maximum) const;
  [[nodiscard]] ScrollRange Range() const { return ComputeScrollRange(points_, choice_.pointsPerDivision); }
  /// Keeps the slice inside the file. Throws RunTimeError 6 above kMostPointsPerDivision.
  void SetPointsPerDivision(std::int16_t points);
  /// Chooses the last slice when the chosen one is beyond the end. False when it is not.
  bool ReturnIntoFile();

 protected:
  /// Another file: its first slice, one point a division.
  void Restart(std::int32_t firstLine, std::int32_t points);
  void SetPoints(std::int32_t points) noexcept { points_ = points; }
  [[nodiscard]] const Choice& Chosen() const noexcept { return choice_; }
  [[nodiscard]] std::int64_t WideEnd() const noexcept { return choice_.wideEnd; }
  void Choose(const Choice& choice) noexcept { choice_ = choice; }

 private:
  std::int32_t firstLine_ = 0;
  std::int32_t points_ = 0;
  Choice choice_;
};

}  // namespace chartproject
