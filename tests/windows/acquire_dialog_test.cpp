// The acquisition dialog as a script host opens it and a user works in it.
#include <gmock/gmock.h>

#include <thread>

#include "backends/win32/com/com_ref.h"
#include "backends/win32/wide_text.h"
#include "windows/form_driver.h"

#include <chart_project.h>

namespace chartproject::testing {
namespace {

using ::testing::HasSubstr;

class AcquireDialog : public ::testing::Test {
 protected:
  void SetUp() override {
    SetEnvironmentVariableA("CHARTPROJECT_SCENARIO", (TestFolder() + "\\plant.txt").c_str());
    SetEnvironmentVariableA("CHARTPROJECT_CLOCK", "2026-01-31 08:00:00");
  }
  void TearDown() override {
    SetEnvironmentVariableA("CHARTPROJECT_SCENARIO", nullptr);
    SetEnvironmentVariableA("CHARTPROJECT_CLOCK", nullptr);
    SetEnvironmentVariableA("CHARTPROJECT_PRINT_TO", nullptr);
  }

  static void FillIn(const FormDriver& form, const std::string& file, const std::wstring& points) {
    form.Type("rtfFileName", win32::ToWide(TestFolder() + "\\" + file));
    form.Select("cboDriveAddress", L"01");
    form.Select("cboNumberOfParameters", L"2");
    form.Select("cboPXXX1", L"003");
    form.Select("cboPXXX2", L"005");
    form.Type("txtNumberOfPoints", points);
    form.Select("cboTimeBetweenPointsUnit", L"s");
    form.Type("txtTimeBetweenPoints", L"1");
  }
};

TEST_F(AcquireDialog, RecordsShowsAndPrintsByKeyboardAlone) {
  const TestPrinter printer("/no/such/folder/page");  // the file comes in its place
  const std::string page = TestFolder() + "\\keys.ps";
  const std::string file = TestFolder() + R"(\project\projects\demo\keys.cht)";
  for (const std::string& left : {page, file}) DeleteFileA(left.c_str());
  SetEnvironmentVariableA("CHARTPROJECT_PRINT_TO", page.c_str());
  ScriptHost host("host.vbs", "English");
  const FormDriver form(host.Process(), L"");
  EXPECT_TRUE(form.GetsFocus("cboDriveAddress"));
  EXPECT_FALSE(form.Visible("cmdTrigger") || form.Visible("cmdViewChart"));
  form.Keys({kAlt | 'N'});
  BoxDriver(host.Process()).Keys({'K', 'E', 'Y', 'S', VK_RETURN});
  EXPECT_TRUE(WaitFor([&] { return form.Text("rtfFileName") == file; }));
  const struct {
    std::vector<WORD> keys;
    const char* next;
    const char* shows;
  } steps[] = {
      {{'0', '1', VK_TAB}, "cboNumberOfParameters", "1"},
      {{'2', VK_TAB}, "cboPXXX1", "001"},
      {{'0', '0', '3', VK_TAB}, "cboPXXX2", "001"},
      {{'0', '0', '5', VK_TAB}, "txtNumberOfPoints", "5"},
      {{'0'}, nullptr, "Value out of range !"},
      {{kShift | VK_TAB, VK_TAB, '3', '0', VK_TAB, VK_TAB}, "cboTimeBetweenPointsUnit", "s"},
      {{'H', kAlt | 'T', VK_HOME, '0', '0', '0', '7', VK_BACK, '1', '2', '5'}, "mebTimeBetweenPoints", "00:01:25"},
      {{VK_TAB, 'S', kShift | VK_TAB, '1'}, "txtTimeBetweenPoints", "1"}};
  for (const auto& step : steps) {
    form.Keys(step.keys);
    if (step.next != nullptr) {
      EXPECT_TRUE(form.GetsFocus(step.next)) << step.next;
      EXPECT_TRUE(WaitFor([&] { return form.Text(step.next) == step.shows; })) << form.Text(step.next);
      continue;
    }
    const BoxDriver box(host.Process());
    EXPECT_EQ(box.Prompt(), step.shows);
    form.Close();  // not while the box waits
    box.Answer(IDOK);
    EXPECT_TRUE(WaitFor([&form] { return form.Text("txtNumberOfPoints") == "5"; }));
  }
  form.Keys({kAlt | 'S'});
  EXPECT_TRUE(WaitFor([&form] { return form.Visible("cmdViewChart"); }));
  for (const WORD letter : {WORD{'P'}, WORD{'O'}}) {
    form.Keys({kAlt | 'W'});
    const FormDriver chart(host.Process(), L"Chart File - keys.cht");
    EXPECT_EQ(IsWindowEnabled(form.Window()), 0) << "the dialog waits for its chart";
    const HWND bar = chart.Control("hsbGraph");
    chart.Keys({VK_END});
    EXPECT_TRUE(WaitFor([bar] { return GetScrollPos(bar, SB_CTL) == 30 - 25; }));
    chart.Keys({static_cast<WORD>(kAlt | letter)});
    if (letter == 'O') continue;
    BoxDriver(host.Process()).Keys({VK_RETURN});
    EXPECT_TRUE(WaitFor([&page] { return FileContents(page).find("%%EOF") != std::string::npos; })) << "no page";
  }
  // The clock of the tests moves only while the dialog has no messages: the time in which an Esc may have been meant
  // for the recording is not over before.
  const DWORD idleSince = GetTickCount();
  EXPECT_TRUE(WaitFor([idleSince] { return GetTickCount() - idleSince >= 2000; }));
  form.Keys({VK_ESCAPE});
  EXPECT_EQ(host.ExitCode(), 0);
  EXPECT_FALSE(FileContents(TestFolder() + "\\linux.cht").empty());
  EXPECT_EQ(FileContents(file), FileContents(TestFolder() + "\\linux.cht"));
}

TEST_F(AcquireDialog, EscAndTheEndOfTheSessionEndARecordingAndKeepItsPoints) {
  SetEnvironmentVariableA("CHARTPROJECT_CLOCK", nullptr);
  for (const char* file : {"esc.cht", "end.cht"}) {
    ScriptHost host("host.vbs", "");
    const FormDriver form(host.Process(), L"");
    FillIn(form, file, L"1000");
    form.Press("cmdStart");
    EXPECT_TRUE(WaitFor([&form] { return std::atoi(form.Text("lblProgress").c_str()) >= 2; }));
    EXPECT_FALSE(form.Enabled("cboDriveAddress"));
    if (file == std::string("end.cht")) {
      SendMessageW(form.Window(), WM_ENDSESSION, FALSE, 0);
      EXPECT_TRUE(form.IsUp()) << "another program did not let the session end";
      SendMessageW(form.Window(), WM_ENDSESSION, TRUE, 0);
    } else {
      EXPECT_TRUE(HoldKey(VK_ESCAPE, [&form] { return form.Enabled("cboDriveAddress"); }));
      EXPECT_TRUE(form.IsUp()) << "Esc ends the recording, not the dialog";
      form.Close();
    }
    EXPECT_THAT(FileContents(TestFolder() + "\\" + file), HasSubstr("Number of Points=1000")) << file;
    EXPECT_EQ(host.ExitCode(), 0) << file;
  }
}

TEST_F(AcquireDialog, AnEscTooLateForTheRecordingDoesNotCloseTheDialogWhileItIsDown) {
  SetEnvironmentVariableA("CHARTPROJECT_CLOCK", nullptr);
  bool inTime = false;
  for (int attempt = 0; attempt < 20 && !inTime; ++attempt) {  // a busy machine presses it too late even for this
    ScriptHost host("host.vbs", "");
    const FormDriver form(host.Process(), L"");
    FillIn(form, "late.cht", L"2");
    form.Press("cmdStart");
    EXPECT_TRUE(WaitFor([&form] { return !form.Enabled("cboDriveAddress"); }));
    DWORD running = 0;
    EXPECT_TRUE(WaitFor([&] {
      const DWORD now = GetTickCount();
      const bool ended = form.Enabled("cboDriveAddress");
      if (!ended) running = now;
      return ended;
    }));
    DWORD pressed = 0;
    EXPECT_TRUE(HoldKey(VK_ESCAPE, [&] {
      if (pressed == 0) pressed = GetTickCount();
      return !form.IsUp() || GetTickCount() - pressed > 1500;
    }));
    inTime = pressed - running < 600;
    EXPECT_TRUE(form.IsUp() || !inTime) << pressed - running;
    form.Close();
    EXPECT_EQ(host.ExitCode(), 0);
  }
  EXPECT_TRUE(inTime);
}

/// Ends a process as a crash does: nothing of it runs any more.
void Kill(DWORD process) {
  const HANDLE victim = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, process);
  TerminateProcess(victim, 1);
  WaitForSingleObject(victim, INFINITE);
  CloseHandle(victim);
}

int PointsIn(const std::string& file) {
  const std::string bytes = FileContents(file);
  int points = 0;
  for (std::size_t at = bytes.find("##\r\n"); at != std::string::npos; at = bytes.find("##\r\n", at + 1)) ++points;
  return points;
}

TEST_F(AcquireDialog, TheNextDialogBringsAKilledRecordingBackAlsoOneOfAnotherSystem) {
  SetEnvironmentVariableA("CHARTPROJECT_CLOCK", nullptr);
  const std::string projects = R"(project\projects\demo\)";
  const std::string folder = TestFolder() + "\\" + projects;
  const struct {
    const char* name;
    const wchar_t* points;  ///< null for one that a program of another system left
    bool recoveredHere;
  } recordings[] = {{"killed_memory.cht", L"1000", true},   {"killed_spool.cht", L"3000", true},
                    {"linux_memory.cht", nullptr, true},    {"linux_spool.cht", nullptr, true},
                    {"windows_memory.cht", L"1000", false}, {"windows_spool.cht", L"3000", false}};
  for (const auto& [name, points, recoveredHere] : recordings) {
    const std::string file = recoveredHere ? projects + name : name;
    const std::string left = TestFolder() + "\\" + name;
    int reported = 0;
    DeleteFileA((TestFolder() + '\\' + file).c_str());  // of an earlier try
    if (points != nullptr) {
      ScriptHost host("host.vbs", "English");
      const FormDriver form(host.Process(), L"");
      FillIn(form, file, points);
      form.Press("cmdStart");
      EXPECT_TRUE(WaitFor([&] { return (reported = std::atoi(form.Text("lblProgress").c_str())) >= 3; }));
      Kill(host.Process());
    } else {
      reported = 3;
      for (const char* ending : {".recording", ".tcf0"}) {
        CopyFileA((left + ending).c_str(), (folder + name + ending).c_str(), FALSE);
      }
    }
    if (!recoveredHere) continue;  // the other system's program finds it after the tests
    ScriptHost host("host.vbs", "English");
    const FormDriver form(host.Process(), L"");
    EXPECT_THAT(form.Text("lblInterrupted"), HasSubstr(" was interrupted after ")) << name;
    form.Press("cmdRecover");
    const BoxDriver box(host.Process());
    EXPECT_THAT(box.Prompt(), HasSubstr(" point(s) of the interrupted recording are in ")) << name;
    box.Answer(IDOK);
    EXPECT_TRUE(WaitFor([&form] { return !form.Visible("lblInterrupted"); })) << name;
    form.Close();
    EXPECT_EQ(host.ExitCode(), 0);
    EXPECT_GE(PointsIn(folder + name), reported) << name;
    EXPECT_THAT(FileContents(folder + name), HasSubstr("PXXX1=003\r\nPXXX2=005\r\n")) << name;
    EXPECT_EQ(FileContents(folder + name + ".recording") + FileContents(folder + name + ".tcf0"), "") << name;
  }
}

TEST_F(AcquireDialog, OutlivesTheHostsToolsEndsWithItsWindowAndKeepsThePoints) {
  SetEnvironmentVariableA("CHARTPROJECT_CLOCK", nullptr);
  const auto make = [](HWND owner) {
    return CreateWindowExW(0, L"STATIC", L"Host", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, owner, nullptr, nullptr, nullptr);
  };
  const HWND other = make(nullptr);
  const HWND window = make(nullptr);
  const HWND tool = make(window);
  SetActiveWindow(tool);
  std::thread user([window, tool] {
    const FormDriver form(GetCurrentProcessId(), L"");
    const auto cursor = [&form] {
      const auto button = reinterpret_cast<WPARAM>(form.Control("cmdOK"));
      SendMessageW(form.Window(), WM_SETCURSOR, button, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
      CURSORINFO info{};
      info.cbSize = sizeof info;
      GetCursorInfo(&info);
      return info.hCursor;
    };
    // The display may report an earlier move of the pointer in between.
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    HCURSOR hand = arrow;
    EXPECT_TRUE(WaitFor([&] { return (hand = cursor()) != arrow; }));
    EXPECT_TRUE(WaitFor([&] { return cursor() == hand; })) << "the file is read once";
    FillIn(form, "owner.cht", L"1000");
    form.Press("cmdStart");
    EXPECT_TRUE(WaitFor([&form] { return std::atoi(form.Text("lblProgress").c_str()) >= 2; }));
    SendMessageW(tool, WM_CLOSE, 0, 0);
    EXPECT_TRUE(form.IsUp());
    SendNotifyMessageW(window, WM_CLOSE, 0, 0);
  });
  win32::ComRef<_ChartClass> object;
  CoCreateInstance(CLSID_ChartClass, nullptr, CLSCTX_INPROC_SERVER, IID__ChartClass, object.ReceiveUntyped());
  EXPECT_EQ(object->AcquireVar(), S_OK);
  user.join();
  EXPECT_THAT(FileContents(TestFolder() + "\\owner.cht"), HasSubstr("Number of Points=1000"));
  EXPECT_NE(IsWindowEnabled(other), 0);
  DestroyWindow(other);
  object.Reset();
  WNDCLASSEXW left{};
  EXPECT_EQ(GetClassInfoExW(GetModuleHandleW(L"ChartProject.dll"), L"ChartProjectForm", &left), 0);
}

}  // namespace
}  // namespace chartproject::testing
