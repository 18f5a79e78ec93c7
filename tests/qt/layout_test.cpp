// Every form on screens of two sizes and four resolutions, in three languages: each control is inside its window, over
// no other one, and shows its whole text; the window is on its screen, and scrolls only where that is too small.
#include <gmock/gmock.h>

#include <QDialog>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QScreen>
#include <QWidget>

#include "backends/qt/qt_application.h"
#include "backends/qt/qt_text.h"
#include "chart/window/find_forms.h"
#include "chart/window/status_form.h"
#include "host/window/drive_forms.h"
#include "platform/temporary_folder.h"
#include "qt/program_windows.h"

namespace chartproject {
namespace {

using ::testing::IsEmpty;

struct Screen {
  int dots;  ///< an inch
  QSize size;
  bool holdsAll;           ///< every form without a scroll bar
  bool largeText = false;  ///< of 150 %, in a window that does not grow with it
};

void PrintTo(const Screen& screen, std::ostream* out) {
  *out << screen.dots << " on " << screen.size.width() << "x" << screen.size.height();
}

/// An application on such a screen.
class LayoutTest : public ::testing::TestWithParam<Screen> {
 protected:
  void SetUp() override {
    const auto& [dots, size, holdsAll, largeText] = GetParam();
    const QJsonObject screen{{"name", "screen"},
                             {"x", 0},
                             {"y", 0},
                             {"width", size.width()},
                             {"height", size.height()},
                             {"logicalDpi", dots},
                             {"logicalBaseDpi", 96},
                             {"dpr", 1}};
    const std::string name = folder_ / "screens.json";
    QFile file(ToQt(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(QJsonObject{{"screens", QJsonArray{screen}}}).toJson());
    file.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + name).c_str());
    if (largeText) qputenv("QT_FONT_DPI", "144");
    application_ = std::make_unique<QtApplication>(argc_, argv_);
    ASSERT_EQ(QGuiApplication::primaryScreen()->size(), size * 96 / dots);
  }
  void TearDown() override {
    application_.reset();
    qunsetenv("QT_FONT_DPI");
  }

  /// What is wrong with a form as it is shown now.
  static std::vector<std::string> Faults(const Form& form, const User& user) {
    const QWidget& window = user.Window();
    std::vector<std::string> faults = CutTexts(window);
    std::vector<std::pair<std::string, const QWidget*>> shown;
    for (Control* control : form.Controls()) {
      if (dynamic_cast<Timer*>(control) != nullptr) continue;
      const QWidget* widget = &user.WidgetOf(*control);
      if (!widget->isVisible()) continue;
      if (!widget->parentWidget()->rect().contains(widget->geometry()))
        faults.push_back(control->Name() + " sticks out");
      for (const auto& [name, other] : shown) {
        const bool apart =
            other->parentWidget() != widget->parentWidget() || !other->geometry().intersects(widget->geometry());
        if (!apart) faults.push_back(control->Name() + " over " + name);
      }
      shown.emplace_back(control->Name(), widget);
    }
    const QSize screen = window.screen()->availableSize();
    if (window.width() > screen.width() || window.height() > screen.height())
      faults.emplace_back("larger than the screen");
    const QWidget& content = *shown.front().second->parentWidget();
    const bool scrolls = content.width() > window.width() || content.height() > window.height();
    if (!scrolls) return faults;
    if (GetParam().holdsAll) faults.emplace_back("scrolls");
    for (Control* control : form.Controls()) {
      if (!control->TabStop() || !control->EffectivelyVisible() || !control->EffectivelyEnabled()) continue;
      control->SetFocus();
      const QWidget& widget = user.WidgetOf(*control);
      const QSize wanted = widget.size().boundedTo(window.size() / 2);
      if (widget.visibleRegion().boundingRect().size().expandedTo(wanted) !=
          widget.visibleRegion().boundingRect().size())
        faults.push_back(control->Name() + " is not scrolled into sight");
    }
    return faults;
  }

  static void Check(const Form& form, const User& user, const std::string& name) {
    EXPECT_THAT(Faults(form, user), IsEmpty()) << name;
    const auto& [dots, size, holdsAll, largeText] = GetParam();
    SaveScreenshot(user.Window(),
                   name + "_" + std::to_string(size.width()) + "_" + std::to_string(dots) + (largeText ? "_text" : ""));
  }

  /// Shows a form, looks at it and closes it.
  static void CheckForm(Form& form, const std::string& name) {
    User user(form);
    user.Do([&] {
      Check(form, user, name);
      form.Unload();
    });
    user.GoThrough();
  }

 private:
  TemporaryFolder folder_;
  int argc_ = 1;
  char program_[5] = "test";
  char* argv_[2] = {program_, nullptr};
  std::unique_ptr<QtApplication> application_;
};

TEST_P(LayoutTest, TheDialogIdleArmedAndSampling) {
  for (const std::string language : {"Portuguese", "English", "Spanish"}) {
    DialogWindow project(language);
    project.component.settings.strMaximizedfrmErr = "No";
    AcquireForm form(project.component);
    User user(form);
    const auto sampling = [&] { return form.Run().Counter() > 0; };
    user.Do([&] {
      Check(form, user, "dialog_" + language);
      form.drive.cboNumberOfParameters.SetListIndex(3);
      for (Label* name : {&form.drive.lblPXXX1, &form.drive.lblPXXX2, &form.drive.lblPXXX3, &form.drive.lblPXXX4}) {
        name->SetCaption("070  Tensión del circuito intermedio");  // as long as names usually get
      }
      form.timing.cboTimeBetweenPointsUnit.SetListIndex(2);
      form.trigger.cboTriggerMode.SetListIndex(0);
      form.trigger.cboEvent.SetListIndex(2);
    });
    user.Do([&] {
      Check(form, user, "four_" + language);
      form.panel.cmdTrigger.Press();
    });
    user.Until("the watch", [&] { return form.Run().State() == RunState::kArmed; }).Then([&] {
      Check(form, user, "armed_" + language);
      form.StopRun();
    });
    user.Do([&] {
      form.trigger.cboTriggerMode.SetListIndex(1);
      form.timing.cboTimeBetweenPointsUnit.SetListIndex(0);
      form.timing.txtTimeBetweenPoints.SetText("200");
      form.timing.txtNumberOfPoints.SetText("2000000");
      form.panel.cmdStart.Press();
    });
    user.Until("a point", sampling).Then([&] {
      Check(form, user, "sampling_" + language);
      form.StopRun();
      form.file.rtfFileName.SetText("");  // a hint takes the place of Start
    });
    user.Until("the hint", [&] { return !form.panel.lblHint.Caption().empty(); }).Then([&] {
      Check(form, user, "hint_" + language);
      form.Unload();
    });
    user.GoThrough();
  }
}

TEST_P(LayoutTest, TheOtherWindows) {
  for (const std::string language : {"Portuguese", "English", "Spanish"}) {
    ChartViewer chart(language);
    chart.user.Do([&] {
      Check(chart.form, chart.user, "chart_" + language);
      for (std::size_t s = 0; s < kColumnCount; ++s) {
        const SeriesSection::Row& name = chart.form.series.rows[s];
        QRect before = chart.user.WidgetOf(*name.swatch).geometry();
        for (Control* next :
             std::initializer_list<Control*>{name.number, name.function, chart.form.scales.rows[s].text}) {
          const QRect place = chart.user.WidgetOf(*next).geometry();
          EXPECT_TRUE(place.left() > before.right() && std::abs(place.center().y() - before.center().y()) <= 1) << s;
          before = place;
        }
      }
      chart.form.scroll.sldPointsPerDivision.SetValue(1310);
      chart.user.Window().resize(chart.user.Window().minimumSize());
    });
    chart.user.Do([&] { Check(chart.form, chart.user, "chart_least_" + language); });
    chart.Close();
    Component& component = chart.outside.component;
    const PointClock clock;
    GoToForm goTo(component, clock, 40000, CategoryUnit::kPoints);
    CheckForm(goTo, "goto_" + language);
    FindForm find(component, {"P003", "P005"}, {});
    CheckForm(find, "find_" + language);
    ProjectEdit edit(chart.outside.fakes.files, chart.outside.fakes.settings, chart.outside.fakes.codePage);
    AddDriveForm add(component, edit, {});
    CheckForm(add, "add_" + language);
    RemoveDriveForm remove(component, edit);
    CheckForm(remove, "remove_" + language);
    StartWindow start(language);
    CheckForm(start.form, "start_" + language);
  }
}

INSTANTIATE_TEST_SUITE_P(Screens, LayoutTest,
                         ::testing::Values(Screen{96, {1366, 768}, true}, Screen{120, {1366, 768}, true},
                                           Screen{144, {1366, 768}, true}, Screen{192, {1366, 768}, false},
                                           Screen{96, {1920, 1080}, true}, Screen{120, {1920, 1080}, true},
                                           Screen{144, {1920, 1080}, true}, Screen{192, {1920, 1080}, true},
                                           Screen{96, {1920, 1080}, true, true}));

}  // namespace
}  // namespace chartproject
