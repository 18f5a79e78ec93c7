// Round ticks and their texts, from tiny to huge values.
#include "chart/value_axis.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace chartproject {
namespace {

std::vector<std::string> Texts(const ValueAxis& axis, const NumberFormat& format) {
  std::vector<std::string> texts;
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

TEST(ValueAxis, WithoutDataGoesFromZeroToOne) {
  const ValueRange none = RangeOf(std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity());
  EXPECT_THAT(Texts(ChooseValueAxis(none, false, 2), {}), ::testing::ElementsAre("0", "0.5", "1.0"));
}

TEST(ValueAxis, TicksCarryNoRoundingNoise) {
  const ValueAxis axis{.mantissa = 1, .exponent = -1, .firstTick = 0, .lastTick = 3};
  EXPECT_EQ(axis.Tick(3), 0.3);
}

TEST(ValueAxis, TextsFollowTheLocale) {
  EXPECT_THAT(Texts(ChooseValueAxis(RangeOf(-1500.5, -1500), false, 2), {",", "."}),
              ::testing::ElementsAre("-1.500,5", "-1.500,0"));
}

}  // namespace
}  // namespace chartproject
