// The whole recording at a glance: rows scanned fast give what the point reader gives, and the survey of a file ends in
// the exact extremes of its blocks, also while it grows.
#include <gmock/gmock.h>

#include <cmath>

#include "chart/file/chart_source.h"
#include "chart/file/row_scan.h"
#include "recording/file/field_value.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

constexpr const char* kFile = "/data/Test.cht";
constexpr const char* kHeader = "[INFO]\r\nNumber of Parameters=4\r\n[TIME/CONTENT]\r\n";

/// Lines of all kinds: plain rows, other times, gaps, blanks, comments, faults, lines around the longest point line.
std::string OddLines() {
  const std::string longTime(kLongestPointLine - 10, '1');
  std::string lines;
  for (const std::string& line : {std::string("08:00:00#1#-2.5#3,25#4##\r"),
                                  std::string("08:00:01#5#6#7#8##"),
                                  std::string("  9:00#9##--#1e3##  \r"),
                                  std::string("08:00:02#123456789012345#1234567890123456#.5#5.##\r"),
                                  std::string(),
                                  std::string("   \r"),
                                  std::string("'08:00:03#7#7#7#7##"),
                                  std::string("08:00:04#7#7#7#7#"),
                                  std::string("08:00:05#7#7#7#7###"),
                                  std::string("08:00:06#1#2#3#4##x"),
                                  std::string("08:00:07#1#2#3#4#E#"),
                                  std::string("08:00:08#-#,#1.2.3#1,000.5##\r"),
                                  std::string("08:00:09######\r"),
                                  std::string("08:0a:09#1#2#3#4##\r"),
                                  longTime + "#1#2#3##",
                                  longTime + "#1#2#3###",
                                  longTime + "#1#2#3###\r",
                                  longTime + "#1#2#3#44##\r",
                                  std::string(kLongestPointLine + 5, ' ') + "#1#2#3#4##",
                                  std::string("08:00:10#1#2#3#4##\r\r"),
                                  std::string("#1#2#3#4##\r")}) {
    lines += line + "\n";
  }
  return lines;
}

TEST(RowScanTest, GivesTheKindsAndValuesOfThePointReader) {
  MemoryFileSystem files;
  for (const std::string& end :
       {std::string(), std::string("08:00:11#1#2#3#4##"), std::string("08:00:11#1#2#3#4##\r")}) {
    const std::string lines = OddLines() + end;
    files.Put(kFile, lines);
    const auto file = files.OpenForReading(kFile);
    PointReader points(*file, {1, 0});
    const NumberFormat format;
    const char* at = lines.data();
    RowValues values{};
    int counts[3] = {};
    for (PointLine line; points.Next(line);) {
      ASSERT_NE(at, lines.data() + lines.size());
      const LineKind kind = ScanRow(at, lines.data() + lines.size(), kColumnCount, format, values);
      ASSERT_EQ(kind, line.kind) << line.number;
      ++counts[static_cast<int>(kind)];
      for (std::size_t k = 0; kind == LineKind::kPoint && k < values.size(); ++k) {
        const double expected = FieldValue(line.row.values[k], format);
        EXPECT_TRUE(values[k] == expected || (std::isnan(values[k]) && std::isnan(expected)))
            << line.number << ' ' << k;
      }
    }
    EXPECT_EQ(at, lines.data() + lines.size());
    EXPECT_THAT(counts, ::testing::ElementsAre(4, end.empty() ? 13 : 14, 4));
  }
}

struct SurveyTest : ::testing::Test {
  FakePorts fakes;
  ChartHeader header;
  ChartSource source{fakes.ports};
  std::string rows;
  std::vector<double> firsts;  ///< value of the first series, line by line; NaN where it has none

  void AddRows(int count) {
    for (int i = 0; i < count; ++i) {
      const auto line = static_cast<int>(firsts.size());
      const int value = (line * 7919) % 10007 - 5000;
      const bool comment = line % 501 == 500;
      rows += (comment ? "'" : "") + std::string("08:00:00#") + std::to_string(value) + "#1#2#3##\r\n";
      firsts.push_back(comment ? std::nan("") : value);
    }
  }
  void Survey() {
    while (source.SurveyOn({})) {
    }
  }
  void ExpectExactBlocks() {
    const Envelope& exact = source.Survey().Exact();
    ASSERT_EQ(exact.Lines(), std::ssize(firsts));
    for (std::int64_t from = 0; from < std::ssize(firsts); from += exact.BlockLength()) {
      Extremes expected;
      const auto end = std::min<std::int64_t>(std::ssize(firsts), from + exact.BlockLength());
      for (std::int64_t i = from; i < end; ++i) expected.Take(firsts[static_cast<std::size_t>(i)]);
      EXPECT_EQ(exact.Over(0, from, end), expected) << from;
    }
  }
};

TEST_F(SurveyTest, EndsInTheExactExtremesOfEachBlockAndFollowsAFileThatGrows) {
  AddRows(100'000);
  fakes.files.Put(kFile, kHeader + rows);
  source.Open(kFile, header);
  Survey();
  ExpectExactBlocks();
  EXPECT_TRUE(source.Survey().Complete());
  // The last line is still being written: it counts as it is, and again when it is whole.
  AddRows(700);
  const std::string whole = kHeader + rows;
  fakes.files.Overwrite(kFile, whole.substr(0, whole.size() - 4));
  Survey();
  EXPECT_EQ(source.Survey().Exact().Lines(), std::ssize(firsts));
  fakes.files.Overwrite(kFile, whole);
  Survey();
  ExpectExactBlocks();
  // The line index learned the places on the way: no line of the file is looked for again.
  int blocks = 0;
  fakes.files.beforeBlock = [&blocks] { ++blocks; };
  EXPECT_EQ(source.Read(3 + 100'000, 3 + 100'025, 4).slice.values[0].front(), firsts[99'999]);
  EXPECT_LE(blocks, 3);
}

TEST_F(SurveyTest, IsCoarseBeforeItIsExact) {
  AddRows(100'000);
  fakes.files.Put(kFile, kHeader + rows);
  source.Open(kFile, header);
  for (int i = 0; i < FileSurvey::kSamples && source.Survey().Over(0, 99'000, 100'000, 100'000).Empty(); ++i) {
    source.SurveyOn({});
  }
  EXPECT_FALSE(source.Survey().Complete());
  const Extremes coarse = source.Survey().Over(0, 0, 100'000, 100'000);
  EXPECT_LT(coarse.least, -4900);
  EXPECT_GT(coarse.greatest, 4900);
  // The idle time that there is goes into it, and little more.
  using std::chrono::milliseconds;
  fakes.files.beforeBlock = [this] { fakes.clock.Advance(milliseconds(3)); };
  const Instant began = fakes.clock.Now();
  source.SurveyOn(milliseconds(20));
  EXPECT_GE(fakes.clock.Now() - began, milliseconds(20));
  EXPECT_LT(fakes.clock.Now() - began, milliseconds(40));
}

TEST_F(SurveyTest, PassesLinesThatFillPiecesAndStopsForAnotherFile) {
  rows = "08:00:00#1#1#1#1##\r\n" + std::string(1'000'000, 'x') + "\r\n08:00:00#2#1#1#1##\r\n";
  fakes.files.Put(kFile, kHeader + rows);
  source.Open(kFile, header);
  Survey();
  EXPECT_EQ(source.Survey().Exact().Lines(), 3);
  EXPECT_EQ(source.Survey().Over(0, 0, 3, 3), (Extremes{1, 2}));
  fakes.files.Put(kFile, kHeader);
  EXPECT_FALSE(source.SurveyOn({}));
  EXPECT_EQ(source.Survey().Exact().Lines(), 3);
}

TEST(EnvelopeTest, BlocksDoubleWhereThereWouldBeTooMany) {
  Envelope envelope;
  envelope.Restart(1);
  std::int64_t lines = 0;  // the value of a line is its number
  while (envelope.BlockLength() < 4 * Envelope::kLeastBlock) {
    const double first = static_cast<double>(lines);
    lines += envelope.BlockLength();
    envelope.Add({Extremes{first, static_cast<double>(lines - 1)}});
    if (envelope.Full()) envelope.Halve();
  }
  EXPECT_EQ(envelope.WholeLines(), lines);
  EXPECT_EQ(lines, static_cast<std::int64_t>(Envelope::kMostBlocks) * 2 * Envelope::kLeastBlock);
  EXPECT_EQ(envelope.Over(0, 2048, 4096), (Extremes{2048, 4095}));
  EXPECT_EQ(envelope.Over(0, 2047, 4095), (Extremes{2048, 4095}));  // over the blocks that begin there
  EXPECT_LE(envelope.Blocks(0).size() * sizeof(Extremes) * kColumnCount, std::size_t{32} << 20U);
}

}  // namespace
}  // namespace chartproject
