// The acquisition dialog as a script host opens it and a user works in it.
#include <gmock/gmock.h>

#include "platform/win32/wide_text.h"
#include "windows/form_driver.h"

namespace chartproject::testing {
namespace {

using ::testing::HasSubstr;

class AcquireDialog : public ::testing::Test {
 protected:
  void SetUp() override {
    SetEnvironmentVariableA("CHARTPROJECT_SCENARIO", (TestFolder() + "\\plant.txt").c_str());
    SetEnvironmentVariableA("CHARTPROJECT_CLOCK", "virtual 2026-01-31 08:00:00");
  }
  void TearDown() override {
    SetEnvironmentVariableA("CHARTPROJECT_SCENARIO", nullptr);
    SetEnvironmentVariableA("CHARTPROJECT_CLOCK", nullptr);
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

TEST_F(AcquireDialog, RecordsTheSameFileAsTheProgramOfTheOtherPlatform) {
  ScriptHost host("acquire.vbs", "");
  const FormDriver form(host.Process(), L"");
  FillIn(form, "dll.cht", L"30");
  EXPECT_TRUE(form.Visible("cmdStart"));
  EXPECT_FALSE(form.Visible("cmdTrigger"));
  EXPECT_FALSE(form.Visible("cmdViewChart"));
  form.Press("cmdStart");
  EXPECT_TRUE(WaitFor([&form] { return form.Visible("cmdViewChart"); }));
  form.Press("cmdOK");
  EXPECT_EQ(host.ExitCode(), 0);
  EXPECT_FALSE(FileContents(TestFolder() + "\\linux.cht").empty());
  EXPECT_EQ(FileContents(TestFolder() + "\\dll.cht"), FileContents(TestFolder() + "\\linux.cht"));
}

TEST_F(AcquireDialog, EscEndsARecordingAndKeepsItsPoints) {
  SetEnvironmentVariableA("CHARTPROJECT_CLOCK", nullptr);
  ScriptHost host("acquire.vbs", "");
  const FormDriver form(host.Process(), L"");
  FillIn(form, "esc.cht", L"1000");
  form.Press("cmdStart");
  EXPECT_TRUE(WaitFor([&form] { return form.Text("lblProgress") == "2"; }));
  EXPECT_FALSE(form.Enabled("cboDriveAddress"));
  PressKey(VK_ESCAPE);
  EXPECT_TRUE(WaitFor([&form] { return form.Enabled("cboDriveAddress"); }));
  EXPECT_TRUE(form.IsUp()) << "Esc ends the recording, not the dialog";
  form.Close();
  EXPECT_EQ(host.ExitCode(), 0);
  EXPECT_THAT(FileContents(TestFolder() + "\\esc.cht"), HasSubstr("Number of Points=1000"));
}

TEST_F(AcquireDialog, RefusesARangeErrorWithTheHostsTitleAndPutsTheTextBack) {
  ScriptHost host("acquire.vbs", "");
  const FormDriver form(host.Process(), L"");
  FillIn(form, "dll2.cht", L"12");
  PostMessageW(form.Control("txtNumberOfPoints"), WM_SETFOCUS, 0, 0);
  // Typed by another thread of ours: the box keeps the call until it is answered.
  const HWND field = form.Control("txtNumberOfPoints");
  PostMessageW(field, EM_SETSEL, 0, -1);
  PostMessageW(field, WM_CHAR, L'0', 0);
  const BoxDriver box(host.Process());
  EXPECT_EQ(box.Prompt(), "Value out of range !");
  box.Answer(IDOK);
  EXPECT_TRUE(WaitFor([&form] { return form.Text("txtNumberOfPoints") == "12"; }));
  form.Press("cmdOK");
  EXPECT_EQ(host.ExitCode(), 0);
}

TEST_F(AcquireDialog, SpeaksThreeLanguages) {
  const struct {
    const char* language;
    const char* picture;
  } cases[] = {
      {"Portuguese", "win_acquire_pt.png"}, {"Spanish", "win_acquire_es.png"}, {"English", "win_acquire_en.png"}};
  for (const auto& each : cases) {
    ScriptHost host("acquire.vbs", each.language);
    const FormDriver form(host.Process(), L"");
    FillIn(form, "dll3.cht", L"100");
    form.Capture(TestFolder() + "\\" + each.picture);
    form.Press("cmdOK");
    EXPECT_EQ(host.ExitCode(), 0) << each.language;
  }
}

}  // namespace
}  // namespace chartproject::testing
