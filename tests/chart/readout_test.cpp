// What the chart says of points: times across midnight, differences, gaps, the scan time in its units.
#include "chart/readout.h"

#include <gmock/gmock.h>

#include <limits>

#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> Texts(const std::vector<ReadoutLine>& lines) {
  std::vector<std::string> texts;
  texts.reserve(lines.size());
  for (const ReadoutLine& line : lines) texts.push_back(std::to_string(line.series) + "|" + line.text);
  return texts;
}

TEST(ReadoutTest, TakesTheTimeDifferenceNearestToWhatIsExpected) {
  const std::tuple<const char*, const char*, double, const char*> cases[] = {
      {"10:00:00", "10:00:05", 5, "00:00:05"},
      {"10:00:05", "10:00:00", -5, "-00:00:05"},
      {"23:59:58", "00:00:03", 5, "00:00:05"},
      {"00:00:03", "23:59:58", -5, "-00:00:05"},
      {"10:00:00", "10:00:00", 172800, "48:00:00"},
      {"10:00:00", "11:00:00", 0, "01:00:00"},
      {"10:00", "10:00:05", 5, "--"},
      {"", "x", 5, "--"}};
  for (const auto& [from, to, expected, text] : cases)
    EXPECT_EQ(TimeDifference(from, to, expected), text) << from << " " << to;
}

TEST(ReadoutTest, ReadsTheScanTimeInItsUnit) {
  const NumberFormat format{".", ","};
  ChartHeader header;
  const std::tuple<const char*, const char*, std::optional<double>> cases[] = {{"500", "ms", 0.5},
                                                                               {"3", "s", 3},
                                                                               {"01:00:02", "hh:mm:ss", 3602},
                                                                               {"x", "s", std::nullopt},
                                                                               {"1:2", "hh:mm:ss", std::nullopt}};
  for (const auto& [time, unit, seconds] : cases) {
    header.ScanTime = time;
    header.Unit = unit;
    EXPECT_EQ(ScanSeconds(header, format), seconds) << time;
  }
}

TEST(ReadoutTest, WritesPointsAndTheDifferenceOfTwo) {
  FakePorts fakes;
  fakes.locale.UseComma();
  Environment environment{fakes.ports, fakes.forms};
  environment.languageBase = 1000;
  ChartHeader header;
  header.ScanTime = "1";
  header.Unit = "s";
  const double gap = std::numeric_limits<double>::quiet_NaN();
  const PointReading first{12, "10:15:02", {0.1, gap, 5}};
  const PointReading second{40, "10:15:30", {0.3, 1, 2}};
  const std::vector<std::string> names{"P001", "P002", "P003"};
  EXPECT_THAT(Texts(PointReadout(environment, first, names)),
              ElementsAre("-1|Point 12, 10:15:02", "0|P001: 0,1", "1|P002: --", "2|P003: 5"));
  EXPECT_THAT(Texts(CursorReadout(environment, header, {first, std::nullopt}, names)),
              ElementsAre("-1|Cursor 1: point 12, 10:15:02"));
  EXPECT_THAT(Texts(CursorReadout(environment, header, {first, second}, names)),
              ElementsAre("-1|Cursor 1: point 12, 10:15:02", "-1|Cursor 2: point 40, 10:15:30",
                          "-1|Difference: 28 points, 00:00:28", "0|P001: 0,1 → 0,3 (+0,2)", "1|P002: -- → 1 (--)",
                          "2|P003: 5 → 2 (-3)"));
}

}  // namespace
}  // namespace chartproject
