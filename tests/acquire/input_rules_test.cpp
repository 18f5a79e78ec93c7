// The rules of the typed fields and the texts of a run's length and size.
#include "acquire/dialog/input_rules.h"

#include <gtest/gtest.h>

#include "acquire/run/run_texts.h"
#include "common/values/numbers.h"
#include "common/values/text.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

const NumberFormat kStop{".", ","};
const NumberFormat kComma{",", "."};

TEST(InputRules, WholeNumbersOfPointsAndTimes) {
  using enum Verdict;
  using enum TimeUnit;
  const std::pair<const char*, int> accepted[] = {
      {"5", 5}, {"12.6", 13}, {"2.5", 2}, {"1e3", 1000}, {"2000000000", 2'000'000'000}};
  for (const auto& [text, value] : accepted) {
    EXPECT_EQ(CheckNumberOfPoints(text, kStop).verdict, kAccept) << text;
    EXPECT_EQ(CheckNumberOfPoints(text, kStop).value, value);
  }
  for (const char* text : {"0", "-3", "2000000001", "99999999999"}) {
    EXPECT_EQ(CheckNumberOfPoints(text, kStop).verdict, kOutOfRange) << text;
  }
  for (const char* text : {"", "12x"}) EXPECT_EQ(CheckNumberOfPoints(text, kStop).verdict, kNotANumber) << text;
  const std::tuple<int, TimeUnit, Verdict> times[] = {
      {0, kMilliseconds, kOutOfRange}, {1, kMilliseconds, kLetStand},   {199, kMilliseconds, kLetStand},
      {200, kMilliseconds, kAccept},   {65535, kMilliseconds, kAccept}, {65536, kMilliseconds, kOutOfRange},
      {0, kSeconds, kOutOfRange},      {65, kSeconds, kAccept},         {66, kSeconds, kOutOfRange}};
  for (const auto& [time, unit, verdict] : times) {
    const NumberCheck check = CheckTimeBetweenPoints(std::to_string(time), unit, kStop);
    EXPECT_EQ(check.verdict, verdict) << time << ", unit " << static_cast<int>(unit);
    EXPECT_TRUE(verdict != kAccept || check.value == time) << time;
  }
}

TEST(InputRules, ClockTimes) {
  using enum ClockTimeFault;
  const std::pair<const char*, ClockTimeFault> cases[] = {
      {"00:00:01", kNone},  {"23:59:59", kNone},   {"00:00:00", kRange},  {"24:00:00", kRange}, {"00:60:00", kRange},
      {"00:00:60", kRange}, {"ab:00:01", kFormat}, {"__:__:__", kFormat}, {"00:00:1", kFormat}, {"", kFormat}};
  for (const auto& [text, fault] : cases) EXPECT_EQ(CheckClockTime(text), fault) << text;
  EXPECT_EQ(ClockTimeSeconds("01:02:03"), 3723);
  EXPECT_EQ(ClockTimeSeconds("__:__:07"), 7);
}

TEST(InputRules, ContentsAndBeginningsOfThem) {
  for (const char* text : {"", "-", ",", ".", "-,", "-.", "12", "-1.5", " 7 "}) {
    EXPECT_TRUE(ContentAcceptable(text, kStop)) << text;
  }
  for (const char* text : {"a", "--", "1.5.5", "-.-"}) EXPECT_FALSE(ContentAcceptable(text, kStop)) << text;
  EXPECT_TRUE(ContentAcceptable("1,5", {".", ""})) << "where no number has a comma";
}

TEST(InputRules, EstimateKeepsTheSevenDigitsOfASingle) {
  EXPECT_EQ(EstimateBytes(1'000'000, 4), 70'000'700);
  EXPECT_EQ(EstimateBytes(1, 1), 740);
  EXPECT_EQ(EstimateBytes(2'000'000'000, 4), 140'000'000'000);
}

TEST(RunTexts, DurationsSizesAndMoments) {
  EXPECT_EQ(DurationText(0), "00:00:00");
  EXPECT_EQ(DurationText(86'399), "23:59:59");
  EXPECT_EQ(DurationText(2 * 86'400 + 10'800), "2 d 03:00:00");
  EXPECT_EQ(FileSizeText(740, kStop), "740 bytes");
  EXPECT_EQ(FileSizeText(70'000'700, kComma), "66,76 MB");
  EXPECT_EQ(FileSizeText(140e12, kStop), "130385.16 GB");
  FakeLocale locale;
  const DateTime start{2026, 2, 28, 23, 59, 30, 0};
  EXPECT_EQ(MomentText(LaterBy(start, 29), start, locale), "23:59:59");
  EXPECT_EQ(MomentText(LaterBy(start, 31), start, locale), "01/03/2026 00:00:01");
  EXPECT_EQ(LaterBy(start, INT64_MAX).year, 9021);
}

}  // namespace
}  // namespace chartproject
