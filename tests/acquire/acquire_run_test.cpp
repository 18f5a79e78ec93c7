// Recordings from Start to chart file: what the window shows, early ends, failures.
#include "acquire/run/run_texts.h"
#include "chart/live/live_chart_control.h"
#include "dialog_fixture.h"

namespace chartproject {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::IsEmpty;

class AcquireRunTest : public DialogTest {
 protected:
  /// Sets the number of points and starts.
  void Start(int points) {
    Open();
    form->timing.txtNumberOfPoints.SetText(std::to_string(points));
    form->panel.cmdStart.Press();
  }
};

TEST_F(AcquireRunTest, TheCurveOpensUnderTheProgressKnowsThePointsSoFarAndIsRemembered) {
  component.makeLiveChart = MakeLiveChart;
  Start(600);
  const auto curve = [this] { return dynamic_cast<LiveChartControl*>(&form->panel.curve->Control()); };
  EXPECT_FALSE(curve()->Visible());
  RunUntil(seconds(520));
  form->panel.cmdCurve.Press();
  EXPECT_TRUE(curve()->EffectivelyVisible());
  EXPECT_EQ(form->Height(), 10500);
  EXPECT_EQ(curve()->Points().Model().firstRowLabel, 21);
  EXPECT_EQ(curve()->Points().Last(), 520);
  RunToEnd();
  EXPECT_FALSE(curve()->EffectivelyVisible());
  EXPECT_EQ(form->Height(), 6360);
  form->Unload();
  Start(3);
  EXPECT_TRUE(curve()->EffectivelyVisible());
  EXPECT_EQ(curve()->Points().Last(), 0);
  form->panel.cmdCurve.Press();
  EXPECT_EQ(form->Height(), 7200);
  RunToEnd();
  form->Unload();
  EXPECT_EQ(fake.settings.Read("frmAcquireVar", "Curve"), "No");
}

TEST_F(AcquireRunTest, MoreThan2500PointsAreSpooled) {
  for (const int points : {2500, 2501}) {
    fake.files.Put(kSpool, "left by a crash\r\n");
    Start(points);
    fake.files.appendCount = 0;
    RunToEnd();
    EXPECT_EQ(fake.files.appendCount, points == 2500 ? 2500 : 2503) << "rows, and the journal of a spooled run";
    const auto rows = Rows();
    ASSERT_EQ(rows.size(), static_cast<std::size_t>(points));
    EXPECT_EQ(rows[0].substr(8), "#50#####");
    EXPECT_EQ(fake.files.Has(kSpool), points == 2500);
    EXPECT_THAT(Chart(), HasSubstr("\r\nEnd Time=" + rows.back().substr(0, 8) + "\r\n"));
  }
}

/// One way in which a recording ends.
struct Ending {
  const char* name;
  int points;   ///< asked for
  int seconds;  ///< after the start, when its cause comes
  void (*cause)(DialogTest&);
  RunEnd end;
  int taken;
  std::size_t rows;     ///< in the chart file
  const char* endTime;  ///< in its header
  int spooled;          ///< rows left in the spool file
  std::vector<std::string> prompts;
};

class RunEndTest : public DialogTest, public ::testing::WithParamInterface<Ending> {};

TEST_P(RunEndTest, KeepsThePointsTakenAndGivesTheReason) {
  const Ending& way = GetParam();
  Open();
  form->timing.txtNumberOfPoints.SetText(std::to_string(way.points));
  form->panel.cmdStart.Press();
  RunUntil(seconds(way.seconds));
  // Points in memory are written before a box waits for an answer.
  fake.dialogs.whileUp = [this](const MessageBoxRequest&) {
    EXPECT_TRUE(fake.files.Has(kChart) || fake.files.Has(kSpool));
  };
  way.cause(*this);
  RunToEnd();
  EXPECT_EQ(form->LastRun().end, way.end);
  EXPECT_EQ(form->LastRun().points, way.taken);
  EXPECT_EQ(Prompts(), way.prompts);
  ASSERT_EQ(Rows().size(), way.rows);
  for (int row = 0; row < static_cast<int>(way.rows); ++row) {
    ASSERT_EQ(Rows()[static_cast<std::size_t>(row)].substr(std::min(row < way.taken ? 8 : 0, 8)),
              row < way.taken ? "#50#####" : "######")
        << row;
  }
  EXPECT_THAT(Chart(), HasSubstr("End Date=31/01/2026\r\nEnd Time=" + std::string(way.endTime) + "\r\n"));
  EXPECT_EQ(std::ranges::count(fake.files.Bytes(kSpool), '\n'), way.spooled);
  EXPECT_EQ(Sounds().back(), way.end == RunEnd::kStopped && !form->IsLoaded() ? "ir_end.wav" : "Complete.wav");
  EXPECT_EQ(form->panel.picProgress.Visible() || form->Run().Active() || !fake.files.locked.empty(), false);
}

void Nothing(DialogTest& /*test*/) {}
void PressEsc(DialogTest& test) {
  test.fake.keyboard.escape = true;
}
void Close(DialogTest& test) {
  test.form->CloseByUser();
}
void FillDisk(DialogTest& test) {
  test.fake.files.space.totalFree = 99'999'999;
}
void BreakSpool(DialogTest& test) {
  test.fake.files.Break("append", error_number::kDiskFull);
}
void BreakLink(DialogTest& test) {
  test.plant.failAt = "read";
}

using enum RunEnd;
const std::string kSpaceLeft = "Insufficient disk space: 99,999,999 bytes";
const std::string kInSpool = kSpaceLeft + ". Points were saved on file: C:\\p\\Test.cht.tcf0";
const Ending kEndings[] = {
    {"Complete", 4, 3, Nothing, kComplete, 4, 4, "08:00:04", 0, {}},
    {"Esc", 100, 10, PressEsc, kStopped, 10, 100, "8h00m10", 0, {}},
    {"Closed", 20, 4, Close, kStopped, 4, 20, "8h00m04", 0, {}},
    {"FullDisk", 3000, 5, FillDisk, kDiskSpace, 6, 0, "8h00m06", 6, {kSpaceLeft, kInSpool}},
    {"BrokenSpool", 3000, 7, BreakSpool, kFailed, 7, 7, "8h00m08", 0, {"broken: C:\\p\\Test.cht.tcf0"}},
    {"BrokenLink", 10, 2, BreakLink, kFailed, 2, 10, "8h00m03", 0, {"read 1 8 3 unit 26 failed"}}};
INSTANTIATE_TEST_SUITE_P(Ways, RunEndTest, ::testing::ValuesIn(kEndings),
                         [](const auto& way) { return way.param.name; });

TEST_F(AcquireRunTest, AnEscTooLateForTheRunDoesNotCloseTheDialogUntilItWasLetGo) {
  fake.forms.showsWindows = true;
  Start(2);
  RunToEnd();
  const std::tuple<int, bool, bool> steps[] = {
      {699, false, false}, {1, true, false}, {100, true, false}, {100, false, true}};
  for (const auto& [later, down, closes] : steps) {
    fake.keyboard.escape = down;
    fake.clock.Advance(milliseconds(later));
    fake.forms.Timers().FireOne();
    EXPECT_EQ(form->cmdOK.IsCancel(), closes) << later;
  }
}

TEST_F(AcquireRunTest, TheStopwatchSaysThatADayHasGoneByAndMayBeStoppedMeanwhile) {
  for (const bool stopped : {false, true}) {
    Open();
    ASSERT_EQ(form->controller.Reserve(kChart), "");
    form->controller.Start({.fileName = kChart,
                            .driveAddress = 1,
                            .columns = {3, kUnusedParameter, kUnusedParameter, kUnusedParameter},
                            .millisecondsBetweenPoints = 25LL * 3600 * 1000,
                            .spacedByStopwatch = true});
    fake.dialogs.whileUp = [&](const MessageBoxRequest& box) {
      EXPECT_EQ(std::pair(box.style, box.title),
                std::pair(box_style::kInformation, std::string("Days That Have Gone By")));
      if (stopped) form->StopRun();
    };
    form->controller.tmrMonitorEsc.SetEnabled(false);  // ten ticks a second less
    const Instant began = fake.clock.Now();
    RunUntil(began + std::chrono::hours(24) - seconds(1));
    EXPECT_THAT(Prompts(), IsEmpty());
    EXPECT_EQ(form->panel.lblElapsedTime.Caption(), "23:59:59");
    RunUntil(began + std::chrono::hours(24));
    EXPECT_THAT(Prompts(), ElementsAre("1 day(s) have gone by since u started the stopwatch."));
    EXPECT_EQ(form->panel.lblElapsedTime.Caption(), stopped ? "23:59:59" : "00:00:00");
    EXPECT_EQ(form->Run().State(), stopped ? RunState::kIdle : RunState::kSampling);
    form->StopRun();
    EXPECT_FALSE(fake.files.Has(kChart));
  }
}

// A link that waits with a message loop lets timers and keys through.
TEST_F(AcquireRunTest, EscWhileTheDriveIsReadEndsTheRunBeforeThatPoint) {
  for (const int stopAt : {3, 4}) {
    int reads = 0;
    Start(4);
    plant.whileReading = [&] {
      if (++reads != stopAt) return;
      fake.keyboard.escape = true;
      RunUntil(fake.clock.Now() + seconds(2));
    };
    RunToEnd();
    plant.whileReading = nullptr;
    EXPECT_EQ(form->LastRun().points, stopAt - 1);
    ASSERT_EQ(Rows().size(), 4U);
    EXPECT_EQ(Rows()[1].substr(8), "#50#####");
    EXPECT_EQ(Rows()[3], "######");
    EXPECT_THAT(fake.files.locked, IsEmpty());
  }
}

TEST_F(AcquireRunTest, FailingChartFileNamesTheFileThatKeepsTheRows) {
  for (const int points : {4, 2600}) {
    Start(points);
    RunUntil(fake.clock.Now() + seconds(3));
    fake.files.Break("rename", error_number::kPermissionDenied);
    RunToEnd();
    fake.files.Mend();
    const std::string kept = points == 4 ? "C:\\p\\Test.cht.recording" : kSpool;
    EXPECT_THAT(Prompts(), ElementsAre("broken: C:\\p\\Test.cht. Points were saved on file: " + kept));
    EXPECT_FALSE(fake.files.Has(kChart));
    const auto results = RecoverBeside(fake.ports, kChart, {});
    ASSERT_EQ(results.value().size(), 1U);
    EXPECT_EQ(results->front().points, points);
    EXPECT_EQ(Rows().size(), static_cast<std::size_t>(points));
    fake.files.Delete(kChart);
  }
}

}  // namespace
}  // namespace chartproject
