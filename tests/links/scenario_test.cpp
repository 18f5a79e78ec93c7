// Scripts: what holds when, and what is refused.
#include <gmock/gmock.h>

#include "links/scenario_link.h"
#include "platform/run_time_error.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::HasSubstr;

struct ScenarioTest : ::testing::Test {
  std::unique_ptr<DriveLink> Open(const std::string& script) {
    fakes.files.Put("/plant.txt", script);
    auto link = ScenarioLinkFactory(fakes.files, fakes.clock, "/plant.txt").Create();
    std::int16_t result = -1;
    link->OpenLink(result);
    return link;
  }
  /// The text of a read at a moment, or "(no answer)".
  std::string ReadAt(DriveLink& link, int milliseconds, int address, int parameter) {
    fakes.clock.AdvanceTo(opened + std::chrono::milliseconds(milliseconds));
    std::int16_t status = 0;
    link.ReadParameter(static_cast<std::int16_t>(address), "8", static_cast<std::int16_t>(parameter), 7, status);
    std::string text = "(no answer)";
    if (status == 0) link.GetText(text);
    return text;
  }
  FakePorts fakes;
  Instant opened{0};
};

TEST_F(ScenarioTest, AValueHoldsFromItsMomentUntilTheNext) {
  fakes.clock.Advance(std::chrono::seconds(90));  // the script begins when the link is opened
  opened = fakes.clock.Now();
  const auto link = Open(
      "\xEF\xBB\xBF# a plant\r\n\r\n"
      "at 200 01 P005 60   # written before the line for its past\n"
      "at 0\t01 P005 50.25\n"
      "at 200 01 P005 61,5\n"
      "at 0 01 P012 AIA IAI\n"
      "at 150 01 silent\nat 180 01 answers\n");
  EXPECT_EQ(ReadAt(*link, 0, 1, 5), "50.25");
  EXPECT_EQ(ReadAt(*link, 0, 1, 12), "AIA IAI");
  EXPECT_EQ(ReadAt(*link, 0, 2, 5), "(no answer)");
  EXPECT_EQ(ReadAt(*link, 149, 1, 5), "50.25");
  EXPECT_EQ(ReadAt(*link, 150, 1, 5), "(no answer)");
  EXPECT_EQ(ReadAt(*link, 180, 1, 5), "50.25");
  EXPECT_EQ(ReadAt(*link, 199, 1, 5), "50.25");
  EXPECT_EQ(ReadAt(*link, 200, 1, 5), "61,5");
  double value = 0;
  link->GetValue(value);
  EXPECT_EQ(value, 61.5);
  EXPECT_EQ(ReadAt(*link, 300, 1, 12), "AIA IAI");
  link->GetValue(value);
  EXPECT_EQ(value, 0);
}

TEST_F(ScenarioTest, RefusesAMalformedLineByFileNumberAndText) {
  for (const char* line :
       {"at 0 01 P005", "at x 01 P005 1", "at -5 01 P005 1", "at 0 1 P005 1", "at 0 31 P005 1", "at 0 01 P5 1",
        "at 0 01 P005x 1", "at 0 01 quiet", "at 0 01 silent now", "0 01 P005 1", "\x01\x02\xFF", "at 0 01 X005 1"}) {
    fakes.files.Put("/plant.txt", "at 0 01 P005 1\n# fine\n" + std::string(line) + "\nat 1 01 P005 1\n");
    try {
      const ScenarioLinkFactory taken(fakes.files, fakes.clock, "/plant.txt");
      ADD_FAILURE() << "took " << line;
    } catch (const RunTimeError& error) {
      EXPECT_THAT(error.Description(), HasSubstr("/plant.txt, line 3: " + std::string(line)));
    }
  }
  EXPECT_THROW(ScenarioLinkFactory(fakes.files, fakes.clock, "/missing.txt"), RunTimeError);
}

}  // namespace
}  // namespace chartproject
