// Scales, chart type, grid, lines and markers.
#include <limits>

#include "chart/window/chart_building.h"
#include "chart/window/chart_form.h"
#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/message_box.h"
#include "common/values/numbers.h"

namespace chartproject {
namespace {}  // namespace

void ChartForm::PrepareScales() {
  for (const SeriesControls& series : series_) {
    series.arrows->SetBuddy(series.scale);
    series.arrows->SetSyncBuddy(true);
    series.arrows->SetMaximum(std::numeric_limits<std::int16_t>::max());
    series.arrows->SetMinimum(1);
    series.arrows->SetValue(1);
  }
}

std::array<std::int16_t, kColumnCount> ChartForm::ReadScales() const {
  std::array<std::int16_t, kColumnCount> scales{};
  const NumberFormat& format = component_.ports.locale.Numbers();
  for (std::size_t s = 0; s < series_.size(); ++s) {
    // A text that was not checked yet, or was refused, does not count: the arrows hold the last one that was good.
    scales[s] = CheckedInteger16(series_[s].arrows->Value());
    const std::string& text = series_[s].scale->Text();
    if (!IsNumeric(text, format)) continue;
    const double typed = ToDouble(text, format);
    if (typed >= 1 && typed <= std::numeric_limits<std::int16_t>::max()) scales[s] = RoundToInteger16(typed);
  }
  return scales;
}

bool ChartForm::CheckScale(const SeriesControls& series) {
  TextBox& box = *series.scale;
  const NumberFormat& format = component_.ports.locale.Numbers();
  bool good = false;
  try {
    if (!box.Text().empty()) box.SetText(std::to_string(RoundToInteger16(LeadingNumber(box.Text()))));
    good = IsNumeric(box.Text(), format) && ToInteger16(box.Text(), format) >= 1;
    if (!good) ShowMessage(component_, LoadMessage(component_, Text::kOutOfRange), box_style::kExclamation);
  } catch (const RunTimeError& error) {
    LogRunTimeError(component_, "CheckScale", error);
  }
  if (!good) {
    box.SetText(std::to_string(series.arrows->Value()));
    box.SetFocus();
    return false;
  }
  series.arrows->TakeBuddyValue();
  return true;
}

void ChartForm::EnableUpdate() {
  cmdUpdateChart.SetEnabled(true);
}

void ChartForm::cmdUpdateChart_Click() {
  for (const SeriesControls& series : series_) {
    if (series.scale->Enabled() && !CheckScale(series)) return;
  }
  LoadSlice();
}

void ChartForm::cboChartType_Click() {
  const int type = cboChartType.ListIndex();
  if (type < 0) return;
  mscChart1.SetChartType(type);
  component_.settings.intChartType = CheckedInteger16(type);
}

void ChartForm::chkGrid_Click() {
  if (chkGrid.Value() != 2) ShowGrid(mscChart1, chkGrid.Value() == 1);
}

void ChartForm::chkLine_Click() {
  ShowLines(mscChart1, chkLine.Value() == 1);
}

void ChartForm::chkMarker_Click() {
  ShowMarkers(mscChart1, chkMarker.Value() == 1);
}

}  // namespace chartproject
