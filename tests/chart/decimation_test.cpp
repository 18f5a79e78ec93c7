// Reduction of rows to what pixel columns show.
#include "chart/decimation.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace chartproject {
namespace {

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(RangeOf, LeavesOutWhatIsNotFinite) {
  const ValueRange range = RangeOf(std::vector<double>{kGap, 3, -kInfinity, -2, kInfinity, 1});
  EXPECT_FALSE(range.empty);
  EXPECT_EQ(range.minimum, -2);
  EXPECT_EQ(range.maximum, 3);
  EXPECT_TRUE(RangeOf(std::vector<double>{kGap, kInfinity, -kInfinity}).empty);
  EXPECT_TRUE(RangeOf({}).empty);
}

TEST(Columns, ShareTheRowsWithoutLosingOne) {
  EXPECT_EQ(FirstRowOfColumn(1, 10, 3), 3);
  EXPECT_EQ(FirstRowOfColumn(2, 10, 3), 6);
  EXPECT_EQ(FirstRowOfColumn(3, 10, 3), 10);
  EXPECT_EQ(FirstRowOfColumn(2000, 2000000000, 2000), 2000000000);
  const std::vector<double> values = {1, 5, 2, /**/ -4, kGap, 0, /**/ 7, 8, 9, 6};
  EXPECT_EQ(ColumnRange(values, 0, 3).maximum, 5);
  EXPECT_EQ(ColumnRange(values, 1, 3).minimum, -4);
  EXPECT_EQ(ColumnRange(values, 2, 3).minimum, 6);
}

}  // namespace
}  // namespace chartproject
