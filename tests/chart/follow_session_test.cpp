// The chart window over a recording that runs: it follows the end, goes over to the chart file, and shows what a
// recorder that was killed has left.
#include "chart/chart_session.h"
#include "recording/journal/run_spool.h"

namespace chartproject {
namespace {

/// A recording that runs beside the window.
struct FollowSession : ChartSession {
  FollowSession() {
    header.DriveAddress = "01";
    header.NumberOfParameters = "1";
    header.PXXX1 = "003";
    header.ScanTime = "2";
    header.Unit = "s";
    header.NumberOfPoints = "100000";
    header.TriggerMode = "Manual";
    fakes.files.locked.insert(kFile);
    brief = true;
  }
  /// The recorder takes points; the value of a point is its number.
  void Record(int points, bool inMemory = false) {
    if (recorded.empty()) {
      journal.Begin(kFile, header, 2000, simulated);
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
    if (transcript) transcript->Add("\n" + std::to_string(points) + " points more");
  }
  /// Its chart file is complete, and the files beside it go.
  void Finish() {
    std::string text;
    for (const HeaderKey& entry : kHeaderKeys) text += std::string(entry.key) + header.*entry.field + "\r\n";
    fakes.files.Put(kFile, "[INFO]\r\n" + text + "[TIME/CONTENT]\r\n" + rows);
    spool.End();
    journal.End(false);
    fakes.files.locked.clear();
    transcript->Add("\nthe recording ends");
  }
  void Follow(const std::function<void(ChartForm&)>& user) {
    fakes.forms.onShown = [&](Form& form) {
      LookAt(static_cast<ChartForm&>(form));
      user(static_cast<ChartForm&>(form));
      if (form.IsShown()) form.CloseByUser();
    };
    transcript->Add(ShowFollowing(component, kFile) ? "shown" : "not shown");
  }
  void Look(ChartForm& form, int times = 1) {
    for (int i = 1; i < times; ++i) form.follow.tmrFollow.Fire();
    Do(form, "tmrFollow");
    while (form.overview.tmrSurvey.Enabled()) form.overview.tmrSurvey.Fire();
    LookAt(form);
  }
  bool simulated = false;
  ChartHeader header;
  FailedReadings failed;
  std::vector<PointRow> recorded;
  std::string rows;
  RecordingJournal journal{fakes.files, fakes.codePage};
  RunSpool spool{fakes.files, journal};
};

TEST_F(FollowSession, TheEndStaysInViewUntilTheRecordingEnds) {
  Record(40);
  Begin("chart_follow");
  Follow([&](ChartForm& form) {
    const auto more = [&](int points, const char* key) {
      if (*key != 0) Do(form, key);
      Record(points);
      Look(form);
    };
    more(460, "");
    more(100, "");
    more(1, "key Home");
    more(9, "key End");
    more(90, "key F");
    more(20, "sldPointsPerDivision=10");
    Play(form, 2);
    Record(7);
    Finish();
    Look(form);
    Play(form);
  });
}

TEST_F(FollowSession, EndsInOtherWays) {
  simulated = true;
  failed[0].Note(2, {ReadFailure::kChecksum, ""});
  Record(30, true);
  Begin("chart_follow_ends");
  Follow([&](ChartForm& form) {
    failed[0].Note(32, {ReadFailure::kNoAnswer, ""});
    Record(3, true);
    Look(form);
    Look(form, 60);  // a slow recording: as long as its lock is held it runs
    fakes.files.locked.clear();
    transcript->Add("\nthe recorder is killed");
    Look(form, 9);
    Look(form, 60);
    Finish();  // somebody recovers it
    Do(form, "key +");
  });
  transcript->Add("\nthe chart file grows");
  Follow([&](ChartForm& form) {
    Do(form, "key End");
    fakes.files.Overwrite(kFile, fakes.files.Bytes(kFile) + "08:00:00#61#####\r\n08:00:00#62#####\r\n");
    Look(form);
    Look(form);
    fakes.files.Overwrite(kFile, fakes.files.Bytes(kFile) + "broken\r\n");
    Look(form);
    Look(form);
    fakes.files.Break("", error_number::kPermissionDenied, kFile);
    Look(form);
    fakes.files.Mend();
  });
  recorded.clear();
  Record(30);
  Follow([&](ChartForm& form) {
    fakes.files.Append(spool.Name(), "broken\r\n");
    Look(form);
    for (const std::string& name : fakes.files.FilesIn("/data")) fakes.files.Delete("/data/" + name);
    Look(form);
    Do(form, "key Home");
  });
}

}  // namespace
}  // namespace chartproject
