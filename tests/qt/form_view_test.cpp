// Every control type as a widget, both directions, with real keys and clicks.
#include "backends/qt/forms/qt_form_view.h"

#include <gmock/gmock.h>

#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>

#include "backends/posix/posix_clock.h"
#include "backends/qt/forms/qt_form_host.h"
#include "forms/controls.h"
#include "qt/user.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::SizeIs;

class EveryControlForm : public Form {
 public:
  explicit EveryControlForm(FormHost& host)
      : Form(host, "frmEvery", [this](const std::string& routine, const RunTimeError& error) {
          log.push_back(routine + ": error " + std::to_string(error.Number()));
        }) {
    label.SetCaption("Name");
    frame.SetCaption("Choice");
    check.SetCaption("Grid");
    go.SetCaption("Go");
    go.SetDefault(true);
    leave.SetCaption("Leave");
    leave.SetCancel(true);
    for (const char* item : {"one", "two", "three"}) combo.AddItem(item);
    scroll.SetMaximum(-30);
    upDown.SetBuddy(&scale);
    upDown.SetSyncBuddy(true);
    SetLayout(Column({Row({Cell(label), Cell(name, 1)}), Group(frame, Row({Cell(combo), Cell(check)})),
                      Row({Cell(mask), Cell(scale), Cell(upDown)}), Cell(slider), Cell(scroll),
                      Row({Space(), Cell(go), Cell(leave)})}));
    Log(name.change, "name");
    Log(name.lostFocus, "name left");
    Log(combo.click, "combo");
    Log(check.click, "check");
    Log(mask.change, "mask");
    Log(go.click, "go");
    Log(helpRequested, "help");
    leave.click = {"cmdLeave_Click", [this] { Unload(); }};
  }
  std::vector<std::string> log;
  Label label{*this, "lblName"};
  TextBox name{*this, "txtName"};
  Frame frame{*this, "fraChoice"};
  ComboBox combo{*this, "cboChoice"};
  CheckBox check{*this, "chkGrid"};
  MaskEdBox mask{*this, "mebTime", "##:##:##"};
  TextBox scale{*this, "txtScale"};
  UpDown upDown{*this, "updScale"};
  Slider slider{*this, "sldDivision"};
  HScrollBar scroll{*this, "hsbGraph"};
  CommandButton go{*this, "cmdGo"};
  CommandButton leave{*this, "cmdLeave"};

 private:
  void Log(Event& event, const std::string& entry) {
    event = {entry, [this, entry] { log.push_back(entry); }};
  }
};

struct FormViewTest : ::testing::Test {
  PosixClock clock;
  QtFormHost host{clock};
  EveryControlForm form{host};
  User user{form};

  template <class Widget>
  Widget& As(Control& control) {
    return dynamic_cast<Widget&>(user.WidgetOf(control));
  }
};

TEST_F(FormViewTest, KeysReachTheControlsInTabOrderAndByTheirAccessKeys) {
  user.Type("ab").Key("Tab").Key("Down").Key("Down").Key("Tab").Key("space").Key("Tab").Type("1");
  user.Until("the digit in its place", [&] { return form.mask.Text() == "1_:__:__"; }).Key("alt+n");
  user.Until("the focus by the label's letter", [&] { return As<QLineEdit>(form.name).hasFocus(); }).Key("Return");
  user.Until("the default button", [&] { return form.log.back() == "go"; }).Key("F1");
  user.Until("help", [&] { return form.log.back() == "help"; }).Key("Escape").GoThrough();
  EXPECT_THAT(form.log, ElementsAre("name", "name", "name left", "combo", "combo", "check", "mask", "go", "help"));
  EXPECT_EQ(form.name.Text(), "ab");
  EXPECT_EQ(form.combo.Text(), "two");
  EXPECT_EQ(form.check.Value(), 1);
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(FormViewTest, ClicksPressAndAFieldIsLeftBeforeTheButtonActs) {
  user.Type("x").Click(form.go).Until("the press", [&] { return form.log.back() == "go"; });
  user.Do([&] { form.go.SetEnabled(false); }).Click(form.go).Click(form.leave).GoThrough();
  EXPECT_THAT(form.log, ElementsAre("name", "name left", "go"));
}

TEST_F(FormViewTest, RangesStepByKeysAlsoBackwards) {
  user.Do([&] { form.scroll.SetFocus(); }).Key("Right").Key("Right");
  user.Until("a bar that runs backwards", [&] { return form.scroll.Value() == -2; });
  user.Do([&] { form.slider.SetFocus(); }).Key("Right").Until("the slider", [&] { return form.slider.Value() == 1; });
  user.Do([&] { form.scale.SetFocus(); }).Type("7").Key("Up");
  user.Until("the arrows' field", [&] { return form.scale.Text() == "8"; }).Key("Escape").GoThrough();
}

TEST_F(FormViewTest, PropertiesShowWithoutEchoing) {
  form.Load();
  form.log.clear();
  form.name.SetText("12.6");
  form.combo.SetListIndex(2);
  form.check.SetValue(2);
  form.mask.SetText("12:_4:5_");
  form.scroll.SetValue(-7);
  EXPECT_THAT(form.log, ElementsAre("name", "combo", "check", "mask"));  // each raised once, by its setter
  EXPECT_EQ(As<QLineEdit>(form.name).text(), "12.6");
  EXPECT_EQ(As<QComboBox>(form.combo).currentText(), "three");
  EXPECT_EQ(As<QLineEdit>(form.mask).displayText(), "12:_4:5_");
  EXPECT_EQ(As<QAbstractSlider>(form.scroll).value(), -7);
  form.combo.Clear();
  form.combo.AddItem("new");
  EXPECT_EQ(As<QComboBox>(form.combo).currentIndex(), -1);
  EXPECT_THAT(form.log, SizeIs(4));
}

TEST_F(FormViewTest, TheWindowKeepsItsPlaceAndHoldsItsLayout) {
  form.Load();
  form.SetLeft(3000);
  form.SetTop(1500);
  form.SetHeight(6000);
  user.Until("the place", [&] { return user.Window().pos() == QPoint(200, 100); }).Then([&] {
    user.Window().resize(10, 10);  // no smaller than its layout
    user.Window().move(210, 120);
  });
  user.Until("the new place", [&] { return form.Left() == 3150 && form.Top() == 1800; }).Then([&] {
    EXPECT_GE(user.Window().width(), user.Window().minimumSize().width());
    form.label.SetCaption(std::string(80, 'W'));  // a longer text makes room for itself
  });
  const QWidget& label = user.WidgetOf(form.label);
  user.Until("a wider window", [&] { return label.width() >= label.sizeHint().width(); });
  user.Do([&] { user.Window().showMaximized(); });
  user.Until("maximised", [&] { return form.State() == WindowState::kMaximized; });
  user.Do([&] { user.Window().close(); }).GoThrough();
  EXPECT_EQ(form.Left(), 3150);  // the place to come back to
}

TEST_F(FormViewTest, TimersTickBehindANestedWindowAndNotInKeepAlive) {
  Timer ticker(form, "tmrTick");
  EveryControlForm inner(host);
  User innerUser(inner);
  int ticks = 0;
  ticker.tick = {"tmrTick_Timer", [&] {
                   if (++ticks == 3) inner.Unload();
                 }};
  form.go.click = {"cmdGo_Click", [&] {
                     ticker.SetInterval(20);
                     ticker.SetEnabled(true);
                     inner.ShowModal();
                     EXPECT_EQ(ticks, 3);
                     const Instant end = clock.Now() + std::chrono::milliseconds(60);
                     while (clock.Now() < end) host.KeepAlive();
                     EXPECT_EQ(ticks, 3);
                     form.Unload();
                   }};
  user.Key("Return");
  user.GoThrough();
}

}  // namespace
}  // namespace chartproject
