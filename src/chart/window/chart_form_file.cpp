// Opening a chart file and showing its slices.
#include <algorithm>

#include "chart/picture/series_label.h"
#include "chart/window/chart_building.h"
#include "chart/window/chart_form.h"
#include "chart/window/info_text.h"
#include "chart/window/scroll_range.h"
#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/message_box.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "drive/driver_file.h"
#include "forms/flag_scope.h"
#include "forms/form_host.h"

namespace chartproject {
namespace {

/// So much of a malformed line is shown.
constexpr std::size_t kShownLineLength = 200;
/// A reading shorter than this is not worth a progress text.
constexpr Instant kUnnoticed = std::chrono::milliseconds(150);
constexpr Instant kBetweenReports = std::chrono::milliseconds(50);

std::int16_t DriveAddressOf(const Component& component) {
  return ToInteger16(component.chartHeader.DriveAddress, component.ports.locale.Numbers());
}

}  // namespace

bool ChartForm::OpenFile(const std::string& strFileName) {
  try {
    ShowFile(strFileName);
    return DriveIsKnown();
  } catch (const std::exception& error) {
    LogRunTimeError(component_, "OpenFile", AsRunTimeError(error));
  }
  return false;
}

bool ChartForm::DriveIsKnown() const {
  try {
    return !component_.driveTable.At(DriveAddressOf(component_)).Type.empty();
  } catch (const RunTimeError&) {
    return false;
  }
}

void ChartForm::ShowFile(const std::string& strFileName) {
  const ChartHeader& header = component_.chartHeader;
  source_.Open(strFileName, component_.chartHeader);
  if (component_.driveTable.At(DriveAddressOf(component_)).Type.empty()) {
    ShowMessage(component_,
                LoadMessage(component_, Text::kCannotLoad) + strFileName + "\r\n" +
                    LoadMessage(component_, Text::kAddress) + header.DriveAddress +
                    LoadMessage(component_, Text::kDoesNotExist),
                box_style::kExclamation);
    return;
  }
  SetCaption(LoadMessage(component_, Text::kChartFile) + " - " + std::string(BaseName(strFileName)));
  notices_.clear();
  LoadParameterNames();
  seriesCount_ = source_.NamedSeries();
  points_ = source_.NamedPoints();
  if (points_ < 0) {
    WhileReading([this] { points_ = source_.CountLines([this](double part) { return ShowReadingProgress(part); }); });
    notices_.push_back(FillIn(LoadMessage(component_, Text::kUnknownPoints), {std::to_string(points_)}));
  }
  if (!source_.HasPoints()) notices_.push_back(LoadMessage(component_, Text::kNoPointLines));

  allLinesCounted_ = points_ != source_.NamedPoints();

  ForgetCursors();
  pointsPerDivision_ = 1;
  shownPointsPerDivision_ = 1;
  sliceStart_ = source_.FirstLine();
  sliceEnd_ = CheckedInteger32(std::int64_t{sliceStart_} + SliceLength(pointsPerDivision_));
  slice_ = Slice();
  {
    const FlagScope stay(walkingDown_);
    sldPointsPerDivision.SetMaximum(kMostPointsPerDivision);
    sldPointsPerDivision.SetMinimum(1);
    sldPointsPerDivision.SetValue(1);
  }
  ShowPointsPerDivision();
  PrepareScrollBar();
  {
    const FlagScope quiet(settingScrollBar_);
    hsbGraph.SetValue(0);
  }
  if (!LoadSlice()) {
    // The first slice cannot be shown, but the header can.
    LabelSeries();
    FillInfoBox();
  }
}

void ChartForm::LoadParameterNames() {
  functionNames_.fill({});
  try {
    LoadDriverFile(component_, DriveAddressOf(component_));
  } catch (const RunTimeError& error) {
    // The values are worth showing without their names.
    NoteRunTimeError(component_, "LoadDriverFile", error);
    notices_.push_back(
        FillIn(LoadMessage(component_, Text::kNoParameterNames), {error.Description(component_.language)}));
  }
}

void ChartForm::LabelSeries() {
  const ChartHeader& header = component_.chartHeader;
  const std::array<const std::string*, kColumnCount> numbers{&header.PXXX1, &header.PXXX2, &header.PXXX3,
                                                             &header.PXXX4};
  const NumberFormat& format = component_.ports.locale.Numbers();
  for (std::size_t s = 0; s < series_.size(); ++s) {
    const SeriesControls& series = series_[s];
    const bool used = static_cast<int>(s) < seriesCount_;
    const std::string& text = *numbers[s];
    const std::optional<int> parameter = used ? HeaderParameter(text, format) : std::nullopt;
    series.number->SetCaption(used ? HeaderParameterName(text, format) : "");
    if (parameter) {
      functionNames_[s] = component_.parameterTables.At(DriveAddressOf(component_)).At(*parameter).name;
      series.function->SetCaption(functionNames_[s]);
    } else if (!used) {
      series.function->SetCaption("");
    }
    const std::initializer_list<Control*> controls{series.swatch, series.number, series.function, series.scale,
                                                   series.arrows};
    for (Control* control : controls) control->SetEnabled(used);
  }
}

std::int32_t ChartForm::LengthOfSlice() const {
  return SliceLength(pointsPerDivision_);
}

bool ChartForm::LoadSlice() {
  if (reading_) return false;
  if (source_.HasPoints() && source_.Replaced()) {
    ShowFile(source_.FileName());
    if (DriveIsKnown()) return true;
    Unload();  // the numbers of the file that was shown do not hold for this one
    return false;
  }
  SliceReading reading = ReadVisibleSlice();
  switch (reading.end) {
    case SliceEnd::kRead:
      ShowSlice(std::move(reading.slice));
      if (GoesOnBehindItsHeader() && !allLinesCounted_) TakeFurtherPointsIn();
      break;
    case SliceEnd::kMalformedLine:
      ReportMalformedLine(reading);
      break;
    case SliceEnd::kGivenUp:
      ReturnToShownSlice();
      break;
  }
  if (closeAfterReading_) Unload();
  return reading.end == SliceEnd::kRead;
}

bool ChartForm::GoesOnBehindItsHeader() const {
  const std::int32_t named = source_.NamedPoints();
  if (!source_.HasPoints() || named < 0) return false;
  if (points_ > named) return true;
  // Only now and then is the file's own number of points known: where a slice reached the end.
  if (slice_.endOfFile) return slice_.lastLine - source_.FirstLine() + 1 > named;
  return slice_.moreFollow && std::int64_t{slice_.endLine} - source_.FirstLine() >= named;
}

void ChartForm::TakeFurtherPointsIn() {
  allLinesCounted_ = true;
  std::int32_t held = 0;
  bool whole = true;
  WhileReading([&] { held = source_.CountLines([&](double part) { return whole = ShowReadingProgress(part); }); });
  if (!whole || held <= points_) return;
  points_ = held;
  PrepareScrollBar();
  const FlagScope quiet(settingScrollBar_);
  hsbGraph.SetValue(ScrollValue(sliceStart_ - source_.FirstLine(), points_, pointsPerDivision_, hsbGraph.Maximum()));
}

SliceReading ChartForm::ReadVisibleSlice() {
  SliceReading reading;
  reading.slice.startLine = sliceStart_;
  reading.slice.endLine = sliceEnd_;
  reading.slice.columnsRead = seriesCount_;
  if (!source_.HasPoints()) return reading;
  // Without a usable number of series all the columns are read, to see which have values.
  const int columns = seriesCount_ == 0 ? kColumnCount : seriesCount_;
  WhileReading([&] {
    reading = source_.Read(sliceStart_, sliceEnd_, columns, [this](double part) { return ShowReadingProgress(part); });
  });
  if (reading.end == SliceEnd::kGivenUp) {
    lblStatus.SetCaption(LoadMessage(component_, Text::kReadingStopped));
  }
  return reading;
}

void ChartForm::WhileReading(const std::function<void()>& work) {
  reading_ = true;
  readingBegan_ = component_.ports.clock.Now();
  try {
    work();
  } catch (...) {
    EndReading();
    throw;
  }
  EndReading();
}

void ChartForm::EndReading() {
  reading_ = false;
  if (progressShown_) SetPointer(pointerBefore_);
  progressShown_ = false;
  lblStatus.SetCaption("");
}

void ChartForm::ShowHourglass() {
  progressShown_ = true;
  pointerBefore_ = Pointer();
  SetPointer(MousePointer::kHourglass);
  // Esc may have been pressed for another reason before.
  [[maybe_unused]] const bool earlier = component_.ports.keyboard.EscapePressed();
}

bool ChartForm::ShowReadingProgress(double part) {
  const Instant now = component_.ports.clock.Now();
  if (!progressShown_) {
    if (now - readingBegan_ < kUnnoticed) return true;
    ShowHourglass();
  } else if (now - progressTold_ < kBetweenReports) {
    return true;
  }
  progressTold_ = now;
  lblStatus.SetCaption(
      FillIn(LoadMessage(component_, Text::kReadingFile), {std::to_string(static_cast<int>(part * 100))}));
  component_.forms.KeepAlive();
  return !component_.ports.keyboard.EscapePressed() && !closeAfterReading_;
}

void ChartForm::ShowSlice(Slice slice) {
  slice_ = std::move(slice);
  shownPointsPerDivision_ = pointsPerDivision_;
  {
    // A slider that was moved while the slice was looked for goes back to what is shown.
    const FlagScope stay(walkingDown_);
    sldPointsPerDivision.SetValue(pointsPerDivision_);
  }
  if (source_.NamedSeries() == 0) {
    if (seriesCount_ < slice_.columnsInUse) {
      seriesCount_ = slice_.columnsInUse;
      notices_.push_back(FillIn(LoadMessage(component_, Text::kUnknownSeries), {std::to_string(seriesCount_)}));
    }
    slice_.columnsRead = seriesCount_;
  }
  FillInfoBox();
  LabelSeries();
  BuildChart(mscChart1, slice_,
             {component_.settings.intChartType, seriesCount_, pointsPerDivision_, source_.FirstLine(), ReadScales()});
  cmdUpdateChart.SetEnabled(false);
  chkGrid_Click();
  chkMarker_Click();
  chkLine_Click();
  mscChart1.SetChartType(cboChartType.ListIndex());
  mscChart1_PointerRowChanged();
}

void ChartForm::FillInfoBox() {
  std::vector<std::string> notices = notices_;
  const std::int64_t held = slice_.lastLine - source_.FirstLine() + 1;
  const std::int32_t named = source_.NamedPoints();
  if (GoesOnBehindItsHeader()) {
    notices.push_back(FillIn(LoadMessage(component_, Text::kMorePoints), {std::to_string(named)}));
  } else if (source_.HasPoints() && slice_.endOfFile && held < named) {
    notices.push_back(
        FillIn(LoadMessage(component_, Text::kFewerPoints), {std::to_string(held), std::to_string(named)}));
  }
  rtfInfo.SetText("");
  rtfInfo.SetText(InfoText(component_, source_.FileName(), component_.chartHeader, notices));
}

void ChartForm::ReportMalformedLine(const SliceReading& reading) {
  const std::string text =
      component_.ports.codePage.Decode(std::string_view(reading.malformedText).substr(0, kShownLineLength));
  ShowMessage(component_,
              LoadMessage(component_, Text::kLineError) + std::to_string(reading.malformedLine) + " : <<" + text + ">>",
              box_style::kExclamation);
}

}  // namespace chartproject
