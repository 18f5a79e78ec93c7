// Links to simulated plants: scripts, what holds when and what is refused; the simulated machines, which work their
// cycle, show it in every parameter, and repeat it exactly.
#include <gmock/gmock.h>

#include <cmath>
#include <set>

#include "common/values/numbers.h"
#include "drive/drive_models.h"
#include "drive/drive_status.h"
#include "drive/unit_codes.h"
#include "links/scenario_link.h"
#include "links/shown_value.h"
#include "links/simulated_link.h"
#include "links/simulated_parameters.h"
#include "support/error_of.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::HasSubstr;

constexpr const char* kNoAnswer = "(no answer)";

struct LinkTest : ::testing::Test {
  void Open(DriveLinkFactory&& factory) {
    link = factory.Create(wait);
    link->OpenLink();
    opened = fakes.clock.Now();
  }
  void GoTo(double seconds) { fakes.clock.AdvanceTo(opened + Instant(std::llround(seconds * 1e6))); }
  std::string Read(const std::string& model, int parameter, std::int16_t unitCode, int address = 1) const {
    const ReadOutcome outcome = link->ReadParameter(static_cast<std::int16_t>(address), ModelCode(model),
                                                    static_cast<std::int16_t>(parameter), unitCode);
    return outcome.Answered() ? link->GetText() : "(" + FailureText(Language::kEnglish, outcome) + ")";
  }

  FakePorts fakes;
  LinkWait wait;
  std::unique_ptr<DriveLink> link;
  Instant opened{0};
};

struct ScenarioTest : LinkTest {
  ScenarioLinkFactory Load() {
    return {fakes.files, fakes.clock, [this](Instant moment) { fakes.clock.AdvanceTo(moment); }, "/plant.txt"};
  }
  void OpenPlant() { Open(Load()); }
  /// The text of a read at a moment, or "(no answer)".
  std::string ReadAt(int milliseconds, int address, int parameter) {
    GoTo(milliseconds / 1000.0);
    return Read("KRA-09", parameter, 7, address);
  }
};

TEST_F(ScenarioTest, AValueHoldsFromItsMomentUntilTheNext) {
  fakes.clock.Advance(std::chrono::seconds(90));  // the script begins when the link is opened
  fakes.files.Put("/plant.txt",
                  "\xEF\xBB\xBF# a plant\r\n\r\n"
                  "at 200 01 P005 60   # written before the line for its past\n"
                  "at 0\t01 P005 50.25\n"
                  "at 200 01 P005 61,5\n"
                  "at 0 01 P012 AIA IAI\n"
                  "at 150 01 silent\nat 180 01 answers\n");
  OpenPlant();
  const std::tuple<int, int, int, const char*> cases[] = {
      {0, 1, 5, "50.25"},     {0, 1, 12, "AIA IAI"}, {0, 2, 5, kNoAnswer}, {149, 1, 5, "50.25"},
      {150, 1, 5, kNoAnswer}, {180, 1, 5, "50.25"},  {199, 1, 5, "50.25"}, {200, 1, 5, "61,5"}};
  for (const auto& [moment, address, parameter, text] : cases) {
    EXPECT_EQ(ReadAt(moment, address, parameter), text) << moment << " P" << parameter;
  }
  EXPECT_EQ(link->GetValue(), 61.5);
  EXPECT_EQ(ReadAt(300, 1, 12), "AIA IAI");
  EXPECT_EQ(link->GetValue(), 0);
}

TEST_F(ScenarioTest, RefusesAMalformedLineByFileNumberAndText) {
  for (const char* line :
       {"at 0 01 P005",    "at x 01 P005 1",        "at -5 01 P005 1",     "at 0 1 P005 1",      "at 0 31 P005 1",
        "at 0 01 P5 1",    "at 0 01 P005x 1",       "at 0 01 quiet",       "at 0 01 silent now", "at 0 01 answers yes",
        "at 0 01 fails",   "at 0 01 fails 0",       "at 0 01 fails 32768", "at 0 01 fails x",    "at 0 01 slow",
        "at 0 01 slow -1", "at 0 01 late 86400001", "at 0 01 slow 5 ms",   "0 01 P005 1",        "\x01\x02\xFF",
        "at 0 01 X005 1"}) {
    fakes.files.Put("/plant.txt", "at 0 01 P005 1\n# fine\n" + std::string(line) + "\nat 1 01 P005 1\n");
    const std::string error = ErrorTextOf([this] { Load(); });
    EXPECT_THAT(error, HasSubstr("/plant.txt, line 3 is not understood: " + std::string(line)));
  }
  fakes.files.Delete("/plant.txt");
  EXPECT_THROW(Load(), RunTimeError);
  fakes.files.Put("/plant.txt", std::string((std::size_t{70} << 20U) + 1, '\n'));
  EXPECT_EQ(ErrorTextOf([this] { Load(); }),
            "5 /plant.txt: the file has 71 MB; a file of this kind has at most 64 MB.");
}

TEST_F(ScenarioTest, ReadingsFailForTheReasonsOfTheScriptUntilTheDriveAnswers) {
  fakes.files.Put("/plant.txt",
                  "at 0 01 P005 50\nat 100 01 silent\nat 200 01 fails 2\nat 300 01 fails 3 CRC 4711\n"
                  "at 400 01 fails 4 illegal address # as drives say\nat 500 01 fails 5\nat 600 01 fails 77 unknown\n"
                  "at 700 01 answers\nat 800 01 breaks\nat 900 01 breaks server died\n");
  OpenPlant();
  const std::pair<int, const char*> cases[] = {{99, "50"},
                                               {100, "(no answer)"},
                                               {200, "(incomplete answer)"},
                                               {300, "(bad checksum (CRC 4711))"},
                                               {400, "(refused by the drive (illegal address))"},
                                               {500, "(the port is gone)"},
                                               {600, "(status 77)"},
                                               {700, "50"}};
  for (const auto& [moment, text] : cases) EXPECT_EQ(ReadAt(moment, 1, 5), text) << moment;
  EXPECT_EQ(ErrorTextOf([this] { ReadAt(800, 1, 5); }), "440 breaks");
  EXPECT_EQ(ErrorTextOf([this] { ReadAt(900, 1, 5); }), "440 server died");
}

TEST_F(ScenarioTest, ASlowDriveTakesItsTimeAndALateReadingOnce) {
  fakes.files.Put("/plant.txt",
                  "at 0 01 P005 50\nat 1000 01 slow 30\nat 2000 01 slow 0\nat 3000 01 late 700\nat 3010 01 late 5\n"
                  "at 4000 01 silent\nat 4000 01 slow 120\nat 0 02 P005 1\nat 0 02 late 60\n");
  OpenPlant();
  const std::tuple<int, int, int, const char*> cases[] = {
      // moment, address, its milliseconds, answer
      {0, 2, 60, "1"},    {100, 1, 0, "50"},    {101, 2, 0, "1"},   {1000, 1, 30, "50"},          {1100, 1, 30, "50"},
      {2000, 1, 0, "50"}, {3100, 1, 705, "50"}, {3900, 1, 0, "50"}, {4000, 1, 120, "(no answer)"}};
  for (const auto& [moment, address, taken, text] : cases) {
    EXPECT_EQ(ReadAt(moment, address, 5), text) << moment;
    EXPECT_EQ(fakes.clock.Now() - opened, std::chrono::milliseconds(moment + taken)) << moment;
  }
}

TEST_F(ScenarioTest, AWaitingLinkAsksInSlicesAndGivesUp) {
  fakes.files.Put("/plant.txt", "at 0 01 P005 50\nat 0 01 slow 3600000\n");
  OpenPlant();
  std::vector<Instant> asked;
  wait.goOn = [&] {
    asked.push_back(fakes.clock.Now() - opened);
    return asked.size() < 4;
  };
  EXPECT_EQ(link->ReadParameter(1, "8", 5, 7).failure, ReadFailure::kGivenUp);
  using std::chrono::milliseconds;
  EXPECT_THAT(asked, ::testing::ElementsAre(milliseconds(0), milliseconds(50), milliseconds(100), milliseconds(150)));
}

struct SimulatedTest : LinkTest {
  SimulatedTest() { OpenLink(); }
  void OpenLink() { Open(SimulatedLinkFactory(fakes.clock, fakes.locale)); }
  std::string State() {
    Read("KRA-09", 6, kDirectUnitCode);
    DriveStatus status;
    DecodeStatus(status, link->GetValue());
    return status.strStatus;
  }
};

TEST_F(SimulatedTest, StartsRunsRampsAndStopsWithItsStatusWordAndInputs) {
  EXPECT_EQ(Read("KRA-09", 3, 2), "0.0");  // no current at rest
  EXPECT_EQ(Read("KRA-09", 12, kDirectUnitCode), "192");
  const std::tuple<double, const char*, double, const char*> cases[] = {
      {0, "READY", 0, "IIIIIIAA"},  {3.5, "RUN", 875, "AIIIIIAA"},      {8, "RUN", 1750, "AIAAIIAA"},
      {26, "READY", 0, "IIIIIIAA"}, {4 * 30 - 1, "SUB", 0, "IIIIIIIA"}, {6 * 30 - 1, "E04", 0, "IIIIIIAI"}};
  for (const auto& [moment, state, speed, inputs] : cases) {
    GoTo(moment);
    EXPECT_EQ(State(), state) << moment;
    EXPECT_EQ(Read("KRA-09", 12, kDigitalInputsUnitCode), inputs) << moment;
    Read("KRA-09", 2, kDirectUnitCode);
    EXPECT_NEAR(link->GetValue(), speed, speed == 0 ? 0 : 5) << moment;
  }
}

TEST_F(SimulatedTest, EveryModelsParametersAnswerInTheDecimalsOfTheirUnitAndMove) {
  for (const std::string model : {"KRA-09", "KRA-08", "LMX-01", "KRD-04", "TSR-05", "PVE-05"}) {
    OpenLink();
    GoTo(4);
    std::set<std::string> texts;
    for (const SimulatedParameter& parameter : SimulatedParameters(model)) {
      const std::int16_t code = FindUnitCode(UnitOf(parameter, *FindParameterKind(parameter.kind)));
      ASSERT_NE(code, kUnknownUnitCode) << parameter.kind;
      const std::string text = Read(model, parameter.number, code);
      texts.insert(text);
      if (FindParameterKind(parameter.kind)->low < 0) {
        EXPECT_LT(ValueWriter(fakes.locale).WriteRegister(0xFFFF, code).number, 0)
            << "signed on a line: " << parameter.kind;
      }
      if (code > 72) continue;
      EXPECT_EQ(ToDouble(text, fakes.locale.numbers), link->GetValue()) << model << parameter.number;
      const std::size_t point = text.find('.');
      EXPECT_EQ(point == std::string::npos ? 0 : text.size() - point - 1, static_cast<std::size_t>((code - 1) % 6))
          << model << " P" << parameter.number << " " << text;
    }
    EXPECT_GT(texts.size(), 20U) << model;
    const std::string before = Read(model, 2, kDirectUnitCode);
    GoTo(4.3);
    EXPECT_NE(Read(model, 2, 2), before) << model;
  }
}

TEST_F(SimulatedTest, ShowsTheSameAtTheSameMomentAndNotInStepAtTwoAddresses) {
  const auto record = [this](int address) {
    OpenLink();
    std::vector<std::string> texts;
    for (int i = 0; i < 100; ++i) {
      GoTo(i * 0.2);
      texts.push_back(Read("KRD-04", 3, 3, address));
    }
    return texts;
  };
  const std::vector<std::string> first = record(4);
  fakes.clock.Advance(std::chrono::hours(3));
  EXPECT_EQ(record(4), first);
  EXPECT_NE(record(5), first);
}

TEST_F(SimulatedTest, DecimalsFollowTheToldParametersAndTheLocale) {
  GoTo(8);
  EXPECT_THAT(Read("KRA-09", 1, kDependsOnP210UnitCode), "1750");
  link->SetP210Value(2);
  link->SetP529Value(1);
  EXPECT_EQ(Read("KRA-09", 1, kDependsOnP210UnitCode), "1750.00");
  const std::string value = Read("KRA-09", 40, kDependsOnP529UnitCode);  // with noise: its digits may differ
  EXPECT_THAT(value, ::testing::MatchesRegex("9.\\..")) << value;
  link->SetP210Value(-7);
  EXPECT_EQ(Read("KRA-09", 1, kDependsOnP210UnitCode), "1750");
  fakes.locale.UseComma();
  EXPECT_EQ(Read("KRD-04", 32, kDividedBy10UnitCode), "12,5");
  EXPECT_EQ(link->GetValue(), 12.5);
  EXPECT_EQ(Read("KRD-04", 32, kDividedBy100UnitCode), "1,3");
  EXPECT_EQ(Read("KRA-08", 208, 0), "30");  // an unknown unit shows whole numbers
}

TEST_F(SimulatedTest, AnswersForKnownModelsAndTheirParametersOnly) {
  const std::tuple<const char*, int, int, const char*> cases[] = {
      {"KRA-07", 208, 30, "1800"}, {"TSR-03", 101, 1, "30"},    {"KRA-09", 999, 1, kNoAnswer},
      {"KRA-10", 3, 1, kNoAnswer}, {"KRA-09", 3, 0, kNoAnswer}, {"KRA-09", 3, 31, kNoAnswer}};
  for (const auto& [model, parameter, address, text] : cases)
    EXPECT_EQ(Read(model, parameter, kDirectUnitCode, address), text) << model;
}

}  // namespace
}  // namespace chartproject
