// Recordings while the drive link waits, without a message loop: Esc, late points, failed readings, the time of a
// point.
#include "dialog_fixture.h"
#include "recording/file/trigger_events.h"

namespace chartproject {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre, ::testing::HasSubstr;

struct WaitingLinkTest : DialogTest {
  /// Records P003 and P005 of drive 01 from a script, every 200 ms.
  void Record(const std::string& script, int points) {
    fake.files.Put("plant.txt", script);
    component.driveLink = PlayScenario();
    Open();
    Choose(form->drive.cboNumberOfParameters, "2");
    Choose(form->drive.cboPXXX2, "005");
    Choose(form->timing.cboTimeBetweenPointsUnit, "ms");
    form->timing.txtTimeBetweenPoints.SetText("200");
    form->timing.txtNumberOfPoints.SetText(std::to_string(points));
    form->panel.cmdStart.Press();
  }
};

// The link waits without a message loop: it asks whether it should go on.
TEST_F(WaitingLinkTest, EscAndTheCloseBoxEndARecordingAndAWatchWhileTheLinkWaits) {
  for (const bool armed : {false, true}) {
    for (const bool closed : {false, true}) {
      Record("at 0 01 P003 1\nat 0 01 P005 2\nat 0 01 P006 0\nat 500 01 slow 60000\n", 5);
      if (armed) {
        form->StopRun();
        form->trigger.cboTriggerMode.SetListIndex(static_cast<int>(TriggerMode::kEvent));
        form->trigger.cboEvent.SetListIndex(0);
        form->panel.cmdTrigger.Press();
      }
      const Instant pressed = fake.clock.Now() + milliseconds(630);
      bool done = false;
      fake.forms.onKeepAlive = [&] {
        if (done || fake.clock.Now() < pressed) return;
        done = true;
        closed ? form->CloseByUser() : static_cast<void>(fake.keyboard.escape = true);
      };
      RunToEnd();
      EXPECT_LE(fake.clock.Now(), pressed + milliseconds(200)) << armed << closed;
      EXPECT_EQ(form->LastRun().end, RunEnd::kStopped);
      EXPECT_EQ(form->LastRun().points, armed ? 0 : 2);
      EXPECT_EQ(form->IsLoaded(), !closed);
      fake.forms.onKeepAlive = nullptr;
      form.reset();
    }
  }
}

TEST_F(WaitingLinkTest, TheProgressAreaAndTheCompanionSayWhatFailedAndHowLateThePointsCame) {
  Record("at 0 01 P003 1\nat 500 01 P005 2\nat 3000 01 slow 300\n", 30);
  RunUntil(milliseconds(200));
  EXPECT_EQ(form->panel.lblTrouble.Caption(), "P005: 1 of 1 readings failed, last: no answer");
  EXPECT_TRUE(form->panel.lblTrouble.Visible());
  RunUntil(milliseconds(12'500));  // two readings of 300 ms: every fourth tick
  EXPECT_EQ(form->panel.lblTrouble.Caption(),
            "P005: 2 of 30 readings failed, last: no answer\n"
            "Points come later than asked: every 600 ms instead of 200 ms");
  RunToEnd();
  EXPECT_FALSE(form->panel.picProgress.Visible());
  const std::string readings = fake.files.Bytes(std::string(kChart) + ".readings");
  EXPECT_THAT(readings, HasSubstr("\r\n2 P005 1 2 2 no-answer\r\n"));
  EXPECT_THAT(readings, HasSubstr("Asked=200\r\nShortest=200\r\nMean=407\r\nLongest=600\r\nLatest=6000\r\n"));
  EXPECT_THAT(readings, HasSubstr("\r\n1 0\r\n15 2800\r\n30 11800\r\n"));
  EXPECT_EQ(form->LastRun().readings.pace.longest, 600);
  Record("at 0 01 P003 1\nat 0 01 P005 2\n", 3);
  RunToEnd();
  EXPECT_FALSE(form->panel.lblTrouble.Visible());
  EXPECT_FALSE(fake.files.Has(std::string(kChart) + ".readings")) << "the next recording of the name has no failures";
  fake.files.Put(std::string(kChart) + ".readings", "notes");
  Record("at 0 01 P003 1\n", 3);
  RunToEnd();
  EXPECT_THAT(Prompts(),
              ElementsAre("The failed readings and the real times could not be noted: C:\\p\\Test.cht.readings"
                          " exists already, was not written by this program and was left as it was."));
}

TEST_F(WaitingLinkTest, APointIsReadOnceToSayHowLongItTakes) {
  const auto time = [this](const std::string& script, const std::function<void()>& meanwhile) {
    fake.files.Put("plant.txt", script);
    form.reset();
    component.driveLink = PlayScenario();
    Open();
    component.driveLink->OpenLink();
    Choose(form->drive.cboNumberOfParameters, "2");
    Choose(form->drive.cboPXXX2, "005");
    Choose(form->timing.cboTimeBetweenPointsUnit, "ms");
    form->timing.txtTimeBetweenPoints.SetText("200");
    bool locked = false;
    fake.forms.onKeepAlive = [&] {
      locked = !form->timing.picTime.Enabled() && !form->panel.cmdStart.Enabled() && !form->cmdOK.Enabled();
      if (meanwhile) meanwhile();
    };
    form->timing.cmdTimePoint.Press();
    fake.forms.onKeepAlive = nullptr;
    EXPECT_TRUE(locked);
    EXPECT_TRUE(form->panel.cmdStart.Enabled() && form->panel.cmdStart.Visible());
    return form->panel.lblHint.Caption();
  };
  EXPECT_EQ(time("at 0 01 P003 1\nat 0 01 P005 2\nat 0 01 slow 90\n", {}), "A point takes 180 of your 200 ms.");
  form->timing.txtTimeBetweenPoints.SetText("300");
  EXPECT_EQ(form->panel.lblHint.Caption(), "") << "what was found is outdated";
  EXPECT_EQ(time("at 0 01 P003 1\nat 0 01 slow 150\n", {}),
            "P005 no answer\nA point takes 300 ms, more than your 200 ms: points will come late.");
  const Instant before = fake.clock.Now();
  EXPECT_EQ(time("at 0 01 P003 1\nat 0 01 slow 60000\n", [this] { fake.keyboard.escape = true; }), "");
  EXPECT_LE(fake.clock.Now(), before + milliseconds(200));
  EXPECT_FALSE(fake.files.Has(kChart));
  (void)time("at 0 01 P003 1\nat 0 01 slow 60000\n", [this] { form->CloseByUser(); });
  EXPECT_FALSE(form->IsLoaded());
  component.driveTable.Clear();
  Open();
  EXPECT_FALSE(form->timing.cmdTimePoint.Enabled()) << "without a drive";
}

TEST_F(WaitingLinkTest, CountsFailedReadingsByColumnWithTheirReasons) {
  Record("at 0 01 P003 1\nat 800 01 P005 2\nat 1500 01 fails 3\nat 1700 01 answers\n", 12);
  RunToEnd();
  const FailedReadings& failed = form->Run().Failed();
  EXPECT_THAT(failed[0].Ranges(), ElementsAre(FailedRange{8, 8, 1, {ReadFailure::kChecksum, ""}}));
  EXPECT_THAT(failed[1].Ranges(), ElementsAre(FailedRange{1, 3, 3, {ReadFailure::kNoAnswer, ""}},
                                              FailedRange{8, 8, 1, {ReadFailure::kChecksum, ""}}));
  EXPECT_EQ(failed[1].Count(), 4);
  EXPECT_EQ(failed[2].Count() + failed[3].Count(), 0);
  Record("at 0 01 P003 1\nat 0 01 P005 1\nat 500 01 breaks the server died\n", 12);
  RunToEnd();
  EXPECT_THAT(Prompts(), ElementsAre("the server died"));
  EXPECT_EQ(form->LastRun().points, 2);
  EXPECT_THAT(form->Run().Failed()[0].Ranges(),
              ElementsAre(FailedRange{3, 3, 1, {ReadFailure::kBroken, "the server died"}}));
  EXPECT_EQ(form->Run().Failed()[1].Count(), 0);
}

}  // namespace
}  // namespace chartproject
