// The acquisition dialog as a user meets it: a whole recording by keys, Esc, boxes, its three languages. The start
// window over a project that was just made: a new user's first recording. The chart window: keys, clicks and pointer.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QApplication>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QUrl>
#include <QWidget>
#include <filesystem>
#include <fstream>

#include "backends/qt/help_page.h"
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

constexpr int kPoints = ChartViewer::kPoints;

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
