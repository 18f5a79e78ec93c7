// The acquisition dialog as a user meets it: a whole recording by keys, Esc, boxes, its three languages. The start
// window over a project that was just made: a new user's first recording.
#include <gmock/gmock.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "host/project_maker.h"
#include "host/start_form.h"
#include "links/simulated_link.h"
#include "qt/dialog_window.h"

namespace chartproject {
namespace {

using ::testing::AllOf, ::testing::HasSubstr, ::testing::IsEmpty;

struct AcquireWindowTest : ::testing::Test {
  DialogWindow project;
  AcquireForm form{project.component};
  User user{form};
  [[nodiscard]] std::string Chart() const { return project.fakes.files.Bytes(DialogWindow::kChart); }
};

TEST_F(AcquireWindowTest, RecordsByKeyboardAloneAndShowsTheChart) {
  std::string shown;
  project.component.showChart = [&shown](Component&, const std::string& name) { shown = name; };
  user.Until("the address list", [&] { return user.WidgetOf(form.cboDriveAddress).hasFocus(); })
      .Key("Down");  // drive 02
  user.Key("Tab").Key("Down").Key("Tab").Key("Down").Key("Tab").Key("Down").Key("Down").Key("Tab");
  user.Until("the number of points", [&] { return user.WidgetOf(form.txtNumberOfPoints).hasFocus(); }).Type("7");
  user.Key("Tab").Key("Tab").Key("Up").Key("shift+Tab").Type("200");
  const auto typed = [&] { return form.txtNumberOfPoints.Text() == "7" && form.txtTimeBetweenPoints.Text() == "200"; };
  user.Until("the fields as typed", typed).Then([&] { user.WidgetOf(form.cmdStart).setFocus(); }).Key("space");
  user.Until("the end of the recording", [&] { return form.LastRun().end == RunEnd::kComplete; });
  user.Do([&] { user.WidgetOf(form.cmdViewChart).setFocus(); }).Key("Return");
  user.Until("the chart", [&] { return !shown.empty(); }).Key("Escape").GoThrough();
  EXPECT_EQ(shown, DialogWindow::kChart);
  EXPECT_THAT(Chart(), AllOf(HasSubstr("02"), HasSubstr("#50#50###")));
  EXPECT_EQ(form.LastRun().points, 7);
}

TEST_F(AcquireWindowTest, EscEndsTheRecordingAndThenTheDialog) {
  int height = 0;
  user.Do([&] {
    height = user.Window().height();
    form.txtNumberOfPoints.SetText("500");
  });
  user.Click(form.cmdStart).Until("two points", [&] { return form.Run().Counter() == 2; }).Then([&] {
    EXPECT_THAT(CutTexts(user.Window()), IsEmpty());
    EXPECT_GT(user.Window().height(), height);  // room for the progress
    SaveScreenshot(user.Window(), "acquire_running");
    SendKey("Escape");
  });
  user.Until("the end", [&] { return form.LastRun().end == RunEnd::kStopped && form.cmdOK.Enabled(); });
  user.Do([&] { EXPECT_TRUE(form.IsShown()); });
  user.Until("the former height", [&] { return user.Window().height() == height; });
  user.Until("Esc let go", [&] { return !form.tmrEscReleased.Armed(); }).Key("Escape").GoThrough();
  EXPECT_GE(form.LastRun().points, 2);
  EXPECT_THAT(Chart(), HasSubstr("[TIME/CONTENT]"));
}

TEST_F(AcquireWindowTest, ABadNumberIsRefusedInABoxAndTheWindowStaysUsable) {
  const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
  user.Do([&] { form.txtNumberOfPoints.SetFocus(); }).Type("0");
  user.Until("the box", [&] { return box() != nullptr && box()->isActiveWindow(); }).Then([&] {
    EXPECT_EQ(box()->windowTitle(), "Kestrel v5.60");
    EXPECT_EQ(box()->text(), "Value out of range !");
    EXPECT_EQ(box()->icon(), QMessageBox::Warning);
    SendKey("Return");
  });
  user.Until("the former number", [&] { return box() == nullptr && form.txtNumberOfPoints.Text() == "5"; });
  user.Do([&] { user.Window().close(); }).GoThrough();
}

TEST(AcquireLanguagesTest, NoTextIsCut) {
  for (const std::string language : {"Portuguese", "English", "Spanish"}) {
    DialogWindow project(language);
    AcquireForm form(project.component);
    User user(form);
    const auto check = [&](const std::string& name) {
      EXPECT_THAT(CutTexts(user.Window()), IsEmpty()) << language << name;
      SaveScreenshot(user.Window(), "acquire_" + language + name);
    };
    user.Do([&] {
      check("");
      form.cboTriggerMode.SetListIndex(0);  // event: other buttons and lists
      form.txtContent.SetText("12");
      form.cboTimeBetweenPointsUnit.SetListIndex(2);
    });
    user.Until("the trigger", [&] { return user.WidgetOf(form.cmdTrigger).isVisible(); }).Then([&] {
      check("_event");
      form.rtfFileName.SetText("");  // a hint takes the place of Start
    });
    user.Until("the hint", [&] { return !form.lblHint.Caption().empty(); }).Then([&] {
      check("_hint");
      user.Window().close();
    });
    user.GoThrough();
  }
}

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
