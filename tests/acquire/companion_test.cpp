// What a chart file cannot say: ranges of failed points, the real times of points, and the companion file that keeps
// both: its exact text, what it is recognised by, and which files it leaves alone.
#include "recording/companion/companion.h"

#include <gmock/gmock.h>

#include <cmath>

#include "recording/companion/companion_reader.h"
#include "recording/companion/companion_texts.h"
#include "support/error_of.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::IsEmpty;

const ReadOutcome kSilent{ReadFailure::kNoAnswer, ""};
const ReadOutcome kRefused{ReadFailure::kException, "illegal address"};

TEST(FailedColumnTest, PointsInARowForOneReasonAreOneRange) {
  FailedColumn column;
  EXPECT_EQ(column.LastReason(), ReadOutcome{});
  for (const int point : {2, 3, 4, 8}) column.Note(point, kSilent);
  for (const int point : {9, 10}) column.Note(point, kRefused);
  EXPECT_THAT(column.Ranges(), ElementsAre(FailedRange{2, 4, 3, kSilent}, FailedRange{8, 8, 1, kSilent},
                                           FailedRange{9, 10, 2, kRefused}));
  EXPECT_EQ(column.Count(), 6);
  for (const auto& [point, found] : {std::pair{1, false}, {2, true}, {4, true}, {5, false}, {10, true}, {11, false}})
    EXPECT_EQ(column.Find(point) != nullptr, found) << point;
  column.Note(12, {ReadFailure::kException, "a\r\n\x1B" + std::string(119, 'x') + "\xC3\xA9"});
  EXPECT_EQ(column.LastReason().detail, "a\\x0D\\x0A\\x1B" + std::string(107, 'x'));
}

TEST(FailedColumnTest, TooManyRangesAreJoinedAndNoFailureIsLost) {
  FailedColumn column;
  constexpr int kPoints = 1'000'000;
  for (int point = 1; point <= kPoints; point += 2) {
    column.Note(point, kSilent);
    const auto notes = static_cast<std::size_t>(point + 1) / 2;
    ASSERT_TRUE(notes > kMostFailedRanges || column.Ranges().size() == notes) << "joined too early";
  }
  EXPECT_LE(column.Ranges().size(), kMostFailedRanges);
  EXPECT_EQ(column.Count(), kPoints / 2);
  EXPECT_EQ(column.FirstPoint(), 1);
  EXPECT_EQ(column.LastPoint(), kPoints - 1);
  int sum = 0;
  for (const FailedRange& range : column.Ranges()) sum += range.failed;
  EXPECT_EQ(sum, kPoints / 2);
}

TEST(PointTimesTest, APaceIsOnePieceAndAPauseIsTwoKnots) {
  PointTimes times(5);
  EXPECT_FALSE(times.Known());
  for (int point = 1; point <= 1000; ++point) times.Add({point, point * 200 + (point > 600 ? 5000 : 0)});
  EXPECT_THAT(times.Knots(),
              ElementsAre(TimeKnot{1, 200}, TimeKnot{600, 120'000}, TimeKnot{601, 125'200}, TimeKnot{1000, 205'000}));
  const PointTimes again(times.Knots(), times.Within());
  for (const double point : {1.0, 300.5, 600.0, 601.0, 999.0, 1100.0}) {
    EXPECT_EQ(again.ElapsedAt(point), point * 200 + (point > 600 ? 5000 : 0)) << point;
    EXPECT_EQ(times.ElapsedAt(point), again.ElapsedAt(point)) << point;
  }
  PointTimes first(5);
  first.Add({1, 70});
  for (const PointTimes& alone : {first, PointTimes({{1, 70}}, 5)}) {
    EXPECT_THAT(alone.Knots(), ElementsAre(TimeKnot{1, 70}));
    EXPECT_EQ(alone.ElapsedAt(1), 70);
  }
}

TEST(PointTimesTest, MomentsStayAsNearAsPromisedInBoundedMemory) {
  PointTimes times(5);
  std::vector<std::int64_t> moments;
  std::int64_t now = 0;
  for (int point = 1; point <= 60'000; ++point) {
    now += 200 + point * 7919 % 613;  // a link that takes another time for each reading
    moments.push_back(now);
    times.Add({point, now});
  }
  EXPECT_LE(times.Knots().size(), kMostTimeKnots);
  EXPECT_LT(times.Within(), 20'000);
  double worst = 0;
  for (std::size_t i = 0; i < moments.size(); ++i) {
    worst = std::max(worst, std::abs(times.ElapsedAt(static_cast<double>(i + 1)) - static_cast<double>(moments[i])));
  }
  EXPECT_LE(worst, static_cast<double>(times.Within()));
  EXPECT_GT(worst, 0);
}

TEST(PaceTest, ReportsAskedAndRealIntervalsAndWhatIsLateNow) {
  Pace pace(200, milliseconds(1000));
  EXPECT_EQ(pace.LateInterval(milliseconds(1290)), 0);
  EXPECT_EQ(pace.LateInterval(milliseconds(2500)), 1500) << "the first point does not come";
  for (int point = 1; point <= 10; ++point) pace.Note(point, milliseconds(1000 + point * 200 + point % 2 * 9));
  EXPECT_EQ(pace.Summary(), (PaceSummary{200, 191, 199, 209, 0}));
  EXPECT_FALSE(pace.Summary().Slipped());
  EXPECT_EQ(pace.LateInterval(milliseconds(3100)), 0);
  for (int point = 11; point <= 30; ++point) pace.Note(point, milliseconds(3000 + (point - 10) * 710));
  EXPECT_TRUE(pace.Summary().Slipped());
  EXPECT_EQ(pace.Summary(), (PaceSummary{200, 191, 551, 710, 10'191}));
  EXPECT_NEAR(static_cast<double>(pace.LateInterval(milliseconds(17'300))), 710, 3);
  for (int point = 31; point <= 60; ++point) pace.Note(point, milliseconds(17'200 + (point - 30) * 200));
  EXPECT_EQ(pace.LateInterval(milliseconds(23'300)), 0) << "in time again";
  EXPECT_TRUE(pace.Summary().Slipped());
}

constexpr const char* kChartName = "C:\\p\\a.cht";
constexpr const char* kName = "C:\\p\\a.cht.readings";
constexpr const char* kWhole =
    "[CHART READINGS]\r\n"
    "' What the chart file beside this one cannot say: readings that failed (0 in the chart file), and\r\n"
    "' the real times of its points. UTF-8. The chart file can be used without this file.\r\n"
    "Start Date=31/01/2026\r\n"
    "Start Time=08:00:01\r\n"
    "End Date=31/01/2026\r\n"
    "End Time=8h05\r\n"
    "Points=40\r\n"
    "\r\n"
    "[FAILED]\r\n"
    "' parameter, first and last point, failed readings among them, reason, what the link added\r\n"
    "1 P003 4 20 17 no-answer\r\n"
    "1 P003 23 24 2 refused illegal address\r\n"
    "4 P012 40 40 1 status 7\r\n"
    "\r\n"
    "[PACE]\r\n"
    "' milliseconds between points; Latest: how much later than asked the latest point came\r\n"
    "Asked=200\r\n"
    "Shortest=200\r\n"
    "Mean=251\r\n"
    "Longest=2200\r\n"
    "Latest=2000\r\n"
    "\r\n"
    "[TIMES]\r\n"
    "' point, milliseconds since the first point; between two lines the points are evenly spaced\r\n"
    "Within=5\r\n"
    "1 0\r\n"
    "20 3800\r\n"
    "21 6000\r\n"
    "40 9800\r\n"
    "\r\n"
    "[SOURCE]\r\n"
    "Drives=simulated\r\n";

struct CompanionTest : ::testing::Test {
  CompanionTest() {
    header.StartDate = header.EndDate = "31/01/2026";
    header.StartTime = "08:00:01";
    header.EndTime = "8h05 ";  // the system's own time text; blanks at its end are not in the chart file
    companion.points = 40;
    companion.parameters = {3, 5, kUnusedParameter, 12};
    companion.failed[0].Append({4, 20, 17, kSilent});
    companion.failed[0].Append({23, 24, 2, kRefused});
    companion.failed[3].Note(40, {ReadFailure::kStatus, "7"});
    companion.pace = {200, 200, 251, 2200, 2000};
    companion.simulated = true;
    companion.times = PointTimes({{1, 0}, {20, 3800}, {21, 6000}, {40, 9800}}, 5);
  }
  void Save() { SaveCompanion(fake.files, fake.codePage, kChartName, header, companion); }
  std::optional<Companion> Load() { return LoadCompanion(fake.files, kChartName, header); }

  FakePorts fake;
  ChartHeader header;
  Companion companion;
};

TEST_F(CompanionTest, IsATextThatDescribesItselfAndIsReadBackWhole) {
  header.EndTime = "8h05";
  Save();
  EXPECT_EQ(fake.files.Bytes(kName), kWhole);
  header.EndTime += " ";
  const auto read = Load();
  ASSERT_TRUE(read);
  EXPECT_EQ(read->points, 40);
  EXPECT_EQ(read->parameters, (std::array{3, kUnusedParameter, kUnusedParameter, 12}));
  EXPECT_EQ(read->failed, companion.failed);
  EXPECT_EQ(read->pace, companion.pace);
  EXPECT_TRUE(read->simulated);
  EXPECT_EQ(read->times.Knots(), companion.times.Knots());
  fake.files.Put(kName, std::string(kWhole) + "[LATER]\r\nanything\r\n");
  EXPECT_TRUE(Load()) << "a section of a later version";
}

TEST_F(CompanionTest, OneOfAnotherRecordingAndOneThatIsMissingSayNothing) {
  EXPECT_FALSE(Load());
  Save();
  for (std::string ChartHeader::*field :
       {&ChartHeader::StartDate, &ChartHeader::StartTime, &ChartHeader::EndDate, &ChartHeader::EndTime}) {
    const std::string before = std::exchange(header.*field, "other");
    EXPECT_FALSE(Load());
    header.*field = before;
  }
  EXPECT_TRUE(Load());
  fake.files.Put(kName, "[CHART READINGS]\r\nPoints=40\r\n");
  EXPECT_FALSE(Load()) << "it names no recording";
}

TEST_F(CompanionTest, IsReplacedOrRemovedWithItsChartFileAndForeignFilesStay) {
  Save();
  companion = {};
  companion.points = 40;
  Save();
  EXPECT_FALSE(fake.files.Has(kName)) << "nothing to say";
  fake.files.Put(kName, "my own notes");
  Save();
  fake.files.Break("read", error_number::kPermissionDenied, kName);
  Save();
  fake.files.Mend();
  EXPECT_TRUE(fake.files.Has(kName)) << "whose it is cannot be known";
  companion.failed[0].Note(1, kSilent);
  EXPECT_EQ(ErrorTextOf([this] { Save(); }), "75 " + std::string(kName) +
                                                 " exists already, was not written by this program and was left as it "
                                                 "was.");
  EXPECT_EQ(fake.files.Bytes(kName), "my own notes");
  EXPECT_FALSE(Load());
}

TEST_F(CompanionTest, SaysInOneLineAColumnWhatFailedAndHowLateThePointsWere) {
  EXPECT_THAT(
      CompanionLines(Language::kEnglish, fake.locale.Numbers(), companion),
      ElementsAre("P003: 19 of 40 readings failed, last: refused by the drive (illegal address) (points 4 to 24)",
                  "P012: 1 of 40 readings failed, last: status 7 (points 40 to 40)",
                  "Real time between points: 251 ms instead of 200 ms (from 200 ms to 2.20 s)"));
  for (const auto& [time, text] :
       {std::pair{999, "999 ms"}, {1000, "1.00 s"}, {59'990, "59.99 s"}, {65'400, "00:01:05"}})
    EXPECT_EQ(IntervalText(time, fake.locale.Numbers()), text);
  EXPECT_THAT(CompanionLines(Language::kEnglish, fake.locale.Numbers(), {}), IsEmpty());
}

}  // namespace
}  // namespace chartproject
