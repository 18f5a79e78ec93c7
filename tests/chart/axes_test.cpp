// Ticks and labels of both axes, from tiny to huge values.
#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "chart/picture/geometry/category_axis.h"
#include "chart/picture/geometry/value_axis.h"
#include "recording/companion/point_clock.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;

/// Every character is 7 pixels wide.
double TextWidth(std::string_view text) {
  return 7.0 * static_cast<double>(text.size());
}

CategoryAxis LayOut(int rows, std::int64_t first, CategoryScale scale, double width) {
  ChartModel model;
  model.rowCount = rows;
  model.firstRowLabel = first;
  model.categoryScale = scale;
  return LayOutCategoryAxis(model, {width / rows, 30, 10, TextWidth});
}

std::vector<std::string> Texts(const CategoryAxis& axis) {
  std::vector<std::string> texts;
  for (const CategoryLabel& label : axis.labels) texts.push_back(label.text);
  return texts;
}

CategoryScale Divisions(int count) {
  return {false, count, count, true};
}

TEST(CategoryAxis, OneTickAndOneLabelAtEachDivision) {
  const CategoryAxis axis = LayOut(15, 101, Divisions(5), 600);
  EXPECT_THAT(axis.ticks, ElementsAre(0.5, 5.5, 10.5));
  EXPECT_THAT(Texts(axis), ElementsAre("101", "106", "111"));
  EXPECT_EQ(axis.labels[1].position, 5.5);
  EXPECT_EQ(LayOut(8, 1, {false, 4, 4, false}, 400).labels[1].position, 6) << "in the middle of its division";
  EXPECT_TRUE(LayOutCategoryAxis({}, {1, 0, 0, TextWidth}).ticks.empty());
}

TEST(PointClock, CountsScanTimesOrTheRecordedPaceFromTheFirstPoint) {
  FakePorts fakes;
  ChartHeader header;
  header.ScanTime = "0.1";
  header.Unit = "s";
  header.StartTime = "23:59:58";
  header.StartDate = fakes.locale.DateText({.year = 2028, .month = 2, .day = 28});
  const PointClock asked(header, nullptr, fakes.locale);
  for (const double point : {1.0, 2.0, 4.0, 1000000007.0, 2000000000.0}) {
    EXPECT_EQ(asked.ElapsedAt(point), (point - 1) * 100);
    EXPECT_EQ(asked.PointAt((point - 1) * 100), point);
  }
  EXPECT_EQ(asked.FirstOfDay(), 86398000);
  EXPECT_EQ(asked.DateText(2), fakes.locale.DateText({.year = 2028, .month = 3, .day = 1}));

  const PointTimes pace({{1, 0}, {11, 1000}, {21, 6000}}, 1);
  header.StartDate = "yesterday";
  const PointClock real(header, &pace, fakes.locale);
  EXPECT_EQ(real.ElapsedAt(16), 3500);
  EXPECT_EQ(real.PointAt(8500), 26) << "the last piece goes on";
  EXPECT_THAT(real.Knots(6, 12), ElementsAre(ClockKnot{6, 500}, ClockKnot{11, 1000}, ClockKnot{12, 1500}));
  EXPECT_EQ(real.DateText(1), "+1 d");
  header.ScanTime = "soon";
  EXPECT_FALSE(PointClock(header, nullptr, fakes.locale).Known());
}

std::vector<std::string> Texts(const ValueAxis& axis, const NumberFormat& format) {
  std::vector<std::string> texts;
  texts.reserve(static_cast<std::size_t>(axis.TickCount()));
  for (int i = 0; i < axis.TickCount(); ++i) texts.push_back(TickText(axis, i, format));
  return texts;
}

ValueRange RangeOf(double one, double other) {
  ValueRange range;
  range.Include(one);
  range.Include(other);
  return range;
}

TEST(ValueAxis, TicksAreRoundAndEncloseTheData) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  using Case = std::tuple<double, double, bool, int, std::vector<std::string>>;
  const Case cases[] = {
      {3, 153, true, 10, {"0", "20", "40", "60", "80", "100", "120", "140", "160"}},
      {-47, 48, true, 6, {"-60", "-40", "-20", "0", "20", "40", "60"}},
      {-30, -12, true, 4, {"-30", "-20", "-10", "0"}},
      {29, 153, false, 4, {"0", "50", "100", "150", "200"}},
      {-153, -29, false, 4, {"-200", "-150", "-100", "-50", "0"}},
      {0.1, 0.3, false, 4, {"0.10", "0.15", "0.20", "0.25", "0.30"}},
      {0, 0, true, 5, {"0", "0.2", "0.4", "0.6", "0.8", "1.0"}},
      {60, 60, false, 4, {"56", "58", "60", "62", "64"}},
      {-1, 1, true, 1, {"-1", "0", "1"}},
      {-1.5, 1752, true, 10, {"0", "200", "400", "600", "800", "1,000", "1,200", "1,400", "1,600", "1,800"}},
      {0.99, 1.01, false, 1, {"0", "2"}},
      {0, 3e-9, false, 3, {"0", "1E-09", "2E-09", "3E-09"}},
      {-1234567, 0, true, 2, {"-2,000,000", "-1,000,000", "0"}},
      {0, 1.6e9, true, 4, {"0", "5E+08", "1.0E+09", "1.5E+09", "2.0E+09"}},
      {-kLargest, kLargest, true, 2, {"-1E+307", "0", "1E+307"}},
      {5e-324, 5e-324, false, 1, {"0", "1"}},
      {1e9, 1e9 + 1e-6, false, 2, {"9.5E+08", "1.00E+09", "1.05E+09"}}};
  for (const auto& [low, high, withZero, steps, texts] : cases) {
    const ValueAxis axis = ChooseValueAxis(RangeOf(low, high), withZero, steps);
    EXPECT_EQ(Texts(axis, {}), texts);
    const double overshoot = (axis.Tick(1) - axis.Tick(0)) / 50;
    EXPECT_LE(axis.Minimum() - overshoot, std::max(low, -kLargestShown));
    EXPECT_GE(axis.Maximum() + overshoot, std::min(high, kLargestShown));
  }
}

TEST(ValueAxis, AFixedRangeIsShownAsItIsWithTheTicksInIt) {
  const std::tuple<double, double, int, std::vector<std::string>> cases[] = {
      {0.5, 4.5, 5, {"1", "2", "3", "4"}},
      {-10, 10, 4, {"-10", "-5", "0", "5", "10"}},
      {1.9, 2.1, 1, {"1.9", "2.0", "2.1"}},
      {0, std::numeric_limits<double>::max(), 2, {"0", "5E+306", "1.0E+307"}}};
  for (const auto& [low, high, steps, texts] : cases) {
    const ValueAxis axis = FixedValueAxis({low, high, false}, steps);
    EXPECT_EQ(Texts(axis, {}), texts);
    EXPECT_EQ(axis.Minimum(), low);
    EXPECT_EQ(axis.Maximum(), std::min(high, kLargestShown));
  }
  const ValueAxis narrow = FixedValueAxis({7, 7, false}, 3);
  EXPECT_LT(narrow.Minimum(), 7);
  EXPECT_GT(narrow.Maximum(), 7);
}

TEST(ValueAxis, WithoutDataGoesFromZeroToOne) {
  const ValueRange none = RangeOf(std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity());
  EXPECT_THAT(Texts(ChooseValueAxis(none, false, 2), {}), ElementsAre("0", "0.5", "1.0"));
}

TEST(ValueAxis, TicksCarryNoRoundingNoiseAndTheirTextsFollowTheLocale) {
  EXPECT_EQ((ValueAxis{.mantissa = 1, .exponent = -1, .firstTick = 0, .lastTick = 3}).Tick(3), 0.3);
  EXPECT_THAT(Texts(ChooseValueAxis(RangeOf(-1500.5, -1500), false, 2), {",", "."}),
              ElementsAre("-1.500,5", "-1.500,0"));
}

}  // namespace
}  // namespace chartproject
