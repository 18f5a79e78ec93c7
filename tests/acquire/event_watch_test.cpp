// The event watch: each test, the blinking lamp, the question, and moments to the millisecond from scripted plants.
#include "acquire/event_watch.h"

#include "acquire/trigger_events.h"
#include "dialog_fixture.h"
#include "links/scenario_link.h"

namespace chartproject {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EventWatchTest : public DialogTest {
 protected:
  void Arm(int event, const char* content = "50") {
    Open();
    Choose(form->cboTimeBetweenPointsUnit, "ms");
    form->txtTimeBetweenPoints.SetText("200");
    form->cboTriggerMode.SetListIndex(kTriggerByEvent);
    form->cboEvent.SetListIndex(event);
    if (IsCompareEvent(event)) form->txtContent.SetText(content);
    form->cmdTrigger.Press();
  }
};

TEST_F(EventWatchTest, TestsByPosition) {
  struct Case {
    int position;
    const char* text;
    std::int16_t code;
  };
  const Case cases[] = {
      {0, "768", 0},   {0, "512", 1},    {1, "512", 0},   {1, "0", 0},      {2, "8192", 0},      {2, "768", 1},
      {3, "IAAA", 0},  {4, "IAAA", -1},  {8, "IIA", 0},   {8, "II", -1},    {18, "IIIIIIIA", 0}, {18, "", -1},
      {19, "50.1", 0}, {19, "50", 1},    {20, "49.9", 0}, {20, "50", 1},    {21, "50.0", 0},     {21, "50.01", 1},
      {22, "50", 0},   {22, "49.99", 1}, {23, "50", 0},   {23, "50.01", 1}, {-1, "50", 1},       {24, "50", 1},
  };
  component.currentDrive = 1;
  component.parameterTables.At(1).At(12).unitCode = 75;
  for (const Case& c : cases) {
    for (const int parameter : {5, 6, 12}) plant.texts[parameter] = c.text;
    EXPECT_EQ(TestEvent(component, {c.position, 5, 50}), c.code) << c.position << " " << c.text;
  }
  plant.reads.clear();
  plant.silent = {5, 6, 12};
  EXPECT_EQ(TestEvent(component, {0, 5, 50}), watch_code::kNoAnswer);
  EXPECT_EQ(TestEvent(component, {8, 5, 50}), watch_code::kInputNotYet);
  EXPECT_EQ(TestEvent(component, {21, 12, 50}), watch_code::kNoAnswer);
  EXPECT_THAT(plant.reads, ElementsAre(std::pair(6, 7), std::pair(12, 75), std::pair(12, 7)));
}

TEST_F(EventWatchTest, ASilentDriveAsksAndTheLampBlinks) {
  plant.silent = {6};
  fake.dialogs.answers = {box_answer::kYes, box_answer::kYes, box_answer::kNo};
  Arm(0);
  EXPECT_EQ(form->Run().State(), RunState::kArmed);
  EXPECT_TRUE(form->imgTrigger1.Visible());
  EXPECT_FALSE(form->cmdTrigger.Enabled());
  RunUntil(milliseconds(200));
  EXPECT_FALSE(form->imgTrigger1.Visible());
  RunUntil(milliseconds(400));
  EXPECT_TRUE(form->imgTrigger1.Visible());
  EXPECT_EQ(fake.dialogs.boxes.back().style, box_style::kYesNo + box_style::kQuestion);
  RunToEnd();
  EXPECT_EQ(fake.clock.Now(), milliseconds(600));
  EXPECT_EQ(fake.dialogs.TakePrompts(), std::vector(3, std::string("Serial communication error ! Continue even so ?")));
  EXPECT_EQ(form->LastRun().end, RunEnd::kStopped);
  EXPECT_FALSE(fake.files.Has(kChart));
  EXPECT_FALSE(form->imgTrigger1.Visible());
  EXPECT_TRUE(form->cmdTrigger.Enabled());
}

TEST_F(EventWatchTest, EscWhileTheQuestionIsUpEndsTheWatchOnce) {
  plant.silent = {6};
  fake.dialogs.answers = {box_answer::kYes};
  fake.dialogs.whileUp = [this](const MessageBoxRequest&) {
    fake.clock.Advance(milliseconds(1000));
    fake.keyboard.escape = true;
    while (form->Run().Active() && fake.forms.Timers().FireOne()) {
    }
  };
  int ended = 0;
  Arm(0);
  form->runEnded = [&ended](const RunReport&) { ++ended; };
  RunToEnd();
  EXPECT_EQ(ended, 1);
  EXPECT_EQ(fake.dialogs.boxes.size(), 1U);  // the watch did not tick again meanwhile
  EXPECT_FALSE(form->imgTrigger1.Visible());
}

TEST_F(EventWatchTest, SilentInputsNeverAsk) {
  plant.silent = {12};
  Arm(3);
  RunUntil(milliseconds(60'000));
  EXPECT_EQ(form->Run().State(), RunState::kArmed);
  EXPECT_THAT(fake.dialogs.TakePrompts(), IsEmpty());
  form->CloseByUser();
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_FALSE(fake.files.Has(kChart));
}

TEST_F(EventWatchTest, ContentMustBeANumberWhenArmed) {
  Arm(21, "-");
  EXPECT_EQ(form->Run().State(), RunState::kIdle);
  EXPECT_THAT(fake.dialogs.TakePrompts(), ElementsAre("Value out of range !"));
}

class ScenarioDialogTest : public EventWatchTest {};

TEST_F(ScenarioDialogTest, TheFirstPointFollowsOneIntervalAfterTheEventIsSeen) {
  struct Case {
    int event;
    const char* script;
    const char* content;
  };
  // Each event comes at 1500 ms and is seen at the tick at 1600 ms.
  const Case cases[] = {
      {0, "at 0 01 P006 512\nat 1500 01 P006 768\n", ""},
      {1, "at 0 01 P006 768\nat 1500 01 P006 512\n", ""},
      {2, "at 0 01 P006 512\nat 1500 01 P006 8192\n", ""},
      {8, "at 0 01 P012 IIIIIIII\nat 1500 01 P012 IIAIIIII\n", ""},
      {19, "at 0 01 P003 50\nat 1500 01 P003 50.5\n", "50"},
      {20, "at 0 01 P003 50\nat 1500 01 P003 49.5\n", "50"},
      {21, "at 0 01 P003 49\nat 1500 01 P003 50.0\n", "50"},
      {22, "at 0 01 P003 49.99\nat 1500 01 P003 50\n", "50"},
      {23, "at 0 01 P003 50.01\nat 1500 01 P003 50\n", "50"},
  };
  for (const Case& c : cases) {
    fake.files.Put("plant.txt", c.script);
    component.driveLink = ScenarioLinkFactory(fake.files, fake.clock, "plant.txt").Create();
    const Instant armed = fake.clock.Now();
    Arm(c.event, c.content);
    RunUntil(armed + milliseconds(1599));
    EXPECT_EQ(form->Run().State(), RunState::kArmed) << c.event;
    RunUntil(armed + milliseconds(1600));
    EXPECT_EQ(form->Run().State(), RunState::kSampling) << c.event;
    RunUntil(armed + milliseconds(1799));
    EXPECT_EQ(form->Run().Counter(), 0) << c.event;
    RunUntil(armed + milliseconds(1800));
    EXPECT_EQ(form->Run().Counter(), 1) << c.event;
    RunToEnd();
    EXPECT_EQ(Rows().size(), 5U);
    fake.files.Delete(kChart);
  }
}

TEST_F(ScenarioDialogTest, TenThousandEventsNoneMissedNoneFalse) {
  constexpr int kRounds = 10'000;
  constexpr int kRoundLength = 4'000;  // milliseconds
  constexpr int kInterval = 200;
  const auto eventOf = [](int round) { return 1 + round * 37 % 2'000; };
  std::string script;
  for (int round = 0; round < kRounds; ++round) {
    const int begin = round * kRoundLength;
    script += "at " + std::to_string(begin) + " 01 P003 0\n";
    script += "at " + std::to_string(begin + eventOf(round)) + " 01 P003 50\n";
  }
  fake.files.Put("plant.txt", script);
  component.driveLink = ScenarioLinkFactory(fake.files, fake.clock, "plant.txt").Create();
  Arm(22, "50");
  form->StopRun();
  form->txtNumberOfPoints.SetText("1");
  int mistakes = 0;
  for (int round = 0; round < kRounds; ++round) {
    const Instant armed = milliseconds(round * kRoundLength);
    fake.clock.AdvanceTo(armed);
    form->cmdTrigger.Press();
    RunToEnd();
    const int seen = (eventOf(round) + kInterval - 1) / kInterval * kInterval;
    if (fake.clock.Now() != armed + milliseconds(seen + kInterval) || form->LastRun().points != 1) ++mistakes;
  }
  EXPECT_EQ(mistakes, 0);
}

}  // namespace
}  // namespace chartproject
