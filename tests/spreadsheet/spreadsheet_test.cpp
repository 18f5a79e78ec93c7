// The embedded spreadsheet application: files that appear only whole.
// Exported workbooks, read back by independent programs and compared cell by cell with the chart file.
#include "backends/spreadsheet/embedded_spreadsheet.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "backends/posix/files/posix_file_system.h"
#include "chart/output/excel_export.h"
#include "platform/run_time_error.h"
#include "platform/temporary_folder.h"
#include "recording/file/chart_file.h"
#include "support/error_of.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;

struct SpreadsheetTest : ::testing::Test {
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
    return names;
  }
  TemporaryFolder temporary;
  fs::path folder = temporary.Path();
  FakeLocale locale;
  EmbeddedSpreadsheets applications{locale};
};

TEST_F(SpreadsheetTest, LeavesNothingBehindUnlessSaved) {
  for (const char* name : {"gone.xls", "gone.csv"}) {
    auto application = applications.Create(folder / name, {});
    application->AddWorkbook();
    for (int row = 1; row < 200; ++row) application->WriteText(1, row, 1, "text");
    application->Quit();
    EXPECT_THROW(application->SaveAs({folder / name, kNormalWorkbookFormat, "", "", false, false}), RunTimeError);
    application.reset();
    EXPECT_THAT(Names(), IsEmpty()) << name;
  }
  EXPECT_THROW((void)applications.Create(folder / "missing" / "x.xls", {}), RunTimeError);
}

TEST_F(SpreadsheetTest, AFullDiskIsAnErrorAndLeavesNoTarget) {
  const auto application = applications.Create(folder / "full.csv", {});
  application->AddWorkbook();
  const auto save = [&] {
    for (int row = 1; row < 100'000; ++row) application->WriteText(1, row, 1, "text that fills the disk");
    application->SaveAs({folder / "full.csv", kNormalWorkbookFormat, "", "", false, false});
  };
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit limit{100'000, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_EQ(ErrorOf(save), error_number::kDiskFull);
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_FALSE(fs::exists(folder / "full.csv"));
}

struct ReadBackTest : SpreadsheetTest {
  /// Four columns: short numbers, long numbers, texts among them, empty.
  void WriteChart(int points, char decimal) const {
    std::ofstream file(chart, std::ios::binary);
    file << "[INFO]\r\nDrive Address=01\r\nNumber of Parameters=3\r\nPXXX1=003\r\nPXXX2=005\r\nPXXX3=012\r\nPXXX4=\r\n"
            "Scan Time=200\r\nUnit=ms\r\nTrigger Mode=Event\r\nEvent=PXXX>=Content\r\nPXXX=005\r\nContent=12.5\r\n"
            "Start Date=31/01/2026\r\nEnd Time=12:00:00\r\nNumber of Points="
         << points << "\r\n\r\n[TIME/CONTENT]\r\n";
    const char* const texts[] = {"--", "=1+1", "\xC1gua", "@SUM(1)", "AIAIAIAI", "+A1", "-1-1"};
    for (int i = 0; i < points; ++i) {
      char row[96];
      std::snprintf(row, sizeof row, "%02d:%02d:%02d#%d%c%02d#-%d%c%06d#%s###\r\n", i / 3600 % 24, i / 60 % 60, i % 60,
                    i % 1000, decimal, i % 100, i % 7, decimal, i, texts[i % 7]);
      file << row;
    }
  }

  ExportOutcome Export(const std::string& target) {
    FakePorts fakes;
    PosixFileSystem files;
    EmbeddedSpreadsheets spreadsheets(fakes.locale);
    fakes.locale.numbers = numbers;
    Ports ports{fakes.settings, files,          fakes.clock, fakes.locale,    fakes.codePage, fakes.dialogs,
                fakes.sound,    fakes.keyboard, fakes.help,  fakes.clipboard, fakes.printer,  spreadsheets};
    FakePlant plant;
    Component component(ports, fakes.forms, plant);
    component.strChartFileName = chart;
    ReadChartHeader(component);
    fakes.dialogs.answers = {box_answer::kYes};
    return ExportToSpreadsheet(component, {chart, target, component.chartHeader});
  }

  int ReadBack(const std::string& workbook) const {
    const std::string command = "/usr/bin/python3 " CHARTPROJECT_SOURCE_DIR "/tests/spreadsheet/read_back.py '" +
                                chart.string() + "' '" + workbook + "'";
    return std::system(command.c_str());
  }

  fs::path chart = folder / "Test.cht";
  NumberFormat numbers{".", ","};
};

TEST_F(ReadBackTest, ThreeSheetsComeBackCellByCell) {
  WriteChart(65513 + 65534 + 1, '.');
  ASSERT_EQ(Export(""), ExportOutcome::kSaved);
  EXPECT_EQ(ReadBack(chart.string() + ".xls"), 0);
}

TEST_F(ReadBackTest, ACommaLocaleGivesTheSameCells) {
  numbers = {",", "."};
  WriteChart(500, ',');
  ASSERT_EQ(Export(folder / "comma-values.xls"), ExportOutcome::kSaved);
  WriteChart(500, '.');
  EXPECT_EQ(ReadBack(folder / "comma-values.xls"), 0);
}

TEST_F(ReadBackTest, ThePlainTextHasTheSameLayout) {
  WriteChart(70'000, '.');
  ASSERT_EQ(Export(folder / "out.csv"), ExportOutcome::kSaved);
  EXPECT_EQ(ReadBack(folder / "out.csv"), 0);
}

}  // namespace
}  // namespace chartproject
