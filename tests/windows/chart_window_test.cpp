// The chart window as a script host opens it and a user works in it.
#include <gmock/gmock.h>

#include <array>
#include <fstream>
#include <optional>
#include <span>

#include "backends/win32/drawing/win32_clipboard.h"
#include "backends/win32/registry_text.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/widgets/widget.h"
#include "windows/form_driver.h"

#include <commctrl.h>
#include <psapi.h>

namespace chartproject::testing {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string Quoted(const std::string& file) {
  return "\"" + TestFolder() + "\\" + file + "\"";
}

/// The chart in a window, opened by a script. @param printTo file in place of the printer; null: none
ScriptHost OpenChart(const std::string& language, const char* printTo = nullptr) {
  SetEnvironmentVariableA("CHARTPROJECT_PRINT_TO", printTo);
  return {"host.vbs", language + " " + Quoted("show.cht")};
}

/// Presses Print in the chart window and answers the question.
void Print(const ScriptHost& host, int answer) {
  const FormDriver form(host.Process(), L"");
  form.Press("cmdPrint");
  const BoxDriver question(host.Process());
  EXPECT_FALSE(form.IsUp()) << "the window has gone when the question comes";
  question.Answer(answer);
}

TEST(ChartWindowOnWindows, ShowsScrollsAndRescalesARecording) {
  ScriptHost host = OpenChart("English");
  const FormDriver form(host.Process(), L"");
  EXPECT_THAT(form.Text("rtfInfo"), HasSubstr("Number of Points : 300"));
  EXPECT_THAT(form.Text("rtfInfo"), HasSubstr("show.cht"));
  EXPECT_TRUE(form.Visible("hsbGraph"));
  EXPECT_FALSE(form.Enabled("txtScale3"));

  const HWND bar = form.Control("hsbGraph");
  const auto position = [bar](int wanted) { return WaitFor([=] { return GetScrollPos(bar, SB_CTL) == wanted; }); };
  SendMessageW(form.Window(), WM_HSCROLL, SB_RIGHT, reinterpret_cast<LPARAM>(bar));
  EXPECT_TRUE(position(300 - 25));
  SendMessageW(form.Window(), WM_HSCROLL, SB_LINELEFT, reinterpret_cast<LPARAM>(bar));
  EXPECT_TRUE(position(300 - 25 - 1));
  const struct {
    const char* under;
    int notches;
    int position;
    std::string scale;
    long perDivision;
    bool sideways = false;
  } turns[] = {{"hsbGraph", 1, 273, "1", 1},         {"mscChart1", 2, 267, "1", 1},
               {"txtScale1", 2, 267, "3", 1},        {"sldPointsPerDivision", 2, 225, "3", 3},
               {"mscChart1", 1, 216, "3", 3},        {"cboChartType", -1, 216, "3", 3},
               {"mscChart1", -1, 207, "3", 3, true}, {"hsbGraph", 3, 216, "3", 3, true},
               {"txtScale1", 1, 216, "3", 3, true}};
  for (const auto& turn : turns) {
    form.Wheel(turn.under, turn.notches, turn.sideways);
    EXPECT_TRUE(position(turn.position)) << turn.under << GetScrollPos(bar, SB_CTL);
    EXPECT_TRUE(WaitFor([&] { return form.Text("txtScale1") == turn.scale; })) << turn.under;
    EXPECT_EQ(form.Send("sldPointsPerDivision", TBM_GETPOS), turn.perDivision) << turn.under;
  }
  EXPECT_FALSE(form.Enabled("cmdUpdateChart"));
  form.Keys({kAlt | 'S', VK_UP, VK_UP, VK_DOWN});
  EXPECT_TRUE(WaitFor([&form] { return form.Text("txtScale1") == "4"; }));
  EXPECT_EQ(form.Send("cboChartType", CB_GETCURSEL), 3) << "the wheel changes no list by the way";
  // Both at once: arrows held for long go on.
  PostMessageW(form.Control("upd1"), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 3));
  PostMessageW(form.Control("upd1"), WM_LBUTTONUP, 0, MAKELPARAM(4, 3));
  EXPECT_TRUE(WaitFor([&form] { return form.Text("txtScale1") == "5"; }));
  EXPECT_TRUE(form.Enabled("cmdUpdateChart"));
  form.Press("cmdUpdateChart");
  EXPECT_TRUE(WaitFor([&form] { return !form.Enabled("cmdUpdateChart"); }));

  form.PointAt("mscChart1");
  RECT chart;
  GetClientRect(form.Control("mscChart1"), &chart);
  int move = 0;
  EXPECT_TRUE(WaitFor([&] {
    if (form.Text("mscChart1").starts_with("Point ")) return true;
    // Again and again: the display reports that the pointer left as late as it reports its moves.
    PostMessageW(form.Control("mscChart1"), WM_MOUSEMOVE, 0,
                 MAKELPARAM(chart.right / 2 + ++move % 5, chart.bottom / 2));
    return false;
  })) << "the chart's name is its readout";

  const long checked = form.Send("chkGrid", BM_GETCHECK);
  form.Press("chkGrid");
  EXPECT_TRUE(WaitFor([&] { return form.Send("chkGrid", BM_GETCHECK) == 1 - checked; }));
  form.Press("cmdOK");
  EXPECT_EQ(host.ExitCode(), 0);
}

TEST(ChartWindowOnWindows, SpeaksThreeLanguagesOnScreenAndPaper) {
  const TestPrinter printer("/no/such/folder/page");  // the file comes in its place
  const struct {
    const char* language;
    std::string code;
  } cases[] = {{"Portuguese", "pt"}, {"Spanish", "es"}, {"English", "en"}};
  for (const auto& each : cases) {
    const std::string page = TestFolder() + "\\printed_" + each.code + ".ps";
    ScriptHost host = OpenChart(each.language, page.c_str());
    const FormDriver form(host.Process(), L"");
    form.Send("sldPointsPerDivision", TBM_SETPOS, TRUE, 12);
    SendMessageW(form.Window(), WM_HSCROLL, TB_ENDTRACK,
                 reinterpret_cast<LPARAM>(form.Control("sldPointsPerDivision")));
    SetWindowPos(form.Window(), nullptr, 0, 0, 1000, 700, SWP_NOMOVE | SWP_NOZORDER);
    form.Capture(TestFolder() + "\\win_chart_" + each.code + ".png");
    const auto division = [&](const char* ending) {
      return WaitFor([&] { return form.Text("lblPointsPerDivision").ends_with(ending); });
    };
    form.Keys({'L'});
    form.Keys({VK_ADD});
    EXPECT_TRUE(division(" 8"));
    form.Keys({'F'});
    EXPECT_TRUE(division(" 12"));
    form.Capture(TestFolder() + "\\win_lanes_" + each.code + ".png");
    PostMessageW(form.Control("mscChart1"), WM_KEYDOWN, 'L', 0);  // taken before the click that follows, a key after it
    Print(host, IDYES);
    EXPECT_EQ(host.ExitCode(), 0) << each.language;
    EXPECT_THAT(FileContents(page), HasSubstr("%%EOF"));
  }
}

std::string ClipboardText() {
  std::string text;
  if (OpenClipboard(nullptr) == 0) return text;
  if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
    text = win32::ToUtf8(static_cast<const wchar_t*>(GlobalLock(data)));
    GlobalUnlock(data);
  }
  CloseClipboard();
  return text;
}

TEST(ChartWindowOnWindows, FitsZoomsFindsMeasuresAndCopiesByKeyboardAlone) {
  const ScriptHost host("host.vbs", "English " + Quoted("long.cht"));
  const FormDriver form(host.Process(), L"");
  SetWindowPos(form.Window(), nullptr, 0, 0, 1000, 700, SWP_NOMOVE | SWP_NOZORDER);
  const struct {
    std::vector<WORD> keys;
    const char* division;
    const char* picture;
  } steps[] = {{{'F'}, " 60", "fit"},       {{VK_ADD}, " 40", "strip"},
               {{VK_BACK}, " 60", ""},      {{'T', VK_ADD}, " 40", "midnight"},
               {{'P', VK_BACK}, " 60", ""}, {{VK_BACK}, " 1", ""}};
  for (const auto& step : steps) {
    form.Keys(step.keys);
    EXPECT_TRUE(WaitFor([&] { return form.Text("lblPointsPerDivision").ends_with(step.division); })) << step.division;
    if (*step.picture != 0) form.Capture(TestFolder() + "\\win_" + step.picture + "_en.png");
  }
  form.Keys({VK_NEXT, kControl | 'F'});
  const FormDriver find(host.Process(), L"Find");
  find.Keys({VK_TAB, VK_TAB, '1', '7', '5', '2', VK_RETURN});
  const HWND bar = form.Control("hsbGraph");
  EXPECT_TRUE(WaitFor([bar] { return GetScrollPos(bar, SB_CTL) > 25; })) << "a speed that is seldom reached";
  form.Capture(TestFolder() + "\\win_find_en.png");
  form.Keys({kControl | VK_LEFT, kControl | kShift | VK_RIGHT, kControl | kShift | VK_RIGHT, 'S', kControl | 'C'});
  EXPECT_TRUE(WaitFor([] { return ClipboardText().find("RMS\t") != std::string::npos; }));
  EXPECT_THAT(ClipboardText(), HasSubstr("Difference: 1 points"));
  form.Capture(TestFolder() + "\\win_statistics_en.png");
  form.Keys({kAlt | 'O'});
  EXPECT_EQ(host.ExitCode(), 0);
}

TEST(ChartWindowOnWindows, LoadsNothingThatLiesBesideTheComponentUnderANameOfTheSystems) {
  const std::string folder = R"(P:\package\)";
  const char* const planted[] = {"winmm.dll", "winspool.drv", "msftedit.dll", "riched20.dll", "uxtheme.dll"};
  for (const char* name : planted) CopyFileA((folder + "DriveLinkSim.dll").c_str(), (folder + name).c_str(), FALSE);
  ScriptHost host = OpenChart("English");
  const FormDriver form(host.Process(), L"");
  const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, host.Process());
  std::array<HMODULE, 500> modules{};
  DWORD size = 0;
  EnumProcessModules(process, modules.data(), sizeof modules, &size);
  std::vector<std::string> beside;
  for (const HMODULE module : std::span(modules).first(size / sizeof(HMODULE))) {
    char name[MAX_PATH] = "";
    GetModuleFileNameExA(process, module, name, MAX_PATH);
    if (std::string_view(name).starts_with("P:")) beside.emplace_back(name);
  }
  EXPECT_THAT(beside, ElementsAre(folder + "ChartProject.dll"));
  CloseHandle(process);
  form.Close();
  EXPECT_EQ(host.ExitCode(), 0);
  for (const char* name : planted) DeleteFileA((folder + name).c_str());
}

TEST(ChartWindowOnWindows, ReportsAFileThatItCannotShowAndReturnsToTheHost) {
  for (const char* file : {"no such file.cht", "plant.txt"}) {
    ScriptHost host("host.vbs", "English " + Quoted(file));
    const BoxDriver box(host.Process());
    EXPECT_FALSE(box.Prompt().empty()) << file;
    box.Answer(IDOK);
    EXPECT_EQ(host.ExitCode(), 0) << file;
  }
}

HWND StatusWindow() {
  const HWND window = FindWindowW(L"ChartProjectForm", L"Kestrel v5.60");
  return IsWindowVisible(window) != 0 ? window : nullptr;
}

TEST(PrintingOnWindows, SaysSoUntilThePrinterHasThePage) {
  // The printer takes the page when the test allows it, or after a minute.
  for (const char* left : {"\\go", "\\page.ps"}) DeleteFileA((TestFolder() + left).c_str());
  const TestPrinter printer(
      "|cd \"$WINEPREFIX/dosdevices/p:/run\"; "
      "for i in $(seq 600); do [ -e go ] && break; sleep 0.1; done; cat >page.ps");
  ScriptHost host = OpenChart("English");
  Print(host, IDYES);
  EXPECT_TRUE(WaitFor([] { return StatusWindow() != nullptr; }));
  wchar_t text[32] = L"";
  InternalGetWindowText(GetDlgItem(StatusWindow(), win32::ControlId("lblStatus")), text, 32);
  EXPECT_STREQ(text, L"Printing ...");
  std::ofstream(TestFolder() + "\\go") << "now";
  EXPECT_EQ(host.ExitCode(), 0);
  EXPECT_THAT(FileContents(TestFolder() + "\\page.ps"), HasSubstr("%%EOF"));

  const auto picture = win32::Win32Clipboard().Picture();  // other programs have it still
  ASSERT_TRUE(picture.has_value());
  EXPECT_NEAR(picture->dotsPerInch, 192, 0.1);
  EXPECT_THAT(picture->pixels, AllOf(Contains(0xFFFFFFE6U), Contains(0xFFFF0000U))) << "backdrop, first series";
}

TEST(PrintingOnWindows, AsksForRangeTitleAndRemarkOfAReportAndPrintsIt) {
  const TestPrinter printer("/no/such/folder/page");  // the file comes in its place
  const std::string page = TestFolder() + "\\report.ps";
  ScriptHost host = OpenChart("Spanish", page.c_str());
  const FormDriver form(host.Process(), L"");
  form.Keys({kControl | 'P'});
  const FormDriver report(host.Process(), L"Imprimir informe");
  EXPECT_EQ(report.Text("cboRange"), "Parte visible: 1 a 25");
  report.Choose("cboRange", 0);
  report.Type("txtTitle", L"Bomba 3");
  report.Type("txtRemark", L"Sin alarmas");
  report.Capture(TestFolder() + "\\win_report.png");
  report.Press("cmdPrint");
  EXPECT_TRUE(WaitFor([&] { return FileContents(page).find("%%EOF") != std::string::npos; }));
  EXPECT_THAT(FileContents(page), HasSubstr("%%Pages: 2"));
  EXPECT_TRUE(WaitFor([&] { return form.IsUp() && !report.IsUp(); }));
  form.Close();
  EXPECT_EQ(host.ExitCode(), 0);
}

TEST(PrintingOnWindows, NamesWhatFailsAndReturnsToTheHost) {
  const struct {
    const char* port;  // null: there is no printer
    const char* file;
    int answer;
    const char* message;
  } cases[] = {
      {"/no/such/folder/page", nullptr, IDNO, nullptr},
      {nullptr, nullptr, IDYES, "There is no default printer"},
      {"/no/such/folder/page", nullptr, IDYES, "Test Printer did not take the page"},
      {"LPT1:", "P:\\no folder\\page", IDYES, "Test Printer (P:\\no folder\\page) did not take the page"},
  };
  for (const auto& each : cases) {
    std::optional<TestPrinter> printer;
    if (each.port != nullptr) printer.emplace(each.port);
    ScriptHost host = OpenChart("English", each.file);
    Print(host, each.answer);
    if (each.message != nullptr) {
      const BoxDriver box(host.Process());
      EXPECT_THAT(box.Prompt(), HasSubstr(each.message));
      EXPECT_EQ(StatusWindow(), nullptr);
      box.Answer(IDOK);
    }
    EXPECT_EQ(host.ExitCode(), 0) << each.message;
  }
}

TEST(ExampleScripts, OpenTheChartWindowAndTheSampleGivesSettingsBack) {
  const auto drivers = [] {
    return win32::ReadRegistryText(HKEY_CURRENT_USER, LR"(Software\VB and VB Program Settings\Kestrel v5.60\MyKestrel)",
                                   L"strDrivers");
  };
  const auto before = drivers();
  using Call = std::pair<const char*, std::string>;
  for (const auto& [script, arguments] : {Call{"example.vbs", Quoted("show.cht")}, Call{"sample.vbs", "view yes"}}) {
    ScriptHost host(script, arguments);
    const FormDriver form(host.Process(), L"");
    EXPECT_TRUE(form.Visible("mscChart1")) << script;
    form.Close();
    EXPECT_EQ(host.ExitCode(), 0) << script;
  }
  EXPECT_EQ(drivers(), win32::ToWide(TestFolder() + R"(\sample\drivers)"));
  EXPECT_EQ(ScriptHost("sample.vbs", "restore").ExitCode(), 0);
  EXPECT_EQ(drivers(), before);
}

}  // namespace
}  // namespace chartproject::testing
