// The values under the mouse pointer and at the measuring cursors.
#include "chart/window/chart_form.h"

namespace chartproject {

std::vector<std::string> ChartForm::SeriesNames() const {
  std::vector<std::string> names;
  for (int s = 0; s < seriesCount_; ++s) {
    const std::string& number = series_[static_cast<std::size_t>(s)].number->Caption();
    names.push_back(number.empty() ? std::to_string(s + 1) : number);
  }
  return names;
}

void ChartForm::mscChart1_PointerRowChanged() {
  const auto row = mscChart1.PointerRow();
  if (!row || *row >= slice_.RowCount()) return;
  mscChart1.SetReadout(
      PointReadout(component_, ReadPoint(slice_, *row, source_.FirstLine(), seriesCount_), SeriesNames()));
}

void ChartForm::mscChart1_CursorsChanged() {
  for (const MeasuringCursor which : {MeasuringCursor::kFirst, MeasuringCursor::kSecond}) {
    auto& cursor = cursors_[static_cast<std::size_t>(which)];
    const auto label = mscChart1.CursorLabel(which);
    // A point that was scrolled away is remembered as it was read.
    if (label && cursor && cursor->number == *label) continue;
    cursor.reset();
    if (const auto row = mscChart1.CursorRow(which); row && *row < slice_.RowCount()) {
      cursor = ReadPoint(slice_, *row, source_.FirstLine(), seriesCount_);
    }
  }
  ShowCursorReadout();
}

void ChartForm::ShowCursorReadout() {
  mscChart1.SetCursorReadout(CursorReadout(component_, component_.chartHeader, cursors_, SeriesNames()));
}

void ChartForm::ForgetCursors() {
  mscChart1.SetCursor(MeasuringCursor::kFirst, std::nullopt);
  mscChart1.SetCursor(MeasuringCursor::kSecond, std::nullopt);
}

}  // namespace chartproject
