// Ticks and labels of the category axis.
#include "chart/category_axis.h"

#include <gmock/gmock.h>

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
  EXPECT_THAT(axis.tickRows, ElementsAre(0, 5, 10));
  EXPECT_THAT(Texts(axis), ElementsAre("101", "106", "111"));
  EXPECT_EQ(axis.labels[1].position, 5.5);
  EXPECT_EQ(LayOut(8, 1, {false, 4, 4, false}, 400).labels[1].position, 6) << "in the middle of its division";
  EXPECT_TRUE(LayOutCategoryAxis({}, {1, 0, 0, TextWidth}).tickRows.empty());
}

TEST(CategoryAxis, SkipsLabelsEvenlyWhenTheyWouldTouch) {
  EXPECT_THAT(Texts(LayOut(25, 1, Divisions(1), 600)).size(), 25);
  EXPECT_THAT(Texts(LayOut(25, 1, Divisions(1), 400)),
              ElementsAre("1", "3", "5", "7", "9", "11", "13", "15", "17", "19", "21", "23", "25"));
  EXPECT_THAT(Texts(LayOut(25, 1, Divisions(1), 80)), ElementsAre("1", "8", "15", "22"));
  EXPECT_THAT(LayOut(25, 1, Divisions(1), 80).tickRows.size(), 25);
}

TEST(CategoryAxis, ChoosesRoundDivisionsByItself) {
  EXPECT_THAT(LayOut(100, 1, {}, 400).tickRows, ElementsAre(0, 10, 20, 30, 40, 50, 60, 70, 80, 90));
}

TEST(CategoryAxis, LabelsNeverTouchNorLeaveTheirRoom) {
  for (const int division : {1, 2, 7, 1310}) {
    for (const std::int64_t first : {std::int64_t{1}, std::int64_t{1999967251}}) {
      for (double width = 1; width < 900; width += 3.7) {
        const int rows = 25 * division;
        const CategoryAxis axis = LayOut(rows, first, Divisions(division), width);
        double end = -30;
        for (const CategoryLabel& label : axis.labels) {
          const double middle = label.position * width / rows;
          EXPECT_GE(middle - TextWidth(label.text) / 2, end) << width << " " << label.text;
          end = middle + TextWidth(label.text) / 2 + 1;
        }
        EXPECT_LE(end, width + 11);
      }
    }
  }
}

}  // namespace
}  // namespace chartproject
