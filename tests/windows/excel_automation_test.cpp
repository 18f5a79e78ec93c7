// The export of the chart window into "Excel.Application", which runs as a separate process: which members are called
// by which names, in which order, with which arguments, and what becomes of errors.
#include <gmock/gmock.h>

#include <array>
#include <fstream>
#include <sstream>

#include "backends/win32/com/registration.h"
#include "backends/win32/com/win32_spreadsheet.h"
#include "backends/win32/com_module.h"
#include "backends/win32/handles.h"
#include "backends/win32/registry_text.h"
#include "backends/win32/wide_text.h"
#include "windows/fake_excel.h"
#include "windows/form_driver.h"

namespace chartproject::testing {
namespace {

using ::testing::HasSubstr;

constexpr const wchar_t* kProgIdKey = L"Software\\Classes\\Excel.Application";
constexpr const char* kQuestion =
    "Do you really want to export the points to Excel?\r\nThis operation may take several minutes...";

void Store(const std::wstring& path, const std::wstring& value) {
  win32::OwnedKey key;
  RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key.Receive(), nullptr);
  ASSERT_EQ(win32::WriteRegistryText(key.Get(), L"", value), ERROR_SUCCESS);
}

class SpreadsheetExport : public ::testing::Test {
 protected:
  /// The first two points of a recording, as a file of their own.
  void SetUp() override {
    const std::string recording = FileContents(TestFolder() + "\\show.cht");
    std::size_t end = recording.find("[TIME/CONTENT]");
    for (int line = 0; line < 3; ++line) end = recording.find('\n', end) + 1;
    std::ofstream(chart_, std::ios::binary) << recording.substr(0, end);
    DeleteFileA(log_.c_str());
  }
  void TearDown() override {
    for (const std::wstring& key : {std::wstring(kProgIdKey), classKey_}) {
      RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
      RegDeleteKeyW(HKEY_LOCAL_MACHINE, key.c_str());
    }
  }

  /// @param failing the call that the application refuses
  void Install(const std::string& failing = "") {
    const std::wstring program = win32::ModuleFile();
    command_ = L"\"" + program.substr(0, program.find_last_of(L'\\')) + L"\\fake_excel.exe\" " +
               win32::ToWide(log_ + " \"" + failing + "\"");
    Store(std::wstring(kProgIdKey) + L"\\CLSID", win32::IdText(kFakeExcelClass));
    Store(classKey_ + L"\\LocalServer32", command_);
  }
  void Run() {
    STARTUPINFOW start{};
    PROCESS_INFORMATION process{};
    std::wstring line = command_ + L" running";
    ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process));
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    ASSERT_TRUE(WaitFor([] { return win32::Win32SpreadsheetApplications().AttachRunning() != nullptr; }));
  }
  /// What was done to the application, once its process has ended: that is, when nobody holds any of its objects.
  [[nodiscard]] std::string Calls() const {
    EXPECT_TRUE(WaitFor([this] { return FileContents(log_).ends_with("end\r\n"); })) << FileContents(log_);
    return FileContents(log_);
  }
  /// Calls of a whole export, between the start of the application and its end.
  [[nodiscard]] std::string WholeExport() const;

  std::string chart_ = TestFolder() + "\\export.cht";
  std::string log_ = TestFolder() + "\\excel.log";
  std::wstring classKey_ = L"Software\\Classes\\CLSID\\" + win32::IdText(kFakeExcelClass);
  std::wstring command_;
};

std::string Cell(int row, std::size_t column) {
  return "sheets(1).Cells(" + std::to_string(row) + "," + std::to_string(column) + ")\r\n";
}

std::string Value(int row, std::size_t column, const std::string& text) {
  const std::string cell = Cell(row, column);
  return cell + cell.substr(0, cell.size() - 2) + ".Value" + text + "\r\n";
}

std::string SpreadsheetExport::WholeExport() const {
  std::string calls = "workbooks\r\nworkbooks.Add\r\nsheets(1)\r\nsheets(1).Name=Chart1\r\n";
  std::istringstream lines(FileContents(chart_));
  int row = 1;
  for (std::string line; std::getline(lines, line); ++row) {
    if (line.ends_with('\r')) line.pop_back();
    if (row < 21) {  // the header's lines are the sheet's rows; the empty one is not written
      const std::size_t mark = line.find('=');
      if (!line.empty()) calls += Value(row, 1, "='" + line.substr(0, mark));
      if (mark != std::string::npos) calls += Value(row, 2, "='" + line.substr(mark + 1));
      continue;
    }
    if (row == 21) {
      calls += Value(row, 1, "='Time");
      for (const char number : {'1', '2', '3', '4'}) {
        calls += Value(row, static_cast<std::size_t>(number - '0') + 1, std::string("='PXXX") + number + ".Content");
      }
      ++row;
    }
    std::istringstream fields(line);
    std::array<std::string, 5> texts;
    for (std::string& text : texts) std::getline(fields, text, '#');
    calls += Value(row, 1, "='" + texts[0]);
    for (std::size_t column = 2; column <= texts.size(); ++column) {
      const std::string& text = texts[column - 1];
      const char* const mark = !text.starts_with('-') ? "=" : text.starts_with("--") ? "='" : "=number ";
      calls += Value(row, column, "='" + text) + Value(row, column, "") + Value(row, column, mark + text);
    }
  }
  return calls + "SaveAs(FileName:=" + chart_ +
         ".xls,FileFormat:=-4143,Password:=,WriteResPassword:=,ReadOnlyRecommended:=False,CreateBackup:=False)\r\n"
         "quit\r\n";
}

/// The pointer that the form shows over its own area.
HCURSOR PointerOver(const FormDriver& form) {
  const DWORD thread = GetWindowThreadProcessId(form.Window(), nullptr);
  AttachThreadInput(GetCurrentThreadId(), thread, TRUE);
  SendMessageW(form.Window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(form.Window()),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  const HCURSOR pointer = GetCursor();
  AttachThreadInput(GetCurrentThreadId(), thread, FALSE);
  return pointer;
}

TEST_F(SpreadsheetExport, StartsTheApplicationOrTakesTheRunningOne) {
  for (const bool running : {false, true}) {
    Install();
    if (running) Run();
    ScriptHost host("host.vbs", "English \"" + chart_ + "\"");
    const FormDriver form(host.Process(), L"");
    const HCURSOR usual = PointerOver(form);
    form.Press("cmdExport");
    const BoxDriver question(host.Process());
    EXPECT_EQ(question.Prompt(), kQuestion);
    question.Answer(IDYES);
    EXPECT_TRUE(WaitFor([&] { return PointerOver(form) != usual; })) << "busy while it writes";
    const BoxDriver saved(host.Process());
    EXPECT_EQ(saved.Prompt(), "File was saved as: " + chart_ + ".xls");
    saved.Answer(IDOK);
    EXPECT_EQ(PointerOver(form), usual);
    EXPECT_EQ(Calls(), (running ? "start\r\n" : "start\r\ncreate\r\n") + WholeExport() + "end\r\n");
    form.Close();
    EXPECT_EQ(host.ExitCode(), 0);
  }
}

TEST_F(SpreadsheetExport, AsksWhichPointsOfALongRecordingItWrites) {
  Install();
  const std::string chart = TestFolder() + "\\show.cht";
  ScriptHost host("host.vbs", "English \"" + chart + "\"");
  const FormDriver form(host.Process(), L"");
  form.Press("cmdExport");
  const FormDriver question(host.Process(), L"Kestrel v5.60");
  EXPECT_EQ(question.Text("lblQuestion"), kQuestion);
  EXPECT_EQ(question.Text("cboRange"), "All points (300)");
  question.Choose("cboRange", 1);
  question.Press("cmdYes");
  const BoxDriver saved(host.Process());
  EXPECT_EQ(saved.Prompt(), "File was saved as: " + chart + ".xls");
  saved.Answer(IDOK);
  EXPECT_THAT(Calls(), ::testing::AllOf(HasSubstr("Cells(46,1)"), ::testing::Not(HasSubstr("Cells(47,1)"))));
  form.Close();
  EXPECT_EQ(host.ExitCode(), 0);
}

TEST_F(SpreadsheetExport, ACallRefusedHalfWayIsLoggedAndEndsTheApplication) {
  Install("sheets(1).Cells(22,3).Value");
  const auto bin = win32::ReadRegistryText(
      HKEY_CURRENT_USER, L"Software\\VB and VB Program Settings\\Kestrel v5.60\\MyKestrel", L"strBin");
  ScriptHost host("host.vbs", "English \"" + chart_ + "\"");
  const FormDriver form(host.Process(), L"");
  const HCURSOR usual = PointerOver(form);
  form.Press("cmdExport");
  BoxDriver(host.Process()).Answer(IDYES);
  const BoxDriver error(host.Process());
  EXPECT_THAT(error.Prompt(),
              HasSubstr("Sub/Function = cmdExport_Click\r\nErr.Number = 1004\r\n"
                        "Err.Description = line 21, column 3: The fake refuses\r\nErr.Source = Fake Excel"));
  EXPECT_TRUE(FileContents(win32::ToUtf8(*bin) + "\\Kestrel.log").ends_with(error.Prompt() + "\r\n"));
  error.Answer(IDOK);
  EXPECT_EQ(PointerOver(form), usual);
  EXPECT_TRUE(Calls().ends_with("sheets(1).Cells(22,3).Value\r\nquit\r\nend\r\n"));
  form.Close();
  EXPECT_EQ(host.ExitCode(), 0);
}

TEST_F(SpreadsheetExport, TheCloseBoxEndsAnExportAndThenTheWindow) {
  Install();
  const std::string chart = TestFolder() + "\\show.cht";
  ScriptHost host("host.vbs", "English \"" + chart + "\"");
  const FormDriver form(host.Process(), L"");
  form.Press("cmdExport");
  FormDriver(host.Process(), L"Kestrel v5.60").Press("cmdYes");
  EXPECT_TRUE(WaitFor([&] { return FileContents(log_).find("Cells(30,") != std::string::npos; }));
  form.Close();
  const BoxDriver stopped(host.Process());
  EXPECT_EQ(stopped.Prompt(), "The export was stopped. No file was written.");
  stopped.Answer(IDOK);
  EXPECT_EQ(host.ExitCode(), 0) << "the window closed, too";
  EXPECT_TRUE(Calls().ends_with("quit\r\nend\r\n"));
  EXPECT_THAT(Calls(), ::testing::Not(HasSubstr("SaveAs")));
}

TEST_F(SpreadsheetExport, AnApplicationThatIsBusyOrLacksTheUsersLocaleIsSpokenToAllTheSame) {
  Install("difficult");
  Run();
  const auto excel = win32::Win32SpreadsheetApplications().AttachRunning();
  excel->AddWorkbook();
  excel->EnterValue(1, 22, 2, "1.5");
  for (const char* text : {"READY", "=1+1", "--", "-0.25", "@A1", "'a"}) excel->EnterValue(1, 22, 3, text);
  excel->Quit();
  EXPECT_THAT(FileContents(log_), HasSubstr("workbooks\r\nworkbooks.Add\r\nsheets(1)\r\nsheets(1).Cells(22,2)\r\n"
                                            "sheets(1).Cells(22,2).Value=number 1.5\r\nsheets(1).Cells(22,3)\r\n"
                                            "sheets(1).Cells(22,3).Value=READY\r\n"));
  for (const char* value : {"'=1+1", "'--", "number -0.25", "'@A1", "''a"}) {
    EXPECT_THAT(FileContents(log_), HasSubstr(std::string("Cells(22,3).Value=") + value + "\r\n"));
  }
}

TEST_F(SpreadsheetExport, WithoutTheApplicationOrTheUsersYesNothingIsDone) {
  for (const bool installed : {false, true}) {
    if (installed) Install();
    ScriptHost host("host.vbs", "English \"" + chart_ + "\"");
    const FormDriver form(host.Process(), L"");
    form.Press("cmdExport");
    const BoxDriver box(host.Process());
    EXPECT_EQ(box.Prompt(), installed ? kQuestion : "Unable to find Excel application.");
    box.Answer(installed ? IDNO : IDOK);
    if (installed) {
      EXPECT_EQ(Calls(), "start\r\ncreate\r\nend\r\n");
    }
    form.Close();
    EXPECT_EQ(host.ExitCode(), 0);
  }
}

TEST_F(SpreadsheetExport, SheetsAreCountedAndAddedWithoutALeak) {
  Install();
  Run();
  ExpectNoGrowth(20, [] {
    const auto excel = win32::Win32SpreadsheetApplications().AttachRunning();
    excel->AddWorkbook();
    EXPECT_EQ(excel->SheetCount(), 3);
    excel->AddSheetAfter(3);
    excel->SetSheetName(4, "Chart4");
  });
  win32::Win32SpreadsheetApplications().AttachRunning()->Quit();
  EXPECT_THAT(Calls(), HasSubstr("sheets\r\nsheets.Count\r\nsheets(3)\r\nsheets\r\nsheets.Add(after:=sheets(3))\r\n"
                                 "sheets(4)\r\nsheets(4).Name=Chart4\r\nquit\r\nend\r\n"));
}

}  // namespace
}  // namespace chartproject::testing
