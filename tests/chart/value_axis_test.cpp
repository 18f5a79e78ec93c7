// Round ticks and their texts, from tiny to huge values.
#include "chart/value_axis.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace chartproject {
namespace {

struct AxisCase {
  double low;
  double high;
  bool withZero;
  int steps;
  std::vector<std::string> texts;
};

std::vector<std::string> Texts(const ValueAxis& axis, const NumberFormat& format) {
  std::vector<std::string> texts;
  texts.reserve(static_cast<std::size_t>(axis.TickCount()));
  for (int i = 0; i < axis.TickCount(); ++i) texts.push_back(TickText(axis, i, format));
  return texts;
}

class ValueAxisTicks : public ::testing::TestWithParam<AxisCase> {};

TEST_P(ValueAxisTicks, AreRoundAndEncloseTheData) {
  const AxisCase& param = GetParam();
  ValueRange range;
  range.Include(param.low);
  range.Include(param.high);
  const ValueAxis axis = ChooseValueAxis(range, param.withZero, param.steps);
  EXPECT_THAT(Texts(axis, {}), ::testing::ElementsAreArray(param.texts));
  const double overshoot = (axis.Tick(1) - axis.Tick(0)) / 50;
  EXPECT_LE(axis.Minimum() - overshoot, std::max(param.low, -kLargestShown));
  EXPECT_GE(axis.Maximum() + overshoot, std::min(param.high, kLargestShown));
}

INSTANTIATE_TEST_SUITE_P(
    Ranges, ValueAxisTicks,
    ::testing::Values(
        AxisCase{3, 153, true, 10, {"0", "20", "40", "60", "80", "100", "120", "140", "160"}},
        AxisCase{-47, 48, true, 6, {"-60", "-40", "-20", "0", "20", "40", "60"}},
        AxisCase{-30, -12, true, 4, {"-30", "-20", "-10", "0"}},
        AxisCase{29, 153, false, 4, {"0", "50", "100", "150", "200"}},  // zero is near
        AxisCase{90, 153, false, 4, {"80", "100", "120", "140", "160"}},
        AxisCase{-153, -29, false, 4, {"-200", "-150", "-100", "-50", "0"}},
        AxisCase{0.1, 0.3, false, 4, {"0.10", "0.15", "0.20", "0.25", "0.30"}},
        AxisCase{0, 0, true, 5, {"0", "0.2", "0.4", "0.6", "0.8", "1.0"}},
        AxisCase{60, 60, false, 4, {"56", "58", "60", "62", "64"}},
        AxisCase{-60, -60, true, 3, {"-60", "-40", "-20", "0"}}, AxisCase{-1, 1, true, 1, {"-1", "0", "1"}},
        AxisCase{-1.5,
                 1752,
                 true,
                 10,
                 {"0", "200", "400", "600", "800", "1,000", "1,200", "1,400", "1,600", "1,800"}},  // noise around zero
        AxisCase{0.99, 1.01, false, 1, {"0", "2"}}, AxisCase{-1.01, -0.99, false, 1, {"-2", "0"}},
        AxisCase{0, 3e-9, false, 3, {"0", "1E-09", "2E-09", "3E-09"}},
        AxisCase{0, 12000, true, 3, {"0", "5,000", "10,000", "15,000"}},
        AxisCase{-1234567, 0, true, 2, {"-2,000,000", "-1,000,000", "0"}},
        AxisCase{0, 1.6e9, true, 4, {"0", "5E+08", "1.0E+09", "1.5E+09", "2.0E+09"}},
        AxisCase{1e300, 3e300, false, 2, {"1E+300", "2E+300", "3E+300"}},
        AxisCase{-std::numeric_limits<double>::max(),
                 std::numeric_limits<double>::max(),
                 true,
                 2,
                 {"-1E+307", "0", "1E+307"}},
        AxisCase{5e-324, 5e-324, false, 1, {"0", "1"}},
        AxisCase{1e9, 1e9 + 1e-6, false, 2, {"9.5E+08", "1.00E+09", "1.05E+09"}}));

TEST(ValueAxis, WithoutDataGoesFromZeroToOne) {
  ValueRange range;
  range.Include(std::numeric_limits<double>::quiet_NaN());
  range.Include(std::numeric_limits<double>::infinity());
  const ValueAxis axis = ChooseValueAxis(range, false, 2);
  EXPECT_THAT(Texts(axis, {}), ::testing::ElementsAre("0", "0.5", "1.0"));
}

TEST(ValueAxis, TicksCarryNoRoundingNoise) {
  const ValueAxis axis{.mantissa = 1, .exponent = -1, .firstTick = 0, .lastTick = 3};
  EXPECT_EQ(axis.Tick(3), 0.3);
}

TEST(ValueAxis, TextsFollowTheLocale) {
  const NumberFormat comma{",", "."};
  ValueRange range;
  range.Include(-1500.5);
  range.Include(-1500);
  EXPECT_THAT(Texts(ChooseValueAxis(range, false, 2), comma), ::testing::ElementsAre("-1.500,5", "-1.500,0"));
}

}  // namespace
}  // namespace chartproject
