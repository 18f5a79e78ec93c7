// Scroll bar numbers over files of all sizes.
#include "chart/scroll_range.h"

#include <gtest/gtest.h>

#include "platform/run_time_error.h"

namespace chartproject {
namespace {

TEST(ScrollRangeTest, FollowsThePointsUpToTheBarsRangeAndThenStandsForThem) {
  const struct {
    std::int32_t points;
    std::int16_t division;
    bool usable;
    int maximum, smallChange, largeChange;
  } cases[] = {{0, 1, false, 0, 1, 1},
               {25, 1, false, 0, 1, 1},
               {26, 1, true, 1, 1, 0},
               {30, 1, true, 5, 1, 0},   // 0.5 to the even neighbour
               {40, 1, true, 15, 1, 2},  // 1.5, too
               {625, 1, true, 600, 1, 60},
               {625, 25, true, 0, 25, 0},
               {32767, 1, true, 32742, 1, 3274},
               {32767, 1310, true, 17, 1310, 2},
               {32768, 1, true, 32742, 1, 3274},
               {32768, 1310, true, 17, 1237, 2},
               {2'000'000, 1, true, 32742, 0, 3274},
               {2'000'000, 1310, true, 17, 0, 2},
               {2'000'000'000, 1, true, 32742, 0, 3274}};
  for (const auto& c : cases) {
    const ScrollRange range = ComputeScrollRange(c.points, c.division);
    EXPECT_EQ(range.usable, c.usable) << c.points;
    EXPECT_EQ(range.maximum, c.maximum) << c.points << " by " << c.division;
    EXPECT_EQ(range.smallChange, c.smallChange) << c.points << " by " << c.division;
    EXPECT_EQ(range.largeChange, c.largeChange) << c.points << " by " << c.division;
  }
  EXPECT_THROW(static_cast<void>(SliceLength(1311)), RunTimeError);
  EXPECT_THROW(static_cast<void>(ComputeScrollRange(100000, 1311)), RunTimeError);
}

TEST(ScrollRangeTest, MapsPositionsToPointsAndBack) {
  const struct {
    std::int32_t points;
    std::int16_t division;
    int value, maximum;
    std::int32_t start;
  } cases[] = {{26, 1, 1, 1, 22},
               {625, 25, 0, 0, 21},
               {625, 1, 600, 600, 621},
               {32768, 1, 32742, 32742, 32764},
               {32768, 1310, 17, 17, 39},
               {2'000'000, 1, 16371, 32742, 1'000'009},  // 999987.5 to the even neighbour
               {2'000'000, 1, 32742, 32742, 1'999'996},
               {2'000'000'000, 1, 32742, 32742, 1'999'999'996},
               {26, 2, -24, -24, 21}};  // a bar that runs backwards shows the file from its start
  for (const auto& c : cases) {
    EXPECT_EQ(SliceStart(21, c.points, c.division, c.value, c.maximum), c.start) << c.points << " at " << c.value;
    if (c.maximum > 0) {
      EXPECT_EQ(ScrollValue(c.start - 21, c.points, c.division, c.maximum), c.value) << c.points;
    }
  }
  EXPECT_THROW(static_cast<void>(SliceStart(2'147'483'647, 100, 1, 75, 75)), RunTimeError);
}

}  // namespace
}  // namespace chartproject
