// The event watch before a recording: each test, the blinking lamp, the question, and moments to the millisecond from
// scripted plants.
#include "acquire/run/event_watch.h"
#include "acquire/run/run_texts.h"
#include "dialog_fixture.h"
#include "drive/parameter_read.h"
#include "links/scenario_link.h"
#include "recording/file/trigger_events.h"

namespace chartproject {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::IsEmpty;

class EventWatchTest : public DialogTest {
 protected:
  void Arm(int event, const char* content = "50") {
    Open();
    Choose(form->timing.cboTimeBetweenPointsUnit, "ms");
    form->timing.txtTimeBetweenPoints.SetText("200");
    form->trigger.cboTriggerMode.SetListIndex(static_cast<int>(TriggerMode::kEvent));
    form->trigger.cboEvent.SetListIndex(event);
    if (IsCompareEvent(EventAt(event))) form->trigger.txtContent.SetText(content);
    form->panel.cmdTrigger.Press();
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
    EXPECT_EQ(TestEvent(component, {EventAt(position), 5, 50}).code, code) << position << " " << text;
  }
  plant.steps.clear();
  plant.silent = {5, 6, 12};
  EXPECT_EQ(TestEvent(component, {EventAt(0), 5, 50}).code, watch_code::kNoAnswer);
  EXPECT_EQ(TestEvent(component, {EventAt(8), 5, 50}).code, watch_code::kInputNotYet);
  EXPECT_EQ(TestEvent(component, {EventAt(21), 12, 50}).code, watch_code::kNoAnswer);
  EXPECT_THAT(plant.steps, ElementsAre("read 1 8 6 unit 7", "read 1 8 12 unit 75", "read 1 8 12 unit 7"));
}

TEST_F(EventWatchTest, ComparesWhatARecordingWouldKeep) {
  const std::tuple<const char*, int, std::map<int, std::string>, int> cases[] = {
      {"KRA-08", 2, {{2, "0"}, {5, "2"}, {208, "25"}}, watch_code::kOccurred},  // the product, not the reading
      {"KRA-08", 2, {{2, "50"}, {5, "2"}, {208, "30"}}, watch_code::kNotYet},
      {"KRA-08", 2, {{2, "50"}}, watch_code::kNoAnswer},
      {"KRA-09", 1, {{1, "50"}, {210, "1"}}, watch_code::kOccurred},
      {"KRA-09", 1, {{1, "off"}, {210, "1"}}, watch_code::kNotYet},
      {"KRA-09", 1, {{1, "50"}}, watch_code::kNoAnswer},
      {"KRD-04", 32, {{14, "2"}, {32, "50"}}, watch_code::kNotYet}};
  component.currentDrive = 1;
  plant.others.reset();
  for (const auto& [model, parameter, texts, code] : cases) {
    component.driveTable.At(1).Type = model;
    plant.texts = texts;
    EXPECT_EQ(TestEvent(component, {TriggerEvent::kEqual, static_cast<std::int16_t>(parameter), 50}).code, code)
        << model << " " << code;
  }
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

TEST_F(EventWatchTest, ARunBegunWhileTheDriveIsReadWaitsForTheLinkAndOutlivesItsFailure) {
  Arm(0);
  plant.whileReading = [this] {
    plant.whileReading = nullptr;
    form->StopRun();
    form->trigger.cboTriggerMode.SetListIndex(static_cast<int>(TriggerMode::kManual));
    form->panel.cmdStart.Press();
    RunUntil(fake.clock.Now() + milliseconds(500));
    plant.Note(plant.failAt = "failure");
  };
  RunUntil(milliseconds(200));
  EXPECT_EQ(plant.steps.back(), "failure");
  plant.failAt.clear();
  EXPECT_EQ(form->Run().Counter(), 0);
  RunToEnd();
  EXPECT_EQ(form->LastRun().end, RunEnd::kComplete);
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
  EXPECT_FALSE(form->panel.imgTrigger1.Visible());
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
  component.driveLink = PlayScenario();
  Arm(22, "50");
  form->StopRun();
  form->timing.txtNumberOfPoints.SetText("1");
  int mistakes = 0;
  for (int round = 0; round < kRounds; ++round) {
    const Instant armed = milliseconds(round * kRoundLength);
    fake.clock.AdvanceTo(armed);
    form->panel.cmdTrigger.Press();
    RunToEnd();
    const int seen = (eventOf(round) + kInterval - 1) / kInterval * kInterval;
    if (fake.clock.Now() != armed + milliseconds(seen + kInterval) || form->LastRun().points != 1) ++mistakes;
  }
  EXPECT_EQ(mistakes, 0);
}

}  // namespace
}  // namespace chartproject
