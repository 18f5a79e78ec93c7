// Line index, value fields, slices: which lines are points, what a file that grows or is replaced gives; the numbers of
// the scroll bar that chooses the slice.
#include <gmock/gmock.h>

#include <cmath>

#include "chart/file/chart_source.h"
#include "chart/file/slice_reader.h"
#include "chart/measure/point_search.h"
#include "chart/measure/range_statistics.h"
#include "chart/view/scroll_range.h"
#include "recording/file/field_value.h"
#include "recording/file/point_reader.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;

constexpr const char* kFile = "/data/Test.cht";
constexpr const char* kHeader = "[INFO]\r\nNumber of Parameters=2\r\nNumber of Points=3\r\n[TIME/CONTENT]\r\n";
constexpr std::int32_t kFirstLine = 5;

std::string Rows(int from, int to) {
  std::string rows;
  for (int i = from; i <= to; ++i) rows += "08:00:00#" + std::to_string(i) + "#" + std::to_string(-i) + "####\r\n";
  return rows;
}

struct SliceReaderTest : ::testing::Test {
  FakePorts fakes;
  ChartHeader header;
  ChartSource source{fakes.ports};
  void Open(const std::string& rows) {
    fakes.files.Put(kFile, kHeader + rows);
    source.Open(kFile, header);
  }
  SliceReading Read(int from, int count, int columns = 2) {
    return source.Read(kFirstLine + from, kFirstLine + from + count, columns);
  }
};

TEST(FieldValueTest, ReadsNumbersOfEitherLocaleAndLeavesTheRestAsGaps) {
  const std::pair<const char*, double> numbers[] = {{"", 0},       {"123.45", 123.45},
                                                    {"1,5", 1.5},  {"-0.1", -0.1},
                                                    {"1e3", 1000}, {"12345678901234567890", 12345678901234567890.0}};
  for (const NumberFormat& format : {NumberFormat{".", ","}, NumberFormat{",", "."}}) {
    for (const auto& [field, value] : numbers) EXPECT_EQ(FieldValue(field, format), value) << field;
    for (const char* field : {"1,000,5", "1,234.5", "1e999", "--", "-", ".", "ON"}) {
      EXPECT_TRUE(std::isnan(FieldValue(field, format))) << field;
    }
  }
}

TEST_F(SliceReaderTest, SkipsEmptyAndCommentLinesAndStopsAtMalformedOnes) {
  const std::string longText(10000, 'x');
  const std::tuple<std::string, SliceEnd, int> cases[] = {{"", SliceEnd::kRead, 2},
                                                          {"   ", SliceEnd::kRead, 2},
                                                          {"' 08:00#1#2####", SliceEnd::kRead, 2},
                                                          {"  08:00:01#7#8####  ", SliceEnd::kRead, 3},
                                                          {"08:00:01######", SliceEnd::kRead, 3},
                                                          {"08:00:01#7#8###", SliceEnd::kMalformedLine, 1},
                                                          {"08:00:01#7#8#####", SliceEnd::kMalformedLine, 1},
                                                          {longText + "######", SliceEnd::kMalformedLine, 1},
                                                          {std::string(200000, '#'), SliceEnd::kMalformedLine, 1}};
  for (const auto& [line, end, rows] : cases) {
    Open(Rows(1, 1) + line + "\r\n" + Rows(3, 3));
    const SliceReading reading = Read(0, 25);
    EXPECT_EQ(reading.end, end) << line.substr(0, 30);
    EXPECT_EQ(reading.slice.RowCount(), rows) << line.substr(0, 30);
    if (end != SliceEnd::kMalformedLine) continue;
    EXPECT_EQ(reading.malformedLine, kFirstLine + 1);
    EXPECT_EQ(reading.malformedText.substr(0, 10), line.substr(0, 10));
    EXPECT_LE(reading.malformedText.size(), kLongestPointLine);
  }
}

TEST_F(SliceReaderTest, GoesOnInAFileThatGrewAndTellsOneThatWasReplaced) {
  Open(Rows(1, 2));
  EXPECT_EQ(Read(0, 25).slice.RowCount(), 2);
  fakes.files.Append(kFile, Rows(3, 4));
  EXPECT_FALSE(source.Replaced());
  EXPECT_THAT(Read(1, 25).slice.values[0], ElementsAre(2, 3, 4));
  fakes.files.Put(kFile, kHeader + Rows(1, 50));
  EXPECT_TRUE(source.Replaced());
  // The same file, rewritten in place with another header.
  Open(Rows(1, 2));
  std::string bytes = fakes.files.Bytes(kFile) + Rows(3, 9);
  bytes.replace(bytes.find("Points=3"), 8, "Points=9");
  fakes.files.Overwrite(kFile, bytes);
  EXPECT_TRUE(source.Replaced());
}

TEST_F(SliceReaderTest, ALongSearchReportsAndGoesOnWhereItWasGivenUp) {
  Open(Rows(1, 300000));
  int reports = 0;
  const auto giveUp = [&reports](double part) {
    ++reports;
    EXPECT_GT(part, 0);
    EXPECT_LE(part, 1);
    return false;
  };
  EXPECT_EQ(source.Read(kFirstLine + 299990, kFirstLine + 299999, 1, giveUp).end, SliceEnd::kGivenUp);
  EXPECT_EQ(reports, 1);
  const SliceReading reading = Read(299990, 25, 1);
  EXPECT_EQ(reading.slice.values[0].front(), 299991);
  EXPECT_EQ(reading.slice.RowCount(), 10);
}

TEST(ScrollRangeTest, FollowsThePointsUpToTheBarsRangeAndThenStandsForThem) {
  // 0.5 (30 points) and 1.5 (40) go to the even neighbour.
  const std::tuple<std::int32_t, std::int16_t, std::tuple<bool, int, int, int>> cases[] = {
      {0, 1, {false, 0, 1, 1}},           {25, 1, {false, 0, 1, 1}},
      {26, 1, {true, 1, 1, 0}},           {30, 1, {true, 5, 1, 0}},
      {40, 1, {true, 15, 1, 2}},          {625, 1, {true, 600, 1, 60}},
      {625, 25, {true, 0, 25, 0}},        {32767, 1, {true, 32742, 1, 3274}},
      {32767, 1310, {true, 17, 1310, 2}}, {32768, 1, {true, 32742, 1, 3274}},
      {32768, 1310, {true, 17, 1237, 2}}, {2000000, 1, {true, 32742, 0, 3274}},
      {2000000, 1310, {true, 17, 0, 2}},  {2000000000, 1, {true, 32742, 0, 3274}}};
  for (const auto& [points, division, expected] : cases) {
    const ScrollRange range = ComputeScrollRange(points, division);
    EXPECT_EQ(std::tuple(range.usable, range.maximum, range.smallChange, range.largeChange), expected)
        << points << " by " << division;
  }
  EXPECT_THROW(static_cast<void>(SliceLength(1311)), RunTimeError);
  EXPECT_THROW(static_cast<void>(ComputeScrollRange(100000, 1311)), RunTimeError);
}

TEST(ScrollRangeTest, MapsPositionsToPointsAndBack) {
  const std::tuple<std::int32_t, std::int16_t, int, int, std::int32_t> cases[] = {
      {26, 1, 1, 1, 22},
      {625, 25, 0, 0, 21},
      {625, 1, 600, 600, 621},
      {32768, 1, 32742, 32742, 32764},
      {32768, 1310, 17, 17, 39},
      {2000000, 1, 16371, 32742, 1000009},
      {2000000, 1, 32742, 32742, 1999996},
      {2000000000, 1, 32742, 32742, 1999999996},
      {26, 2, -24, -24, 21}};  // a bar that runs backwards shows the file from its start
  for (const auto& [points, division, value, maximum, start] : cases) {
    EXPECT_EQ(SliceStart(21, points, division, value, maximum), start) << points << " at " << value;
    EXPECT_TRUE(maximum <= 0 || ScrollValue(start - 21, points, division, maximum) == value) << points;
  }
  EXPECT_THROW(static_cast<void>(SliceStart(2'147'483'647, 100, 1, 75, 75)), RunTimeError);
}

std::string ValueRows(const std::vector<std::string>& values) {
  std::string rows;
  for (const std::string& value : values) rows += "08:00:00#" + value + "#####\r\n";
  return rows;
}

TEST_F(SliceReaderTest, MeasuresMoreRowsThanItKeepsInTwoPassesAndGivesUpWhenAsked) {
  constexpr std::int64_t kRows = 250'010;
  std::string rows;
  for (std::int64_t i = 0; i < kRows; ++i) rows += i % 2 == 0 ? "#100000.1#####\n" : "#100000.3#####\n";
  Open(rows);
  const auto numbers = MeasureRange(source, {1, kRows, 1, nullptr, nullptr}, {".", ","})->at(0);
  EXPECT_DOUBLE_EQ(numbers.mean, 100000.2);
  EXPECT_EQ(numbers.crossings, kRows - 1);
  EXPECT_FALSE(
      MeasureRange(source, {1, kRows, 1, nullptr, nullptr}, {".", ","}, [](double part) { return part < 0.6; }));
  Open("#1#####\nrubbish\n");
  EXPECT_THROW((void)MeasureRange(source, {1, 2, 1, nullptr, nullptr}, {".", ","}), RunTimeError);
}

TEST_F(SliceReaderTest, FindsCrossingsChangesGapsAndFailedReadingsInBothDirections) {
  std::vector<std::string> values(70000, "5");
  for (std::size_t i = 0; i < 3; ++i) values[i] = "--";
  values[9] = "20";
  for (std::size_t i = 60000; i < 69000; ++i) values[i] = "--";
  for (std::size_t i = 69000; i < values.size(); ++i) values[i] = "30";
  Open(ValueRows(values));
  FailedReadings failed;
  failed[0].Append({40, 49, 10, {ReadFailure::kChecksum, ""}});
  using enum SearchFor;
  constexpr std::int64_t kNone = 0;
  const std::tuple<SearchFor, double, std::int64_t, std::int64_t, std::int64_t> cases[] = {
      // What, value, from; found forwards, found backwards.
      {kCrossing, 12, 5, 10, kNone},
      {kCrossing, 12, 10, 11, kNone},
      {kCrossing, 20, 11, 69001, 10},
      {kCrossing, 12, 70001, kNone, 69001},
      {kCrossing, 12, 66000, 69001, 11},
      {kChange, 0, 12, 60001, 11},
      {kGap, 0, 0, 1, kNone},
      {kGap, 0, 69500, kNone, 60001},
      {kGap, 0, 60001, kNone, 1},
      {kFailed, 0, 39, 40, kNone},
      {kFailed, 0, 45, kNone, 40},
      {kFailed, 0, 40, kNone, kNone}};
  for (const auto& [what, value, from, after, before] : cases) {
    for (const bool forward : {true, false}) {
      const PointSearch search = FindPoint(source, {what, 0, value, forward}, from, 70000, &failed, {".", ","});
      EXPECT_EQ(search.found ? search.found->point : kNone, forward ? after : before)
          << static_cast<int>(what) << " from " << from << " forward " << forward;
    }
  }
  const auto texts = FindPoint(source, {kCrossing, 0, 12, false}, 70001, 70000, nullptr, {".", ","}).found;
  EXPECT_EQ(texts->before + ">" + texts->text, "5>30");
  EXPECT_TRUE(FindPoint(source, {kGap, 0, 0, false}, 60000, 70000, nullptr, {}, [](double) { return false; }).givenUp);
}

TEST(WideDivisionTest, IsRoundAndHasWholeRows) {
  const std::tuple<std::int64_t, std::int64_t, std::int64_t> cases[] = {
      {1311, 1320, 2},      {2621, 2630, 5},          {6551, 6560, 10},
      {10'001, 10'100, 20}, {800'000, 800'000, 1000}, {80'000'000, 80'000'000, 100'000}};
  for (const auto& [wanted, points, perRow] : cases) {
    const WideDivision division = ChooseWideDivision(wanted);
    EXPECT_EQ(std::pair(division.points, division.pointsPerRow), std::pair(points, perRow)) << wanted;
  }
}

}  // namespace
}  // namespace chartproject
