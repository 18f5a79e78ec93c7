// The outputs of the chart window. The printed page: positions, long names, small pages, failing printers. The
// export: its questions, calls and cells in their order, and the files left when it ends early.
#include <gmock/gmock.h>

#include "chart/output/chart_page.h"
#include "chart/output/excel_export.h"
#include "chart/output/page_text.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::IsEmpty;

struct OutputTest : ::testing::Test {
  OutputTest() {
    component.language = Language::kEnglish;
    component.settings.strBin = "/bin";
  }
  FakePorts fakes;
  FakePlant plant;
  Component component{fakes.ports, fakes.forms, plant};
};

struct ChartPageTest : OutputTest {
  ChartPageTest() {
    component.settings.strGraphics = "/graphics";
    page.fileName = "/data/Test.cht";
    page.header.DriveAddress = "01";
    page.header.ScanTime = "1000";
    page.header.Unit = "ms";
    page.header.NumberOfPoints = "100";
    page.series = {{"P003", "Motor current", "1"}, {"P40000", "", "20"}};
    page.grid = true;
    page.line = true;
    page.chartType = "2D Line";
    page.picture = {640, 320, std::vector<std::uint32_t>(640UL * 320UL), 96};
  }
  ChartPage page;
};

TEST_F(ChartPageTest, KeepsEverythingOnThePage) {
  page.fileName = "/data/" + std::string(300, 'f') + "/" + std::string(200, 'g') + ".cht";
  page.series.assign(4, {"P999", std::string(400, 'n'), "32767"});
  page.picture = {4000, 4000, std::vector<std::uint32_t>(16'000'000), 96};
  for (const PageArea& area : {PageArea{21.0, 29.7, 20.4, 29.1}, PageArea{21.59, 27.94, 20.9, 27.3}}) {
    fakes.printer.page = area;
    fakes.printer.texts.clear();
    EXPECT_TRUE(PrintChartPage(component, page));
    EXPECT_EQ(fakes.printer.texts[6].text, "Drive Address: ") << "after three lines of the file's name";
    for (const auto& text : fakes.printer.texts) {
      EXPECT_LE(text.x + fakes.printer.TextWidth(text.text, text.font), area.right + 1e-9) << text.text;
    }
    const auto& picture = fakes.printer.pictures.back();
    EXPECT_LE(picture.x + picture.width, area.right + 1e-9);
    EXPECT_LE(picture.y + picture.height, area.bottom + 1e-9);
    EXPECT_GT(picture.height, 4);
  }
}

TEST_F(ChartPageTest, SurvivesWhatAPrinterMayDo) {
  fakes.printer.missingIcon = 53;  // worth a line in the log only
  EXPECT_TRUE(PrintChartPage(component, page));
  EXPECT_THAT(fakes.files.Bytes("/bin/Kestrel.log"), HasSubstr("Err.Number = 53"));
  EXPECT_TRUE(fakes.dialogs.boxes.empty());

  fakes.printer.declined = true;
  EXPECT_FALSE(PrintChartPage(component, page));
  fakes.printer.declined = false;

  fakes.printer.failAfterTexts = static_cast<int>(fakes.printer.texts.size()) + 5;
  EXPECT_FALSE(PrintChartPage(component, page));
  EXPECT_EQ(fakes.printer.documentsPrinted, 1);
  EXPECT_EQ(fakes.printer.documentsAbandoned, 1);
  ASSERT_EQ(fakes.dialogs.boxes.size(), 1U);
  EXPECT_THAT(fakes.dialogs.boxes[0].prompt, HasSubstr("Err.Number = 482"));
}

TEST_F(ChartPageTest, ProposesAFileBesideTheChartFile) {
  const std::pair<const char*, const char*> names[] = {{"/d.x/Test.cht", "/d.x/Test.pdf"},
                                                       {"C:\\d.x\\Test", "C:\\d.x\\Test.pdf"},
                                                       {"/d/.Test", "/d/.Test.pdf"},
                                                       {"Test.a.b", "Test.a.pdf"},
                                                       {"Test", "Test.pdf"}};
  for (const auto& [name, file] : names) {
    page.fileName = name;
    EXPECT_TRUE(PrintChartPage(component, page));
    EXPECT_EQ(fakes.printer.proposed + fakes.printer.title, file + ("Kestrel v5.60 - " + page.fileName));
  }
}

TEST_F(ChartPageTest, WrapsBehindSeparatorsAndNeverInsideACharacter) {
  const PrintFont font{"Times New Roman", 72, false, false, 0};  // a byte is 1.27 cm wide
  EXPECT_THAT(WrapText(fakes.printer, "ab cd/ef", font, 1.27 * 4 + 0.01, 3), ElementsAre("ab ", "cd/", "ef"));
  EXPECT_THAT(WrapText(fakes.printer, "abcdefghij", font, 1.27 * 5 + 0.01, 1), ElementsAre("a...j"));
  EXPECT_THAT(WrapText(fakes.printer, "", font, 5, 3), ElementsAre(""));
  EXPECT_THAT(WrapText(fakes.printer, "\xC3\xA9\xC3\xA9", font, 0.1, 3), ElementsAre("\xC3\xA9", "\xC3\xA9"));
}

struct ExcelExportTest : OutputTest {
  ExcelExportTest() {
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
  const std::string target = "/data/Test.cht.xls";
  ExportRequest request{"/data/Test.cht", "", {}};
  FakeSpreadsheetLog& log = fakes.spreadsheets.log;
};

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
  constexpr WorkbookSizes kSizes{20, 18, 13, 2, 8, 200};
  fakes.spreadsheets.limits = WorkbookLimits{(20 + 21 + 18) * 1000 + 1, 10, kSizes};
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kTooLarge);
  EXPECT_THAT(fakes.dialogs.TakePrompts(), ElementsAre(HasSubstr("1,000 points would fit")));
  EXPECT_THAT(log.calls, IsEmpty());
  EXPECT_EQ(fakes.files.Bytes(target), "old");
  EXPECT_THAT(busy, ElementsAre(true, false));
  for (const std::int64_t last : {0, 1001, 1000}) {  // the user gives up; chooses too many; chooses what fits
    request.choose = [&](const std::string& question, bool all) -> std::optional<PointRange> {
      EXPECT_FALSE(all);
      EXPECT_THAT(question, ::testing::AllOf(HasSubstr("1,000 points would fit"), HasSubstr("Export a part")));
      return last == 0 ? std::nullopt : std::optional(PointRange{1, last});
    };
    fakes.dialogs.answers = {box_answer::kNo};
    EXPECT_EQ(ExportToSpreadsheet(component, request),
              last == 1000 ? ExportOutcome::kDeclined : ExportOutcome::kTooLarge);
    EXPECT_EQ(fakes.dialogs.TakePrompts().size(), last == 0 ? 0U : 1U);
  }
  request.choose = {};
  EXPECT_EQ(fakes.files.Bytes(target), "old");
  busy.clear();
  fakes.files.space.availableToUser = 2 * (20 + 21 + 18) * 20'000 - 103;
  fakes.spreadsheets.limits = WorkbookLimits{.sizes = kSizes};
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kTooLarge);
  EXPECT_THAT(fakes.dialogs.TakePrompts(),
              ElementsAre("The workbook needs 2.25 MB; the disk has 2.25 MB free. Nothing was written."));
  EXPECT_EQ(fakes.files.Bytes(target), "old");
  fakes.files.space.availableToUser += 100;  // and the bytes of the old one
  fakes.spreadsheets.limits = WorkbookLimits{1'000'000'000, 1, kSizes};
  EXPECT_EQ(ExportToSpreadsheet(component, request), ExportOutcome::kDeclined);  // fits; the overwrite is declined
}

}  // namespace
}  // namespace chartproject
