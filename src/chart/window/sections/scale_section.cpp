// Scales: checked on lost focus and before an update.
#include "chart/window/sections/scale_section.h"

#include <limits>

#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/message_box.h"
#include "common/values/numbers.h"

namespace chartproject {
ScaleSection::ScaleSection(Form& form, Environment& environment)
    : lblScaleMsg(form, "lblScaleMsg"),
      txtScale1(form, "txtScale1"),
      upd1(form, "upd1"),
      txtScale2(form, "txtScale2"),
      upd2(form, "upd2"),
      txtScale3(form, "txtScale3"),
      upd3(form, "upd3"),
      txtScale4(form, "txtScale4"),
      upd4(form, "upd4"),
      cmdUpdateChart(form, "cmdUpdateChart"),
      rows{{{&txtScale1, &upd1}, {&txtScale2, &upd2}, {&txtScale3, &upd3}, {&txtScale4, &upd4}}},
      env_(environment) {
  cmdUpdateChart.SetDefault(true);
  Connect(cmdUpdateChart.click, cmdUpdateChart, "Click", this, &ScaleSection::cmdUpdateChart_Click);
  for (const Row& row : rows) {
    Connect(row.arrows->change, *row.arrows, "Change", this, &ScaleSection::EnableUpdate);
    Connect(row.text->change, *row.text, "Change", this, &ScaleSection::EnableUpdate);
    row.text->lostFocus = {row.text->Name() + "_LostFocus", [this, &row] { CheckScale(row); }};
  }
}

void ScaleSection::Prepare() {
  for (const Row& row : rows) {
    row.arrows->SetBuddy(row.text);
    row.arrows->SetSyncBuddy(true);
    row.arrows->SetMaximum(std::numeric_limits<std::int16_t>::max());
    row.arrows->SetMinimum(1);
    row.arrows->SetValue(1);
  }
  cmdUpdateChart.SetEnabled(false);
}

void ScaleSection::EnableFirst(int series) {
  for (int s = 0; s < kColumnCount; ++s) {
    const Row& row = rows.at(static_cast<std::size_t>(s));
    row.text->SetEnabled(s < series);
    row.arrows->SetEnabled(s < series);
  }
}

std::array<std::int16_t, kColumnCount> ScaleSection::Read() const {
  std::array<std::int16_t, kColumnCount> scales{};
  const NumberFormat& format = env_.ports.locale.Numbers();
  for (std::size_t s = 0; s < rows.size(); ++s) {
    // The arrows hold the last scale that was good.
    scales[s] = CheckedInteger16(rows[s].arrows->Value());
    const std::string& text = rows[s].text->Text();
    if (!IsNumeric(text, format)) continue;
    const double typed = ToDouble(text, format);
    if (typed >= 1 && typed <= std::numeric_limits<std::int16_t>::max()) scales[s] = RoundToInteger16(typed);
  }
  return scales;
}

bool ScaleSection::CheckScale(const Row& row) {
  TextBox& box = *row.text;
  const NumberFormat& format = env_.ports.locale.Numbers();
  bool good = false;
  try {
    if (!box.Text().empty()) box.SetText(std::to_string(RoundToInteger16(LeadingNumber(box.Text()))));
    good = IsNumeric(box.Text(), format) && ToInteger16(box.Text(), format) >= 1;
    if (!good) ShowMessage(env_, LoadMessage(env_, Text::kOutOfRange), box_style::kExclamation);
  } catch (const RunTimeError& error) {
    LogRunTimeError(env_, "CheckScale", error);
  }
  if (!good) {
    box.SetText(std::to_string(row.arrows->Value()));
    box.SetFocus();
    return false;
  }
  row.arrows->TakeBuddyValue();
  return true;
}

void ScaleSection::cmdUpdateChart_Click() {
  for (const Row& row : rows) {
    if (row.text->Enabled() && !CheckScale(row)) return;
  }
  update();
}

}  // namespace chartproject
