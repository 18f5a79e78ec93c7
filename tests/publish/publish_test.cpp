// The core of publishing: lines, moments, the files of a recording in each state, and what is sent again when.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <deque>

#include "common/values/numbers.h"
#include "platform/run_time_error.h"
#include "publish/publish_texts.h"
#include "publish/publisher.h"
#include "publish/series_names.h"
#include "support/error_of.h"
#include "support/fake_ports.h"
#include "support/session_script.h"

namespace chartproject {
namespace {

using std::chrono::milliseconds, std::chrono::minutes, std::chrono::seconds;
using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::StartsWith;

constexpr const char* kChart = "/p/Test.cht";
constexpr const char* kJournal = "/p/Test.cht.recording";
constexpr const char* kPosition = "/p/Test.cht.published";
constexpr std::int64_t kStart = 1'769'846'400'000;  // 2026-01-31 08:00:00 UTC

struct Utc : TimeZone {
  std::int64_t UtcSeconds(const DateTime& local) const override {
    return (std::chrono::sys_days{std::chrono::year{local.year} / local.month / local.day}.time_since_epoch() +
            std::chrono::hours(local.hour) + minutes(local.minute) + seconds(local.second)) /
           seconds(1);
  }
  std::int64_t OffsetAt(std::int64_t /*utcSeconds*/) const override { return 0; }
};

/// Answers as a test wants, and keeps what it took.
struct FakePoster : LinePoster {
  PostAnswer Post(std::string_view lines, const std::function<bool()>& /*goOn*/) override {
    ++posts;
    PostAnswer answer{.result = PostResult::kTaken, .breaks = breaks};
    if (!answers.empty()) {
      answer = answers.front();
      answers.pop_front();
    }
    if (answer.result == PostResult::kTaken) taken += lines;
    last = std::count(lines.begin(), lines.end(), '\n');
    return answer;
  }
  const std::string& Server() const override { return address; }
  const std::string& Address() const override { return address; }

  std::string address = "http://db/write";
  std::deque<PostAnswer> answers;
  std::string taken;
  std::int64_t last = 0;  ///< lines of the last post
  std::int64_t breaks = 0;
  int posts = 0;
};

std::string Header(const std::string& scan = "1", const std::string& unit = "s") {
  return "Drive Address=01\r\nNumber of Parameters=2\r\nPXXX1=002\r\nPXXX2=003\r\nScan Time=" + scan +
         "\r\nUnit=" + unit + "\r\nNumber of Points=9\r\nStart Date=31/01/2026\r\nStart Time=08:00:00\r\n";
}

/// Rows of one second each, with values that name their points.
std::string Rows(int first, int last) {
  std::string rows;
  for (int point = first; point <= last; ++point) {
    const int second = point - 1;
    rows += FormatTimeOfDay(8 + second / 3600, second / 60 % 60, second % 60) + "#" + std::to_string(point) +
            "#1,5####\r\n";
  }
  return rows;
}

std::string Chart(const std::string& rows) {
  return "[INFO]\r\n" + Header() + "[TIME/CONTENT]\r\n" + rows;
}

std::string Journal(const std::string& more) {
  return "[RECORDING]\r\nJournal=1\r\nInterval=1000\r\n" + Header() + "Begun=2026-01-31 08:00:00\r\n" + more;
}

class PublishTest : public ::testing::Test {
 protected:
  PublishTest() { Open(); }

  void Open(bool live = false, bool again = false) {
    publisher.reset();
    PublishRequest request{.chartFile = kChart, .measurement = "chart", .live = live, .again = again};
    request.tags = [](const ChartHeader& header) { return LineTags{{"drive", header.DriveAddress}}; };
    publisher = std::make_unique<Publisher>(PublishPorts{fake.files, fake.codePage, fake.locale, zone, fake.clock},
                                            std::move(request), poster);
    publisher->troubled = [this] { ++troubles; };
  }
  /// Steps until it ends, or for so long.
  PublishState Run(Instant time = minutes(30)) {
    const Instant limit = fake.clock.Now() + time;
    for (;;) {
      const PublishState state = publisher->Step([] { return true; });
      if (state == PublishState::kComplete || state == PublishState::kFailed) return state;
      if (state == PublishState::kSending) continue;
      if (publisher->WakeAt() > limit) return state;
      fake.clock.AdvanceTo(publisher->WakeAt());
    }
  }
  /// First and last number of each stretch that was taken, "1-5 3-9".
  std::string Taken() {
    std::string stretches;
    std::int64_t last = -1;
    std::istringstream lines(std::exchange(poster.taken, ""));
    for (std::string line; std::getline(lines, line);) {
      const std::int64_t point = (std::stoll(line.substr(line.rfind(' '))) - kStart) / 1000 + 1;
      if (point != last + 1) stretches += (last < 0 ? "" : "-" + std::to_string(last) + " ") + std::to_string(point);
      last = point;
    }
    return last < 0 ? "" : stretches + "-" + std::to_string(last);
  }

  FakePorts fake;
  Utc zone;
  FakePoster poster;
  int troubles = 0;
  std::unique_ptr<Publisher> publisher;
};

/// A session of publishing: the files of a recording as they come and go, the server's answers, and what left.
struct PublishSession : PublishTest {
  PublishSession() {
    auto& does = script.does;
    does["put"] = [this](const Words& words) { fake.files.Put(words.at(1), words.at(2)); };
    does["huge"] = [this](const Words& words) {
      fake.files.Append(words.at(1), std::string(std::size_t{1} << 20U, '\n'));
    };
    does["append"] = [this](const Words& words) { fake.files.Append(words.at(1), words.at(2)); };
    does["remove"] = [this](const Words& words) { fake.files.Remove(words.at(1)); };
    does["lock"] = [this](const Words& words) { fake.files.locked.insert(words.at(1)); };
    does["unlock"] = [this](const Words& /*words*/) { fake.files.locked.clear(); };
    does["show"] = [this](const Words& words) { script.transcript.Add(fake.files.Bytes(words.at(1))); };
    does["chart"] = [this](const Words& words) { fake.files.Put(kChart, Chart(RowsOf(words))); };
    does["rows"] = [this](const Words& words) { fake.files.Append(words.at(3), RowsOf(words)); };
    does["journal"] = [this](const Words& words) { fake.files.Put(kJournal, Journal(words.at(1))); };
    does["comma"] = [this](const Words& /*words*/) { fake.locale.UseComma(); };
    does["answer"] = [this](const Words& words) {
      poster.answers.push_back({static_cast<PostResult>(std::stoi(words.at(1))), std::stoi(words.at(2)), words.at(3)});
      poster.answers.back().mayHaveDied = words.size() > 4;
    };
    does["server"] = [this](const Words& words) { poster.address = words.at(1); };
    does["open"] = [this](const Words& words) {
      const auto given = [&](const char* word) { return std::ranges::find(words, word) != words.end(); };
      Open(given("live"), given("again"));
      publisher->troubled = [this] { script.transcript.Add("troubled"); };
      publisher->recovered = [this] { script.transcript.Add("recovered"); };
    };
    does["ended"] = [this](const Words& /*words*/) { publisher->RecordingEnded(), publisher->Hurry(); };
    does["wait"] = [this](const Words& words) { fake.clock.AdvanceTo(fake.clock.Now() + Of(words)); };
    does["keep"] = [this](const Words& /*words*/) { publisher->KeepPosition(); };
    does["run"] = [this](const Words& words) { Say(Run(Of(words))); };
  }
  static Instant Of(const Words& words) { return seconds(std::stoi(words.at(1))); }
  static std::string RowsOf(const Words& words) { return Rows(std::stoi(words.at(1)), std::stoi(words.at(2))); }

  void Say(PublishState state) {
    constexpr const char* kStates[] = {"sending", "waiting", "complete", "failed"};
    const PublishReport& report = publisher->Report();
    std::ostringstream text;
    text << kStates[static_cast<int>(state)] << " acknowledged " << report.acknowledged << " from " << report.begun
         << " lines " << report.lines << " values " << report.values << " without " << report.valueless << " last "
         << poster.last << (publisher->Follows() ? " follows" : "") << " share "
         << std::lround(100 * publisher->Share()) << "\n";
    const bool few = std::ranges::count(poster.taken, '\n') <= 6;
    text << (few ? std::exchange(poster.taken, "") : Taken() + "\n");
    for (const Language language : {Language::kEnglish, Language::kPortuguese, Language::kSpanish}) {
      const std::string failure = FailureText(language, poster.address, report);
      if (!failure.empty()) text << failure << "\n";
      if (report.positionFault) text << report.positionFault->Description(language) << "\n";
    }
    std::string said = text.str();
    said.pop_back();
    script.transcript.Add(said);
  }

  SessionScript script{"publish_core"};
};

TEST_F(PublishSession, IsAsItWasRead) {
  script.Run();
}

TEST(LineProtocol, TagsAreEscapedAndNothingEndsThemEarly) {
  EXPECT_EQ(SeriesKey("my chart,x", {{"tag", "Press 2, left=1"}, {"drive", "01"}, {"model", ""}}),
            "my\\ chart\\,x,drive=01,tag=Press\\ 2\\,\\ left\\=1");
  EXPECT_EQ(SeriesKey("c", {{"t", "a\nb\x7F\\"}}), "c,t=a\\ b\\ /");
  EXPECT_EQ(SeriesKey("c", {{"t", std::string(255, 'a') + "\xC3\xA9"}}), "c,t=" + std::string(255, 'a'));
  for (const char* good : {"c", "c,t=a\\ b", "c,t=a\\,b\\=c"}) EXPECT_TRUE(IsSeriesKeyOf(good, "c")) << good;
  for (const char* bad : {"", "d", "cc", "c,t=a b", "c,t=a\\", "c,t=a\\n", "c,t=a\n"}) {
    EXPECT_FALSE(IsSeriesKeyOf(bad, "c")) << bad;
  }
  for (const char* bad : {"", "_internal", "a\\b", "a\nb"}) EXPECT_FALSE(IsMeasurement(bad)) << bad;
}

TEST(LineProtocol, OnlyNumbersAreValues) {
  const NumberFormat numbers{",", "."};
  PointLines lines("c,d=1", {"P002", "P003"}, numbers);
  std::string text;
  const auto line = [&](const char* first, const char* second) {
    text.clear();
    lines.Begin(text);
    lines.Value(text, 0, first);
    lines.Value(text, 1, second);
    return lines.End(text, 1000) ? text : "none" + text;
  };
  EXPECT_EQ(line("17,5", "-0012"), "c,d=1 P002=17.5,P003=-12 1000\n");
  EXPECT_EQ(line("--", "3"), "c,d=1 P003=3 1000\n");
  EXPECT_EQ(line("", "RUN"), "c,d=1 P002=0 1000\n");
  EXPECT_EQ(line("1E+999", "nan"), "none");
}

TEST(RowMoments, FollowTheRowsOnlyWhereTheyAreAhead) {
  FakeLocale locale;
  const Utc zone;
  ChartHeader header;
  header.ScanTime = "200";
  header.Unit = "ms";
  header.StartDate = "31/01/2026";
  header.StartTime = "23:59:58";
  RowMoments moments(header, nullptr, locale, zone, kChart);
  const std::int64_t begin = kStart + (15 * 3600 + 3598) * 1000 + 3'600'000 - 3'600'000;
  EXPECT_EQ(moments.Begin().moment, begin);
  EXPECT_EQ(moments.At(1, "23:59:58") - begin, 0);
  EXPECT_EQ(moments.At(11, "00:00:01") - begin, 2000);  // the second of the row may have begun just now
  EXPECT_EQ(moments.At(12, "00:00:02") - begin, 2200);
  EXPECT_EQ(moments.At(13, "00:00:05") - begin, 7000);  // late: the row's own time
  EXPECT_EQ(moments.At(14, "00:00:05") - begin, 7200);
  EXPECT_EQ(moments.At(15, "23:00:00") - begin, 7400);  // the clock was set back: times go on
  const RowMoments::Anchor anchor = moments.State();
  moments.Restore(moments.Begin());
  EXPECT_EQ(moments.At(2, "23:59:58") - begin, 200);
  moments.Restore(anchor);
  EXPECT_EQ(moments.At(14, "00:00:05") - begin, 7200);  // sent again: equal
  header.StartDate = "someday";
  EXPECT_THAT(ErrorTextOf([&] { RowMoments(header, nullptr, locale, zone, kChart); }),
              StartsWith("321 /p/Test.cht: the file does not say when it was recorded"));
}

TEST(SeriesNames, ARecoveredRecordingKeepsItsNames) {
  ChartHeader header;
  header.NumberOfParameters = "3";
  header.PXXX1 = header.PXXX3 = "002";
  EXPECT_THAT(FieldNames(header), ElementsAre("P002", "column2", "P002_2"));
  EXPECT_THAT(RecordingName("/p/Test.cht", header), ::testing::MatchesRegex("Test-[0-9a-f]{8}"));
  EXPECT_EQ(RecordingName("/p/Test.recovered.cht", header), RecordingName("/p/Test.cht", header));
  EXPECT_EQ(RecordingName("/p/Test.recovered12.cht", header), RecordingName("/p/Test.cht", header));
  EXPECT_EQ(NamesBeforeRecovery("/p/x.recovered1"), (std::vector<std::string>{"/p/x.recovered1", "/p/x.cht", "/p/x"}));
  EXPECT_NE(RecordingName("/q/Test.cht", header), RecordingName("/p/Test.cht", header));
}

TEST_F(PublishTest, ARunningRecordingIsFollowedThroughItsFilesIntoItsChartFile) {
  for (const bool spooled : {false, true}) {
    SCOPED_TRACE(spooled);
    for (const std::string name : {"", ".tcf0", ".tcf1", ".recording", ".published"}) fake.files.Remove(kChart + name);
    fake.files.locked.insert(kChart);
    fake.files.Put(kChart, Chart("08:00:00#99#99####\r\n"));  // an older one of that name, until the end
    const std::string rowFile = spooled ? "/p/Test.cht.tcf0" : kJournal;
    fake.files.Put(kJournal, Journal(""));
    fake.files.Put(rowFile, spooled ? "" : Journal("[TIME/CONTENT]\r\n"));
    if (spooled) fake.files.Append(kJournal, "Spool=0\r\n");
    Open();
    fake.files.Append(rowFile, Rows(1, 3) + "08:00:03#4");
    EXPECT_EQ(Run(seconds(3)), PublishState::kWaiting);
    EXPECT_EQ(Taken(), "1-3");
    fake.files.Append(kJournal, "'Fails=1 P002 4 4 1 no-answer\r\n");
    if (!spooled)
      fake.files.Overwrite(rowFile,
                           Journal("[TIME/CONTENT]\r\n'Fails=1 P002 4 4 1 no-answer\r\n" + Rows(1, 3) + "08:00:03#4"));
    fake.files.Append(rowFile, "#7####\r\n");
    EXPECT_EQ(Run(seconds(3)), PublishState::kWaiting);
    if (spooled) {
      EXPECT_THAT(poster.taken, HasSubstr(" P003=7 1769846403000\n"));
      EXPECT_EQ(Taken(), "4-4");
      fake.files.Put("/p/Test.cht.tcf1", Rows(5, 6));
      fake.files.Append(kJournal, "'Failed=1 P002 4 4 1 no-answer\r\nSpool=1\r\n");
      EXPECT_EQ(Run(seconds(3)), PublishState::kWaiting);
      EXPECT_EQ(Taken(), "5-6");
    }
    (void)Taken();
    fake.files.Put(kChart, Chart(Rows(1, 9)));
    for (const std::string name : {".tcf0", ".tcf1", ".recording"}) fake.files.Remove(kChart + name);
    fake.files.locked.clear();
    EXPECT_EQ(Run(), PublishState::kComplete);
    EXPECT_THAT(Taken(), ::testing::EndsWith("-9"));
    EXPECT_EQ(publisher->Report().acknowledged, 9);
  }
}

TEST_F(PublishTest, AfterABreakTheLastTenMinutesGoAgainAndAfterARefusalNothing) {
  fake.files.locked.insert(kChart);
  fake.files.Put("/p/Test.cht.tcf0", "");
  fake.files.Put(kJournal, Journal("Spool=0\r\n"));
  Open();
  const auto record = [&](int first, int last) {
    for (int point = first; point <= last; ++point) {
      fake.files.Append("/p/Test.cht.tcf0", Rows(point, point));
      (void)Run(seconds(1));
      fake.clock.AdvanceTo(seconds(point));
    }
  };
  record(1, 1000);
  EXPECT_EQ(Taken(), "1-999");
  poster.answers = {{.result = PostResult::kServerBusy, .status = 507},
                    {.result = PostResult::kServerBusy, .status = 507}};
  record(1001, 1010);
  EXPECT_THAT(Taken(), StartsWith("1000-"));
  EXPECT_EQ(troubles, 1);
  poster.answers.assign(3, {.result = PostResult::kNotReached, .text = "refused", .mayHaveDied = true});
  record(1011, 1040);
  const std::string again = Taken();
  const std::int64_t from = std::stoll(again);
  EXPECT_GT(from, 400);
  EXPECT_LE(from, 411) << again;
  EXPECT_EQ(troubles, 2);
  poster.breaks = 1;  // it died and returned between two batches
  record(1041, 1045);
  EXPECT_THAT(Taken(), ::testing::MatchesRegex("1041-104[0-9] 4[01][0-9]-1045"));
  publisher->KeepPosition();
  EXPECT_THAT(fake.files.Bytes(kPosition), HasSubstr("\r\nTimes=rows\r\nAcknowledged=10"));
  // The recorder dies here, and the recording comes back under another name.
  publisher.reset();
  fake.files.locked.clear();
  const std::string rows = fake.files.Bytes("/p/Test.cht.tcf0");
  for (const std::string name : {".tcf0", ".recording"}) fake.files.Remove(kChart + name);
  fake.files.Put(kChart, Chart(rows));
  Open();
  EXPECT_EQ(Run(), PublishState::kComplete);
  EXPECT_THAT(Taken(), ::testing::MatchesRegex("4[0-9][0-9]-1045"));
  EXPECT_EQ(publisher->Report().acknowledged, 1045);
}

}  // namespace
}  // namespace chartproject
