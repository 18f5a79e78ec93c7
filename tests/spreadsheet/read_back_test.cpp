// Exported workbooks, read back by programs that nobody here wrote and compared cell by cell with the chart file.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "acquire/chart_file.h"
#include "chart/excel_export.h"
#include "platform/posix/code_page_1252.h"
#include "platform/posix/file_system_posix.h"
#include "platform/spreadsheet/embedded_spreadsheet.h"
#include "platform/temporary_folder.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

namespace fs = std::filesystem;

struct ReadBackTest : ::testing::Test {
  /// Four columns: short numbers, long numbers, texts among them, empty.
  void WriteChart(int points, char decimal) {
    std::ofstream file(chart, std::ios::binary);
    file << "[INFO]\r\nDrive Address=01\r\nNumber of Parameters=3\r\nPXXX1=003\r\nPXXX2=005\r\nPXXX3=012\r\nPXXX4=\r\n"
            "Scan Time=200\r\nUnit=ms\r\nTrigger Mode=Event\r\nEvent=PXXX>=Content\r\nPXXX=005\r\nContent=12.5\r\n"
            "Start Date=31/01/2026\r\nEnd Time=12:00:00\r\nNumber of Points="
         << points << "\r\n\r\n[TIME/CONTENT]\r\n";
    const char* const texts[] = {"--", "AIAIAIAI", "\xC1gua"};
    for (int i = 0; i < points; ++i) {
      char row[96];
      std::snprintf(row, sizeof row, "%02d:%02d:%02d#%d%c%02d#-%d%c%06d#%s###\r\n", i / 3600 % 24, i / 60 % 60, i % 60,
                    i % 1000, decimal, i % 100, i % 7, decimal, i, texts[i % 3]);
      file << row;
    }
  }

  ExportOutcome Export(const std::string& target) {
    FakePorts fakes;
    FileSystemPosix files;
    CodePage1252 codePage;
    EmbeddedSpreadsheets spreadsheets(fakes.locale);
    fakes.locale.numbers = numbers;
    Ports ports{fakes.settings, files,          fakes.clock, fakes.locale,    codePage,      fakes.dialogs,
                fakes.sound,    fakes.keyboard, fakes.help,  fakes.clipboard, fakes.printer, spreadsheets};
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

  TemporaryFolder temporary;
  fs::path folder = temporary.Path();
  fs::path chart = folder / "Test.cht";
  NumberFormat numbers{".", ","};
};

TEST_F(ReadBackTest, ThreeSheetsComeBackCellByCell) {
  WriteChart(65513 + 65534 + 1, '.');
  ASSERT_EQ(Export(""), ExportOutcome::kSaved);
  EXPECT_EQ(ReadBack(chart.string() + ".xls"), 0);
}

TEST_F(ReadBackTest, ACommaLocaleGivesTheSameCells) {
  WriteChart(500, '.');
  ASSERT_EQ(Export(folder / "full-stop.xls"), ExportOutcome::kSaved);
  numbers = {",", "."};
  ASSERT_EQ(Export(folder / "comma-locale.xls"), ExportOutcome::kSaved);  // values with a full stop
  EXPECT_EQ(ReadBack(folder / "comma-locale.xls"), 0);
  WriteChart(500, ',');
  ASSERT_EQ(Export(folder / "comma-values.xls"), ExportOutcome::kSaved);
  WriteChart(500, '.');
  EXPECT_EQ(ReadBack(folder / "comma-values.xls"), 0);
  EXPECT_EQ(ReadBack(folder / "full-stop.xls"), 0);
}

TEST_F(ReadBackTest, TheModernWorkbookAndThePlainTextHaveTheSameLayout) {
  WriteChart(70'000, '.');
  ASSERT_EQ(Export(folder / "out.xlsx"), ExportOutcome::kSaved);
  ASSERT_EQ(Export(folder / "out.csv"), ExportOutcome::kSaved);
  EXPECT_EQ(ReadBack(folder / "out.xlsx"), 0);
  EXPECT_EQ(ReadBack(folder / "out.csv"), 0);
}

}  // namespace
}  // namespace chartproject
