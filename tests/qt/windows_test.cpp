// The acquisition dialog as a user meets it: a whole recording by keys, Esc, boxes, its three languages. The start
// window over a project that was just made: a new user's first recording. The chart window: keys, clicks and pointer.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>
#include <QWidget>
#include <cctype>
#include <filesystem>
#include <fstream>

#include "backends/qt/help_page.h"
#include "forms/access_keys.h"
#include "platform/temporary_folder.h"
#include "qt/program_windows.h"

namespace chartproject {
namespace {

using ::testing::AllOf, ::testing::ElementsAre, ::testing::HasSubstr, ::testing::IsEmpty;

TEST(HelpPageTest, ShowsNothingButRegularFilesOfItsFolder) {
  const TemporaryFolder folder;
  const auto at = [&](const char* name) { return (std::filesystem::path(folder.Path()) / name).string(); };
  std::filesystem::create_directories(at("help/pictures"));
  for (const char* name : {"help/page.html", "help/pictures/a.png", "secret.txt"}) std::ofstream(at(name)) << name;
  std::ofstream(at("help/large.png")).close();
  std::filesystem::resize_file(at("help/large.png"), 2'000'000'000);
  std::filesystem::create_symlink("../secret.txt", at("help/link.html"));
  std::filesystem::create_symlink("/dev/zero", at("help/zero.png"));
  std::filesystem::create_symlink("page.html", at("help/inside.html"));
  ASSERT_EQ(mkfifo(at("help/pipe.png").c_str(), 0600), 0);
  std::vector<std::string> refused;
  HelpPage page([&refused](const QString& target) { refused.push_back(target.toStdString()); });
  ASSERT_TRUE(page.Show("<a href='x'>x</a>", QString::fromStdString(at("help"))));
  const auto follow = [&](const std::string& target) { emit page.anchorClicked(QUrl(QString::fromStdString(target))); };
  const std::string secret = at("secret.txt");
  for (const std::string& name :
       {std::string("../secret.txt"), secret, "file://" + secret, std::string("link.html"), std::string("zero.png"),
        std::string("pipe.png"), std::string("large.png"), std::string("/dev/zero"),
        std::string("https://example.org/"), std::string("none.html"), std::string("pictures")}) {
    const QUrl url(QString::fromStdString(name));
    EXPECT_FALSE(page.loadResource(QTextDocument::StyleSheetResource, url).isValid()) << name;
    follow(name);
    EXPECT_THAT(refused, ElementsAre(name));
    refused.clear();
  }
  EXPECT_EQ(page.loadResource(QTextDocument::StyleSheetResource, QUrl("pictures/a.png")).toByteArray(),
            "help/pictures/a.png");
  for (const char* name : {"#91", "page.html#91", "inside.html"}) follow(name);
  EXPECT_THAT(refused, IsEmpty());
  EXPECT_EQ(page.toPlainText(), "help/page.html");
}

TEST(HelpPageTest, ShowsPicturesOfItsFolderAndOnlyTheNamesOfOthers) {
  const TemporaryFolder folder;
  const QString at = QString::fromStdString(folder.Path());
  std::filesystem::create_directories(folder / "help");
  const auto save = [&](const char* name, Qt::GlobalColor color) {
    QImage picture(16, 16, QImage::Format_RGB32);
    picture.fill(color);
    ASSERT_TRUE(picture.save(at + name));
  };
  save("/secret.png", Qt::red);
  save("/help/own.png", Qt::green);
  HelpPage page([](const QString&) {});
  const QString text = "<img src='" + at + "/secret.png'><img src='../secret.png'><br><img src='own.png'>";
  ASSERT_TRUE(page.Show(text.toUtf8(), at + "/help"));
  page.resize(600, 200);
  const QImage seen = page.grab().toImage();
  int red = 0;
  int green = 0;
  for (int i = 0; i < seen.width() * seen.height(); ++i) {
    const QColor color = seen.pixelColor(i % seen.width(), i / seen.width());
    red += color == Qt::red ? 1 : 0;
    green += color == Qt::green ? 1 : 0;
  }
  EXPECT_EQ(red, 0);
  const double scale = seen.devicePixelRatio();
  EXPECT_EQ(green, 16 * 16 * scale * scale);
}

struct AcquireWindowTest : ::testing::Test {
  DialogWindow project;
  AcquireForm form{project.component};
  User user{form};
  [[nodiscard]] std::string Chart() const { return project.fakes.files.Bytes(DialogWindow::kChart); }
};

TEST_F(AcquireWindowTest, RecordsByKeyboardAloneAndShowsTheChart) {
  std::string shown;
  project.component.showChart = [&shown](Component&, const std::string& name) { shown = name; };
  user.Until("the address list", [&] { return user.WidgetOf(form.drive.cboDriveAddress).hasFocus(); })
      .Key("Down");  // drive 02
  user.Key("Tab").Key("Down").Key("Tab").Key("Down").Key("Tab").Key("Down").Key("Down").Key("Tab");
  user.Until("the number of points", [&] { return user.WidgetOf(form.timing.txtNumberOfPoints).hasFocus(); }).Type("7");
  user.Key("Tab").Key("Tab").Key("Up").Key("shift+Tab").Type("200");
  const auto typed = [&] {
    return form.timing.txtNumberOfPoints.Text() == "7" && form.timing.txtTimeBetweenPoints.Text() == "200";
  };
  user.Until("the fields as typed", typed).Then([&] { user.WidgetOf(form.panel.cmdStart).setFocus(); }).Key("space");
  const auto ended = [&] { return form.LastRun().end == RunEnd::kComplete; };
  user.Until("the end of the recording", ended).Then([&] { QTest::keyClick(&user.Window(), Qt::Key_Escape); });
  user.Until("an Esc that was too late", [&] { return !form.controller.tmrEscReleased.Armed(); });
  user.Do([&] { user.WidgetOf(form.cmdViewChart).setFocus(); }).Key("Return");
  user.Until("the chart", [&] { return !shown.empty(); }).Key("Escape").GoThrough();
  EXPECT_EQ(shown, DialogWindow::kChart);
  EXPECT_THAT(Chart(), AllOf(HasSubstr("02"), HasSubstr("#50#50###")));
  EXPECT_EQ(form.LastRun().points, 7);
}

TEST_F(AcquireWindowTest, EscEndsTheRecordingAndThenTheDialog) {
  int height = 0;
  user.Do([&] {
    form.timing.txtNumberOfPoints.SetText("500");
    form.timing.txtNumberOfPoints.SetFocus();
    user.Window().resize(user.Window().width(), user.Window().height() + 30);  // as the user does
    user.Window().move(40, user.Window().screen()->availableGeometry().bottom() - user.Window().height());
  });
  user.Do([&] { height = user.Window().height(); });
  user.Key("Return").Until("two points", [&] { return form.Run().Counter() == 2; }).Then([&] {
    EXPECT_THAT(CutTexts(user.Window()), IsEmpty());
    EXPECT_GE(user.Window().height(), height);  // room for the progress
    EXPECT_LE(user.Window().geometry().bottom(), user.Window().screen()->availableGeometry().bottom());
    SaveScreenshot(user.Window(), "acquire_running");
    SendKey("Escape");
  });
  user.Until("the end", [&] { return form.LastRun().end == RunEnd::kStopped && form.cmdOK.Enabled(); });
  user.Do([&] { EXPECT_TRUE(form.IsShown()); });
  user.Until("the former height", [&] { return user.Window().height() == height; });
  user.Until("the former focus", [&] { return user.WidgetOf(form.timing.txtNumberOfPoints).hasFocus(); });
  user.Until("Esc let go", [&] { return !form.controller.tmrEscReleased.Armed(); }).Key("Escape").GoThrough();
  EXPECT_GE(form.LastRun().points, 2);
  EXPECT_THAT(Chart(), HasSubstr("[TIME/CONTENT]"));
}

TEST_F(AcquireWindowTest, ABadNumberIsRefusedInABoxAndTheWindowStaysUsable) {
  const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
  user.Do([&] { form.timing.txtNumberOfPoints.SetFocus(); }).Type("0");
  user.Until("the box", [&] { return box() != nullptr && box()->isActiveWindow(); }).Then([&] {
    EXPECT_EQ(box()->windowTitle(), "Kestrel v5.60");
    EXPECT_EQ(box()->text(), "Value out of range !");
    EXPECT_EQ(box()->icon(), QMessageBox::Warning);
    SendKey("Return");
  });
  user.Until("the former number", [&] { return box() == nullptr && form.timing.txtNumberOfPoints.Text() == "5"; });
  user.Type("7").Until("the next digit in its place", [&] { return form.timing.txtNumberOfPoints.Text() == "7"; });
  user.Key("ctrl+a").Type("12.6").Until("13", [&] { return form.timing.txtNumberOfPoints.Text() == "13"; });
  user.Do([&] { user.Window().close(); }).GoThrough();
}

TEST_F(AcquireWindowTest, KeysReachTheVisibleTimeFieldAndTheEventsBeyondUnavailableOnes) {
  const auto press = [&](const Control& label) {
    return std::string("alt+") + static_cast<char>(std::tolower(*AccessLetter(CaptionsWithAccessKeys(form)[&label])));
  };
  const auto focused = [&](Control& control) { return [&] { return user.WidgetOf(control).hasFocus(); }; };
  user.Do([&] {
    form.drive.cboDriveAddress.SetListIndex(1);  // LMX-01: events 0 to 2 and 19 to 23
    form.timing.cboTimeBetweenPointsUnit.SetListIndex(2);
    form.trigger.cboTriggerMode.SetListIndex(0);
  });
  user.Do([&] { SendKey(press(form.timing.lblTimeBetweenPoints)); });
  user.Until("the masked field", focused(form.timing.mebTimeBetweenPoints)).Then([&] {
    SendKey(press(form.trigger.lblEvent));
  });
  user.Until("the events", focused(form.trigger.cboEvent)).Then([] { SendKey("Home"); });
  user.Key("Down").Key("Down").Key("Down");
  user.Until("the first comparison", [&] { return form.trigger.cboEvent.ListIndex() == 19; }).Then([&] {
    SendKey(press(form.file.fraFileName));
  });
  user.Until("the file name", focused(form.file.rtfFileName)).Then([&] { user.Window().close(); });
  user.GoThrough();
}

struct StartWindowTest : ::testing::Test, StartWindow {
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
  user.Until("the end of the recording", [] { return Pressable("cmdViewChart"); }).Then([] { SendKey("alt+o"); });
  user.Key("Escape").GoThrough();
  const std::string chart = outside.fakes.files.Bytes(instance.State().settings.strFolder + "/Test.cht");
  EXPECT_THAT(chart, HasSubstr("[TIME/CONTENT]"));
  EXPECT_EQ(std::count(chart.begin(), chart.end(), '#'), 5 * 6);
}

TEST_F(StartWindowTest, LanguageAndSoundTakeEffectAtOnceAndAreSaved) {
  user.Do([&] { form.cboLanguage.SetFocus(); }).Key("Down");
  user.Until("Spanish", [&] { return form.lblNote.Caption().ends_with("para empezar."); }).Key("alt+s");
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

TEST_F(StartWindowTest, RecentChartsAreOnButtonsAndADroppedFileOpens) {
  const std::string chart = "[INFO]\r\nDrive Address=01\r\nNumber of Parameters=1\r\nPXXX1=003\r\n[TIME/CONTENT]\r\n";
  for (const char* name : {"/data/A & B.cht", "/data/Dropped.cht"})
    outside.fakes.files.Put(name, chart + "08:00:00#1#####\r\n");
  auto& stored = outside.fakes.settings.values["MyCharts"];
  stored = {{"strRecent1", "/data/gone.cht"}, {"strRecent2", "/data/A & B.cht"}};
  const auto chartIsUp = [](const std::string& name) {
    const QWidget* window = QApplication::activeWindow();
    return window != nullptr && window->objectName() == "frmChart" && window->windowTitle().contains(name.c_str());
  };
  user.Do([&] {
    EXPECT_EQ(form.cmdRecent[0].Caption(), "&1  A && B.cht");
    EXPECT_FALSE(form.cmdRecent[1].Visible());
    EXPECT_THAT(CutTexts(user.Window()), IsEmpty());
    SendKey("alt+1");
  });
  user.Until("the recent chart", [&] { return chartIsUp("A & B"); }).Then([] {
    QApplication::activeWindow()->close();
  });
  user.Do([&] {
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/data/Dropped.cht")});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&user.Window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&user.Window(), &drop);
  });
  user.Until("the dropped chart", [&] { return chartIsUp("Dropped"); }).Then([] {
    QApplication::activeWindow()->close();
  });
  user.Key("Escape").GoThrough();
  EXPECT_EQ(stored["strRecent1"], "/data/Dropped.cht");
  EXPECT_EQ(stored["strRecent2"], "/data/A & B.cht");
}

constexpr int kPoints = ChartViewer::kPoints;

TEST(ChartViewerTest, ScrollsAndScalesByKeys) {
  ChartViewer viewer("English");
  ChartForm& form = viewer.form;
  viewer.KeyMovesTo("Right", 2);
  viewer.KeyMovesTo("Next", 26);
  viewer.KeyMovesTo("End", kPoints - 24);
  viewer.KeyMovesTo("Left", kPoints - 25);
  viewer.KeyMovesTo("Home", 1);
  viewer.user.Key("Tab");  // the scroll bar
  viewer.KeyMovesTo("Next", 1 + (kPoints - 25) / 10);
  viewer.KeyMovesTo("Prior", 1);
  viewer.KeyMovesTo("Down", 2);
  viewer.KeyMovesTo("Up", 1);
  viewer.KeyMovesTo("End", kPoints - 24);
  viewer.KeyMovesTo("Home", 1);
  viewer.user.Key("Tab").Key("Right").Until("two points a division",
                                            [&] { return form.View().PointsPerDivision() == 2; });
  // A typed scale is drawn by Enter.
  viewer.user.Click(form.scales.txtScale1).Key("ctrl+a").Type("3").Key("Return").Until("the scaled chart", [&] {
    return form.mscChart1.Model().series[0].values[0] == 3.0;
  });
  viewer.Close();
  EXPECT_EQ(form.mscChart1.Model().rowCount, 50);
}

TEST(ChartViewerTest, WheelsOfBothDirectionsScrollAndTheSliderGoesWithThem) {
  ChartViewer viewer("English");
  ScrollSection& scroll = viewer.form.scroll;
  const auto turn = [&](Control& control, QPoint angle) {
    QWidget& widget = viewer.user.WidgetOf(control);
    const QPointF at = widget.rect().center();
    QWheelEvent event(at, widget.mapToGlobal(at), {}, angle, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
  };
  viewer.user.Do([&] {
    const auto first = [&] { return viewer.form.mscChart1.Model().firstRowLabel; };
    for (Control* control : {static_cast<Control*>(&viewer.form.mscChart1), static_cast<Control*>(&scroll.hsbGraph)}) {
      for (const QPoint on : {QPoint(0, -120), QPoint(-120, 0)}) {
        const auto before = first();
        turn(*control, on);
        EXPECT_GT(first(), before) << control->Name() << on.x();
        turn(*control, -on);
        EXPECT_EQ(first(), before) << control->Name() << on.x();
      }
    }
    turn(scroll.sldPointsPerDivision, {0, 120});
    EXPECT_GT(scroll.sldPointsPerDivision.Value(), 1);
    scroll.sldPointsPerDivision.SetValue(1);
    scroll.sldPointsPerDivision.SetFocus();
  });
  viewer.user.Key("Up").Until("Up as the wheel", [&] { return scroll.sldPointsPerDivision.Value() == 2; });
  viewer.Close();
}

TEST(ChartViewerTest, ReadsOutThePointerAndTwoCursors) {
  ChartViewer viewer("English");
  ChartControl& chart = viewer.form.mscChart1;
  const auto at = [&](double part) {
    QWidget& widget = viewer.user.WidgetOf(chart);
    return QPoint(static_cast<int>(widget.width() * part), widget.height() / 2);
  };
  viewer.user.Do([&] {
    QWidget& widget = viewer.user.WidgetOf(chart);
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, at(0.3));
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::ShiftModifier, at(0.7));
    QTest::mouseMove(&widget, at(0.5));
  });
  const auto read = [&] { return chart.CursorReadout().size() == 5 && !chart.Readout().empty(); };
  viewer.user.Until("the readings", read).Then([&] {
    EXPECT_THAT(chart.CursorReadout()[2].text, HasSubstr("Difference: "));
    EXPECT_THAT(chart.Readout()[2].text, "P005: 7");
    SendKey("Escape");
  });
  viewer.user.Until("no cursor", [&] { return !chart.CursorLabel(MeasuringCursor::kFirst).has_value(); });
  viewer.Close();
}

TEST(ChartViewerTest, TheMenuOpensByKeysAndItsEntriesAct) {
  ChartViewer viewer("English");
  const auto choose = [] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    for (QAction* action : menu->actions()) {
      if (action->text() == "Overview") menu->setActiveAction(action);
    }
    SendKey("Return");
  };
  OverviewControl& strip = viewer.form.overview.ovwRecording;
  viewer.user.Do([&] { EXPECT_TRUE(strip.Visible()); });
  viewer.user.Key("shift+F10")
      .Until("the menu", [] { return QApplication::activePopupWidget() != nullptr; })
      .Then(choose);
  viewer.user.Until("no strip", [&] { return !strip.Visible(); });
  viewer.user.Key("f").Until("the whole recording", [&] { return viewer.form.View().Division() == kPoints / 25; });
  viewer.Close();
}

TEST(ChartViewerTest, FitsZoomsFindsMeasuresAndCopiesByKeyboardAlone) {
  ChartViewer viewer("English");
  ChartForm& form = viewer.form;
  ChartControl& chart = form.mscChart1;
  const auto division = [&](std::int64_t points) {
    return [&form, points] { return form.View().Division() == points; };
  };
  viewer.user.Key("f").Until("the whole recording", division(kPoints / 25));
  viewer.user.Key("plus").Until("a part of it", [&] { return form.View().Division() < kPoints / 25; });
  viewer.user.Key("BackSpace").Until("the whole again", division(kPoints / 25));
  viewer.user.Key("BackSpace").Until("the points again", division(1));
  const auto asked = [] {
    const QWidget* const box = QApplication::activeModalWidget();
    return box != nullptr && box->isActiveWindow() && box->windowTitle() == "Find";
  };
  viewer.user.Key("ctrl+f").Until("the question", asked).Then([] {
    for (const char* key : {"Tab", "Tab", "9", "8", "period", "5", "Return"}) SendKey(key);
  });
  viewer.user.Until("the found point", [&] { return chart.Mark() && chart.Mark()->label == 99; });
  for (const char* key : {"ctrl+Left", "ctrl+shift+Right", "ctrl+shift+Right", "s", "ctrl+c"}) viewer.user.Key(key);
  const auto& clipboard = viewer.outside.fakes.clipboard;
  viewer.user.Until("the numbers", [&] { return !clipboard.Text().empty(); });
  viewer.Close();
  EXPECT_THAT(clipboard.Text(), AllOf(HasSubstr("Difference: 1 point"), HasSubstr("RMS\t")));
}

}  // namespace
}  // namespace chartproject
