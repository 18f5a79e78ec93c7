// Property-change events, the life of a form, the handlers' error boundary, the timers' schedule and access keys.
#include "forms/form.h"

#include <gmock/gmock.h>

#include "forms/access_keys.h"
#include "forms/controls.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::IsEmpty;

class SampleForm : public Form {
 public:
  explicit SampleForm(FakePorts& fakes)
      : Form(fakes.forms, "frmSample", [this](const std::string& routine, const RunTimeError& error) {
          log.push_back(routine + " error " + std::to_string(error.Number()));
        }) {}
  std::vector<std::string> log;
  ComboBox combo{*this, "cboOne"};
  TextBox text{*this, "txtOne"};
  CommandButton button{*this, "cmdOne"};
  Frame frame{*this, "fraOne"};
  UpDown upDown{*this, "updOne"};
  HScrollBar scroll{*this, "hsbOne"};
  Timer timer{*this, "tmrOne"};
  Timer other{*this, "tmrTwo"};

  Event Log(const std::string& name) {
    return {name, [this, name] { log.push_back(name); }};
  }

 protected:
  void OnLoad() override { log.push_back("load"); }
  void OnActivate() override { log.push_back("activate"); }
  bool OnQueryClose() override {
    log.push_back("query");
    return mayClose;
  }
  void OnUnload() override { log.push_back("unload"); }

 public:
  bool mayClose = true;
};

struct FormTest : ::testing::Test {
  FakePorts fakes;
  SampleForm form{fakes};
};

TEST_F(FormTest, PropertiesRaiseTheirEventsOnChangeOnlyAndReentrantly) {
  form.combo.click = form.Log("click");
  form.text.change = {"txtOne_Change", [this] {
                        form.log.push_back("change " + form.text.Text());
                        if (form.text.Text() == "12.6") form.text.SetText("13");
                        form.log.push_back("end " + form.text.Text());
                      }};
  form.combo.AddItem("a");
  form.combo.AddItem("b");
  form.combo.SetListIndex(1);
  form.combo.SetListIndex(1);
  form.combo.SetListIndex(-1);
  form.combo.SetListIndex(0);
  form.combo.Clear();  // drops the selection in silence
  form.text.SetText("12.6");
  EXPECT_THAT(form.log, ElementsAre("click", "click", "click", "change 12.6", "change 13", "end 13", "end 13"));
  EXPECT_EQ(form.combo.ListIndex(), -1);
}

TEST_F(FormTest, RefusesValuesThatThePlatformRefuses) {
  EXPECT_THROW(form.combo.SetListIndex(0), RunTimeError);
  EXPECT_THROW(form.scroll.SetSmallChange(0), RunTimeError);
  EXPECT_THROW(form.scroll.SetMaximum(32768), RunTimeError);
  EXPECT_THROW(form.timer.SetInterval(65536), RunTimeError);
  EXPECT_THROW(form.text.SetCaption("no caption here"), RunTimeError);
  form.scroll.SetMaximum(-5);  // runs backwards
  form.scroll.SetValue(-5);
  EXPECT_THROW(form.scroll.SetValue(-6), RunTimeError);
}

TEST_F(FormTest, ContainersCoverTheirControls) {
  form.button.SetContainer(&form.frame);
  form.button.click = form.Log("pressed");
  form.frame.SetEnabled(false);
  form.button.Press();
  form.frame.SetEnabled(true);
  form.button.SetVisible(false);
  form.button.Press();
  EXPECT_THAT(form.log, IsEmpty());
  form.button.SetVisible(true);
  form.button.Press();
  EXPECT_THAT(form.log, ElementsAre("pressed"));
}

TEST_F(FormTest, UpDownKeepsItsBuddyInStepFromATypedNumber) {
  form.upDown.SetBuddy(&form.text);
  form.upDown.SetSyncBuddy(true);
  form.upDown.SetMaximum(32767);
  form.upDown.SetMinimum(1);
  EXPECT_EQ(form.text.Text(), "1");
  form.text.SetText("700");
  form.upDown.Step(1);
  EXPECT_EQ(form.text.Text(), "701");
  form.text.SetText("rubbish");
  form.upDown.Step(-1);
  EXPECT_EQ(form.text.Text(), "700");
}

TEST_F(FormTest, LivesThroughLoadActivateCloseAndErrorsOfHandlers) {
  form.button.click = {"cmdOne_Click", [] { throw RunTimeError(53, "File not found"); }};
  form.combo.click = {"cboOne_Click", [this] {
                        form.button.Press();  // its error ends the button's handler only
                        form.log.push_back("went on");
                        throw std::bad_alloc();
                      }};
  form.mayClose = false;
  fakes.forms.onShown = [](Form& shown) { shown.CloseByUser(); };
  fakes.forms.onIdle = [this](Form& shown) {
    form.combo.AddItem("a");
    form.combo.SetListIndex(0);
    form.mayClose = true;
    shown.CloseByUser();
  };
  form.ShowModal();
  EXPECT_THAT(form.log, ElementsAre("load", "activate", "query", "cmdOne_Click error 53", "went on",
                                    "cboOne_Click error 440", "query", "unload"));
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(FormTest, TimersKeepAnAbsoluteScheduleAndNeverDoubleALateTick) {
  std::vector<long> ticks;
  form.timer.SetInterval(100);
  form.timer.tick = {"tmrOne_Timer", [&] {
                       ticks.push_back(static_cast<long>(fakes.clock.Now().count() / 1000));
                       if (ticks.size() == 1) fakes.clock.Advance(std::chrono::milliseconds(350));
                       if (ticks.size() == 4) form.Unload();
                     }};
  fakes.forms.onShown = [this](Form&) { form.timer.SetEnabled(true); };
  form.ShowModal();
  // Due at 100, 200 (late at 450; 300 and 400 are left out), then back on the grid.
  EXPECT_THAT(ticks, ElementsAre(100, 450, 500, 600));
}

TEST_F(FormTest, ATickWaitsForItsOwnHandlerWhileOthersGoOn) {
  int inner = 0;
  form.timer.SetInterval(100);
  form.other.SetInterval(30);
  form.other.tick = {"tmrTwo_Timer", [&] { ++inner; }};
  form.timer.tick = {"tmrOne_Timer", [&] {
                       // A message box is up: its loop turns the timers on.
                       for (int i = 0; i < 10; ++i) {
                         fakes.clock.AdvanceTo(fakes.forms.Timers().NextDue().value());
                         fakes.forms.Timers().FireOne();
                       }
                       form.Unload();
                     }};
  fakes.forms.onShown = [this](Form&) {
    form.timer.SetEnabled(true);
    form.other.SetEnabled(true);
  };
  form.ShowModal();
  EXPECT_EQ(inner, 13);  // three before the first tick, ten while its box was up
}

TEST_F(FormTest, ButtonsChooseTheirAccessKeysFirstAndNoLetterIsGivenTwice) {
  Form plain(fakes.forms, "frmKeys", nullptr);
  Label number(plain, "lblNumber");
  TextBox field(plain, "txtNumber");
  Label hint(plain, "lblHint");  // nothing to reach
  CommandButton start(plain, "cmdStart");
  CommandButton stop(plain, "cmdStop");
  CommandButton save(plain, "cmdSave");
  CheckBox line(plain, "chkLine");
  CheckBox full(plain, "chkFull");
  const std::pair<Control*, const char*> designed[] = {
      {&number, "Número"},   {&hint, "Hint"},       {&start, "Start"}, {&stop, "Stop"},
      {&save, "R&&D &Save"}, {&line, "Lost Start"}, {&full, "ST"}};
  for (const auto& [control, caption] : designed) control->SetCaption(caption);

  EXPECT_EQ(FieldOf(plain, number), &field);
  EXPECT_EQ(FieldOf(plain, hint), nullptr);
  const auto captions = CaptionsWithAccessKeys(plain);
  const std::map<const Control*, std::string> expected = {
      {&save, "R&&D &Save"}, {&start, "S&tart"}, {&stop, "St&op"}, {&line, "&Lost Start"}, {&number, "&Número"}};
  EXPECT_EQ((std::map<const Control*, std::string>(captions.begin(), captions.end())),
            expected);  // both letters of "ST" are taken
}

}  // namespace
}  // namespace chartproject
