// The chart control: properties and their limits, data, pointer, cursors, requests to paint, the copied picture;
// what it says of points: times across midnight, differences, gaps, the scan time in its units.
#include "chart/window/chart_control.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "chart/recording_canvas.h"
#include "chart/window/readout.h"
#include "support/error_of.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;
using testing::RecordingCanvas;
using enum MeasuringCursor;

class ChartForm : public Form {
 public:
  explicit ChartForm(FakePorts& fakes) : Form(fakes.forms, "frmSample", [](const auto&, const auto&) {}) {}
  ChartControl chart{*this, "mscChart1"};
};

struct ChartControlTest : ::testing::Test {
  ChartControlTest() {
    chart.SetColumnCount(1);
    chart.SetRowCount(25);
    chart.SetFirstRowLabel(101);
    chart.SetColumn(0, std::vector<double>(25, 3.0));
    chart.SetChartType(3);
    chart.Paint(canvas);
  }

  /// The middle of a row's slot, as the chart was painted.
  [[nodiscard]] MouseInput Over(int row, bool shift = false) const {
    return {{BuildChartScene(chart.Model(), canvas.Extent(), canvas, {}).plot.X(row), 100}, shift};
  }
  FakePorts fakes;
  ChartForm form{fakes};
  ChartControl& chart = form.chart;
  RecordingCanvas canvas{{640, 360}};
};

TEST_F(ChartControlTest, RefusesWhatThePropertiesCannotHold) {
  const CategoryScale noDivisions{false, 0, 1, true};
  const std::vector<double> tooFew{1, 2};
  const std::pair<int, std::function<void()>> cases[] = {{0, [&] { chart.SetChartType(7); }},
                                                         {380, [&] { chart.SetChartType(8); }},
                                                         {380, [&] { chart.SetChartType(-1); }},
                                                         {380, [&] { chart.SetGridPen(ChartAxis::kX, 7); }},
                                                         {0, [&] { chart.SetWallPen(6); }},
                                                         {380, [&] { chart.SetWallPen(-1); }},
                                                         {380, [&] { chart.SetRowCount(-1); }},
                                                         {380, [&] { chart.SetColumnCount(-1); }},
                                                         {380, [&] { chart.SetCategoryScale(noDivisions); }},
                                                         {380, [&] { chart.SetColumn(0, tooFew); }},
                                                         {9, [&] { chart.SetColumn(1, {}); }},
                                                         {9, [&] { chart.SetDataPoint(0, 25, 1); }},
                                                         {9, [&] { chart.SetDataPoint(-1, 0, 1); }},
                                                         {9, [&] { (void)chart.RowLabel(25); }},
                                                         {9, [&] { chart.SetShowLine(1, true); }}};
  int at = 0;
  for (const auto& [number, action] : cases) EXPECT_EQ(ErrorOf(action), number) << "case " << at++;
}

TEST_F(ChartControlTest, NewRowsAndColumnsAreGapsAndOldOnesStay) {
  chart.SetShowMarker(0, true);
  chart.SetRowCount(26);
  chart.SetColumnCount(2);
  EXPECT_EQ(chart.DataPoint(0, 24), 3.0);
  EXPECT_TRUE(std::isnan(chart.DataPoint(0, 25)) && std::isnan(chart.DataPoint(1, 0)));
  EXPECT_TRUE(chart.ShowMarker(0));
  EXPECT_EQ(chart.Model().series[1].color, FromBgr(65280));
  EXPECT_EQ(chart.RowLabel(24), 125);
}

TEST_F(ChartControlTest, ResetDropsDataAndPropertiesButNotTheCursors) {
  chart.SetCursor(kFirst, 110);
  chart.SetGridPen(ChartAxis::kSecondY, 0);
  chart.MouseMoved(Over(20));
  chart.ResetToDefaults();
  EXPECT_EQ(chart.ChartType(), 1);
  EXPECT_EQ(chart.RowCount() + chart.ColumnCount(), 0);
  EXPECT_EQ(chart.GridPen(ChartAxis::kSecondY), 1);
  EXPECT_EQ(chart.CursorLabel(kFirst), 110);
  chart.SetColumnCount(1);
  RecordingCanvas fresh({640, 360});
  chart.Paint(fresh);  // while the pointer stands on a row that is gone
  chart.PaintOverlay(fresh);
  EXPECT_FALSE(fresh.drawn.Shapes().empty());
}

TEST_F(ChartControlTest, TellsTheRowUnderThePointerOncePerRow) {
  std::vector<int> rows;
  chart.pointerRowChanged = {"mscChart1_MouseMove", [&] { rows.push_back(chart.PointerRow().value_or(-1)); }};
  chart.MouseMoved(Over(4));
  chart.MouseMoved({{Over(4).at.x + 1, 50}, false});
  chart.MouseMoved(Over(5));
  chart.MouseMoved({{1, 1}, false});
  chart.MouseMoved(Over(24));
  chart.SetRowCount(10);
  EXPECT_THAT(rows, ElementsAre(4, 5, -1, 24, -1));
  chart.MouseLeft();
  EXPECT_EQ(rows.size(), 5U);
}

TEST_F(ChartControlTest, CursorsKeepTheirPointOfTheFileWhileTheRowsChange) {
  int changes = 0;
  chart.cursorsChanged = {"mscChart1_Cursors", [&] { ++changes; }};
  chart.MousePressed(Over(4));
  chart.MousePressed(Over(9, true));
  chart.MousePressed({{1, 1}, false});
  EXPECT_EQ(chart.CursorLabel(kFirst), 105);
  EXPECT_EQ(chart.CursorLabel(kSecond), 110);
  chart.SetFirstRowLabel(106);
  EXPECT_EQ(chart.CursorRow(kFirst), std::nullopt);
  EXPECT_EQ(chart.CursorRow(kSecond), 4);
  EXPECT_EQ(changes, 2);
}

TEST_F(ChartControlTest, EscTakesTheCursorsAwayAndOtherKeysGoOn) {
  std::vector<Key> keys;
  chart.key = [&](Key key, bool) {
    keys.push_back(key);
    return key == Key::kLeft;
  };
  chart.SetCursor(kSecond, 110);
  EXPECT_TRUE(chart.KeyPressed(Key::kEscape, false));
  EXPECT_EQ(chart.CursorLabel(kSecond), std::nullopt);
  EXPECT_FALSE(chart.KeyPressed(Key::kEscape, false));
  EXPECT_TRUE(chart.KeyPressed(Key::kLeft, false));
  EXPECT_THAT(keys, ElementsAre(Key::kEscape, Key::kLeft));
  EXPECT_FALSE(chart.WheelTurned(1));
}

TEST_F(ChartControlTest, DrawsPointerCursorsAndBoxesWithoutOneBoxOnAnother) {
  chart.SetReadout({{"Point 105", -1}, {"3.00", 0}});
  chart.SetCursorReadout({{"5 points", -1}});
  chart.SetCursor(kFirst, 105);
  chart.MouseMoved(Over(4));
  const auto texts = [&](Size size) {
    RecordingCanvas fresh(size);
    chart.Paint(fresh);
    chart.PaintOverlay(fresh);
    return fresh.Texts();
  };
  EXPECT_THAT(texts({640, 360}), ::testing::IsSupersetOf({"1", "Point 105", "3.00", "5 points"}));
  EXPECT_THAT(texts({140, 90}), ::testing::Not(::testing::Contains("5 points")));
}

TEST_F(ChartControlTest, CopiesTheChartWithoutPointerAndCursors) {
  testing::RecordingPictures renderer;
  chart.SetReadout({{"Point 105", -1}});
  chart.MouseMoved(Over(4));
  EXPECT_EQ(chart.CopyPicture(renderer).width, 640);
  chart.SetPlace({0, 0, 400, 200});
  const Bitmap picture = chart.CopyPicture(renderer, 2);
  EXPECT_EQ(picture.width, 800);
  EXPECT_EQ(picture.height, 400);
  EXPECT_THAT(renderer.texts, ::testing::Contains("101"));
  EXPECT_THAT(renderer.texts, ::testing::Not(::testing::Contains("Point 105")));
}

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
  environment.language = Language::kEnglish;
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
