// Labels of the series.
#include "chart/window/sections/series_section.h"

namespace chartproject {

SeriesSection::SeriesSection(Form& form)
    : lblPXXX1(form, "lblPXXX1"),
      lblPXXX2(form, "lblPXXX2"),
      lblPXXX3(form, "lblPXXX3"),
      lblPXXX4(form, "lblPXXX4"),
      lblPXXX1Function(form, "lblPXXX1Function"),
      lblPXXX2Function(form, "lblPXXX2Function"),
      lblPXXX3Function(form, "lblPXXX3Function"),
      lblPXXX4Function(form, "lblPXXX4Function"),
      picPXXX1(form, "picPXXX1"),
      picPXXX2(form, "picPXXX2"),
      picPXXX3(form, "picPXXX3"),
      picPXXX4(form, "picPXXX4"),
      rows{{{&picPXXX1, &lblPXXX1, &lblPXXX1Function},
            {&picPXXX2, &lblPXXX2, &lblPXXX2Function},
            {&picPXXX3, &lblPXXX3, &lblPXXX3Function},
            {&picPXXX4, &lblPXXX4, &lblPXXX4Function}}} {}

void SeriesSection::Prepare() {
  for (std::size_t s = 0; s < rows.size(); ++s) rows[s].swatch->SetBackColor(kSeriesColors[s]);
}

void SeriesSection::Show(const ChartView& view) {
  for (int s = 0; s < kColumnCount; ++s) {
    const Row& row = rows.at(static_cast<std::size_t>(s));
    const bool used = s < view.SeriesCount();
    const ViewedSeries series = view.Series(s);
    row.number->SetCaption(series.number);
    // A number that names no parameter leaves the label as it is.
    if (series.name || !used) {
      row.function->SetCaption(series.name.value_or(""));
      row.function->SetToolTipText(series.name.value_or(""));  // the label may be too narrow
    }
    for (Control* control : std::initializer_list<Control*>{row.swatch, row.number, row.function}) {
      control->SetEnabled(used);
    }
  }
}

void SeriesSection::ShowHidden(const std::array<bool, kColumnCount>& hidden) {
  constexpr Color kNoColor{236, 236, 232};
  for (std::size_t s = 0; s < rows.size(); ++s) {
    rows[s].swatch->SetBackColor(hidden[s] ? kNoColor : kSeriesColors[s]);
  }
}

}  // namespace chartproject
