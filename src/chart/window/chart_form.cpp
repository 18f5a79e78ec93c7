// The chart window's life: texts and handlers, loading, place on the screen, closing.
#include "chart/window/chart_form.h"

#include <algorithm>
#include <cmath>

#include "common/environment/language.h"
#include "common/environment/settings_io.h"
#include "common/error_log.h"
#include "common/form_appearance.h"
#include "common/form_translation.h"
#include "common/sounds.h"
#include "common/values/numbers.h"
#include "forms/form_host.h"

namespace chartproject {
namespace {

constexpr int kChartTypeCount = 8;
constexpr int kDefaultChartType = 3;
/// Size of the window before the user gave it another.
constexpr double kFirstWidth = 1000 * kTwipsPerPixel;
constexpr double kFirstHeight = 700 * kTwipsPerPixel;

std::string WholeTwips(double twips) {
  return std::to_string(std::llround(twips));
}

void ApplySwitch(CheckBox& box, const std::string& setting) {
  if (setting == "Yes") box.SetValue(1);
  if (setting == "No") box.SetValue(0);
}

std::string YesOrNo(const CheckBox& box) {
  return box.Value() == 1 ? "Yes" : "No";
}

}  // namespace

ChartForm::ChartForm(Component& component)
    : Form(component.forms, "frmChart", MakeHandlerErrorReporter(component)),
      component_(component),
      series_{{{&picPXXX1, &lblPXXX1, &lblPXXX1Function, &txtScale1, &upd1},
               {&picPXXX2, &lblPXXX2, &lblPXXX2Function, &txtScale2, &upd2},
               {&picPXXX3, &lblPXXX3, &lblPXXX3Function, &txtScale3, &upd3},
               {&picPXXX4, &lblPXXX4, &lblPXXX4Function, &txtScale4, &upd4}}},
      source_(component.ports) {
  NumberTexts();
  PlaceControls();
  Connect();
}

ChartForm::~ChartForm() = default;

void ChartForm::NumberTexts() {
  SetTag(TextNumber(Text::kChartFile));
  const std::initializer_list<std::pair<Control*, Text>> captions{{&lblScaleMsg, Text::kScale},
                                                                  {&cmdUpdateChart, Text::kUpdateChart},
                                                                  {&lblChartType, Text::kChartType},
                                                                  {&chkGrid, Text::kGrid},
                                                                  {&chkLine, Text::kLine},
                                                                  {&chkMarker, Text::kMarker},
                                                                  {&cmdExport, Text::kExport},
                                                                  {&cmdPrint, Text::kPrint},
                                                                  {&cmdOK, Text::kOk}};
  for (const auto& [control, message] : captions) control->SetTag(TextNumber(message));
  const std::initializer_list<std::pair<Control*, Text>> toolTips{
      {&cmdExport, Text::kExportTip}, {&cmdPrint, Text::kPrintTip}, {&cmdOK, Text::kOkTip}};
  for (const auto& [control, message] : toolTips) control->SetToolTipText(TextNumber(message));
  cmdUpdateChart.SetDefault(true);
}

void ChartForm::Connect() {
  On(hsbGraph.change, hsbGraph, "Change", &ChartForm::hsbGraph_Change);
  On(sldPointsPerDivision.change, sldPointsPerDivision, "Change", &ChartForm::sldPointsPerDivision_Change);
  On(cmdUpdateChart.click, cmdUpdateChart, "Click", &ChartForm::cmdUpdateChart_Click);
  On(cboChartType.click, cboChartType, "Click", &ChartForm::cboChartType_Click);
  On(chkGrid.click, chkGrid, "Click", &ChartForm::chkGrid_Click);
  On(chkLine.click, chkLine, "Click", &ChartForm::chkLine_Click);
  On(chkMarker.click, chkMarker, "Click", &ChartForm::chkMarker_Click);
  On(cmdExport.click, cmdExport, "Click", &ChartForm::cmdExport_Click);
  On(cmdPrint.click, cmdPrint, "Click", &ChartForm::cmdPrint_Click);
  On(cmdOK.click, cmdOK, "Click", &ChartForm::cmdOK_Click);
  for (const SeriesControls& series : series_) {
    On(series.arrows->change, *series.arrows, "Change", &ChartForm::EnableUpdate);
    On(series.scale->change, *series.scale, "Change", &ChartForm::EnableUpdate);
    series.scale->lostFocus = {series.scale->Name() + "_LostFocus", [this, &series] { CheckScale(series); }};
  }
  On(mscChart1.pointerRowChanged, mscChart1, "PointerRowChanged", &ChartForm::mscChart1_PointerRowChanged);
  On(mscChart1.cursorsChanged, mscChart1, "CursorsChanged", &ChartForm::mscChart1_CursorsChanged);
  // The file may be gone by now: what these throw is an error of the window, too.
  mscChart1.key = [this](Key key, bool /*shift*/) {
    bool used = true;
    RunHandler("mscChart1_KeyDown", [&] { used = ScrollByKey(key); });
    return used;
  };
  mscChart1.wheel = [this](int notches) {
    constexpr int kDivisionsPerNotch = 3;
    RunHandler("mscChart1_Wheel", [&] {
      ScrollTo(std::int64_t{sliceStart_} - std::int64_t{notches} * kDivisionsPerNotch * pointsPerDivision_);
    });
    return true;
  };
}

void ChartForm::OnLoad() {
  cboChartType.Clear();
  for (int type = 0; type < kChartTypeCount; ++type) {
    cboChartType.AddItem(LoadMessage(component_, ChartTypeName(type)));
  }
  ApplySavedSwitches();
  PrepareScales();
  TranslateForm(*this, component_);
  ShowPointsPerDivision();
  mscChart1.SetToolTipText(LoadMessage(component_, Text::kChartTip));
  mscChart1.SetNumberFormat(component_.ports.locale.Numbers());
  for (Control* control : Controls()) {
    if (control->TypeName() == "Label") static_cast<Label*>(control)->SetBorderStyle(0);
  }
  for (std::size_t s = 0; s < series_.size(); ++s) series_[s].swatch->SetBackColor(kSeriesColors[s]);
  cmdUpdateChart.SetEnabled(false);
  LoadPictures();
  RestorePlace();
}

void ChartForm::ApplySavedSwitches() {
  const Settings& settings = component_.settings;
  ApplySwitch(chkGrid, settings.strGrid);
  ApplySwitch(chkMarker, settings.strMarker);
  ApplySwitch(chkLine, settings.strLine);
  const int type = settings.intChartType;
  cboChartType.SetListIndex(type >= 0 && type < kChartTypeCount ? type : kDefaultChartType);
}

void ChartForm::LoadPictures() {
  // A missing picture is no reason to refuse the window: the back end has its own.
  const auto orDefault = [this](const char* routine, const std::function<void()>& load) {
    try {
      load();
    } catch (const RunTimeError& error) {
      NoteRunTimeError(component_, routine, error);
    }
  };
  orDefault("SetFormIcon", [this] { SetFormIcon(component_, *this); });
  orDefault("LoadButtonCursor", [this] { LoadButtonCursor(component_); });
  for (CommandButton* button : {&cmdOK, &cmdPrint}) SetButtonCursor(component_, *button);
}

void ChartForm::RestorePlace() {
  const NumberFormat& format = component_.ports.locale.Numbers();
  const auto stored = [&](std::string_view key, double otherwise) {
    const auto text = component_.ports.settings.Read(Name(), key);
    return text && IsNumeric(*text, format) ? ToDouble(*text, format) : otherwise;
  };
  const Size screen = component_.forms.ScreenSize();
  SetWidth(std::clamp(stored("Width", kFirstWidth), 0.0, screen.width));
  SetHeight(std::clamp(stored("Height", kFirstHeight), 0.0, screen.height));
  SetLeft(std::clamp(stored("Left", (screen.width - Width()) / 2), 0.0, screen.width - Width()));
  SetTop(std::clamp(stored("Top", (screen.height - Height()) / 2), 0.0, screen.height - Height()));
  if (component_.ports.settings.Read(Name(), "Maximized") == "Yes") SetState(WindowState::kMaximized);
}

void ChartForm::SavePlace() {
  SettingsStore& store = component_.ports.settings;
  store.Write(Name(), std::array{StoredSetting{"Maximized", State() == WindowState::kMaximized ? "Yes" : "No"}});
  if (State() != WindowState::kNormal) return;  // the place to go back to is the one stored before
  store.Write(Name(),
              std::array{StoredSetting{"Left", WholeTwips(Left())}, StoredSetting{"Top", WholeTwips(Top())},
                         StoredSetting{"Width", WholeTwips(Width())}, StoredSetting{"Height", WholeTwips(Height())}});
}

void ChartForm::OnActivate() {
  if (!DriveIsKnown()) Unload();
}

bool ChartForm::OnQueryClose() {
  // While the file is read the window closes as soon as the reading was given up.
  closeAfterReading_ = reading_;
  return !reading_;
}

void ChartForm::OnUnload() {
  Settings& settings = component_.settings;
  settings.strGrid = YesOrNo(chkGrid);
  settings.strMarker = YesOrNo(chkMarker);
  settings.strLine = YesOrNo(chkLine);
  settings.intChartType = CheckedInteger16(cboChartType.ListIndex());
  SaveConfSettings(component_);
  SavePlace();
  PlayClosingSound(component_);
}

void ChartForm::cmdOK_Click() {
  PlayWave(component_, kClickSound);
  printRequested_ = false;
  CloseByUser();
}

}  // namespace chartproject
