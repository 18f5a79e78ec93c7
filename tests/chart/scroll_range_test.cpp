// Scroll bar numbers over files of all sizes.
#include "chart/scroll_range.h"

#include <gtest/gtest.h>

#include "platform/run_time_error.h"

namespace chartproject {
namespace {

TEST(ScrollRangeTest, FollowsThePointsUpToTheBarsRangeAndThenStandsForThem) {
  // 0.5 (30 points) and 1.5 (40) go to the even neighbour.
  const std::tuple<std::int32_t, std::int16_t, std::tuple<bool, int, int, int>> cases[] = {
      {0, 1, {false, 0, 1, 1}},           {25, 1, {false, 0, 1, 1}},
      {26, 1, {true, 1, 1, 0}},           {30, 1, {true, 5, 1, 0}},
      {40, 1, {true, 15, 1, 2}},          {625, 1, {true, 600, 1, 60}},
      {625, 25, {true, 0, 25, 0}},        {32767, 1, {true, 32742, 1, 3274}},
      {32767, 1310, {true, 17, 1310, 2}}, {32768, 1, {true, 32742, 1, 3274}},
      {32768, 1310, {true, 17, 1237, 2}}, {2000000, 1, {true, 32742, 0, 3274}},
      {2000000, 1310, {true, 17, 0, 2}},  {2000000000, 1, {true, 32742, 0, 3274}}};
  for (const auto& [points, division, expected] : cases) {
    const ScrollRange range = ComputeScrollRange(points, division);
    EXPECT_EQ(std::tuple(range.usable, range.maximum, range.smallChange, range.largeChange), expected)
        << points << " by " << division;
  }
  EXPECT_THROW(static_cast<void>(SliceLength(1311)), RunTimeError);
  EXPECT_THROW(static_cast<void>(ComputeScrollRange(100000, 1311)), RunTimeError);
}

TEST(ScrollRangeTest, MapsPositionsToPointsAndBack) {
  const std::tuple<std::int32_t, std::int16_t, int, int, std::int32_t> cases[] = {
      {26, 1, 1, 1, 22},
      {625, 25, 0, 0, 21},
      {625, 1, 600, 600, 621},
      {32768, 1, 32742, 32742, 32764},
      {32768, 1310, 17, 17, 39},
      {2000000, 1, 16371, 32742, 1000009},
      {2000000, 1, 32742, 32742, 1999996},
      {2000000000, 1, 32742, 32742, 1999999996},
      {26, 2, -24, -24, 21}};  // a bar that runs backwards shows the file from its start
  for (const auto& [points, division, value, maximum, start] : cases) {
    EXPECT_EQ(SliceStart(21, points, division, value, maximum), start) << points << " at " << value;
    EXPECT_TRUE(maximum <= 0 || ScrollValue(start - 21, points, division, maximum) == value) << points;
  }
  EXPECT_THROW(static_cast<void>(SliceStart(2'147'483'647, 100, 1, 75, 75)), RunTimeError);
}

}  // namespace
}  // namespace chartproject
