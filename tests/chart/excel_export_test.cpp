// The export's questions, calls and cells in their order, and what is left when it ends early.
#include "chart/excel_export.h"

#include <gmock/gmock.h>

#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::IsEmpty;

struct ExcelExportTest : ::testing::Test {
  ExcelExportTest() {
    component.languageBase = 1000;
    component.settings.strBin = "/bin";
    request.header.DriveAddress = "01";
    request.header.NumberOfParameters = "2";
    request.header.EndTime = "08:00:02";
  }
  void PutChart(const std::string& rows) {
    fakes.files.Put("/data/Test.cht", "[INFO]\r\n\r\n[TIME/CONTENT]\r\n" + rows);
  }
  static std::string Rows(int count) {
    std::string rows;
    for (int i = 1; i <= count; ++i) rows += "08:00:00#" + std::to_string(i) + "#####\r\n";
    return rows;
  }
  std::string Cell(const std::string& key) { return log.cells[key]; }
  const std::string target = "/data/Test.cht.xls";
  FakePorts fakes;
  FakePlant plant;
  Component component{fakes.ports, fakes.forms, plant};
  ExportRequest request{"/data/Test.cht", "", {}};
  FakeSpreadsheetLog& log = fakes.spreadsheets.log;
};

TEST_F(ExcelExportTest, WritesHeaderAndPointsAndReports) {
  PutChart("08:00:01#50.25#7####\r\n'08:00:02#9#####\r\n\r\n08:00:02#1,5#--####\r\nrubbish\r\n08:00:03#\xE9#####\r\n");
  std::vector<bool> busy;
  request.busy = [&busy](bool on) { busy.push_back(on); };
  fakes.dialogs.answers = {box_answer::kYes};
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kSaved);
  EXPECT_THAT(log.calls, ElementsAre("attach: none", "create", "workbooks.Add",
                                     "SaveAs FileName=/data/Test.cht.xls FileFormat=-4143 Password= WriteResPassword= "
                                     "ReadOnlyRecommended=0 CreateBackup=0",
                                     "quit", "release"));
  EXPECT_THAT(log.sheetNames, ElementsAre("Chart1"));
  const std::pair<int, const char*> rows[] = {{1, "[INFO]||||"},
                                              {2, "Drive Address|01|||"},
                                              {3, "Number of Parameters|2|||"},
                                              {4, "PXXX1||||"},
                                              {13, "PXXX||||"},
                                              {18, "End Time|08:00:02|||"},
                                              {19, "||||"},
                                              {20, "[TIME/CONTENT]||||"},
                                              {22, "08:00:01|=50.25|=7|=|="},
                                              {23, "08:00:02|=1.5|=--|=|="},
                                              {24, "08:00:03|=\xC3\xA9|=|=|="},
                                              {25, "||||"},
                                              {21, "Time|PXXX1.Content|PXXX2.Content|PXXX3.Content|PXXX4.Content"}};
  for (const auto& [row, text] : rows) {
    std::string cells = Cell("1!" + std::to_string(row) + ",1");
    for (const char* column : {",2", ",3", ",4", ",5"}) cells += "|" + Cell("1!" + std::to_string(row) + column);
    EXPECT_EQ(cells, text) << row;
  }
  EXPECT_THAT(fakes.dialogs.TakePrompts(),
              ElementsAre("Do you really want to export the points to Excel?\r\nThis operation may take several "
                          "minutes...",
                          HasSubstr("the first is line 8"), "File was saved as: " + target));
  EXPECT_THAT(busy, ElementsAre(true, false));
}

TEST_F(ExcelExportTest, AsksBeforeItDeletesAndDeletesBeforeItLooksForTheApplication) {
  PutChart(Rows(1));
  fakes.files.Put(target, "old");
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kDeclined);  // No is the fake's answer
  EXPECT_THAT(log.calls, IsEmpty());
  EXPECT_EQ(fakes.files.Bytes(target), "old");
  EXPECT_THAT(fakes.dialogs.TakePrompts(), ElementsAre("File " + target + " already exists! Overwrite?"));

  fakes.spreadsheets.installed = false;
  fakes.dialogs.answers = {box_answer::kYes};
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kNoApplication);
  EXPECT_FALSE(fakes.files.Has(target));
  EXPECT_EQ(fakes.dialogs.TakePrompts().back(), "Unable to find Excel application.");

  fakes.spreadsheets.running = true;  // a running one is taken first
  log.calls.clear();
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kDeclined);
  EXPECT_THAT(log.calls, ElementsAre("attach", "release"));
}

TEST_F(ExcelExportTest, AnErrorIsLoggedAndTheApplicationQuits) {
  PutChart(Rows(10));
  log.failAtRow = 25;
  fakes.dialogs.answers = {box_answer::kYes};
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kFailed);
  EXPECT_THAT(log.calls, ElementsAre("attach: none", "create", "workbooks.Add", "quit", "release"));
  EXPECT_THAT(fakes.files.Bytes("/bin/Kestrel.log"),
              ::testing::AllOf(HasSubstr("Sub/Function = cmdExport_Click"), HasSubstr("Err.Number = 1004")));

  request.targetName = request.chartFile;  // would destroy the points
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kFailed);
  EXPECT_TRUE(fakes.files.Has(request.chartFile));
}

TEST_F(ExcelExportTest, CanBeGivenUpAndRefusesWhatDoesNotFit) {
  PutChart(Rows(20'000));
  std::uint64_t lastDone = 0;
  request.progress = [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_LE(done, total);
    lastDone = done;
    return done < total / 2;
  };
  fakes.dialogs.answers = {box_answer::kYes};
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kGivenUp);
  EXPECT_GT(lastDone, 0U);
  EXPECT_THAT(log.calls, ElementsAre("attach: none", "create", "workbooks.Add", "quit", "release"));

  std::vector<bool> busy;
  request.busy = [&busy](bool on) { busy.push_back(on); };
  request.progress = [&](std::uint64_t, std::uint64_t) {
    EXPECT_TRUE(busy.back());  // also while the file is measured: nothing else may be begun
    return true;
  };
  log.calls.clear();
  fakes.dialogs.boxes.clear();
  fakes.files.Put(target, "old");
  fakes.spreadsheets.limits = WorkbookLimits{(20 + 21 + 18) * 1000 + 1, 10};
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kTooLarge);
  EXPECT_THAT(fakes.dialogs.TakePrompts(), ElementsAre(HasSubstr("1,000 points would fit")));
  EXPECT_THAT(log.calls, IsEmpty());
  EXPECT_EQ(fakes.files.Bytes(target), "old");
  EXPECT_THAT(busy, ElementsAre(true, false));
  fakes.spreadsheets.limits = WorkbookLimits{1'000'000'000, 1};
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kDeclined);  // fits; the overwrite is declined
}

}  // namespace
}  // namespace chartproject
