// The start window over a project that was just made: a new user's first recording, and the languages.
#include <gmock/gmock.h>

#include <QApplication>
#include <QPushButton>

#include "host/project_maker.h"
#include "host/start_form.h"
#include "links/simulated_link.h"
#include "qt/dialog_window.h"

namespace chartproject {
namespace {

using ::testing::HasSubstr, ::testing::IsEmpty;

struct StartWindowTest : ::testing::Test {
  DialogWindow outside;
  SimulatedLinkFactory links{outside.clock, outside.fakes.locale};
  ProjectReport made =
      MakeProject(outside.fakes.files, outside.fakes.settings, outside.fakes.codePage, "/home/Project");
  ProcessState process;
  ChartClass instance{outside.ports, outside.host, links, process};
  StartForm form{instance, "A project was made in " + made.folder};
  User user{form};

  /// The dialog that the start window opened, once it has the focus.
  static QWidget* Dialog() {
    QWidget* window = QApplication::activeWindow();
    return window != nullptr && window->objectName() == "frmAcquireVar" ? window : nullptr;
  }
  static bool Pressable(const char* button) {
    const auto* widget = Dialog() == nullptr ? nullptr : Dialog()->findChild<QPushButton*>(button);
    return widget != nullptr && widget->isVisible() && widget->isEnabled();
  }
};

TEST_F(StartWindowTest, ANewUserRecordsWithFourKeys) {
  user.Do([&] {
    EXPECT_THAT(form.rtfDrives.Text(), HasSubstr("01\tKRA-09\t2.40"));
    EXPECT_THAT(CutTexts(user.Window()), IsEmpty());
    SaveScreenshot(user.Window(), "start_en");
    SendKey("Return");
  });
  user.Until("the dialog", [] { return Pressable("cmdStart"); }).Then([] { SendKey("alt+s"); });
  user.Until("the end of the recording", [] { return Pressable("cmdViewChart"); }).Then([] { SendKey("Escape"); });
  user.Key("Escape").GoThrough();
  const std::string chart = outside.fakes.files.Bytes(instance.State().settings.strFolder + "/Test.cht");
  EXPECT_THAT(chart, HasSubstr("[TIME/CONTENT]"));
  EXPECT_EQ(std::count(chart.begin(), chart.end(), '#'), 5 * 6);
}

TEST_F(StartWindowTest, LanguageAndSoundTakeEffectAtOnceAndAreSaved) {
  user.Do([&] { form.cboLanguage.SetFocus(); }).Key("Down");
  user.Until("Spanish", [&] { return form.cmdClose.Caption() == "&Cerrar"; }).Key("alt+s");
  user.Until("sounds off", [&] { return form.chkSound.Value() == 0; }).Then([&] {
    EXPECT_THAT(CutTexts(user.Window()), IsEmpty());
    SaveScreenshot(user.Window(), "start_es");
    user.Window().close();
  });
  user.GoThrough();
  instance.Release();
  EXPECT_EQ(outside.fakes.settings.values["MyConf"]["strLanguage"], "Spanish");
  EXPECT_EQ(outside.fakes.settings.values["MyConf"]["strSound"], "No");
}

}  // namespace
}  // namespace chartproject
