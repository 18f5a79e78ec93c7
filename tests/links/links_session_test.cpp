// Everything that simulated plants show and scripts say, held against texts that were read.
#include <gtest/gtest.h>

#include <cmath>

#include "drive/drive_models.h"
#include "drive/unit_codes.h"
#include "links/scenario_link.h"
#include "links/shown_value.h"
#include "links/simulated_link.h"
#include "links/simulated_parameters.h"
#include "support/error_of.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

std::string Number(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.10g", value);
  return text;
}

struct LinksSession : ::testing::Test {
  void Open(DriveLinkFactory&& factory) {
    link = factory.Create(wait);
    link->OpenLink();
    opened = fakes.clock.Now();
  }
  std::string Read(const std::string& model, int parameter, std::int16_t unit, int address = 1) const {
    const ReadOutcome outcome =
        link->ReadParameter(static_cast<std::int16_t>(address), model, static_cast<std::int16_t>(parameter), unit);
    return outcome.Answered() ? link->GetText() : FailureText(Language::kEnglish, outcome);
  }
  FakePorts fakes;
  LinkWait wait;
  std::unique_ptr<DriveLink> link;
  Instant opened{0};
};

/// Moments of two cycles, the ends of the fourth and of the sixth, which are special, and an hour later.
TEST_F(LinksSession, EveryParameterOfEveryModelOverItsCycles) {
  Transcript transcript("simulated_values");
  Open(SimulatedLinkFactory(fakes.clock, fakes.locale));
  const std::pair<const char*, double> machines[] = {{"KRA-09", 30}, {"KRA-08", 34}, {"LMX-01", 26},
                                                     {"KRD-04", 40}, {"TSR-05", 45}, {"PVE-05", 7}};
  for (const auto& [model, cycle] : machines) {
    transcript.Step(model);
    std::string heads = "seconds";
    std::vector<double> moments;
    for (const double part : {0.0, 0.02, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.77, 0.85, 0.95, 1.25, 1.4})
      moments.push_back(part * cycle);
    for (const double end : {3.0, 4.0, 6.0})
      moments.insert(moments.end(), {end * cycle - 1.55, end * cycle - 1.25, end * cycle - 1.15});
    moments.push_back(4 * cycle);
    moments.push_back(3600);
    for (const double moment : moments) heads += " " + Number(moment);
    transcript.Add(heads);
    for (const SimulatedParameter& parameter : SimulatedParameters(model)) {
      const ParameterKind& kind = *FindParameterKind(parameter.kind);
      const std::int16_t unit = FindUnitCode(UnitOf(parameter, kind));
      std::string line = ParameterName(parameter.number) + " " + std::string(UnitOf(parameter, kind)) + " " +
                         std::string(parameter.kind) + ":";
      if (kind.quantity == Quantity::kSetting) {
        transcript.Say(line, " ", Read(ModelCode(model), parameter.number, unit));
        continue;
      }
      const Instant begin = fakes.clock.Now();
      link->OpenLink();
      for (const double moment : moments) {
        fakes.clock.AdvanceTo(begin + Instant(std::llround(moment * 1e6)));
        line += " " + Read(ModelCode(model), parameter.number, unit);
      }
      transcript.Add(line);
    }
  }
  transcript.Step("addresses and models: parameter 3, 2 and 999 after 5 s");
  link->OpenLink();
  fakes.clock.Advance(std::chrono::seconds(5));
  for (const int address : {0, 1, 2, 3, 29, 30, 31})
    transcript.Say(address, ": ", Read(ModelCode("KRA-09"), 3, 3, address), ", ",
                   Read(ModelCode("KRA-09"), 2, 3, address));
  for (const DriveModel& model : kDriveModels)
    transcript.Say(std::string(model.name), ": ", Read(std::string(1, model.code), 3, 2), ", ",
                   Read(std::string(1, model.code), 2, 2), ", ", Read(std::string(1, model.code), 999, 2));
  transcript.Say("no model: ", Read("", 3, 2), ", unknown: ", Read("?", 3, 2));
}

TEST_F(LinksSession, EveryKindOfParameterAndEveryUnit) {
  Transcript transcript("simulated_kinds");
  std::map<std::string, const ParameterKind*> kinds;
  for (const char* model : {"KRA-09", "KRA-08", "LMX-01", "KRD-04", "TSR-05", "PVE-05"})
    for (const SimulatedParameter& parameter : SimulatedParameters(model))
      kinds.emplace(parameter.kind, FindParameterKind(parameter.kind));
  transcript.Step("kinds: unit, symbol, Portuguese, Spanish, quantity, setting, range");
  for (const auto& [name, kind] : kinds)
    transcript.Say(name, ": ", std::string(kind->unit), ", ", std::string(kind->symbol), ", ",
                   std::string(kind->portuguese), ", ", std::string(kind->spanish), ", ",
                   static_cast<int>(kind->quantity), ", ", Number(kind->setting), ", ", Number(kind->low), " to ",
                   Number(kind->high));
  transcript.Add(FindParameterKind("None") == nullptr ? "None: none" : "None: found");
  for (const std::int16_t decimals : {0, 2, 7, -1}) {
    ValueWriter writer(fakes.locale);
    writer.SetSpeedDecimals(decimals);
    writer.SetProcessDecimals(static_cast<std::int16_t>(decimals - 1));
    transcript.Step("decimals " + std::to_string(decimals) + " and " + std::to_string(decimals - 1) +
                    ": units with registers 0, 223, 7FFF, 8000, FFFF and values 1234.5678, -0.04");
    for (std::int16_t unit = decimals == 0 ? -1 : kDependsOnP210UnitCode;
         unit <= (decimals == 0 ? kLastUnitCode + 1 : kDependsOnP529UnitCode); ++unit) {
      std::string line = std::to_string(unit) + ":";
      const auto add = [&line](const ShownValue& shown) {
        line += " " + shown.text + (Number(shown.number) == shown.text ? "" : " (" + Number(shown.number) + ")");
      };
      for (const int bits : {0, 223, 0x7FFF, 0x8000, 0xFFFF})
        add(writer.WriteRegister(static_cast<std::uint16_t>(bits), unit));
      if (unit < kDigitalInputsUnitCode)
        for (const double value : {1234.5678, -0.04}) add(writer.Write(value, unit));
      transcript.Add(line);
    }
    fakes.locale.UseComma();
  }
}

/// One line alone: what a reading of drive 01 then gives at its moment and 10 ms later, and how long it takes.
TEST_F(LinksSession, EveryLineOfAScript) {
  Transcript transcript("scenario_lines");
  for (const std::string& line : StepsOf("scenario_lines")) {
    transcript.Step(line);
    fakes.files.Put("/plant.txt", "at 0 01 P001 1\n" + line);
    std::string said;
    const auto play = [&] {
      int asked = 0;
      wait.goOn = [&asked] { return ++asked < 10; };
      Open(ScenarioLinkFactory(
          fakes.files, fakes.clock, [this](Instant moment) { fakes.clock.AdvanceTo(moment); }, "/plant.txt"));
      for (const int moment : {4, 5, 15}) {
        fakes.clock.AdvanceTo(std::max(fakes.clock.Now(), opened + std::chrono::milliseconds(moment)));
        const Instant begin = fakes.clock.Now();
        asked = 0;
        const std::string text = ErrorTextOf([&] { said += Read("8", 1, 7) + " " + Number(link->GetValue()); });
        said += text + (asked > 0 ? ", asked " + std::to_string(asked) : "") +
                ((fakes.clock.Now() - begin).count() != 0
                     ? ", " + std::to_string((fakes.clock.Now() - begin) / std::chrono::milliseconds(1)) + " ms"
                     : "") +
                "; ";
      }
    };
    said += ErrorTextOf(play);
    transcript.Add(said);
  }
}

}  // namespace
}  // namespace chartproject
