// Reduction of rows to what pixel columns show.
#include "chart/decimation.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace chartproject {
namespace {

using ::testing::ElementsAre;

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Decimate, KeepsEveryRowWhileTheyAreFew) {
  const std::vector<double> values = {1, 5, 2, 4};
  EXPECT_THAT(Decimate(values, 2), ElementsAre(SampleRun{{0, 1}, {1, 5}, {2, 2}, {3, 4}}));
}

TEST(Decimate, SplitsAtGaps) {
  const std::vector<double> values = {kGap, 1, 2, kGap, kInfinity, 3, kGap};
  EXPECT_THAT(Decimate(values, 100), ElementsAre(SampleRun{{1, 1}, {2, 2}}, SampleRun{{5, 3}}));
  EXPECT_TRUE(Decimate(std::vector<double>{kGap, kGap}, 10).empty());
  EXPECT_TRUE(Decimate({}, 10).empty());
}

TEST(Decimate, KeepsFirstLeastGreatestAndLastOfEachColumnInRowOrder) {
  const std::vector<double> values = {5, 9, 1, 4, 6, /**/ 1, 2, 3, 4, 5};
  EXPECT_THAT(Decimate(values, 2), ElementsAre(SampleRun{{0, 5}, {1, 9}, {2, 1}, {4, 6}, {5, 1}, {9, 5}}));
}

TEST(Decimate, ShowsAGapThatFillsAColumn) {
  const std::vector<double> values = {1, kGap, 2, /**/ kGap, kGap, kGap, /**/ kGap, 7, 7};
  EXPECT_THAT(Decimate(values, 3), ElementsAre(SampleRun{{0, 1}, {2, 2}}, SampleRun{{7, 7}, {8, 7}}));
}

TEST(Decimate, CostsFourSamplesAColumnWhateverTheRows) {
  std::vector<double> values;
  for (int i = 0; i < 32750; ++i) values.push_back(i % 3 == 0 ? kGap : std::sin(i * 7919.0));
  const std::vector<SampleRun> runs = Decimate(values, 500);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_LE(runs[0].size(), 2000U);
  Sample least;
  Sample greatest;
  ASSERT_TRUE(ColumnExtremes(values, 0, 32750, least, greatest));
  EXPECT_THAT(runs[0], ::testing::IsSupersetOf({least, greatest}));
}

TEST(Decimate, ColumnsShareTheRows) {
  EXPECT_EQ(FirstRowOfColumn(0, 10, 3), 0);
  EXPECT_EQ(FirstRowOfColumn(1, 10, 3), 3);
  EXPECT_EQ(FirstRowOfColumn(2, 10, 3), 6);
  EXPECT_EQ(FirstRowOfColumn(3, 10, 3), 10);
  EXPECT_EQ(FirstRowOfColumn(2000, 2000000000, 2000), 2000000000);
}

}  // namespace
}  // namespace chartproject
