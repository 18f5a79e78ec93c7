// From a file to a slice, and from the slice to what is seen of it.
#include "chart/view/chart_view.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "chart/view/info_text.h"
#include "chart/view/series_label.h"
#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/values/numbers.h"
#include "drive/driver_file.h"
#include "recording/companion/companion_texts.h"

namespace chartproject {
namespace {

constexpr std::array kParameterNumbers{&ChartHeader::PXXX1, &ChartHeader::PXXX2, &ChartHeader::PXXX3,
                                       &ChartHeader::PXXX4};

}  // namespace

void ChartView::Open(const std::string& fileName) {
  source_.Open(fileName, header_);
  Forget();
  Restart(source_.FirstLine(), source_.NamedPoints());
  LoadFacts();
}

bool ChartView::OpenUnfinished(const std::string& chartFile) {
  auto recording = FindUnfinished(ports_.files, ports_.codePage, chartFile);
  if (!recording) return false;
  source_.OpenUnfinished(chartFile, std::move(*recording), header_);
  Forget();
  Restart(source_.FirstLine(), source_.NamedPoints());
  facts_.LoadUnfinished(ports_, *Unfinished(), header_);
  return true;
}

void ChartView::OpenFinished() {
  const Choice chosen = Chosen();
  const std::int32_t offset = chosen.startLine - FirstLine();
  source_.OpenFinished(header_);
  Forget();
  Restart(source_.FirstLine(), source_.NamedPoints());
  LoadFacts();
  // The header names the points that were asked for.
  const std::int64_t lines = source_.CountLines().value_or(Points());
  if (lines != Points()) {
    SetPoints(CheckedInteger32(lines));
    held_ = lines;
  }
  Choose(chosen);
  ScrollTo(std::int64_t{FirstLine()} + offset);
}

bool ChartView::RowsAreThere() const {
  return Unfinished() == nullptr || std::ranges::all_of(Unfinished()->rowFiles, [this](const RowFile& file) {
           return ports_.files.FileExists(file.name);
         });
}

FileGrowth ChartView::LookForGrowth() {
  if (Unfinished() == nullptr) {
    if (source_.HasGrown()) {
      grows_ = true;
      return FileGrowth::kGrew;
    }
    const std::int64_t lines = Survey().Complete() ? Survey().Exact().Lines() : 0;
    if (!grows_ || lines <= Points()) return FileGrowth::kNone;
    SetPoints(CheckedInteger32(lines));
    if (held_) held_ = lines;
    return FileGrowth::kPoints;
  }
  if (!RowsAreThere()) return FileGrowth::kGone;
  if (!source_.HasGrown()) return FileGrowth::kNone;
  const std::int64_t lines = source_.CountLines().value_or(0);
  if (lines <= Points()) return FileGrowth::kNone;
  SetPoints(CheckedInteger32(lines));
  facts_.Follow(ports_, *Unfinished(), Points());
  return FileGrowth::kPoints;
}

/// What is known of the file before.
void ChartView::Forget() {
  names_ = nullptr;
  slice_ = Slice();
  notices_.clear();
  seriesCount_ = source_.NamedSeries();
  held_.reset();
  countGivenUp_ = false;
  fault_ = {};
  shown_ = {};
  grows_ = false;
}

/// A companion that cannot be used is a notice: the chart is worth showing without it.
void ChartView::LoadFacts() {
  try {
    facts_.Load(ports_, FileName(), header_);
  } catch (const RunTimeError& error) {
    notices_.push_back({Text::kCompanionNotRead, error.Description()});
  }
}

std::int16_t ChartView::DriveAddress() const {
  return ToInteger16(header_.DriveAddress, ports_.locale.Numbers());
}

void ChartView::NameSeries(Component& component) {
  const std::int16_t address = DriveAddress();
  names_ = &component.parameterTables.At(address);
  if ((Facts().Readings() != nullptr && Facts().Readings()->simulated) ||
      component.simulatedRecordings.contains(FileName())) {
    notices_.push_back({Text::kSimulatedValues, ""});
  }
  try {
    LoadDriverFile(component, address);
  } catch (const RunTimeError& error) {
    NoteRunTimeError(component, "LoadDriverFile", error);
    notices_.push_back({Text::kNoParameterNames, error.Description(component.language)});
  }
}

void ChartView::CountPoints(const ScanProgress& progress) {
  if (Unfinished() != nullptr) {
    SetPoints(CheckedInteger32(source_.CountLines(progress).value_or(0)));
    facts_.Follow(ports_, *Unfinished(), Points());
  } else if (Points() < 0) {
    const auto count = source_.Count(progress);
    SetPoints(count ? LinesOf(*count) : 0);
    countGivenUp_ = !count;
    notices_.push_back({Text::kUnknownPoints, std::to_string(count ? count->points : 0)});
  }
  if (!source_.HasPoints()) notices_.push_back({Text::kNoPointLines, ""});
}

std::int32_t ChartView::LinesOf(const PointCount& count) const {
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(count.lastLine - FirstLine() + 1, 0, kMost));
}

SliceEnd ChartView::Load(const ScanProgress& progress) {
  fault_ = {};
  if (Chosen().wide.points > 0 && source_.HasPoints()) {
    LoadWide();
    return SliceEnd::kRead;
  }
  SliceReading reading;
  reading.slice.startLine = StartLine();
  reading.slice.endLine = EndLine();
  // Without a usable number of series all the columns are read, to see which have values.
  const int columns = seriesCount_ == 0 ? kColumnCount : seriesCount_;
  if (source_.HasPoints()) reading = source_.Read(StartLine(), EndLine(), columns, progress);
  switch (reading.end) {
    case SliceEnd::kRead:
      Take(std::move(reading.slice));
      break;
    case SliceEnd::kMalformedLine:
      fault_ = {reading.malformedLine, std::move(reading.malformedText)};
      break;
    case SliceEnd::kGivenUp:
      shown_.startLine = slice_.startLine;
      shown_.endLine = slice_.endLine;
      Choose(shown_);
      break;
  }
  return reading.end;
}

bool ChartView::LoadRange(const PointRange& range, const ScanProgress& progress) {
  constexpr Instant kPiece = std::chrono::milliseconds(20);
  const std::int64_t begin = std::int64_t{FirstLine()} + range.first - 1;
  SetPoints(std::max(Points(), CheckedInteger32(range.last)));
  SetDivision((range.Count() + kDivisions - 1) / kDivisions);
  ScrollTo(begin);
  EndBefore(begin + range.Count());
  while (Division() > kMostPointsPerDivision && Survey().Exact().Lines() < range.last && SurveyOn(kPiece)) {
    const double part = static_cast<double>(Survey().Exact().Lines()) / static_cast<double>(range.last);
    if (progress && !progress(part)) return false;
  }
  if (Load(progress) == SliceEnd::kGivenUp) return false;
  if (!Refining()) return true;
  while (Refining() && SurveyOn(kPiece)) {
    if (progress && !progress(1)) return false;
  }
  LoadWide();
  return true;
}

std::optional<PointRange> ChartView::ShownRange() const noexcept {
  if (slice_.RowCount() == 0) return std::nullopt;
  const std::int64_t first = std::int64_t{1} + slice_.startLine - FirstLine();
  return PointRange{first, std::min<std::int64_t>(first + slice_.RowCount() * slice_.pointsPerRow - 1, Points())};
}

void ChartView::LoadWide() {
  const std::int64_t first = std::int64_t{StartLine()} - FirstLine();
  const std::int64_t end = std::min({first + Span(), std::int64_t{Points()}, WideEnd() - FirstLine()});
  Slice slice = source_.ReadWide({first, std::max(first, end), Chosen().wide.pointsPerRow}, seriesCount_, Points());
  slice.startLine = StartLine();
  slice.endLine = EndLine();
  Take(std::move(slice));
}

Slice ChartView::PointAlone(std::int64_t point) {
  const std::int32_t line = CheckedInteger32(FirstLine() + point - 1);
  return source_.Read(line, line + 1, seriesCount_).slice;
}

void ChartView::Take(Slice slice) {
  slice_ = std::move(slice);
  shown_ = Chosen();
  if (source_.NamedSeries() != 0 || seriesCount_ >= slice_.columnsInUse) return;
  seriesCount_ = slice_.columnsInUse;
  notices_.push_back({Text::kUnknownSeries, std::to_string(seriesCount_)});
}

bool ChartView::EndsElsewhere() const {
  if (!source_.HasPoints()) return false;
  if (slice_.moreFollow) return std::int64_t{slice_.endLine} - FirstLine() >= Points();
  if (!slice_.endOfFile) return false;
  return slice_.RowCount() == 0 ? Points() > 0 : slice_.lastLine - FirstLine() + 1 != Points();
}

bool ChartView::MeasureFile(const ScanProgress& progress) {
  if (countGivenUp_ || Unfinished() != nullptr || !EndsElsewhere()) return false;
  const auto count = source_.Count(progress);
  countGivenUp_ = !count;
  if (!count) return false;
  held_ = count->points;
  SetPoints(LinesOf(*count));
  return true;
}

ChartModel ChartView::Model(const ChartLook& look) const {
  const std::int64_t rows =
      shown_.wide.points > 0 ? shown_.wide.points / shown_.wide.pointsPerRow : shown_.pointsPerDivision;
  ChartModel model = BuildChart(slice_, {seriesCount_, static_cast<std::int16_t>(rows), FirstLine()}, look);
  const std::int64_t first = std::int64_t{1} + slice_.startLine - FirstLine();
  for (std::size_t s = 0; look.failures && s < model.series.size(); ++s) {
    model.series[s].failed = facts_.FailedRows(s, slice_, first);
  }
  facts_.CountTimes(facts_.AxisFor(look.axis), model);
  TitleSeries(look, model);
  return model;
}

/// "P002 Motor speed" in the legend; "Motor speed, rpm", with the scale where it is not 1, over a lane.
void ChartView::TitleSeries(const ChartLook& look, ChartModel& model) const {
  for (std::size_t s = 0; s < model.series.size(); ++s) {
    const ViewedSeries viewed = Series(static_cast<int>(s));
    const std::string number = viewed.number.empty() ? std::to_string(s + 1) : viewed.number;
    const std::string name = viewed.name.value_or("");
    model.series[s].label = number + (name.empty() ? "" : " " + name);
    std::string& title = model.series[s].axisTitle;
    title = name.empty() ? number : name;
    if (!viewed.unit.empty()) title += ", " + viewed.unit;
    if (look.scales[s] != 1) title += " \u00D7 " + std::to_string(look.scales[s]);
  }
}

ViewedSeries ChartView::Series(int series) const {
  if (series >= seriesCount_) return {};
  const std::string& text = header_.*kParameterNumbers.at(static_cast<std::size_t>(series));
  const NumberFormat& format = ports_.locale.Numbers();
  ViewedSeries viewed{HeaderParameterName(text, format), std::nullopt, {}};
  const auto parameter = HeaderParameter(text, format);
  if (parameter && names_ != nullptr) {
    viewed.name = names_->At(*parameter).name;
    viewed.unit = names_->At(*parameter).text5;
  }
  return viewed;
}

std::string ChartView::Info(const Environment& environment) const {
  std::vector<std::string> lines;
  for (const Notice& notice : notices_) {
    lines.push_back(FillIn(LoadMessage(environment, notice.text), {notice.value}));
  }
  const std::int32_t named = source_.NamedPoints();
  if (held_ && named >= 0 && *held_ > named) {
    lines.push_back(FillIn(LoadMessage(environment, Text::kMorePoints), {std::to_string(named)}));
  } else if (held_ && *held_ < named) {
    lines.push_back(
        FillIn(LoadMessage(environment, Text::kFewerPoints), {std::to_string(*held_), std::to_string(named)}));
  }
  // Of a slice that was never shown, the reason is.
  if (fault_.number > 0 && slice_.RowCount() == 0) lines.push_back(FaultText(environment));
  if (const Companion* const companion = facts_.Readings()) {
    std::ranges::copy(CompanionLines(environment.language, ports_.locale.Numbers(), *companion),
                      std::back_inserter(lines));
  }
  return InfoText(environment, FileName(), header_, lines);
}

std::string ChartView::FaultText(const Environment& environment) const {
  constexpr std::size_t kMostShown = 200;
  const std::string text = ports_.codePage.Decode(std::string_view(fault_.text).substr(0, kMostShown));
  return LoadMessage(environment, Text::kLineError) + std::to_string(fault_.number) + " : <<" + text + ">>";
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
