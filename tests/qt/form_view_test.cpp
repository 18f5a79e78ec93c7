// A form with every kind of control, with real keys and clicks; what each of them makes of its input is in the
// sessions.
#include <gmock/gmock.h>

#include <QWidget>
#include <algorithm>

#include "backends/posix/posix_clock.h"
#include "backends/qt/forms/qt_form_host.h"
#include "qt/every_form.h"
#include "qt/user.h"

namespace chartproject {
namespace {

struct FormViewTest : ::testing::Test {
  PosixClock clock;
  QtFormHost host{clock};
  std::vector<std::string> log;
  EveryForm form{host, log};
  User user{form};
};

TEST_F(FormViewTest, KeysAndClicksReachTheControls) {
  const auto told = [&](const char* what, int times) {
    return [this, what, times] { return std::ranges::count(log, what) == times; };
  };
  user.Type("ab").Key("Tab").Key("Down").Key("Down").Key("Tab").Key("space").Key("Tab").Type("1");
  user.Until("the digit in its place", [&] { return form.mask.Text() == "1_:__:__"; }).Key("alt+n");
  user.Until("the focus by the label's letter", [&] { return user.WidgetOf(form.name).hasFocus(); }).Key("Return");
  user.Until("the default button", told("go", 1)).Click(form.go).Until("the click", told("go", 2));
  user.Until("the field left", told("name left", 2)).Key("F1").Until("help", told("help", 1)).Key("Escape").GoThrough();
  EXPECT_EQ(form.name.Text(), "ab");
  EXPECT_EQ(form.combo.Text(), "three");  // "two" is not available
  EXPECT_EQ(form.check.Value(), 1);
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(FormViewTest, TimersTickBehindANestedWindowAndNotInKeepAlive) {
  Timer ticker(form, "tmrTick");
  EveryForm inner(host, log);
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
