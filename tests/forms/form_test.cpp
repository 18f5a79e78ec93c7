// Property-change events, the life of a form, the handlers' error boundary, the timers' schedule and access keys;
// places that boxes give to controls: exact pixels.
#include "forms/form.h"

#include <gmock/gmock.h>

#include "forms/access_keys.h"
#include "forms/controls.h"
#include "forms/layout.h"
#include "forms/spoken_name.h"
#include "support/fake_ports.h"
#include "support/plain_measurer.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::IsEmpty;

class SampleForm : public Form {
 public:
  explicit SampleForm(FakePorts& fakes)
      : Form(fakes.forms, "frmSample", [this](const std::string& routine, const RunTimeError& error) {
          log.emplace_back(routine + " error " + std::to_string(error.Number()));
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
    return {name, [this, name] { log.emplace_back(name); }};
  }

 protected:
  void OnLoad() override { log.emplace_back("load"); }
  void OnActivate() override { log.emplace_back("activate"); }
  bool OnQueryClose() override {
    log.emplace_back("query");
    return mayClose;
  }
  void OnUnload() override { log.emplace_back("unload"); }

 public:
  bool mayClose = true;
};

struct FormTest : ::testing::Test {
  FakePorts fakes;
  SampleForm form{fakes};
};

TEST_F(FormTest, ScreenReadersHearCaptionsLabelsOrToolTips) {
  Label label(form, "lblScale");
  TextBox first(form, "txtScale1");
  UpDown arrows(form, "updScale1");
  TextBox second(form, "txtScale2");
  label.SetCaption("&Scale");
  arrows.SetBuddy(&first);
  form.text.SetToolTipText("How many");
  form.button.SetCaption("&Close");
  const std::pair<Control*, const char*> names[] = {
      {&form.button, "Close"}, {&form.text, "How many"}, {&first, "Scale"}, {&second, "Scale 2"}, {&arrows, "Scale"}};
  for (const auto& [control, name] : names) EXPECT_EQ(SpokenName(*control), name) << control->Name();
}

TEST_F(FormTest, PropertiesRaiseTheirEventsOnChangeOnlyAndReentrantly) {
  form.combo.click = form.Log("click");
  form.text.change = {"txtOne_Change", [this] {
                        form.log.emplace_back("change " + form.text.Text());
                        if (form.text.Text() == "12.6") form.text.SetText("13");
                        form.log.emplace_back("end " + form.text.Text());
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
                        form.log.emplace_back("went on");
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
  CheckBox none(plain, "chkNone");
  Frame frame(plain, "fraFile");
  TextBox hidden(plain, "txtHidden");
  MaskEdBox masked(plain, "mebShown", "##");
  const std::pair<Control*, const char*> designed[] = {
      {&number, "Número"},     {&hint, "Hint"}, {&start, "Start"}, {&stop, "Stop"}, {&save, "R&&D &Save"},
      {&line, "1 Lost Start"}, {&full, "ST"},   {&none, "S"},      {&frame, "File"}};
  for (const auto& [control, caption] : designed) control->SetCaption(caption);

  EXPECT_EQ(FieldOf(plain, number), &field);
  EXPECT_EQ(FieldOf(plain, hint), nullptr);
  EXPECT_EQ(FieldOf(plain, frame), &hidden);
  hidden.SetVisible(false);
  EXPECT_EQ(FieldOf(plain, frame), &masked);
  const auto captions = CaptionsWithAccessKeys(plain);
  const std::map<const Control*, std::string> expected = {
      {&save, "R&&D &Save"}, {&start, "St&art"},   {&stop, "St&op"}, {&line, "1 &Lost Start"},
      {&full, "S&T"},        {&number, "&Número"}, {&frame, "&File"}};
  EXPECT_EQ((std::map<const Control*, std::string>(captions.begin(), captions.end())),
            expected);  // "Start" gave its letter to "ST"; the only one of "S" cannot be freed
}

class LayoutTest : public ::testing::Test {
 protected:
  FakePorts fakes_;
  Form form_{fakes_.forms, "frmLayout", nullptr};
  Label a_{form_, "lblA"};
  Label b_{form_, "lblB"};
  Label c_{form_, "lblC"};
  Label d_{form_, "lblD"};
  Frame frame_{form_, "fraOne"};
  PictureBox picture_{form_, "picOne"};
  PlainMeasurer measurer_;

  void SetUp() override {
    a_.SetCaption("aaa");    // 30
    b_.SetCaption("bbbbb");  // 50
    c_.SetCaption("c");      // 10
    d_.SetCaption("dddd");   // 40
  }
  using Rects = std::vector<Rect>;
  /// Where a box puts the labels a to d in so much room; empty for those that it does not hold.
  Rects Placed(const LayoutBox& box, double width, double height) {
    Arrange(box, {0, 0, width, height}, measurer_);
    return {a_.Place(), b_.Place(), c_.Place(), d_.Place()};
  }
};

TEST_F(LayoutTest, RowsShareTheWidthThatIsLeftOver) {
  const LayoutBox row = Row({Cell(a_), Cell(b_, 1), Cell(c_, 3)});
  EXPECT_EQ(MinimumSize(row, measurer_), (Size{106, 20}));
  // Each keeps its height, in the middle.
  EXPECT_EQ(Placed(row, 146, 40), (Rects{{0, 10, 30, 20}, {38, 10, 60, 20}, {106, 10, 40, 20}, {}}));
  EXPECT_EQ(Placed(Joined(Row({Cell(a_), Cell(b_)})), 80, 20)[1].x, 30);
  EXPECT_EQ(Placed(Row({Stack({Cell(a_), Cell(b_)}), Cell(c_)}), 68, 20),
            (Rects{{0, 0, 50, 20}, {0, 0, 50, 20}, {58, 0, 10, 20}, {}}));
}

TEST_F(LayoutTest, ColumnsAreAsWideAsTheirBoxAndStretchDown) {
  const LayoutBox column = Column({Cell(a_), Cell(b_, 0, 1), Row({Space(), Cell(c_)})});
  EXPECT_EQ(MinimumSize(column, measurer_), (Size{50, 76}));
  EXPECT_EQ(Placed(column, 100, 126), (Rects{{0, 0, 100, 20}, {0, 28, 100, 70}, {90, 106, 10, 20}, {}}));
}

TEST_F(LayoutTest, GridColumnsHaveCommonWidths) {
  const LayoutBox grid = Grid(2, {Cell(a_), Cell(b_, 1), Cell(c_), Cell(d_)});
  EXPECT_EQ(MinimumSize(grid, measurer_), (Size{88, 48}));
  EXPECT_EQ(Placed(grid, 100, 48), (Rects{{0, 0, 30, 20}, {38, 0, 62, 20}, {0, 28, 30, 20}, {38, 28, 62, 20}}));
}

TEST_F(LayoutTest, AlignedBoxesAreAsWideAsTheWidestWhereverTheyStand) {
  const LayoutBox column = Column(
      {Row({Aligned(1, Cell(a_)), Cell(d_, 1)}), Group(frame_, Row({Aligned(1, Cell(b_)), Aligned(2, Cell(c_))}))});
  EXPECT_EQ(MinimumSize(column, measurer_).width, 98);
  EXPECT_EQ(Placed(column, 98, 90), (Rects{{0, 0, 50, 20}, {5, 25, 50, 20}, {63, 25, 10, 20}, {58, 0, 40, 20}}));
}

TEST_F(LayoutTest, OnlyCollapsingBoxesGiveTheirRoomAway) {
  b_.SetVisible(false);
  EXPECT_EQ(MinimumSize(Row({Cell(a_), Cell(b_), Cell(c_)}), measurer_).width, 106);
  const LayoutBox row = Row({Cell(a_), Collapsing(Cell(b_)), Cell(c_)});
  EXPECT_EQ(MinimumSize(row, measurer_).width, 48);
  EXPECT_EQ(Placed(row, 48, 20), (Rects{{0, 0, 30, 20}, {}, {38, 0, 10, 20}, {}}));
  // A collapsing box goes with its last visible control, and the gap before it.
  const LayoutBox column = Column({Cell(a_), Collapsing(Row({Cell(b_), Space(), Cell(d_)}))});
  EXPECT_EQ(MinimumSize(column, measurer_).height, 48);
  d_.SetVisible(false);
  EXPECT_EQ(MinimumSize(column, measurer_).height, 20);
  // A grid row whose cells are all gone goes too; a single gone cell leaves its neighbours in their columns.
  const LayoutBox grid = Grid(2, {Collapsing(Cell(b_)), Collapsing(Cell(d_)), Cell(a_), Cell(c_)});
  EXPECT_EQ(MinimumSize(grid, measurer_), (Size{48, 20}));
}

TEST_F(LayoutTest, GroupsHoldTheirContentInsideBorderAndTitle) {
  frame_.SetCaption("a long title");
  const LayoutBox box = Column({Cell(a_), Group(frame_, Row({Cell(b_), Group(picture_, Column({Cell(c_, 0, 1)}))}))});
  EXPECT_THAT((std::array<const Control*, 4>{b_.Container(), picture_.Container(), c_.Container(), a_.Container()}),
              testing::ElementsAre(&frame_, &frame_, &picture_, nullptr));
  EXPECT_EQ(MinimumSize(box, measurer_), (Size{120, 78}));  // as wide as the title
  EXPECT_EQ(Placed(box, 120, 98), (Rects{{0, 0, 120, 20}, {5, 35, 50, 20}, {0, 0, 50, 40}, {}}));
  EXPECT_EQ(frame_.Place(), (Rect{0, 28, 120, 70}));
  EXPECT_EQ(picture_.Place(), (Rect{63, 25, 50, 40}));
}

TEST_F(LayoutTest, WrappingLabelsTakeTheHeightThatTheirWidthAsksFor) {
  a_.SetCaption("0123456789");
  a_.SetWordWrap(true);
  const LayoutBox column = Column({Cell(a_), Cell(d_)});
  EXPECT_EQ(MinimumSize(column, measurer_), (Size{40, 88}));  // three lines of four
  EXPECT_EQ(Placed(column, 50, 100), (Rects{{0, 0, 50, 40}, {}, {}, {0, 48, 50, 20}}));
  const LayoutBox row = Row({Cell(d_), Cell(a_, 1)});
  EXPECT_EQ(MinimumSize(row, measurer_), (Size{78, 80}));
  EXPECT_EQ(MinimumSize(Column({AtLeast(row, 98)}), measurer_), (Size{98, 40}));
  EXPECT_EQ(Placed(row, 98, 40), (Rects{{48, 0, 50, 40}, {}, {}, {0, 10, 40, 20}}));
}

TEST_F(LayoutTest, NothingOverlapsInTooLittleRoomAndLeastSizesHold) {
  const LayoutBox row = Row({AtLeast(Cell(a_), 70, 33), Cell(b_, 1), Cell(c_)});
  EXPECT_EQ(MinimumSize(row, measurer_), (Size{146, 33}));
  const Rects places = Placed(row, 20, 10);
  EXPECT_GE(places[1].x, places[0].Right() + kLayoutGap);
  EXPECT_GE(places[2].x, places[1].Right() + kLayoutGap);
}

}  // namespace
}  // namespace chartproject
