// The chart window: files, slices, and what its sections ask for.
#include "chart/window/chart_form.h"

#include "chart/window/find_forms.h"
#include "chart/window/range_forms.h"
#include "common/environment/language.h"
#include "common/environment/settings_io.h"
#include "common/error_log.h"
#include "common/form_appearance.h"
#include "common/form_translation.h"
#include "common/message_box.h"
#include "common/sounds.h"
#include "common/values/text.h"

namespace chartproject {
ChartForm::ChartForm(Component& component)
    : Form(component.forms, "frmChart", MakeHandlerErrorReporter(component)),
      component_(component),
      view_(component.ports, component.chartHeader) {
  view_.Source().KeepSurveys();
  NumberTexts();
  PlaceControls();
  ConnectSections();
}

ChartForm::~ChartForm() = default;

void ChartForm::NumberTexts() {
  SetTag(TextNumber(Text::kChartFile));
  const std::initializer_list<std::pair<Control*, Text>> captions{{&scales.lblScaleMsg, Text::kScale},
                                                                  {&scales.cmdUpdateChart, Text::kUpdateChart},
                                                                  {&switches.lblChartType, Text::kChartType},
                                                                  {&switches.chkGrid, Text::kGrid},
                                                                  {&switches.chkLine, Text::kLine},
                                                                  {&switches.chkMarker, Text::kMarker},
                                                                  {&output.cmdExport, Text::kExport},
                                                                  {&output.cmdPrint, Text::kPrint},
                                                                  {&output.cmdOK, Text::kOk}};
  for (const auto& [control, message] : captions) control->SetTag(TextNumber(message));
  const std::initializer_list<std::pair<Control*, Text>> toolTips{
      {&output.cmdExport, Text::kExportTip}, {&output.cmdPrint, Text::kPrintTip}, {&output.cmdOK, Text::kOkTip}};
  for (const auto& [control, message] : toolTips) control->SetToolTipText(TextNumber(message));
}

void ChartForm::ConnectSections() {
  scroll.load = [this] { return LoadSlice(); };
  reading.workEnded = [this] { scroll.Follow(); };
  scales.update = [this] { LoadSlice(); };
  switches.changed = [this] { ShowChart(); };
  // The file may have been deleted by now: an exception of these calls is an error of the window, too.
  mscChart1.answers.key = [this](const KeyPress& press) {
    bool used = true;
    RunHandler("mscChart1_KeyDown", [&] { used = actions_.Press(press); });
    return used;
  };
  mscChart1.answers.wheel = [this](const WheelInput& input) {
    RunHandler("mscChart1_Wheel", [&] {
      if (!axes_.ZoomByWheel(input) && !zoom_.ZoomByWheel(input)) scroll.ScrollByWheel(input.notches);
    });
    return true;
  };
  mscChart1.answers.menu = [this] { return actions_.Menu(component_); };
  mscChart1.answers.menuChosen = [this](int id) { RunHandler("mscChart1_Menu", [&] { actions_.Choose(id); }); };
  overview.advanced = [this] {
    view_.Load();
    ShowChart();
  };
  follow.reload = [this] { return Reload(); };
  follow.openFinished = [this] { OpenFinished(); };
  zoom_.Offer(actions_);
  overview.Offer(actions_);
  scroll.Offer(actions_);
  switches.Offer(actions_);
  readout_.Offer(actions_);
  OfferOutput();
  OfferSearches();
}

void ChartForm::OfferOutput() {
  output.Offer(actions_);
  report_.Offer(actions_);
  output.ask = [this](const std::string& question, const std::vector<RangeEntry>& entries) {
    ExportForm form(component_, question, entries);
    form.ShowModal();
    return form.Range();
  };
  report_.ask = [this](const ReportQuestion& question) {
    ReportForm form(component_, question);
    form.ShowModal();
    return form.Answer();
  };
}

void ChartForm::OfferSearches() {
  axes_.Offer(actions_);
  measure_.Offer(actions_);
  search_.Offer(actions_);
  axes_.changed = [this] { ShowChart(); };
  measure_.show = search_.show = [this](std::int64_t point) { ShowPoint(point); };
  search_.askPlace = [this] {
    GoToForm form(component_, view_.Facts().Clock(), view_.Points(), view_.Facts().AxisFor(axes_.Unit()));
    form.ShowModal();
    return form.Point();
  };
  search_.askQuery = [this](const PointQuery& last) {
    FindForm form(component_, readout_.Names(), last);
    form.ShowModal();
    return form.Query();
  };
}

void ChartForm::ShowPoint(std::int64_t point) {
  if (mscChart1.Model().RowOf(point)) return;
  scroll.ScrollTo(std::int64_t{view_.FirstLine()} + point - 1 - view_.Span() / 2);
}

void ChartForm::OnLoad() {
  switches.Prepare();
  ApplySavedSwitches();
  scales.Prepare();
  TranslateForm(*this, component_);
  scroll.ShowPointsPerDivision();
  mscChart1.SetToolTipText(LoadMessage(component_, Text::kChartTip));
  mscChart1.SetNumberFormat(component_.ports.locale.Numbers());
  for (Control* control : Controls()) {
    if (control->TypeName() == "Label") static_cast<Label*>(control)->SetBorderStyle(0);
  }
  series.Prepare();
  axes_.Prepare();
  overview.Prepare();
  LoadPictures();
  RestorePlace();
}

void ChartForm::LoadPictures() {
  LoadFormPictures(component_, *this);
  for (CommandButton* button : {&output.cmdOK, &output.cmdPrint}) SetButtonCursor(component_, *button);
}

void ChartForm::OnActivate() {
  if (!DriveIsKnown()) {
    Unload();
    return;
  }
  mscChart1.SetFocus();  // the keys that scroll work at once
}

bool ChartForm::OnQueryClose() {
  // While the file is read the window closes as soon as the reading has stopped.
  return !reading.CloseAfterwards();
}

void ChartForm::OnUnload() {
  switches.Save();
  axes_.Save();
  overview.Save();
  SaveConfSettings(component_);
  SavePlace();
  PlayClosingSound(component_);
}

bool ChartForm::OpenFile(const std::string& strFileName) {
  bool known = false;
  RunHandler("OpenFile", [&] {
    ShowFile(strFileName);
    known = DriveIsKnown();
  });
  return known;
}

bool ChartForm::OpenFollowing(const std::string& strFileName) {
  following_ = true;
  return OpenFile(strFileName);
}

bool ChartForm::DriveIsKnown() const {
  try {
    return !component_.driveTable.At(view_.DriveAddress()).Type.empty();
  } catch (const RunTimeError&) {
    return false;
  }
}

void ChartForm::ShowFile(const std::string& strFileName) {
  if (!following_ || !view_.OpenUnfinished(strFileName)) view_.Open(strFileName);
  if (component_.driveTable.At(view_.DriveAddress()).Type.empty()) {
    ShowMessage(component_,
                LoadMessage(component_, Text::kCannotLoad) + strFileName + "\r\n" +
                    LoadMessage(component_, Text::kAddress) + component_.chartHeader.DriveAddress +
                    LoadMessage(component_, Text::kDoesNotExist),
                box_style::kExclamation);
    return;
  }
  ShowTitle();
  view_.NameSeries(component_);
  {
    const ReadingSection::Scope counting(reading);
    view_.CountPoints(reading.Progress());
  }
  readout_.ForgetCursors();
  axes_.Restart();
  measure_.Restart();
  search_.Restart();
  report_.Restart();
  overview.Restart();
  zoom_.Restart();
  scroll.Restart();
  follow.Restart();
  if (!LoadSlice()) {
    // The first slice cannot be shown, but the header can, over an empty chart without a grid.
    mscChart1.SetModel(view_.Model({.kind = look_.kind}));
    series.Show(view_);
    scales.EnableFirst(view_.SeriesCount());
    rtfInfo.SetText(view_.Info(component_));
  }
}

bool ChartForm::LoadSlice() {
  if (reading.Busy()) return false;
  follow.CatchUp();
  if (view_.Replaced()) {
    ShowFile(view_.FileName());
    if (DriveIsKnown()) return true;
    Unload();  // the numbers of the file that was shown do not hold for this one
    return false;
  }
  const auto load = [this] {
    const ReadingSection::Scope loading(reading);
    return view_.Load(reading.Progress());
  };
  SliceEnd end = load();
  if (end == SliceEnd::kRead && MeasureFile()) end = load();
  switch (end) {
    case SliceEnd::kRead:
      ShowSlice();
      break;
    case SliceEnd::kMalformedLine:
      ShowMessage(component_, view_.FaultText(component_), box_style::kExclamation);
      break;
    case SliceEnd::kGivenUp:
      reading.Say(LoadMessage(component_, Text::kReadingStopped));
      scroll.Follow();
      break;
  }
  if (reading.ClosesAfterwards()) Unload();
  return end == SliceEnd::kRead;
}

/// The recording that was followed: the same points are in its chart file now, and stay where they are shown.
void ChartForm::OpenFinished() {
  const std::int64_t firstLine = view_.FirstLine();
  if (view_.Unfinished()->journal.simulated) component_.simulatedRecordings.insert(view_.FileName());
  view_.OpenFinished();
  view_.NameSeries(component_);
  {
    const ReadingSection::Scope counting(reading);
    view_.CountPoints(reading.Progress());
  }
  zoom_.Shift(view_.FirstLine() - firstLine);
  scroll.Prepare();
  scroll.Follow();
  ShowTitle();
}

void ChartForm::ShowTitle() {
  const std::string name(BaseName(view_.FileName()));
  SetCaption(LoadMessage(component_, Text::kChartFile) + " - " +
             (view_.Unfinished() != nullptr ? FillIn(LoadMessage(component_, Text::kFollowedTitle), {name}) : name));
}

bool ChartForm::Reload() {
  if (view_.Load() != SliceEnd::kRead) {
    reading.Say(view_.FaultText(component_));
    return false;
  }
  ShowInfo();
  ShowChart();
  readout_.PointerRowChanged();
  return true;
}

void ChartForm::ShowInfo() {
  const std::string info = view_.Info(component_);
  if (rtfInfo.Text() == info) return;
  rtfInfo.SetText("");
  rtfInfo.SetText(info);
}

void ChartForm::ShowSlice() {
  scroll.ShowPointsPerDivision();  // a slider that was moved while the slice was looked for goes back
  ShowInfo();
  series.Show(view_);
  scales.EnableFirst(view_.SeriesCount());
  look_ = {};
  look_.scales = scales.Read();
  scales.cmdUpdateChart.SetEnabled(false);
  ShowChart();
  readout_.PointerRowChanged();
}

void ChartForm::ShowChart() {
  switches.Fill(look_);
  axes_.Fill(look_);
  mscChart1.SetModel(view_.Model(look_));
  overview.Follow(look_);
}

bool ChartForm::MeasureFile() {
  {
    const ReadingSection::Scope counting(reading);
    if (!view_.MeasureFile(reading.Progress())) return false;
  }
  const bool moved = view_.ReturnIntoFile();
  scroll.Follow();
  return moved;
}

}  // namespace chartproject
