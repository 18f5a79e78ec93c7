// The switches over a chart, and their settings.
#include "chart/window/sections/switches_section.h"

#include "common/environment/language.h"
#include "common/values/numbers.h"

namespace chartproject {
namespace {

void ApplySwitch(CheckBox& box, const std::string& setting) {
  if (setting == "Yes") box.SetValue(1);
  if (setting == "No") box.SetValue(0);
}

std::string YesOrNo(const CheckBox& box) {
  return box.Value() == 1 ? "Yes" : "No";
}

}  // namespace

SwitchesSection::SwitchesSection(Form& form, Environment& environment)
    : lblChartType(form, "lblChartType"),
      cboChartType(form, "cboChartType"),
      chkGrid(form, "chkGrid"),
      chkLine(form, "chkLine"),
      chkMarker(form, "chkMarker"),
      env_(environment) {
  Connect(cboChartType.click, cboChartType, "Click", this, &SwitchesSection::cboChartType_Click);
  Connect(chkGrid.click, chkGrid, "Click", this, &SwitchesSection::chkGrid_Click);
  Connect(chkLine.click, chkLine, "Click", this, &SwitchesSection::chkLine_Click);
  Connect(chkMarker.click, chkMarker, "Click", this, &SwitchesSection::chkMarker_Click);
}

void SwitchesSection::Prepare() {
  cboChartType.Clear();
  for (int type = 0; type < kChartKindCount; ++type) {
    cboChartType.AddItem(LoadMessage(env_, ChartTypeName(static_cast<ChartKind>(type))));
  }
}

void SwitchesSection::ApplySaved() {
  const Settings& settings = env_.settings;
  ApplySwitch(chkGrid, settings.strGrid);
  ApplySwitch(chkMarker, settings.strMarker);
  ApplySwitch(chkLine, settings.strLine);
  const int type = settings.intChartType;
  cboChartType.SetListIndex(type >= 0 && type < kChartKindCount ? type : static_cast<int>(ChartLook().kind));
}

void SwitchesSection::Save() {
  Settings& settings = env_.settings;
  settings.strGrid = YesOrNo(chkGrid);
  settings.strMarker = YesOrNo(chkMarker);
  settings.strLine = YesOrNo(chkLine);
  settings.intChartType = CheckedInteger16(cboChartType.ListIndex());
}

void SwitchesSection::Offer(ChartActions& actions) {
  const std::initializer_list<std::pair<ChartAction, CheckBox*>> boxes{
      {ChartAction::kGrid, &chkGrid}, {ChartAction::kLines, &chkLine}, {ChartAction::kMarkers, &chkMarker}};
  for (const auto& [action, box] : boxes) {
    const auto checked = [box = box] { return box->Value() == 1; };
    actions.Set(action, {[box = box, checked] { box->SetValue(checked() ? 0 : 1); }, {}, checked});
  }
}

void SwitchesSection::Fill(ChartLook& look) const {
  if (cboChartType.ListIndex() >= 0) look.kind = static_cast<ChartKind>(cboChartType.ListIndex());
  if (chkGrid.Value() != 2) look.grid = chkGrid.Value() == 1;
  look.lines = chkLine.Value() == 1;
  look.markers = chkMarker.Value() == 1;
}

void SwitchesSection::cboChartType_Click() {
  if (cboChartType.ListIndex() < 0) return;
  env_.settings.intChartType = CheckedInteger16(cboChartType.ListIndex());
  changed();
}

}  // namespace chartproject
