// One chart file and the slice of it that is shown, without any control: the window, a picture file and the printed
// page share it, so that they cannot disagree.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "chart/file/chart_source.h"
#include "chart/output/chart_page.h"
#include "chart/plain/point_range.h"
#include "chart/view/chart_building.h"
#include "chart/view/chosen_slice.h"
#include "common/environment/language.h"
#include "recording/companion/companion.h"
#include "recording/companion/point_clock.h"

namespace chartproject {

/// A line of the slice that is not a point.
struct MalformedLine {
  std::int64_t number = 0;
  std::string text;  ///< its bytes, in the file's code page
};

/// One series as labels name it.
struct ViewedSeries {
  std::string number;               ///< as in "P005"; empty when the header names none
  std::optional<std::string> name;  ///< from the drive's parameter tables; nothing when the header's text names none
  std::string unit{};               ///< from the same tables, for example "rpm"; empty where it is not known
};

enum class FileGrowth : std::uint8_t {
  kNone,
  kGrew,    ///< the file, but not N: what came is not read yet
  kPoints,  ///< N, too
  kGone,    ///< the rows of an unfinished recording are not there any more
};

/// A chosen slice, shown once Load has read it.
class ChartView : public ChosenSlice {
 public:
  /// @param header takes the header of the file; it and the ports outlive the view
  ChartView(const Ports& ports, ChartHeader& header) : ports_(ports), header_(header), source_(ports) {}

  // The file. --------------------------------------------------------------------------------------------------------
  /// Reads the header and goes to the first point, one point a division. Throws RunTimeError as ChartSource::Open.
  void Open(const std::string& fileName);
  /// The same of a recording that is not in its chart file yet; N is 0 until CountPoints. False when there is none
  /// beside that name.
  bool OpenUnfinished(const std::string& chartFile);
  /// The recording that was open unfinished is in its chart file: the same points, and the slice that was chosen.
  void OpenFinished();
  /// Null for a chart file.
  [[nodiscard]] const UnfinishedRecording* Unfinished() const noexcept { return source_.Unfinished(); }
  /// False for an unfinished recording whose rows are not in their files any more: it has ended.
  [[nodiscard]] bool RowsAreThere() const;
  /// Points that came since the last time: N counts them, and failed readings of an unfinished recording are known. Of
  /// a chart file N follows once the survey has read what came. Throws RunTimeError.
  [[nodiscard]] FileGrowth LookForGrowth();
  /// Address of the drive that the file was recorded from. Throws RunTimeError 6 or 13.
  [[nodiscard]] std::int16_t DriveAddress() const;
  /// Loads the names of the drive's parameters. A driver file that cannot be read is a notice and a line of the log:
  /// the values are worth showing without names. Throws RunTimeError 9 for an address outside the table.
  void NameSeries(Component& component);
  /// Counts the points where the header does not say how many there are. When cancelled there are none to scroll over.
  void CountPoints(const ScanProgress& progress);
  [[nodiscard]] const std::string& FileName() const noexcept { return source_.FileName(); }
  [[nodiscard]] bool HasPoints() const noexcept { return source_.HasPoints(); }
  /// Whether the file was replaced since Open: it must be opened again.
  [[nodiscard]] bool Replaced() { return source_.HasPoints() && source_.Replaced(); }
  /// P: series shown, 0 to 4.
  [[nodiscard]] int SeriesCount() const noexcept { return seriesCount_; }

  /// The extremes of the whole file, as far as they are known.
  [[nodiscard]] const FileSurvey& Survey() const noexcept { return source_.Survey(); }
  /// See ChartSource::SurveyOn.
  bool SurveyOn(Instant time) { return source_.SurveyOn(time); }
  /// See ChartSource::Refining.
  [[nodiscard]] bool Refining() const noexcept { return source_.Refining(); }

  // The slice that is shown. -----------------------------------------------------------------------------------------
  /// Reads the chosen slice. When cancelled, the slice that is shown is chosen again. Throws RunTimeError.
  SliceEnd Load(const ScanProgress& progress = {});
  /// Chooses these points, however many, and reads them: where they are more than a chart has rows, the survey is
  /// finished first. False when given up. Throws RunTimeError. @param range has an end, which the file reaches
  bool LoadRange(const PointRange& range, const ScanProgress& progress = {});
  [[nodiscard]] const Slice& Shown() const noexcept { return slice_; }
  /// The points that are shown; nothing while there are none.
  [[nodiscard]] std::optional<PointRange> ShownRange() const noexcept;
  /// Where Load ended at a malformed line; number 0 where it did not.
  [[nodiscard]] const MalformedLine& Fault() const noexcept { return fault_; }
  /// Counts the points where the slice met an end of the file that is not the expected one, or where the file goes on
  /// after it: N becomes what the file holds. True when it did; the slice that is chosen may be beyond the end then.
  bool MeasureFile(const ScanProgress& progress);
  /// The slice of one point alone. @param point its number in the file, from 1. Throws RunTimeError.
  [[nodiscard]] Slice PointAlone(std::int64_t point);

  // What is to be seen. ----------------------------------------------------------------------------------------------
  /// The chart of the slice that is shown.
  [[nodiscard]] ChartModel Model(const ChartLook& look) const;
  /// @param series counted from 0, less than kColumnCount; one above P has no texts
  [[nodiscard]] ViewedSeries Series(int series) const;
  /// Why the reading of a point failed; nothing when it did not, as far as is known.
  /// @param series counted from 0; @param point its number in the file, from 1
  [[nodiscard]] std::optional<ReadOutcome> Failure(int series, std::int64_t point) const;
  /// The file, for what is read beyond the slice.
  [[nodiscard]] ChartSource& Source() noexcept { return source_; }
  /// What the file itself cannot say; null where it has no companion.
  [[nodiscard]] const Companion* Readings() const noexcept { return companion_ ? &*companion_ : nullptr; }
  /// Readings that failed; null where none are known.
  [[nodiscard]] const FailedReadings* Failed() const noexcept { return companion_ ? &companion_->failed : nullptr; }
  /// The times of the points, see PointClock::Known.
  [[nodiscard]] const PointClock& Clock() const noexcept { return clock_; }
  /// What the category axis can count of what was asked for: points where the times are not known, and the time since
  /// the first point where only the time of day is not.
  [[nodiscard]] CategoryUnit AxisFor(CategoryUnit wanted) const noexcept;
  /// The real times of the points; null when they are those of the header.
  [[nodiscard]] const PointTimes* RealTimes() const noexcept;
  /// The header in the user's words, with notices of where header and points disagree.
  [[nodiscard]] std::string Info(const Environment& environment) const;
  /// What is wrong with the line of Fault(), in the user's words.
  [[nodiscard]] std::string FaultText(const Environment& environment) const;
  /// The page without its picture.
  [[nodiscard]] ChartPage Page(const Environment& environment, const ChartLook& look) const;

 private:
  struct Notice {
    Text text;
    std::string value;  ///< for its "%1"
  };

  /// Whether the last point is in another line than N says, as far as the slice shows it.
  [[nodiscard]] bool EndsElsewhere() const;
  /// Lines from the first point to the last one.
  [[nodiscard]] std::int32_t LinesOf(const PointCount& count) const;
  void Take(Slice slice);
  void LoadWide();
  void LoadReadings();
  void Forget();
  void ReadFailures();
  void TitleSeries(const ChartLook& look, ChartModel& model) const;
  void CountTimes(CategoryUnit unit, ChartModel& model) const;
  [[nodiscard]] std::vector<RowRange> FailedRows(std::size_t series) const;

  const Ports& ports_;
  ChartHeader& header_;
  ChartSource source_;
  const ParameterTable* names_ = nullptr;
  Slice slice_;
  MalformedLine fault_;
  std::vector<Notice> notices_;  ///< about the file as a whole
  std::optional<Companion> companion_;
  PointClock clock_;
  int seriesCount_ = 0;
  Choice shown_;                      ///< the choice that was read
  std::optional<std::int64_t> held_;  ///< points that were counted in the file
  bool countGivenUp_ = false;
  bool grows_ = false;           ///< the chart file has grown since it was opened
  FileIdentity failuresReadOf_;  ///< the journal, when failed readings were read from it
};

}  // namespace chartproject
