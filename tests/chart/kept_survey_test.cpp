// Surveys that are kept for the next opening of a file: taken over only where they hold, else thrown away.
#include <gmock/gmock.h>

#include "chart/file/chart_source.h"
#include "common/values/text.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

constexpr const char* kFile = "/data/Test.cht";
constexpr const char* kFolder = "/cache/chartproject";
constexpr int kRows = 10'000;

struct KeptSurveyTest : ::testing::Test {
  KeptSurveyTest() { fakes.files.Put(kFile, ChartFile(kRows)); }

  static std::string ChartFile(int rows) {
    std::string text = "[INFO]\r\nNumber of Parameters=2\r\n[TIME/CONTENT]\r\n";
    for (int i = 0; i < rows; ++i) text += "08:00:00#" + std::to_string(i * 7919 % 10007) + "#-1####\r\n";
    return text;
  }
  /// Opens the file anew and surveys it to the end.
  void Survey() {
    source = std::make_unique<ChartSource>(fakes.ports);
    source->KeepSurveys(1);
    ChartHeader header;
    source->Open(kFile, header);
    while (source->SurveyOn({})) {
    }
  }
  /// Another text in the midst of the chart file, which nobody can see from outside: who reads it again is found out.
  void Poison(const std::string& text, const std::string& other) {
    std::string& bytes = fakes.files.NodeOf(kFile)->bytes;
    const std::size_t at = bytes.find(text, bytes.size() / 2);
    bytes.replace(at, other.size(), other);
  }
  void ExpectExact(int rows) {
    const FileSurvey& survey = source->Survey();
    ASSERT_TRUE(survey.Complete());
    ASSERT_EQ(survey.Exact().Lines(), rows);
    const std::int64_t step = 512;  // what is kept is in blocks of so many lines
    for (std::int64_t from = 0; from < rows; from += step) {
      Extremes expected;
      for (std::int64_t i = from; i < std::min<std::int64_t>(rows, from + step); ++i) {
        expected.Take(static_cast<double>(i * 7919 % 10007));
      }
      ASSERT_EQ(survey.Over(0, from, from + step, rows), expected) << from;
      ASSERT_EQ(survey.Over(1, from, from + step, rows), (Extremes{-1, -1})) << from;
    }
  }
  std::string KeptFile() {
    const auto names = fakes.files.FilesIn(kFolder);
    return names.size() == 1 ? std::string(kFolder) + "/" + names[0] : std::string();
  }

  FakePorts fakes;
  std::unique_ptr<ChartSource> source;
};

TEST_F(KeptSurveyTest, IsTakenOverByTheNextOpeningAndGoesOnWithTheFile) {
  Survey();
  ExpectExact(kRows);
  ASSERT_EQ(KeptFile(), "/cache/chartproject/89079288244f4f7d.overview");
  const std::string kept = fakes.files.Bytes(KeptFile());
  Poison("#-1#", "#-9#");
  Survey();
  ExpectExact(kRows);
  EXPECT_EQ(fakes.files.Bytes(KeptFile()), kept);
  fakes.files.Overwrite(kFile, ChartFile(kRows + 600));
  while (source->SurveyOn({})) {
  }
  ExpectExact(kRows + 600);
}

TEST_F(KeptSurveyTest, AWideSliceIsAsExactAsItsBlocksAtOnceAndQuiteExactAfterIdleTime) {
  Survey();
  Survey();  // in blocks of 512 lines
  constexpr WideRange kRange{100, 9'700, 2};
  const auto value = [](std::int64_t line) { return static_cast<double>(line * 7919 % 10007); };
  const auto extremes = [&](std::int64_t first, std::int64_t end) {
    Extremes all;
    for (std::int64_t line = first; line < end; ++line) all.Take(value(line));
    return all;
  };
  fakes.files.beforeBlock = [this] { fakes.clock.Advance(std::chrono::milliseconds(10)); };  // a slow disk
  const Slice coarse = source->ReadWide(kRange, 1, kRows);
  ASSERT_TRUE(source->Refining());
  while (source->Refining()) EXPECT_TRUE(source->SurveyOn({}));
  const Slice exact = source->ReadWide(kRange, 1, kRows);
  ASSERT_EQ(exact.values[0].size(), 4'800U);
  ASSERT_EQ(coarse.values[0].size(), 4'800U);
  for (std::size_t row = 0; row < exact.values[0].size(); row += 2) {
    const std::int64_t first = 100 + 2 * static_cast<std::int64_t>(row);
    EXPECT_EQ((Extremes{exact.values[0][row], exact.values[0][row + 1]}), extremes(first, first + 4)) << row;
    const Extremes blocks = extremes(first / 512 * 512, (first + 3) / 512 * 512 + 512);
    EXPECT_EQ((Extremes{coarse.values[0][row], coarse.values[0][row + 1]}), blocks) << row;
  }
}

TEST_F(KeptSurveyTest, TheFirstJumpToTheEndFindsItsLineWithoutReadingTheFile) {
  Survey();
  Poison("\r\n", "\r ");
  source = std::make_unique<ChartSource>(fakes.ports);
  source->KeepSurveys(1);
  ChartHeader header;
  source->Open(kFile, header);
  const Slice slice = source->Read(4 + kRows - 25, 4 + kRows, 2).slice;
  EXPECT_EQ(slice.RowCount(), 25);
  EXPECT_EQ(slice.values[0].back(), (kRows - 1) * 7919 % 10007);
  ChartSource other(fakes.ports);
  other.KeepSurveys(1);
  other.Open(kFile, header);
  std::string last;
  other.ForEach(kRows, kRows, [&last](std::int64_t /*point*/, const ChartRow& row) {
    last = row.values[0];
    return true;
  });
  EXPECT_EQ(last, std::to_string((kRows - 1) * 7919 % 10007));
}

TEST_F(KeptSurveyTest, WhatIsDamagedForeignOrOutOfDateIsThrownAway) {
  Survey();
  const std::string name = KeptFile();
  const std::string kept = fakes.files.Bytes(name);
  std::vector<std::string> bad{"", "x", kept.substr(0, kept.size() / 2), kept + "12345678",
                               std::string(kept.size(), '\xFF')};
  for (std::size_t at = 0; at < kept.size(); at += at < 400 ? 3 : 97) {
    bad.push_back(kept);
    bad.back()[at] = static_cast<char>(bad.back()[at] ^ 0x41);
  }
  for (const std::string& bytes : bad) {
    fakes.files.Put(name, bytes);
    Survey();
    ExpectExact(kRows);
    ASSERT_EQ(fakes.files.Bytes(name), kept) << "made anew";
  }
  // Another state of the chart file: the same size, another row.
  std::string changed = ChartFile(kRows);
  changed.replace(changed.rfind("#-1#"), 4, "#-7#");
  fakes.files.Overwrite(kFile, changed);
  Survey();
  EXPECT_EQ(source->Survey().Over(1, kRows - 1, kRows, kRows), (Extremes{-7, -7}));
  EXPECT_EQ(source->Survey().Over(1, 0, kRows, kRows), (Extremes{-7, -1}));
}

TEST_F(KeptSurveyTest, TheOldestGoWhereTheRoomIsUsedUpAndACacheThatTakesNothingDoesNoHarm) {
  constexpr std::size_t kHalf = std::size_t{32} * 1024 * 1024;
  fakes.files.Put(kFolder + std::string("/1.overview"), std::string(kHalf, 'a'));
  fakes.files.Put(kFolder + std::string("/2.overview"), std::string(kHalf, 'b'));
  fakes.files.Put(kFolder + std::string("/mine.txt"), "of the user");
  Survey();
  EXPECT_FALSE(fakes.files.Has(kFolder + std::string("/1.overview")));
  EXPECT_TRUE(fakes.files.Has(kFolder + std::string("/2.overview")));
  EXPECT_EQ(fakes.files.FilesIn(kFolder).size(), 3U);
  for (const char* operation : {"own", "read", "create", "delete", "list"}) {
    for (const std::string& name : fakes.files.FilesIn(kFolder)) fakes.files.Put(JoinPath(kFolder, name), "x");
    fakes.files.Break(operation, error_number::kPermissionDenied, "/cache");
    Survey();
    ExpectExact(kRows);
    fakes.files.Mend();
  }
  for (const std::int64_t room : {0, 50, 300}) {
    for (const std::string& name : fakes.files.FilesIn(kFolder)) fakes.files.Delete(JoinPath(kFolder, name));
    fakes.files.writeBudget = room;
    Survey();
    EXPECT_FALSE(source->SurveyOn({}));
    ExpectExact(kRows);
    EXPECT_EQ(KeptFile(), "") << room;
  }
}

}  // namespace
}  // namespace chartproject
