// From a file to a slice, and from the slice to what is seen of it.
#include "chart/view/chart_view.h"

#include <algorithm>

#include "chart/view/info_text.h"
#include "chart/view/series_label.h"
#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/values/numbers.h"
#include "drive/driver_file.h"

namespace chartproject {
namespace {

constexpr std::array kParameterNumbers{&ChartHeader::PXXX1, &ChartHeader::PXXX2, &ChartHeader::PXXX3,
                                       &ChartHeader::PXXX4};

}  // namespace

void ChartView::Open(const std::string& fileName) {
  source_.Open(fileName, header_);
  names_ = nullptr;
  slice_ = Slice();
  notices_.clear();
  points_ = source_.NamedPoints();
  seriesCount_ = source_.NamedSeries();
  allLinesCounted_ = false;
  pointsPerDivision_ = shownPointsPerDivision_ = 1;
  ScrollTo(source_.FirstLine());
}

std::int16_t ChartView::DriveAddress() const {
  return ToInteger16(header_.DriveAddress, ports_.locale.Numbers());
}

void ChartView::NameSeries(Component& component) {
  const std::int16_t address = DriveAddress();
  names_ = &component.parameterTables.At(address);
  try {
    LoadDriverFile(component, address);
  } catch (const RunTimeError& error) {
    NoteRunTimeError(component, "LoadDriverFile", error);
    notices_.push_back({Text::kNoParameterNames, error.Description(component.language)});
  }
}

void ChartView::CountPoints(const ScanProgress& progress) {
  if (points_ < 0) {
    points_ = source_.CountLines(progress);
    allLinesCounted_ = true;
    notices_.push_back({Text::kUnknownPoints, std::to_string(points_)});
  }
  if (!source_.HasPoints()) notices_.push_back({Text::kNoPointLines, ""});
}

void ChartView::ScrollTo(std::int64_t startLine) {
  start_ = CheckedInteger32(startLine);
  end_ = CheckedInteger32(startLine + Length());
}

void ChartView::ScrollToBarValue(int value, int maximum) {
  ScrollTo(SliceStart(FirstLine(), points_, pointsPerDivision_, value, maximum));
}

std::int16_t ChartView::BarValue(int maximum) const {
  return ScrollValue(start_ - FirstLine(), points_, pointsPerDivision_, maximum);
}

void ChartView::SetPointsPerDivision(std::int16_t points) {
  pointsPerDivision_ = points;
  const std::int64_t lastStart = std::int64_t{FirstLine()} + points_ - Length();
  ScrollTo(std::min<std::int64_t>(start_, lastStart));
}

SliceEnd ChartView::Load(const ScanProgress& progress) {
  SliceReading reading;
  reading.slice.startLine = start_;
  reading.slice.endLine = end_;
  // Without a usable number of series all the columns are read, to see which have values.
  const int columns = seriesCount_ == 0 ? kColumnCount : seriesCount_;
  if (source_.HasPoints()) reading = source_.Read(start_, end_, columns, progress);
  switch (reading.end) {
    case SliceEnd::kRead:
      Take(std::move(reading.slice));
      break;
    case SliceEnd::kMalformedLine:
      fault_ = {reading.malformedLine, std::move(reading.malformedText)};
      break;
    case SliceEnd::kGivenUp:
      pointsPerDivision_ = shownPointsPerDivision_;
      start_ = slice_.startLine;
      end_ = slice_.endLine;
      break;
  }
  return reading.end;
}

void ChartView::Take(Slice slice) {
  slice_ = std::move(slice);
  shownPointsPerDivision_ = pointsPerDivision_;
  if (source_.NamedSeries() != 0 || seriesCount_ >= slice_.columnsInUse) return;
  seriesCount_ = slice_.columnsInUse;
  notices_.push_back({Text::kUnknownSeries, std::to_string(seriesCount_)});
}

bool ChartView::GoesOnAfterItsHeader() const {
  const std::int32_t named = source_.NamedPoints();
  if (!source_.HasPoints() || named < 0) return false;
  if (points_ > named) return true;
  // Only now and then is the file's own number of points known: where a slice reached the end.
  if (slice_.endOfFile) return slice_.lastLine - FirstLine() + 1 > named;
  return slice_.moreFollow && std::int64_t{slice_.endLine} - FirstLine() >= named;
}

bool ChartView::TakeFurtherPointsIn(const ScanProgress& progress) {
  if (allLinesCounted_ || !GoesOnAfterItsHeader()) return false;
  allLinesCounted_ = true;
  bool whole = true;
  const std::int32_t held = source_.CountLines([&](double part) { return whole = !progress || progress(part); });
  if (!whole || held <= points_) return false;
  points_ = held;
  return true;
}

ChartModel ChartView::Model(const ChartLook& look) const {
  return BuildChart(slice_, {seriesCount_, shownPointsPerDivision_, FirstLine()}, look);
}

ViewedSeries ChartView::Series(int series) const {
  if (series >= seriesCount_) return {};
  const std::string& text = header_.*kParameterNumbers.at(static_cast<std::size_t>(series));
  const NumberFormat& format = ports_.locale.Numbers();
  ViewedSeries viewed{HeaderParameterName(text, format), std::nullopt};
  const auto parameter = HeaderParameter(text, format);
  if (parameter && names_ != nullptr) viewed.name = names_->At(*parameter).name;
  return viewed;
}

std::string ChartView::Info(const Environment& environment) const {
  std::vector<std::string> lines;
  for (const Notice& notice : notices_) {
    lines.push_back(FillIn(LoadMessage(environment, notice.text), {notice.value}));
  }
  const std::int64_t held = slice_.lastLine - FirstLine() + 1;
  const std::int32_t named = source_.NamedPoints();
  if (GoesOnAfterItsHeader()) {
    lines.push_back(FillIn(LoadMessage(environment, Text::kMorePoints), {std::to_string(named)}));
  } else if (source_.HasPoints() && slice_.endOfFile && held < named) {
    lines.push_back(
        FillIn(LoadMessage(environment, Text::kFewerPoints), {std::to_string(held), std::to_string(named)}));
  }
  return InfoText(environment, FileName(), header_, lines);
}

ChartPage ChartView::Page(const Environment& environment, const ChartLook& look) const {
  ChartPage page;
  page.fileName = FileName();
  page.header = header_;
  for (int s = 0; s < seriesCount_; ++s) {
    const ViewedSeries series = Series(s);
    page.series.push_back(
        {series.number, series.name.value_or(""), std::to_string(look.scales.at(static_cast<std::size_t>(s)))});
  }
  page.grid = look.grid;
  page.marker = look.markers;
  page.line = look.lines;
  page.chartType = LoadMessage(environment, ChartTypeName(look.kind));
  return page;
}

}  // namespace chartproject
