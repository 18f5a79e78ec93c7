// The simulated machines: they work their cycle, show it in every parameter, and repeat it exactly.
#include <gmock/gmock.h>

#include <set>

#include "common/numbers.h"
#include "drive/drive_models.h"
#include "drive/drive_status.h"
#include "drive/unit_codes.h"
#include "links/simulated_link.h"
#include "links/simulated_parameters.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

constexpr const char* kNoAnswer = "(no answer)";
constexpr std::array kModels{"KRA-09", "KRA-08", "LMX-01", "KRD-04", "TSR-05", "PVE-05"};

struct SimulatedTest : ::testing::Test {
  SimulatedTest() { OpenLink(); }
  void OpenLink() {
    link = SimulatedLinkFactory(fakes.clock, fakes.locale).Create();
    std::int16_t result = -1;
    link->OpenLink(result);
    opened = fakes.clock.Now();
  }
  std::string Read(const std::string& model, int parameter, std::int16_t unitCode, int address = 1) const {
    std::int16_t status = 0;
    link->ReadParameter(static_cast<std::int16_t>(address), ModelCode(model), static_cast<std::int16_t>(parameter),
                        unitCode, status);
    std::string text = kNoAnswer;
    if (status == 0) link->GetText(text);
    return text;
  }
  double Value() const {
    double value = 0;
    link->GetValue(value);
    return value;
  }
  void GoTo(double seconds) { fakes.clock.AdvanceTo(opened + Instant(static_cast<std::int64_t>(seconds * 1e6))); }
  std::string State(const std::string& model) {
    Read(model, 6, kDirectUnitCode);
    DriveStatus status;
    DecodeStatus(status, Value());
    return status.strStatus;
  }

  FakePorts fakes;
  std::unique_ptr<DriveLink> link;
  Instant opened{0};
};

TEST_F(SimulatedTest, StartsRunsRampsAndStopsWithItsStatusWordAndInputs) {
  const auto speed = [this] { return Read("KRA-09", 2, kDirectUnitCode), Value(); };
  const auto inputs = [this] { return Read("KRA-09", 12, kDigitalInputsUnitCode); };
  EXPECT_EQ(State("KRA-09"), "READY");
  EXPECT_EQ(speed(), 0);
  EXPECT_EQ(Read("KRA-09", 3, 2), "0.0");  // no current at rest
  EXPECT_EQ(inputs(), "IIIIIIAA");
  GoTo(3.5);
  EXPECT_EQ(State("KRA-09"), "RUN");
  EXPECT_NEAR(speed(), 875, 5);
  EXPECT_EQ(inputs(), "AIIIIIAA");
  EXPECT_EQ(Read("KRA-09", 12, kDirectUnitCode), "193");
  GoTo(8);
  EXPECT_NEAR(speed(), 1750, 5);
  EXPECT_EQ(inputs(), "AIAAIIAA");
  GoTo(26);
  EXPECT_EQ(State("KRA-09"), "READY");
  GoTo(4 * 30 - 1);
  EXPECT_EQ(State("KRA-09"), "SUB");
  EXPECT_EQ(inputs(), "IIIIIIIA");
  GoTo(6 * 30 - 1);
  EXPECT_EQ(State("KRA-09"), "E04");
  EXPECT_EQ(inputs(), "IIIIIIAI");
}

TEST_F(SimulatedTest, EveryModelsParametersAnswerInTheDecimalsOfTheirUnitAndMove) {
  for (const std::string model : kModels) {
    OpenLink();
    GoTo(4);
    std::set<std::string> texts;
    for (const SimulatedParameter& parameter : SimulatedParameters(model)) {
      const std::int16_t code = FindUnitCode(UnitOf(parameter, *FindParameterKind(parameter.kind)));
      ASSERT_NE(code, kUnknownUnitCode) << parameter.kind;
      const std::string text = Read(model, parameter.number, code);
      texts.insert(text);
      if (code > 72) continue;
      EXPECT_EQ(ToDouble(text, fakes.locale.numbers), Value()) << model << parameter.number;
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
  std::int16_t reply = -1;
  EXPECT_THAT(Read("KRA-09", 1, kDependsOnP210UnitCode), "1750");
  link->SetP210Value(2, reply);
  link->SetP529Value(1, reply);
  EXPECT_EQ(Read("KRA-09", 1, kDependsOnP210UnitCode), "1750.00");
  const std::string value = Read("KRA-09", 40, kDependsOnP529UnitCode);  // with noise: its digits may differ
  EXPECT_TRUE(value.size() == 4 && value[0] == '9' && value[2] == '.') << value;
  link->SetP210Value(-7, reply);
  EXPECT_EQ(Read("KRA-09", 1, kDependsOnP210UnitCode), "1750");
  fakes.locale.UseComma();
  EXPECT_EQ(Read("KRD-04", 32, kDividedBy10UnitCode), "12,5");
  EXPECT_EQ(Value(), 12.5);
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
