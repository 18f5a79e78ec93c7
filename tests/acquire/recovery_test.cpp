// Interrupted recordings: the journal beside a recording, what is found after a crash at any moment, and the chart file
// that comes back. A crash is a copy of all files while the recording runs.
#include "recording/journal/recovery.h"

#include <algorithm>

#include "dialog_fixture.h"
#include "platform/run_time_error.h"
#include "recording/journal/journal.h"
#include "support/error_of.h"

namespace chartproject {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::IsEmpty, ::testing::Not;

class RecoveryTest : public DialogTest {
 protected:
  static constexpr const char* kJournal = "C:\\p\\Test.cht.recording";
  static constexpr const char* kRecovered = "C:\\p\\Test.recovered.cht";
  static constexpr const char* kBareRows = "23:59:58#1#####\r\n23:59:59#2#####\r\n00:00:00#3#####\r\n";

  void Start(int points) {
    Open();
    form->timing.txtNumberOfPoints.SetText(std::to_string(points));
    form->panel.cmdStart.Press();
  }
  /// The files that a crash at this moment leaves, without the locks of the program that died.
  void Crash() {
    crashed.clear();
    for (const char* name : {kChart, kSpool, kJournal, "C:\\p\\Test.cht.tcf1", "C:\\p\\Test.cht.recording1"}) {
      if (fake.files.Has(name)) crashed[name] = fake.files.Bytes(name);
    }
    form.reset();
    for (const char* name : {kChart, kSpool, kJournal, "C:\\p\\Test.cht.tcf1", "C:\\p\\Test.cht.recording1"}) {
      if (fake.files.Has(name)) fake.files.Delete(name);
    }
    for (const auto& [name, bytes] : crashed) fake.files.Put(name, bytes);
    (void)Prompts();
  }
  std::vector<RecoveryResult> RecoverAll() { return RecoverBeside(fake.ports, kChart, {}).value(); }
  std::string HeaderValue(const std::string& file, const std::string& key) {
    const std::string bytes = fake.files.Bytes(file);
    const std::size_t at = bytes.find("\r\n" + key + "=");
    if (at == std::string::npos) return "(none)";
    const std::size_t begin = at + key.size() + 3;
    return bytes.substr(begin, bytes.find('\r', begin) - begin);
  }

  std::map<std::string, std::string> crashed;
};

TEST_F(RecoveryTest, EveryPointOfACrashedRecordingComesBackWithItsHeader) {
  for (const int points : {100, 3000}) {
    for (const int taken : {1, 7}) {
      Start(points);
      RunUntil(fake.clock.Now() + seconds(taken) + milliseconds(500));
      const auto began = fake.files.Bytes(kJournal);
      EXPECT_TRUE(began.starts_with("[RECORDING]\r\nJournal=1\r\nInterval=1000\r\nDrive Address=01\r\n"));
      EXPECT_EQ(fake.files.Has(kSpool), points == 3000);
      Crash();
      const auto results = RecoverAll();
      ASSERT_EQ(results.size(), 1U);
      EXPECT_EQ(results[0].chartFile, kChart);
      EXPECT_EQ(results[0].points, taken);
      ASSERT_EQ(Rows().size(), static_cast<std::size_t>(taken));
      EXPECT_EQ(Rows().back().substr(8), "#50#####");
      EXPECT_EQ(HeaderValue(kChart, "Number of Points"), std::to_string(points));
      EXPECT_EQ(HeaderValue(kChart, "Start Time"), Rows().front().substr(0, 8));
      EXPECT_EQ(HeaderValue(kChart, "End Time"), Rows().back().substr(0, 8));
      EXPECT_EQ(HeaderValue(kChart, "End Date"), "31/01/2026");
      EXPECT_FALSE(fake.files.Has(kJournal) || fake.files.Has(kSpool));
      EXPECT_THAT(RecoverAll(), IsEmpty()) << "a second time";
      fake.files.Delete(kChart);
    }
  }
}

TEST_F(RecoveryTest, NothingStaysBesideACompleteChartFileAndNothingIsRecoveredFromARunningOne) {
  Start(3000);
  RunUntil(fake.clock.Now() + seconds(2));
  EXPECT_EQ(RecoverBeside(fake.ports, kChart, {}), std::nullopt);
  EXPECT_EQ(DiscardBeside(fake.ports, kChart), std::nullopt);
  EXPECT_TRUE(IsBeingRecorded(fake.files, kChart));
  RunToEnd();
  EXPECT_EQ(form->LastRun().written.rows, 3000);
  EXPECT_FALSE(fake.files.Has(kJournal) || fake.files.Has(kSpool));
  Start(4);
  RunUntil(fake.clock.Now() + milliseconds(300));
  EXPECT_TRUE(fake.files.Has(kJournal)) << "before the first point";
  form->StopRun();
  EXPECT_FALSE(fake.files.Has(kJournal));
}

TEST_F(RecoveryTest, AJournalFullOrTakenOrRemovedEndsNothingAndComesBack) {
  fake.files.Put(kJournal, "the user's own");
  Start(8);
  EXPECT_EQ(form->panel.lblNotice.Visible(), false);
  const auto first = fake.clock.Now();
  RunUntil(first + seconds(2));
  fake.files.Break("append", error_number::kDiskFull);
  RunUntil(first + seconds(4));
  EXPECT_EQ(form->panel.lblNotice.Caption(),
            "A crash of the program would lose the points: broken: C:\\p\\Test.cht.recording1");
  fake.files.Mend();
  RunUntil(first + seconds(5));
  EXPECT_EQ(form->panel.lblNotice.Caption(), "");
  fake.files.Remove("C:\\p\\Test.cht.recording1");
  RunUntil(first + seconds(6) + milliseconds(500));
  Crash();
  EXPECT_EQ(RecoverAll().at(0).points, 6);
  EXPECT_EQ(fake.files.Bytes(kJournal), "the user's own");
}

TEST_F(RecoveryTest, ASpoolFileThatIsLostIsNoticedAndTheReportCountsWhatIsInTheChartFile) {
  struct {
    void (*loss)(MemoryFileSystem&);
    const char* goesOn;
    std::size_t rows;      ///< in the chart file
    std::int64_t crashed;  ///< points that come back after a crash
  } const losses[] = {{[](MemoryFileSystem& files) { files.Remove(kSpool); }, "Test.cht.tcf0", 2501, 2},
                      {[](MemoryFileSystem& files) { files.Put(kSpool, "a stranger's"); }, "Test.cht.tcf1", 2501, 2},
                      {[](MemoryFileSystem& files) { files.Overwrite(kSpool, files.Bytes(kSpool).substr(0, 40)); },
                       "Test.cht.tcf1", 2499, 4}};
  for (const bool crash : {false, true}) {
    for (const auto& loss : losses) {
      Start(2501);
      RunUntil(fake.clock.Now() + seconds(4));
      loss.loss(fake.files);
      RunUntil(fake.clock.Now() + seconds(2));
      EXPECT_THAT(form->panel.lblNotice.Caption(), HasSubstr(loss.goesOn));
      if (crash) {
        Crash();
        EXPECT_EQ(RecoverAll().at(0).points, loss.crashed) << loss.goesOn;
      } else {
        RunToEnd();
        EXPECT_EQ(form->LastRun().written.rows, static_cast<std::int64_t>(loss.rows));
        EXPECT_EQ(Rows().size(), loss.rows);
        if (loss.rows < 2501) {
          EXPECT_THAT(Prompts(), ElementsAre("2501 point(s) were taken; 2499 of them are in C:\\p\\Test.cht."));
        }
      }
      for (const char* name : {kChart, kSpool}) {
        if (fake.files.Has(name)) fake.files.Delete(name);
      }
    }
  }
}

TEST_F(RecoveryTest, AFolderThatIsAwayForAWhileOrADiskThatRefusesWritingCostsNoPoint) {
  const auto whileAway = [this](bool moved, const std::function<void()>& meanwhile) {
    std::vector<std::string> names;
    for (const char* name : {kSpool, kJournal}) {
      if (moved && fake.files.Has(name)) names.emplace_back(name);
    }
    for (const std::string& name : names) fake.files.Rename(name, name + ".away");
    fake.files.Break(moved ? "create" : "open", error_number::kPathNotFound);
    meanwhile();
    fake.files.Mend();
    for (const std::string& name : names) fake.files.Rename(name + ".away", name);
  };
  for (const int points : {2500, 2501}) {
    for (const bool moved : {true, false}) {
      Start(points);
      RunUntil(fake.clock.Now() + seconds(3));
      whileAway(moved, [&] {
        RunUntil(fake.clock.Now() + seconds(4));
        EXPECT_THAT(form->panel.lblNotice.Caption(), HasSubstr("A crash of the program would lose the points: broken"));
      });
      RunUntil(fake.clock.Now() + seconds(2));
      EXPECT_EQ(form->panel.lblNotice.Caption(), "");
      Crash();
      EXPECT_EQ(RecoverAll().at(0).points, 9) << points;
      Start(points);
      RunUntil(fake.clock.Now() + seconds(3));
      whileAway(moved, [&] { RunUntil(fake.clock.Now() + seconds(4)); });
      RunToEnd();
      EXPECT_EQ(form->LastRun().written.rows, points);
      EXPECT_FALSE(fake.files.Has(kJournal) || fake.files.Has(kSpool));
      fake.files.Delete(kChart);
    }
  }
  // It never comes back: the points are saved in the project's folder.
  Start(2501);
  RunUntil(fake.clock.Now() + seconds(3));
  fake.files.Break("open", error_number::kPathNotFound);
  RunUntil(fake.clock.Now() + seconds(4));
  fake.files.Break("", error_number::kPathNotFound, "C:\\p\\");
  form->StopRun();
  const std::string kept = form->LastRun().written.keptFile;
  EXPECT_EQ(kept, "/tmp/Test.cht.tcf0");
  EXPECT_EQ(std::ranges::count(fake.files.Bytes(kept), '\n'), 7);
}

TEST_F(RecoveryTest, FailedReadingsComeBackWithThePoints) {
  plant.simulated = true;
  for (const int points : {100, 3000}) {
    Start(points);
    const auto take = [this](int count, std::set<int> silent) {
      plant.silent = std::move(silent);
      RunUntil(fake.clock.Now() + seconds(count));
    };
    take(2, {});
    take(3, {3});
    take(1, {});
    plant.failure = {ReadFailure::kException, "illegal address"};
    take(2, {3});
    fake.clock.AdvanceTo(fake.clock.Now() + milliseconds(500));
    Crash();
    plant.silent.clear();
    plant.failure = {ReadFailure::kNoAnswer, {}};
    EXPECT_EQ(RecoverAll().at(0).points, 8);
    EXPECT_THAT(Rows(), testing::Each(testing::EndsWith("#####"))) << "no note among the rows";
    ChartHeader header;
    (void)ReadChartHeader(*fake.files.OpenForReading(kChart), fake.codePage, header);
    const auto companion = LoadCompanion(fake.files, kChart, header);
    ASSERT_TRUE(companion);
    EXPECT_EQ(companion->recovered, Recovered::kFromJournal);
    EXPECT_TRUE(companion->simulated);
    EXPECT_THAT(companion->failed[0].Ranges(),
                ElementsAre(FailedRange{3, 5, 3, {ReadFailure::kNoAnswer, ""}},
                            FailedRange{7, 8, 2, {ReadFailure::kException, "illegal address"}}));
    fake.files.Delete(kChart);
  }
}

TEST_F(RecoveryTest, NotesOfFailedReadingsAreCheckedAndEndWithThePoints) {
  fake.files.Put(kJournal,
                 "[RECORDING]\r\n'Fails=1 P003 2 2 1 no-answer\r\n'Failed=1 P003 2 4 3 no-answer\r\n'Failed=9 x\r\n"
                 "'Failed=1 P003 4 9 6 checksum\r\n'Fails=2 P005 30 30 1 no-answer\r\n'Fails=3 P007 6 6 1 status 7\r\n"
                 "'Failed=1 P003 12 13 2 no-answer\r\n'Fails=4 P0");
  const FailedReadings failed = ReadFailureNotes(*fake.files.OpenForReading(kJournal), fake.codePage, 8);
  EXPECT_THAT(failed[0].Ranges(), ElementsAre(FailedRange{2, 4, 3, {ReadFailure::kNoAnswer, ""}},
                                              FailedRange{5, 8, 4, {ReadFailure::kChecksum, ""}}));
  EXPECT_THAT(failed[2].Ranges(), ElementsAre(FailedRange{6, 8, 3, {ReadFailure::kStatus, "7"}}));
  EXPECT_EQ(failed[1].Count() + failed[3].Count(), 0);
}

TEST_F(RecoveryTest, ALargeRecordingIsSavedWithProgressAndEscLosesNothing) {
  std::string rows;
  for (int row = 0; row < 300'000; ++row) rows += "08:00:00#1#####\r\n";
  fake.files.Put(kSpool, rows);
  Open();
  std::vector<std::string> shown;
  fake.forms.onKeepAlive = [&] {
    EXPECT_FALSE(form->panel.cmdStart.Enabled() || form->cmdOK.Enabled());
    const RecoverySection& offer = form->recovery;
    const std::string text = form->panel.lblNotice.Caption();
    shown.push_back(text.empty() ? offer.lblInterrupted.Caption() : text);
    fake.keyboard.escape = shown.size() == 2;
  };
  form->timing.txtNumberOfPoints.SetText("3000");
  form->panel.cmdStart.Press();
  EXPECT_THAT(shown, ElementsAre("Saving the points of the interrupted recording: 26 % (Esc: not now)",
                                 "Saving the points of the interrupted recording: 52 % (Esc: not now)"));
  EXPECT_EQ(form->panel.lblNotice.Caption(),
            "Not started: the points of the interrupted recording beside C:\\p\\Test.cht are as they were.");
  EXPECT_EQ(form->Run().State(), RunState::kIdle);
  EXPECT_TRUE(form->panel.cmdStart.Enabled() && form->cmdOK.Enabled());
  EXPECT_EQ(fake.files.Bytes(kSpool), rows);
  EXPECT_FALSE(fake.files.Has(kRecovered) || fake.files.Has("C:\\p\\Test.recovered.cht.new") ||
               IsBeingRecorded(fake.files, kChart));
  form->panel.ShowNotice({});
  form->recovery.cmdRecover.Press();
  EXPECT_THAT(shown.back(), HasSubstr(" % (Esc: not now)"));
  EXPECT_THAT(Prompts(), ElementsAre("300000 point(s) of the interrupted recording are in C:\\p\\Test.cht."));
}

TEST_F(RecoveryTest, TheHeaderIsWhatIsKnown) {
  InterruptedRecording recording;
  recording.chartFile = kChart;
  fake.files.Put(kSpool, kBareRows);
  AddRows(recording.rows, *fake.files.OpenForReading(kSpool), {1, 0});
  recording.journal.emplace().millisecondsBetweenPoints = 1000;
  recording.journal->header.StartDate = "31/01/2026";
  recording.journal->begun = DateTime{2026, 1, 31, 23, 59, 58};
  EXPECT_EQ(RecoveredHeader(fake.ports, recording, nullptr).EndDate, "01/02/2026");
  recording.journal->millisecondsBetweenPoints = 72'000'000;
  EXPECT_EQ(RecoveredHeader(fake.ports, recording, nullptr).EndDate, "02/02/2026") << "40 hours, one midnight seen";
  recording.journal->begun.reset();
  EXPECT_EQ(RecoveredHeader(fake.ports, recording, nullptr).EndDate, "31/01/2026");
  recording.journal.reset();
  ChartHeader like;
  like.DriveAddress = "07";
  like.StartDate = like.EndDate = "1/1/2020";
  const ChartHeader header = RecoveredHeader(fake.ports, recording, &like);
  EXPECT_EQ(header.DriveAddress + header.StartDate + header.EndDate + header.EndTime, "0700:00:00");
  // A chart file that was left without its rows is the header of its spool file.
  fake.files.Put(kChart, "[INFO]\r\nDrive Address=09\r\nEnd Date=3/3/2026\r\n\r\n[TIME/CONTENT]\r\n");
  EXPECT_EQ(RecoveredHeader(fake.ports, recording, nullptr).EndDate, "3/3/2026");
}

TEST_F(RecoveryTest, ARecoveryThatWasInterruptedOrFailsLosesNothing) {
  fake.files.Put(kSpool, kBareRows);
  for (const char* operation : {"create", "rename"}) {
    fake.files.Break(operation, error_number::kDiskFull);
    EXPECT_EQ(ErrorOf([&] { (void)RecoverAll(); }), error_number::kDiskFull);
    fake.files.Mend();
    EXPECT_EQ(fake.files.Bytes(kSpool), kBareRows);
    EXPECT_FALSE(fake.files.Has(kChart) || fake.files.Has(kRecovered));
  }
  EXPECT_EQ(RecoverAll().at(0).chartFile, kChart);
  // Killed before the rows went: the chart file is known to hold them.
  fake.files.Put(kSpool, kBareRows);
  EXPECT_TRUE(RecoverAll().at(0).wasWhole);
  EXPECT_FALSE(fake.files.Has(kSpool) || fake.files.Has(kRecovered));
  // Other points of the same name.
  fake.files.Put(kSpool, "08:00:00#1#####\r\n");
  EXPECT_EQ(RecoverAll().at(0).chartFile, kRecovered);
}

TEST_F(RecoveryTest, StrangeJournalsAreLeftAloneAndTheirValuesChecked) {
  const std::string head = "[RECORDING]\r\nJournal=1\r\n";
  for (const std::string& bytes : {std::string(), std::string("[RECORDING]\r\nJournal=2\r\n"), std::string("notes"),
                                   "[INFO]\r\n" + head, std::string(2'000'000, 'x')}) {
    fake.files.Put(kJournal, bytes);
    EXPECT_THAT(FindBeside(fake.files, fake.codePage, kChart), IsEmpty()) << bytes.substr(0, 40);
  }
  fake.files.Put(kJournal, head +
                               "Interval=-5\r\nBegun=2026-02-30 08:00:00\r\nSpool=../../x\r\nSpool=100\r\nSpool=-1\r\n"
                               "Spool=2\r\nSpool=0\r\nLost=2\r\nSpool=0\r\nDrive Address=03\r\nScan Time=5");
  fake.files.Put(kSpool, kBareRows);
  const auto found = FindBeside(fake.files, fake.codePage, kChart);
  ASSERT_EQ(found.size(), 1U);
  const JournalReading& journal = found[0].journal.value();
  EXPECT_EQ(journal.millisecondsBetweenPoints, 0);
  EXPECT_EQ(journal.begun, std::nullopt);
  EXPECT_THAT(journal.spools, ElementsAre(0));
  EXPECT_EQ(journal.header.DriveAddress, "03");
  EXPECT_EQ(journal.header.ScanTime, "") << "the line was cut";
  EXPECT_EQ(found[0].rows.points, 3);
  // A journal leads to no deletion of a file that holds something else.
  fake.files.Put(kSpool, "the user's own");
  EXPECT_EQ(RecoverAll().at(0).chartFile, "");
  EXPECT_EQ(fake.files.Bytes(kSpool), "the user's own");
  EXPECT_FALSE(fake.files.Has(kJournal));
  for (const char* name : {"a.cht.tcf0", "a.cht.tcf12", "a.cht.recording", "a.cht.recording3"})
    EXPECT_EQ(ChartFileOf(name), "a.cht") << name;
  for (const char* name : {"a.cht", "a.cht.tcf", "a.recordings", "a.cht.tcf0.txt", "a.tcf1234", "123"})
    EXPECT_EQ(ChartFileOf(name), name);
}

}  // namespace
}  // namespace chartproject
