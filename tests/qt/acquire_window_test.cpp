// The acquisition dialog as a user meets it: a whole recording by keys, Esc, boxes, its place, its three languages.
#include <gmock/gmock.h>

#include <QApplication>
#include <QMessageBox>

#include "platform/qt/qt_form_view.h"
#include "qt/dialog_window.h"

namespace chartproject {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct AcquireWindowTest : ::testing::Test {
  DialogWindow project;
  AcquireForm form{project.component};
  User user{form};
  [[nodiscard]] std::string Chart() const { return project.fakes.files.Bytes(DialogWindow::kChart); }
};

TEST_F(AcquireWindowTest, RecordsByKeyboardAloneAndShowsTheChart) {
  std::string shown;
  project.component.showChart = [&shown](Component&, const std::string& name) { shown = name; };
  user.When(
      "the address list", [&] { return user.WidgetOf(form.cboDriveAddress).hasFocus(); },
      [] { SendKey("Down"); });  // drive 02
  user.Key("Tab").Key("Down").Key("Tab").Key("Down").Key("Tab").Key("Down").Key("Down").Key("Tab");
  user.When(
      "the number of points", [&] { return user.WidgetOf(form.txtNumberOfPoints).hasFocus(); }, [] { SendText("7"); });
  user.Key("Tab").Key("Tab").Key("Up").Key("shift+Tab").Type("200");
  user.When(
      "the fields as typed",
      [&] { return form.txtNumberOfPoints.Text() == "7" && form.txtTimeBetweenPoints.Text() == "200"; },
      [&] { user.WidgetOf(form.cmdStart).setFocus(); });
  user.Key("space");
  user.When(
      "the end of the recording", [&] { return form.LastRun().end == RunEnd::kComplete; },
      [&] { user.WidgetOf(form.cmdViewChart).setFocus(); });
  user.Key("Return").When(
      "the chart", [&] { return !shown.empty(); }, [] { SendKey("Escape"); });
  user.GoThrough();
  EXPECT_EQ(shown, DialogWindow::kChart);
  EXPECT_THAT(Chart(), HasSubstr("02"));
  EXPECT_THAT(Chart(), HasSubstr("#50#50###"));
  EXPECT_EQ(form.LastRun().points, 7);
}

TEST_F(AcquireWindowTest, EscEndsTheRecordingAndThenTheDialog) {
  int height = 0;
  user.When(
      "the dialog", [&] { return user.Window().isActiveWindow(); },
      [&] {
        height = user.Window().height();
        form.txtNumberOfPoints.SetText("500");
      });
  user.Click(form.cmdStart);
  user.When(
      "two points", [&] { return form.Run().Counter() == 2; },
      [&] {
        EXPECT_THAT(CutTexts(user.Window()), IsEmpty());
        EXPECT_GT(user.Window().height(), height);  // room for the progress
        SaveScreenshot(user.Window(), "acquire_running");
        SendKey("Escape");
      });
  user.When(
      "the end", [&] { return form.LastRun().end == RunEnd::kStopped && form.cmdOK.Enabled(); },
      [&] { EXPECT_TRUE(form.IsShown()); });
  user.Until("the former height", [&] { return user.Window().height() == height; });
  user.Until("Esc let go", [&] { return !form.tmrEscReleased.Armed(); }).Key("Escape");
  user.GoThrough();
  EXPECT_GE(form.LastRun().points, 2);
  EXPECT_THAT(Chart(), HasSubstr("[TIME/CONTENT]"));
}

TEST_F(AcquireWindowTest, ABadNumberIsRefusedInABoxAndTheWindowStaysUsable) {
  const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
  user.When(
      "the dialog", [&] { return user.Window().isActiveWindow(); }, [&] { form.txtNumberOfPoints.SetFocus(); });
  user.Type("0");
  user.When(
      "the box", [&] { return box() != nullptr && box()->isActiveWindow(); },
      [&] {
        EXPECT_EQ(box()->windowTitle(), "Kestrel v5.60");
        EXPECT_EQ(box()->text(), "Value out of range !");
        EXPECT_EQ(box()->icon(), QMessageBox::Warning);
        SendKey("Return");
      });
  user.When(
      "the former number", [&] { return box() == nullptr && form.txtNumberOfPoints.Text() == "5"; },
      [&] { user.Window().close(); });
  user.GoThrough();
}

TEST_F(AcquireWindowTest, ComesBackWhereItWasLeft) {
  user.When(
      "the dialog", [&] { return user.Window().isActiveWindow(); }, [&] { user.Window().move(60, 40); });
  user.When(
      "the move", [&] { return form.Left() == 900 && form.Top() == 600; }, [&] { user.Window().close(); });
  user.GoThrough();
  AcquireForm again(project.component);
  User second(again);
  second.When(
      "the same place", [&] { return second.Window().pos() == QPoint(60, 40); },
      [&] { second.Window().showMaximized(); });
  second.When(
      "maximised", [&] { return again.State() == WindowState::kMaximized; }, [&] { second.Window().close(); });
  second.GoThrough();
  EXPECT_EQ(project.fakes.settings.values["frmAcquireVar"]["Left"], "900");
  EXPECT_EQ(project.fakes.settings.values["MyConf"]["strMaximizedfrmErr"], "Yes");
}

class AcquireLanguagesTest : public ::testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(AcquireLanguagesTest, NoTextIsCut) {
  const auto& [language, name] = GetParam();
  DialogWindow project(language);
  AcquireForm form(project.component);
  User user(form);
  user.When(
      "the dialog", [&] { return user.Window().isActiveWindow(); },
      [&] {
        EXPECT_THAT(CutTexts(user.Window()), IsEmpty());
        SaveScreenshot(user.Window(), name);
        form.cboTriggerMode.SetListIndex(0);  // event: other buttons and lists
        form.txtContent.SetText("12");
        form.cboTimeBetweenPointsUnit.SetListIndex(2);
      });
  user.When(
      "the trigger", [&] { return user.WidgetOf(form.cmdTrigger).isVisible(); },
      [&] {
        EXPECT_THAT(CutTexts(user.Window()), IsEmpty());
        SaveScreenshot(user.Window(), std::string(name) + "_event");
        form.rtfFileName.SetText("");  // a hint takes the place of Start
      });
  user.When(
      "the hint", [&] { return !form.lblHint.Caption().empty(); },
      [&] {
        EXPECT_THAT(CutTexts(user.Window()), IsEmpty());
        user.Window().close();
      });
  user.GoThrough();
}

INSTANTIATE_TEST_SUITE_P(Languages, AcquireLanguagesTest,
                         ::testing::Values(std::pair("Portuguese", "acquire_pt"), std::pair("English", "acquire_en"),
                                           std::pair("Spanish", "acquire_es")));

}  // namespace
}  // namespace chartproject
