// Lines, points and divisions.
#include "chart/view/chosen_slice.h"

#include "common/values/numbers.h"

namespace chartproject {

void ChosenSlice::Restart(std::int32_t firstLine, std::int32_t points) {
  firstLine_ = firstLine;
  points_ = points;
  choice_ = {};
  ScrollTo(firstLine);
}

void ChosenSlice::ScrollTo(std::int64_t startLine) {
  choice_.startLine = CheckedInteger32(startLine);
  choice_.endLine = CheckedInteger32(startLine + Length());
  choice_.wideEnd = Choice{}.wideEnd;
}

void ChosenSlice::ScrollToBarValue(int value, int maximum) {
  ScrollTo(SliceStart(firstLine_, points_, choice_.pointsPerDivision, value, maximum));
  if (choice_.wide.points > 0) ReturnIntoFile();  // the bar's range is that of the longest slice that is not wide
}

std::int16_t ChosenSlice::BarValue(int maximum) const {
  return ScrollValue(choice_.startLine - firstLine_, points_, choice_.pointsPerDivision, maximum);
}

void ChosenSlice::SetDivision(std::int64_t points) {
  if (points > kMostPointsPerDivision) {
    choice_.wide = ChooseWideDivision(points);
    choice_.pointsPerDivision = kMostPointsPerDivision;
  } else {
    SetPointsPerDivision(static_cast<std::int16_t>(std::max<std::int64_t>(points, 1)));
  }
}

void ChosenSlice::SetPointsPerDivision(std::int16_t points) {
  choice_.wide = {};
  choice_.pointsPerDivision = points;
  if (!ReturnIntoFile()) ScrollTo(choice_.startLine);
}

bool ChosenSlice::ReturnIntoFile() {
  const std::int64_t last = std::int64_t{firstLine_} + std::max<std::int64_t>(points_ - Span(), 0);
  if (choice_.startLine <= last) return false;
  ScrollTo(last);
  return true;
}

}  // namespace chartproject
