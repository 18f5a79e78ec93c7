// Links to simulated plants: scripts, what holds when and what is refused; one simulated drive.
#include <gmock/gmock.h>

#include <cmath>

#include "drive/drive_models.h"
#include "drive/unit_codes.h"
#include "links/scenario_link.h"
#include "links/simulated_link.h"
#include "support/error_of.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

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
  ScenarioLinkFactory Load() {
    return {fakes.files, fakes.clock, [this](Instant moment) { fakes.clock.AdvanceTo(moment); }, "/plant.txt"};
  }
  /// The text of a read at a moment, or "(no answer)".
  std::string ReadAt(int milliseconds, int address, int parameter) {
    GoTo(milliseconds / 1000.0);
    return Read("KRA-09", parameter, 7, address);
  }

  FakePorts fakes;
  LinkWait wait;
  std::unique_ptr<DriveLink> link;
  Instant opened{0};
};

TEST_F(LinkTest, AValueHoldsFromItsMomentUntilTheNext) {
  fakes.clock.Advance(std::chrono::seconds(90));  // the script begins when the link is opened
  fakes.files.Put("/plant.txt",
                  "\xEF\xBB\xBF# a plant\r\n\r\n"
                  "at 200 01 P005 60   # written before the line for its past\n"
                  "at 0\t01 P005 50.25\n"
                  "at 200 01 P005 61,5\n"
                  "at 0 01 P012 AIA IAI\n"
                  "at 150 01 silent\nat 180 01 answers\n");
  Open(Load());
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

TEST_F(LinkTest, RefusesAFileThatIsMissingOrTooLarge) {
  EXPECT_THROW(Load(), RunTimeError);
  fakes.files.Put("/plant.txt", std::string((std::size_t{70} << 20U) + 1, '\n'));
  EXPECT_EQ(ErrorTextOf([this] { Load(); }),
            "5 /plant.txt: the file has 71 MB; a file of this kind has at most 64 MB.");
}

TEST_F(LinkTest, ASlowDriveTakesItsTimeAndALateReadingOnce) {
  fakes.files.Put("/plant.txt",
                  "at 0 01 P005 50\nat 1000 01 slow 30\nat 2000 01 slow 0\nat 3000 01 late 700\nat 3010 01 late 5\n"
                  "at 4000 01 silent\nat 4000 01 slow 120\nat 0 02 P005 1\nat 0 02 late 60\n");
  Open(Load());
  const std::tuple<int, int, int, const char*> cases[] = {
      // moment, address, its milliseconds, answer
      {0, 2, 60, "1"},    {100, 1, 0, "50"},    {101, 2, 0, "1"},   {1000, 1, 30, "50"},          {1100, 1, 30, "50"},
      {2000, 1, 0, "50"}, {3100, 1, 705, "50"}, {3900, 1, 0, "50"}, {4000, 1, 120, "(no answer)"}};
  for (const auto& [moment, address, taken, text] : cases) {
    EXPECT_EQ(ReadAt(moment, address, 5), text) << moment;
    EXPECT_EQ(fakes.clock.Now() - opened, std::chrono::milliseconds(moment + taken)) << moment;
  }
}

TEST_F(LinkTest, ASimulatedDriveFollowsTheToldDecimalsAndTheLocale) {
  Open(SimulatedLinkFactory(fakes.clock, fakes.locale));
  GoTo(8);
  EXPECT_THAT(Read("KRA-09", 1, kDependsOnP210UnitCode), "1750");
  link->SetP210Value(2);
  link->SetP529Value(1);
  EXPECT_EQ(Read("KRA-09", 1, kDependsOnP210UnitCode), "1750.00");
  const std::string value = Read("KRA-09", 40, kDependsOnP529UnitCode);  // with noise: its digits may differ
  EXPECT_THAT(value, ::testing::MatchesRegex("9.\\..")) << value;
  fakes.locale.UseComma();
  EXPECT_EQ(Read("KRD-04", 32, kDividedBy10UnitCode), "12,5");
  EXPECT_EQ(link->GetValue(), 12.5);
}

}  // namespace
}  // namespace chartproject
