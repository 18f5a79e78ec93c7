// Reading chart files, good and bad, and writing them: exact bytes, and no row lost when a write fails.
#include "recording/file/chart_file.h"

#include "gmock/gmock.h"
#include "recording/file/chart_file_writer.h"
#include "recording/file/trigger_events.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

HeaderReading ReadFrom(const std::string& bytes, ChartHeader& header) {
  FakePorts fake;
  fake.files.Put("a.cht", bytes);
  return ReadChartHeader(*fake.files.OpenForReading("a.cht"), fake.codePage, header);
}

TEST(ChartHeaderReader, FirstKeyInTheLineWins) {
  const std::tuple<std::string, std::string ChartHeader::*, const char*> cases[] = {
      {"Drive Address=01", &ChartHeader::DriveAddress, "01"},
      {"Event=P012-DI1=0", &ChartHeader::Event, "P012-DI1=0"},
      {"Event=PXXX=Content", &ChartHeader::Event, "PXXX=Content"},
      {"Event=PXXX>=Content", &ChartHeader::Event, "PXXX>=Content"},
      {"PXXX=005", &ChartHeader::PXXX, "005"},
      {"  Content=-1,5  ", &ChartHeader::Content, "-1,5"},
      {"note Scan Time=200", &ChartHeader::ScanTime, "200"},
      {"a=b Scan Time=200", &ChartHeader::ScanTime, "b Scan Time=200"},
      {"End Time=", &ChartHeader::EndTime, ""}};
  for (const auto& [line, field, value] : cases) {
    ChartHeader header;
    header.*field = "before";
    EXPECT_EQ(ReadFrom(line + "\r\n", header).keys, 1) << line;
    EXPECT_EQ(header.*field, value) << line;
  }
  for (const char* line : {"drive address=01", "'Drive Address=01", "[INFO]Drive Address=01", "", "rubbish"}) {
    ChartHeader header;
    EXPECT_EQ(ReadFrom(line, header).keys, 0) << line;
    EXPECT_EQ(header.DriveAddress, "");
  }
}

TEST(ChartHeaderReader, StopsAtTheRowsAndClearsNothing) {
  ChartHeader header;
  header.TriggerMode = "Manual";
  const auto reading = ReadFrom(
      "[INFO]\r\nUnit=s\r\nStart Date=1\xBA mar\xE7o\r\n'[TIME/CONTENT]\r\n[TIME/CONTENT]\r\nUnit=ms\r\n", header);
  EXPECT_EQ(header.Unit, "s");
  EXPECT_EQ(header.StartDate, "1º março");  // in the code page
  EXPECT_EQ(header.TriggerMode, "Manual");
  EXPECT_TRUE(reading.rowsFollow);
}

TEST(ChartHeaderReader, BadFilesAreReadInBoundedMemory) {
  ChartHeader header;
  EXPECT_FALSE(ReadFrom("[INFO]\r\nDrive Addr", header).rowsFollow);
  EXPECT_EQ(ReadFrom(std::string(3'000'000, '='), header).keys, 0);
  EXPECT_EQ(ReadFrom("Unit=" + std::string(5'000, 'x') + "\nScan Time=7\n", header).keys, 1);
  EXPECT_EQ(header.Unit, "");
  EXPECT_EQ(header.ScanTime, "7");
  const std::string late = std::string(kHeaderLimit, '\n') + "Unit=s\r\n";
  EXPECT_EQ(ReadFrom(late, header).keys, 0);
  std::string binary;
  for (int i = 0; i < 70'000; ++i) binary += static_cast<char>(i * 7);
  EXPECT_EQ(ReadFrom(binary, header).keys, 0);
}

TEST(LocateRows, FindsTheLineBehindTheFirstMark) {
  FakePorts fake;
  const auto locate = [&fake](const std::string& bytes) {
    fake.files.Put("a.cht", bytes);
    return LocateRows(fake.files, "a.cht");
  };
  const auto plain = locate("[INFO]\r\n\r\n[TIME/CONTENT]\r\n1######\r\n[TIME/CONTENT]\r\n");
  ASSERT_TRUE(plain);
  EXPECT_EQ(plain->line, 4);
  EXPECT_EQ(plain->offset, 26U);
  EXPECT_FALSE(locate("[INFO]\r\nUnit=s\r\n[TIME/CONTEN"));
  EXPECT_FALSE(locate(""));
  const auto last = locate("\n[TIME/CONTENT]");
  ASSERT_TRUE(last);
  EXPECT_EQ(last->offset, 15U);
  // Wherever the mark lies in the blocks that are read.
  for (std::size_t before = 65'500; before < 65'560; ++before) {
    const auto start = locate(std::string(before, '\n') + "x[TIME/CONTENT]y\r\n" + "row");
    ASSERT_TRUE(start) << before;
    EXPECT_EQ(start->line, static_cast<std::int64_t>(before) + 2);
    EXPECT_EQ(start->offset, before + 18);
  }
}

TEST(SplitRow, PointsHaveExactlySixMarks) {
  const auto row = SplitRow("  10:15:02#123.45#7####\r\n");
  ASSERT_TRUE(row);
  EXPECT_EQ(row->time, "10:15:02");
  EXPECT_THAT(row->values, testing::ElementsAre("123.45", "7", "", ""));
  EXPECT_THAT(SplitRow("######")->values, testing::Each(""));
  EXPECT_THAT(SplitRow("t#a#b#c#d##")->values, testing::ElementsAre("a", "b", "c", "d"));
  // The six marks wherever they lie, in words of eight bytes and beyond.
  for (const std::size_t length : {1U, 7U, 8U, 9U, 49U, 50U, 51U, 200U}) {
    const std::string value(length, '7');
    EXPECT_THAT(SplitRow("t#1#" + value + "#2#" + value + "##")->values, testing::ElementsAre("1", value, "2", value));
    EXPECT_FALSE(SplitRow("t#1#" + value + "#2#" + value + "#")) << length;
    EXPECT_FALSE(SplitRow("t#1#" + value + "#2#" + value + "###")) << length;
  }
  for (const char* line : {"", "#####", "#######", "[TIME/CONTENT]"}) EXPECT_FALSE(SplitRow(line)) << line;
}

TEST(EventCodes, CodesMessagesAndAvailability) {
  const std::pair<int, const char*> codes[] = {{0, "RUN"}, {8, "P012-DI3=1"}, {23, "PXXX<=Content"}, {24, ""}};
  for (const auto& [position, code] : codes) EXPECT_EQ(EventCode(EventAt(position)), code);
  EXPECT_EQ(EventName(EventAt(1)), Text::kEventReady);
  EXPECT_EQ(EventName(EventAt(18)), Text::kEventDI8On);
  for (int position = 0; position < kEventCount; ++position)
    EXPECT_EQ(EventOfCode(EventCode(EventAt(position))), EventAt(position));
  EXPECT_EQ(EventOfCode("run"), TriggerEvent::kNone);
  const auto offered = [](const char* model) {
    std::string answers;
    for (int position = 0; position < kEventCount; ++position)
      answers += EventAvailable(EventAt(position), model) ? 'y' : 'n';
    return answers;
  };
  EXPECT_EQ(offered("KRA-09"), std::string(24, 'y'));
  for (const char* model : {"LMX-01", "KRA-05", "KRA-07", "KRA-08"})
    EXPECT_EQ(offered(model), "yyynnnnnnnnnnnnnnnnyyyyy");
  for (const char* model : {"TSR-03", ""}) EXPECT_EQ(offered(model), "nnnnnnnnnnnnnnnnnnnyyyyy");
}

using Kind = ChartWriteResult::Kind;

class ChartFileWriterTest : public ::testing::Test {
 protected:
  /// The spool file of a run that ended with these bytes in it.
  std::unique_ptr<SideFile> Spool(const std::string& bytes) {
    auto spool = MakeSpoolFile(fake.files, "a.cht");
    spool->AppendAndMeasure(bytes);
    return spool;
  }
  ChartFileWriterTest() {
    header.DriveAddress = "01";
    header.NumberOfParameters = "1";
    header.PXXX1 = "003";
    header.StartDate = "1º";
  }
  static SpooledRows Rows(const std::unique_ptr<SideFile>& file) { return {{&file, 1}, 1}; }
  ChartWriteResult WriteRows() { return writer.WriteRows("a.cht", header, rows, "rescue"); }

  FakePorts fake;
  ChartHeader header;
  std::vector<PointRow> rows{{"08:00:00", {"1.50", "", "", ""}}, {"08:00:01", {"a#b\r\n", "", "", "é"}}, {}};
  ChartFileWriter writer{fake.files, fake.codePage};
};

constexpr const char* kHeaderBytes =
    "[INFO]\r\nDrive Address=01\r\nNumber of Parameters=1\r\nPXXX1=003\r\nPXXX2=\r\nPXXX3=\r\nPXXX4=\r\nScan Time=\r\n"
    "Number of Points=\r\nEvent=\r\nPXXX=\r\nContent=\r\nStart Date=1\xBA\r\nStart Time=\r\nEnd Date=\r\nEnd Time=\r\n"
    "\r\n[TIME/CONTENT]\r\n";
constexpr const char* kRowBytes = "08:00:00#1.50#####\r\n08:00:01#a b  ###\xE9##\r\n######\r\n";

TEST_F(ChartFileWriterTest, RowsFromMemory) {
  fake.files.Put("a.cht", "old");
  fake.files.Put("a.cht.new", "the user's own");
  EXPECT_EQ(WriteRows().kind, Kind::kWritten);
  EXPECT_EQ(fake.files.Bytes("a.cht"), std::string(kHeaderBytes) + kRowBytes);
  EXPECT_EQ(fake.files.Bytes("a.cht.new"), "the user's own");
  EXPECT_FALSE(fake.files.Has("a.cht.new1"));
}

TEST_F(ChartFileWriterTest, AFailedWriteLeavesTheOldFileAndKeepsTheRows) {
  fake.files.Put("a.cht", "old");
  for (const char* operation : {"create", "rename"}) {
    fake.files.Break(operation, error_number::kPermissionDenied, "a.cht.new");
    const ChartWriteResult result = WriteRows();
    EXPECT_EQ(result.kind, Kind::kFailed);
    EXPECT_EQ(result.reason, "broken: a.cht");
    EXPECT_EQ(result.keptFile, "a.cht.tcf0");
    EXPECT_EQ(fake.files.Bytes("a.cht.tcf0"), kRowBytes);
    EXPECT_EQ(fake.files.Bytes("a.cht"), "old");
    EXPECT_FALSE(fake.files.Has("a.cht.new"));
    fake.files.Mend();
    fake.files.Delete("a.cht.tcf0");
  }
}

TEST_F(ChartFileWriterTest, RowsGoElsewhereWhenTheFolderTakesNothing) {
  fake.files.Break("create", error_number::kDiskFull, "far");
  fake.files.Put("rescue/x", "");
  EXPECT_EQ(writer.WriteRows("far\\a.cht", header, rows, "rescue").keptFile, "rescue\\a.cht.tcf0");
  EXPECT_EQ(fake.files.Bytes("rescue/a.cht.tcf0"), kRowBytes);
  // The rows of another run are not written over.
  EXPECT_EQ(writer.WriteRows("far\\a.cht", header, rows, "rescue").keptFile, "rescue\\a.cht.tcf1");
  EXPECT_EQ(writer.WriteRows("far\\a.cht", header, rows, "far").keptFile, "/tmp/a.cht.tcf0") << "the last place";
  fake.files.writeBudget = 0;
  const ChartWriteResult lost = writer.WriteRows("far\\a.cht", header, rows, "rescue");
  EXPECT_EQ(lost.kind, Kind::kFailed);
  EXPECT_EQ(lost.keptFile, "");
}

TEST_F(ChartFileWriterTest, SpoolIsCopiedAndDeleted) {
  std::string spool;
  while (spool.size() < 9'000'000) spool += "08:00:00#1.50#####\r\n";
  fake.files.Put("a.cht.tcf0", "rows of a run before");
  auto file = Spool(spool + "08:00:01#2.5");  // cut short by a full disk
  int alive = 0;
  EXPECT_EQ(writer.WriteSpool("a.cht", header, Rows(file), "rescue", [&alive] { ++alive; }).kind, Kind::kWritten);
  EXPECT_EQ(alive, 5) << "2 while copying, 3 while reading back";
  EXPECT_TRUE(fake.files.Bytes("a.cht") == kHeaderBytes + spool);
  file.reset();
  EXPECT_FALSE(fake.files.Has("a.cht.tcf0"));
}

TEST_F(ChartFileWriterTest, SpoolStaysWhenTheChartFileCannotBeCompleted) {
  auto spool = Spool("08:00:00#1.50#####\r\n");
  fake.files.Put("a.cht", "old");
  fake.files.Break("rename", error_number::kPermissionDenied, "a.cht.new");
  const ChartWriteResult failed = writer.WriteSpool("a.cht", header, Rows(spool), "rescue");
  EXPECT_EQ(failed.kind, Kind::kFailed);
  EXPECT_EQ(failed.keptFile, "a.cht.tcf0");
  EXPECT_EQ(fake.files.Bytes("a.cht"), "old");
  fake.files.Mend();
  fake.files.space.totalFree = 99'999'999;
  const ChartWriteResult little = writer.WriteSpool("a.cht", header, Rows(spool), "rescue");
  EXPECT_EQ(little.kind, Kind::kRowsInSpool);
  EXPECT_EQ(little.freeSpace, 99'999'999U);
  EXPECT_EQ(fake.files.Bytes("a.cht"), kHeaderBytes);
  EXPECT_EQ(fake.files.Bytes("a.cht.tcf0"), "08:00:00#1.50#####\r\n");
  fake.files.space.totalFree = 100'000'000;
  EXPECT_EQ(writer.WriteSpool("a.cht", header, Rows(spool), "rescue").kind, Kind::kWritten);
  spool.reset();
  fake.files.Remove("a.cht.tcf0");
  // Another file has taken its name: neither that file nor the rows are lost.
  spool = Spool("08:00:00#1.50#####\r\n");
  fake.files.Put("a.cht.tcf0", "a stranger's");
  EXPECT_THROW(spool->AppendAndMeasure("08:00:01#1.50#####\r\n"), RunTimeError);
  fake.files.Break("create", error_number::kPermissionDenied, "a.cht.new");
  EXPECT_EQ(writer.WriteSpool("a.cht", header, Rows(spool), "rescue").keptFile, "a.cht.tcf1");
  EXPECT_EQ(fake.files.Bytes("a.cht.tcf1"), "08:00:00#1.50#####\r\n");
  spool.reset();
  EXPECT_EQ(fake.files.Bytes("a.cht.tcf0"), "a stranger's");
}

}  // namespace
}  // namespace chartproject
