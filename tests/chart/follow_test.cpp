// The chart window over a recording that runs: it follows the end, goes over to the chart file, and shows what a
// recorder that was killed has left.
#include <gmock/gmock.h>

#include "chart/window/chart_form.h"
#include "recording/journal/run_spool.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::HasSubstr;

constexpr const char* kFile = "/data/Test.cht";

struct FollowTest : ::testing::Test {
  FollowTest() {
    component.language = Language::kEnglish;
    component.settings.strSound = "No";
    component.settings.intChartType = 3;
    component.driveTable.At(1).Type = "KRA-09";
    fakes.files.Put("\\Kestrel.log", "");
    header.DriveAddress = "01";
    header.NumberOfParameters = "1";
    header.PXXX1 = "003";
    header.ScanTime = "2";
    header.Unit = "s";
    header.NumberOfPoints = "100000";
    header.TriggerMode = "Manual";
    fakes.files.locked.insert(kFile);
  }
  /// The recorder takes points; the value of a point is its number.
  void Record(int points, bool inMemory = false) {
    if (recorded.empty()) {
      journal.Begin(kFile, header, 2000, false);
      journal.NoteFirstPoint(header, {2026, 1, 31, 8, 0, 0, 0}, inMemory);
    }
    for (int i = 0; i < points; ++i) {
      recorded.push_back({"08:00:00", {std::to_string(recorded.size() + 1)}});
      std::string line;
      AppendRowLine(line, recorded.back());
      if (!inMemory) spool.Append(kFile, line);
      rows += line;
      if (inMemory) journal.Keep(recorded, failed, static_cast<std::int32_t>(recorded.size()));
    }
  }
  /// Its chart file is complete, and the files beside it go.
  void Finish() {
    std::string text;
    for (const HeaderKey& entry : kHeaderKeys) text += std::string(entry.key) + header.*entry.field + "\r\n";
    fakes.files.Put(kFile, "[INFO]\r\n" + text + "[TIME/CONTENT]\r\n" + rows);
    spool.End();
    journal.End(false);
    fakes.files.locked.clear();
  }
  void Open() {
    form.Load();
    ASSERT_TRUE(form.OpenFollowing(kFile));
    Survey();
  }
  void Survey() {
    while (form.overview.tmrSurvey.Enabled()) form.overview.tmrSurvey.Fire();
  }
  void Look(int times = 1) {
    for (int i = 0; i < times; ++i) form.follow.tmrFollow.Fire();
    Survey();
  }
  void Press(const KeyPress& key) { EXPECT_TRUE(form.mscChart1.KeyPressed(key)); }
  /// First point, points a division, N, last value.
  std::vector<std::int64_t> Shown() {
    const ChartModel& model = form.mscChart1.Model();
    const auto& values = model.series[0].values;
    return {model.firstRowLabel, form.View().Division(), form.View().Points(),
            values.empty() ? 0 : static_cast<std::int64_t>(values.back())};
  }

  FakePorts fakes;
  FakePlant plant;
  Component component{fakes.ports, fakes.forms, plant};
  ChartHeader header;
  FailedReadings failed;
  std::vector<PointRow> recorded;
  std::string rows;
  RecordingJournal journal{fakes.files, fakes.codePage};
  RunSpool spool{fakes.files, journal};
  ChartForm form{component};
};

TEST_F(FollowTest, TheEndStaysInViewWhileItIsShownAndAnyOtherSliceStays) {
  Record(40);
  Open();
  EXPECT_THAT(Shown(), ElementsAre(1, 2, 40, 40));
  EXPECT_THAT(form.Caption(), HasSubstr("Test.cht (recording)"));
  EXPECT_EQ(form.reading.lblStatus.Caption(), "Recording: 40 points so far");
  Record(460);
  Look();
  EXPECT_THAT(Shown(), ElementsAre(1, 20, 500, 500));
  Record(100);
  Look();
  EXPECT_THAT(Shown(), ElementsAre(101, 20, 600, 600));
  Press({.key = Key::kHome});
  Record(1);
  Look();
  EXPECT_THAT(Shown(), ElementsAre(1, 20, 601, 500));
  EXPECT_EQ(form.overview.ovwRecording.Model().points, 601);
  Press({.key = Key::kEnd});
  Record(9);
  Look();
  EXPECT_THAT(Shown(), ElementsAre(111, 20, 610, 610));
  Press({.key = Key::kCharacter, .character = 'F'});
  Record(90);
  Look();
  EXPECT_THAT(Shown(), ElementsAre(1, 28, 700, 700));
}

TEST_F(FollowTest, GoesOverToTheChartFileAtItsPlaceAndFurtherBack) {
  Record(40'000);
  Open();
  Press({.key = Key::kCharacter, .character = 'F'});
  const auto fit = form.mscChart1.Model().series[0].values;
  Press({.key = Key::kBackspace});
  Press({.key = Key::kPageUp});
  const auto before = Shown();
  Record(7);
  Finish();
  Look();
  EXPECT_EQ(form.View().Unfinished(), nullptr);
  EXPECT_EQ(form.Caption(), "Chart File - Test.cht");
  EXPECT_EQ(form.reading.lblStatus.Caption(), "The recording has ended; the file is complete.");
  EXPECT_THAT(Shown(), ElementsAre(before[0], before[1], 40'007, before[3]));
  Press({.key = Key::kEnd});
  EXPECT_THAT(Shown(), ElementsAre(40'007 - 499, 20, 40'007, 40'007));
  EXPECT_EQ(form.View().Survey().Over(0, 0, 40'007, 40'007), (Extremes{1, 40'007}));
  EXPECT_TRUE(fakes.dialogs.TakePrompts().empty());
}

TEST_F(FollowTest, AUserWhoActsBeforeTheNextLookMeetsTheChartFileToo) {
  Record(1000);
  Open();
  Finish();
  Press({.key = Key::kHome});
  EXPECT_THAT(Shown(), ElementsAre(1, 20, 1000, 500));
  EXPECT_EQ(form.View().Unfinished(), nullptr);
}

TEST_F(FollowTest, AKilledRecorderLeavesWhatIsThereAndTheWindowSaysSo) {
  Record(30);
  Open();
  Look(60);  // a slow recording: as long as its lock is held it runs
  EXPECT_EQ(form.reading.lblStatus.Caption(), "Recording: 30 points so far");
  fakes.files.locked.clear();
  Look(60);
  EXPECT_EQ(form.reading.lblStatus.Caption(), "The recording was interrupted. These are the 30 points that were kept.");
  EXPECT_THAT(Shown(), ElementsAre(1, 2, 30, 30));
  Finish();  // somebody recovers it
  Look();
  EXPECT_EQ(form.Caption(), "Chart File - Test.cht");
}

TEST_F(FollowTest, ReadsTheRowsOfAJournalAmongItsNotesAndShadesFailedReadings) {
  Record(10, true);
  failed[0].Note(11, {ReadFailure::kChecksum, ""});
  Record(1, true);
  Open();
  EXPECT_THAT(Shown(), ElementsAre(1, 1, 11, 11));
  Record(3, true);
  Look();
  EXPECT_THAT(Shown(), ElementsAre(1, 1, 14, 14));
  const auto& shaded = form.mscChart1.Model().series[0].failed;
  ASSERT_EQ(shaded.size(), 1U);
  EXPECT_EQ(shaded[0].first, 10);
}

TEST_F(FollowTest, AChartFileThatGrowsIsFollowedInIdleTime) {
  header.NumberOfPoints = "60";
  Record(60);
  Finish();
  form.Load();
  ASSERT_TRUE(form.OpenFile(kFile));
  Survey();
  Press({.key = Key::kEnd});
  fakes.files.Overwrite(kFile, fakes.files.Bytes(kFile) + "08:00:00#61#####\r\n08:00:00#62#####\r\n");
  Look();
  Look();
  EXPECT_THAT(Shown(), ElementsAre(38, 1, 62, 62));
  EXPECT_EQ(form.overview.ovwRecording.Model().points, 62);
}

}  // namespace
}  // namespace chartproject
