// The acquisition dialog as a user meets it: a whole recording by keys, Esc, boxes, its three languages.
#include <gmock/gmock.h>

#include <QApplication>
#include <QMessageBox>

#include "platform/qt/qt_form_view.h"
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

}  // namespace
}  // namespace chartproject
