// Spreadsheet automation: which members are called by which names, with which arguments, and what becomes of errors.
#include <gmock/gmock.h>

#include "platform/run_time_error.h"
#include "platform/win32/com/excel_automation.h"
#include "windows/fake_excel.h"

namespace chartproject::testing {
namespace {

using ::testing::ElementsAre;

class ExcelAutomation : public ::testing::Test {
 protected:
  FakeExcelLog log;
  win32::ExcelApplications applications;
};

TEST_F(ExcelAutomation, WithoutTheApplicationThereIsNone) {
  EXPECT_EQ(applications.AttachRunning(), nullptr);
  EXPECT_EQ(applications.Create("x.xls"), nullptr);
}

TEST_F(ExcelAutomation, CallsTheMembersOfThePublishedModel) {
  const FakeExcelInstallation installed(log);
  EXPECT_EQ(applications.AttachRunning(), nullptr) << "installed, but not running";
  {
    const auto excel = applications.Create("x.xls");
    ASSERT_NE(excel, nullptr);
    excel->AddWorkbook();
    excel->SetSheetName(1, "Chart1");
    excel->WriteText(1, 22, 1, "08:00:01");
    excel->EnterValue(1, 22, 2, "1.5");
    EXPECT_EQ(excel->ReadValue(1, 22, 2), "1.5");
    EXPECT_EQ(excel->SheetCount(), 3);
    excel->AddSheetAfter(3);
    excel->SaveAs({"C:\\x.cht.xls", kNormalWorkbookFormat, "", "", false, false});
    excel->Quit();
  }
  EXPECT_THAT(log.calls,
              ElementsAre("workbooks", "workbooks.Add", "sheets(1)", "sheets(1).Name=Chart1", "sheets(1).Cells(22,1)",
                          "sheets(1).Cells(22,1).Value='08:00:01", "sheets(1).Cells(22,2)",
                          "sheets(1).Cells(22,2).Value=1.5", "sheets(1).Cells(22,2)", "sheets(1).Cells(22,2).Value",
                          "sheets", "sheets.Count", "sheets(3)", "sheets", "sheets.Add(after:=sheets(3))",
                          "SaveAs(FileName:=C:\\x.cht.xls,FileFormat:=-4143,Password:=,WriteResPassword:=,"
                          "ReadOnlyRecommended:=False,CreateBackup:=False)",
                          "quit"));
  EXPECT_EQ(log.objects, 0) << "every object is released";
}

TEST_F(ExcelAutomation, AttachesToARunningInstance) {
  FakeExcelInstallation installed(log);
  const DWORD running = installed.Run();
  EXPECT_NE(applications.AttachRunning(), nullptr);
  RevokeActiveObject(running, nullptr);
  EXPECT_EQ(log.objects, 0);
}

TEST_F(ExcelAutomation, ARefusalIsARunTimeErrorAndReleasesEverything) {
  const FakeExcelInstallation installed(log);
  log.failing = "sheets(1).Name=Chart1";
  try {
    const auto excel = applications.Create("x.xls");
    excel->AddWorkbook();
    excel->SetSheetName(1, "Chart1");
    FAIL() << "the refusal was lost";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 1004);
    EXPECT_EQ(error.Description(), "The fake refuses");
    EXPECT_EQ(error.Source(), "Fake Excel");
  }
  EXPECT_EQ(log.objects, 0);
}

}  // namespace
}  // namespace chartproject::testing
