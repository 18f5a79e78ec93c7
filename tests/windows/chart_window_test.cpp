// The chart window as a script host opens it and a user works in it.
#include <gmock/gmock.h>

#include "windows/form_driver.h"

#include <commctrl.h>

namespace chartproject::testing {
namespace {

using ::testing::HasSubstr;

std::string Quoted(const std::string& file) {
  return "\"" + TestFolder() + "\\" + file + "\"";
}

TEST(ChartWindowOnWindows, ShowsScrollsAndRescalesARecording) {
  ScriptHost host("chart.vbs", Quoted("show.cht") + " English");
  const FormDriver form(host.Process(), L"");
  EXPECT_THAT(form.Text("rtfInfo"), HasSubstr("Number of Points : 300"));
  EXPECT_THAT(form.Text("rtfInfo"), HasSubstr("show.cht"));
  EXPECT_TRUE(form.Visible("hsbGraph"));
  EXPECT_FALSE(form.Enabled("txtScale3"));

  const HWND bar = form.Control("hsbGraph");
  EXPECT_EQ(GetScrollPos(bar, SB_CTL), 0);
  SendMessageW(form.Window(), WM_HSCROLL, SB_RIGHT, reinterpret_cast<LPARAM>(bar));
  EXPECT_EQ(GetScrollPos(bar, SB_CTL), 300 - 25);
  SendMessageW(form.Window(), WM_HSCROLL, SB_LINELEFT, reinterpret_cast<LPARAM>(bar));
  EXPECT_EQ(GetScrollPos(bar, SB_CTL), 300 - 25 - 1);

  EXPECT_FALSE(form.Enabled("cmdUpdateChart"));
  form.Type("txtScale1", L"3");
  SendMessageW(form.Control("upd1"), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 3));
  SendMessageW(form.Control("upd1"), WM_LBUTTONUP, 0, MAKELPARAM(4, 3));
  EXPECT_EQ(form.Text("txtScale1"), "4");
  EXPECT_TRUE(form.Enabled("cmdUpdateChart"));
  form.Press("cmdUpdateChart");
  EXPECT_TRUE(WaitFor([&form] { return !form.Enabled("cmdUpdateChart"); }));

  const long checked = form.Send("chkGrid", BM_GETCHECK);
  form.Press("chkGrid");
  EXPECT_TRUE(WaitFor([&] { return form.Send("chkGrid", BM_GETCHECK) == 1 - checked; }));
  form.Press("cmdOK");
  EXPECT_EQ(host.ExitCode(), 0);
}

TEST(ChartWindowOnWindows, SpeaksThreeLanguages) {
  const struct {
    const char* language;
    const char* picture;
  } cases[] = {{"Portuguese", "win_chart_pt.png"}, {"Spanish", "win_chart_es.png"}, {"English", "win_chart_en.png"}};
  for (const auto& each : cases) {
    ScriptHost host("chart.vbs", Quoted("show.cht") + " " + each.language);
    const FormDriver form(host.Process(), L"");
    form.Send("sldPointsPerDivision", TBM_SETPOS, TRUE, 12);
    SendMessageW(form.Window(), WM_HSCROLL, TB_ENDTRACK,
                 reinterpret_cast<LPARAM>(form.Control("sldPointsPerDivision")));
    UpdateWindow(form.Window());
    Sleep(300);  // what was invalidated is painted when the queue is empty; a picture has no event to wait for
    form.Capture(TestFolder() + "\\" + each.picture);
    form.Close();
    EXPECT_EQ(host.ExitCode(), 0) << each.language;
  }
}

TEST(ChartWindowOnWindows, ReportsAFileThatItCannotShowAndReturnsToTheHost) {
  for (const char* file : {"no such file.cht", "plant.txt"}) {
    ScriptHost host("chart.vbs", Quoted(file) + " English");
    const BoxDriver box(host.Process());
    EXPECT_FALSE(box.Prompt().empty()) << file;
    box.Answer(IDOK);
    EXPECT_EQ(host.ExitCode(), 0) << file;
  }
}

TEST(ChartWindowOnWindows, AsksBeforeItPrintsTheCopiedPicture) {
  ScriptHost host("chart.vbs", Quoted("show.cht") + " English");
  const FormDriver form(host.Process(), L"");
  form.Press("cmdPrint");
  const BoxDriver box(host.Process());
  EXPECT_EQ(box.Prompt(), "Print ?");
  EXPECT_FALSE(form.IsUp()) << "the window has gone when the question comes";
  EXPECT_NE(IsClipboardFormatAvailable(CF_DIB), 0);
  box.Answer(IDNO);
  EXPECT_EQ(host.ExitCode(), 0);
}

TEST(ExampleScript, OpensTheChartWindowOnARecordedFile) {
  ScriptHost host("example.vbs", Quoted("show.cht"));
  const FormDriver form(host.Process(), L"");
  EXPECT_TRUE(form.Visible("mscChart1"));
  form.Close();
  EXPECT_EQ(host.ExitCode(), 0);
}

}  // namespace
}  // namespace chartproject::testing
