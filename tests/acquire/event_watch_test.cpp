// The event watch: each test, the blinking lamp, the question, and moments to the millisecond from scripted plants.
#include "acquire/event_watch.h"

#include "acquire/trigger_events.h"
#include "dialog_fixture.h"
#include "links/scenario_link.h"

namespace chartproject {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre, ::testing::IsEmpty;

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
  const std::tuple<int, const char*, int> cases[] = {
      {0, "768", 0},   {0, "512", 1},    {1, "512", 0},   {1, "0", 0},      {2, "8192", 0},      {2, "768", 1},
      {3, "IAAA", 0},  {4, "IAAA", -1},  {8, "IIA", 0},   {8, "II", -1},    {18, "IIIIIIIA", 0}, {18, "", -1},
      {19, "50.1", 0}, {19, "50", 1},    {20, "49.9", 0}, {20, "50", 1},    {21, "50.0", 0},     {21, "50.01", 1},
      {22, "50", 0},   {22, "49.99", 1}, {23, "50", 0},   {23, "50.01", 1}, {-1, "50", 1},       {24, "50", 1}};
  component.currentDrive = 1;
  component.parameterTables.At(1).At(12).unitCode = 75;
  for (const auto& [position, text, code] : cases) {
    for (const int parameter : {5, 6, 12}) plant.texts[parameter] = text;
    EXPECT_EQ(TestEvent(component, {position, 5, 50}), code) << position << " " << text;
  }
  plant.steps.clear();
  plant.silent = {5, 6, 12};
  EXPECT_EQ(TestEvent(component, {0, 5, 50}), watch_code::kNoAnswer);
  EXPECT_EQ(TestEvent(component, {8, 5, 50}), watch_code::kInputNotYet);
  EXPECT_EQ(TestEvent(component, {21, 12, 50}), watch_code::kNoAnswer);
  EXPECT_THAT(plant.steps, ElementsAre("read 1 8 6 unit 7", "read 1 8 12 unit 75", "read 1 8 12 unit 7"));
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

TEST_F(EventWatchTest, EscWhileTheDriveIsReadEndsTheWatch) {
  plant.texts[6] = "512";
  Arm(0);
  plant.whileReading = [this] {
    plant.whileReading = nullptr;
    plant.texts[6] = "768";
    fake.keyboard.escape = true;
    RunUntil(fake.clock.Now() + milliseconds(500));
  };
  RunToEnd();
  EXPECT_EQ(form->LastRun().end, RunEnd::kStopped);
  EXPECT_EQ(form->Run().State(), RunState::kIdle);
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

TEST_F(EventWatchTest, TenThousandEventsNoneMissedNoneFalse) {
  constexpr int kRounds = 10'000, kRoundLength = 4'000, kInterval = 200;  // milliseconds
  const auto eventOf = [](int round) { return 1 + round * 37 % 2'000; };
  std::string script;
  for (int round = 0; round < kRounds; ++round) {
    const int begin = round * kRoundLength;
    script +=
        "at " + std::to_string(begin) + " 01 P003 0\nat " + std::to_string(begin + eventOf(round)) + " 01 P003 50\n";
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
