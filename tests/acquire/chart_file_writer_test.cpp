// Writing chart files: exact bytes, and no row lost when a write fails.
#include "acquire/chart_file_writer.h"

#include "gmock/gmock.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using Kind = ChartWriteResult::Kind;

class ChartFileWriterTest : public ::testing::Test {
 protected:
  ChartFileWriterTest() {
    header.DriveAddress = "01";
    header.NumberOfParameters = "1";
    header.PXXX1 = "003";
    header.StartDate = "1º";
  }
  ChartWriteResult WriteRows() { return writer.WriteRows("a.cht", header, rows, "rescue"); }
  /// Every file operation of a kind on a name fails.
  void Break(const std::string& operation, const std::string& name) {
    fake.files.before = [operation, name](const std::string& asked, const std::string& file) {
      if (asked == operation && file == name) throw RunTimeError(error_number::kPermissionDenied, "no way: " + file);
    };
  }

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
  EXPECT_EQ(WriteRows().kind, Kind::kWritten);
  EXPECT_EQ(fake.files.Bytes("a.cht"), std::string(kHeaderBytes) + kRowBytes);
  EXPECT_FALSE(fake.files.Has("a.cht.new"));
}

TEST_F(ChartFileWriterTest, AFailedWriteLeavesTheOldFileAndKeepsTheRows) {
  fake.files.Put("a.cht", "old");
  for (const auto& [operation, name] : {std::pair("create", "a.cht.new"), {"rename", "a.cht.new"}}) {
    Break(operation, name);
    const ChartWriteResult result = WriteRows();
    EXPECT_EQ(result.kind, Kind::kFailed);
    EXPECT_EQ(result.reason, "no way: a.cht");
    EXPECT_EQ(result.keptFile, "a.cht.tcf0");
    EXPECT_EQ(fake.files.Bytes("a.cht.tcf0"), kRowBytes);
    EXPECT_EQ(fake.files.Bytes("a.cht"), "old");
    EXPECT_FALSE(fake.files.Has("a.cht.new"));
    fake.files.before = nullptr;
    fake.files.Delete("a.cht.tcf0");
  }
}

TEST_F(ChartFileWriterTest, RowsGoElsewhereWhenTheFolderTakesNothing) {
  fake.files.before = [](const std::string& operation, const std::string& name) {
    if (operation == "create" && !name.starts_with("rescue")) throw RunTimeError(61, "full");
  };
  fake.files.Put("rescue/x", "");
  EXPECT_EQ(writer.WriteRows("far\\a.cht", header, rows, "rescue").keptFile, "rescue\\a.cht.tcf0");
  EXPECT_EQ(fake.files.Bytes("rescue/a.cht.tcf0"), kRowBytes);
  // The rows of another run are not written over.
  EXPECT_EQ(writer.WriteRows("far\\a.cht", header, rows, "rescue").keptFile, "rescue\\a.cht.tcf1");
  fake.files.writeBudget = 0;
  const ChartWriteResult lost = writer.WriteRows("far\\a.cht", header, rows, "rescue");
  EXPECT_EQ(lost.kind, Kind::kFailed);
  EXPECT_EQ(lost.keptFile, "");
}

TEST_F(ChartFileWriterTest, SpoolIsCopiedAndDeleted) {
  std::string spool;
  while (spool.size() < 9'000'000) spool += "08:00:00#1.50#####\r\n";
  fake.files.Put("a.cht.tcf0", spool + "08:00:01#2.5");  // cut short by a full disk
  int alive = 0;
  EXPECT_EQ(writer.WriteSpool("a.cht", header, [&alive] { ++alive; }).kind, Kind::kWritten);
  EXPECT_EQ(alive, 2);
  EXPECT_TRUE(fake.files.Bytes("a.cht") == kHeaderBytes + spool);
  EXPECT_FALSE(fake.files.Has("a.cht.tcf0"));
}

TEST_F(ChartFileWriterTest, SpoolStaysWhenTheChartFileCannotBeCompleted) {
  fake.files.Put("a.cht.tcf0", "08:00:00#1.50#####\r\n");
  fake.files.Put("a.cht", "old");
  Break("rename", "a.cht.new");
  const ChartWriteResult failed = writer.WriteSpool("a.cht", header);
  EXPECT_EQ(failed.kind, Kind::kFailed);
  EXPECT_EQ(failed.keptFile, "a.cht.tcf0");
  EXPECT_EQ(fake.files.Bytes("a.cht"), "old");
  fake.files.before = nullptr;
  fake.files.space.totalFree = 99'999'999;
  const ChartWriteResult little = writer.WriteSpool("a.cht", header);
  EXPECT_EQ(little.kind, Kind::kRowsInSpool);
  EXPECT_EQ(little.freeSpace, 99'999'999U);
  EXPECT_EQ(fake.files.Bytes("a.cht"), kHeaderBytes);
  EXPECT_EQ(fake.files.Bytes("a.cht.tcf0"), "08:00:00#1.50#####\r\n");
  fake.files.space.totalFree = 100'000'000;
  EXPECT_EQ(writer.WriteSpool("a.cht", header).kind, Kind::kWritten);
}

}  // namespace
}  // namespace chartproject
