// The chart window over a long recording: the strip that shows all of it, wide slices, zoom, pan and the way back.
#include <gmock/gmock.h>

#include "chart/recording_canvas.h"
#include "chart/window/chart_form.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;

constexpr const char* kFile = "/data/Test.cht";

struct ZoomTest : ::testing::Test {
  ZoomTest() {
    component.language = Language::kEnglish;
    component.settings.strSound = "No";
    component.settings.intChartType = 3;
    component.driveTable.At(1).Type = "KRA-09";
    fakes.files.Put("\\Kestrel.log", "");
  }
  /// Rows 1 to `rows`, whose value is their number.
  ChartForm& Open(int rows) {
    std::string text =
        "[INFO]\r\nDrive Address=01\r\nNumber of Parameters=1\r\nPXXX1=003\r\nScan Time=2\r\nUnit=s\r\n"
        "Number of Points=" +
        std::to_string(rows) + "\r\nTrigger Mode=Manual\r\n[TIME/CONTENT]\r\n";
    for (int i = 1; i <= rows; ++i) text += "08:00:00#" + std::to_string(i) + "#####\r\n";
    fakes.files.Put(kFile, text);
    form.Load();
    EXPECT_TRUE(form.OpenFile(kFile));
    while (form.overview.tmrSurvey.Enabled()) form.overview.tmrSurvey.Fire();
    return form;
  }
  void Paint() {
    form.mscChart1.Paint(chart);
    form.mscChart1.PaintOverlay(chart);
    form.overview.ovwRecording.Paint(strip);
    form.overview.ovwRecording.PaintOverlay(strip);
  }
  void Press(const KeyPress& key) { EXPECT_TRUE(form.mscChart1.KeyPressed(key)); }
  /// First label, points a row, rows, points a division.
  std::vector<std::int64_t> Shown() {
    const ChartModel& model = form.mscChart1.Model();
    return {model.firstRowLabel, model.labelsPerRow, model.rowCount, form.View().Division()};
  }

  const KeyPress fit{.key = Key::kCharacter, .character = 'F'};
  const KeyPress back{.key = Key::kBackspace};
  FakePorts fakes;
  FakePlant plant;
  Component component{fakes.ports, fakes.forms, plant};
  ChartForm form{component};
  testing::RecordingCanvas chart{{800, 400}};
  testing::RecordingCanvas strip{{808, 56}};  // a plot of 800 pixels from 4 on
};

TEST_F(ZoomTest, TheStripShowsTheRecordingAndMovesTheSlice) {
  Open(8000);
  OverviewControl& overview = form.overview.ovwRecording;
  EXPECT_TRUE(overview.Visible());
  Paint();
  EXPECT_EQ(strip.Texts().front(), "00:00:00");
  EXPECT_EQ(strip.Texts().back(), "04:26:38");
  const auto mouse = [](double x, MouseButton button = MouseButton::kLeft) {
    return MouseInput{.at = {x, 20}, .button = button};
  };
  overview.MousePressed(mouse(404));  // point 4000 in the middle of 25
  EXPECT_EQ(Shown().front(), 3989);
  overview.MouseMoved(mouse(414));
  EXPECT_EQ(Shown().front(), 4089);
  overview.MouseReleased(mouse(414));
  overview.MouseMoved(mouse(500));
  EXPECT_EQ(Shown().front(), 4089);
  overview.MousePressed(mouse(414));  // in the frame: it is held where it is
  overview.MouseMoved(mouse(415));
  EXPECT_EQ(Shown().front(), 4099);
  overview.MouseMoved(mouse(-90));
  EXPECT_EQ(Shown().front(), 1);
  overview.MouseDoubleClicked(mouse(100));
  EXPECT_EQ(Shown().front(), 7976);
  // The strip can be put away, and stays away in the next window.
  form.mscChart1.MenuChosen(static_cast<int>(ChartAction::kOverview) + 1);
  EXPECT_FALSE(overview.Visible());
  form.Unload();
  EXPECT_EQ(fakes.settings.Read("frmChart", "Overview"), "No");
}

TEST_F(ZoomTest, FitShowsTheWholeRecordingExactlyAndBackspaceGoesBack) {
  Open(100'000);
  Press(fit);
  EXPECT_THAT(Shown(), ElementsAre(1, 5, 20'000, 4000));
  const std::vector<double>& values = form.mscChart1.Model().series[0].values;
  EXPECT_THAT(std::vector(values.begin(), values.begin() + 4), ElementsAre(1, 10, 11, 20));
  EXPECT_THAT(std::vector(values.end() - 2, values.end()), ElementsAre(99'991, 100'000));
  EXPECT_EQ(form.scroll.lblPointsPerDivision.Caption(), "Points per division: 4000");
  EXPECT_FALSE(form.mscChart1.KeyPressed(fit));  // nothing more to show
  Press(back);
  EXPECT_THAT(Shown(), ElementsAre(1, 1, 25, 1));
  EXPECT_FALSE(form.mscChart1.KeyPressed(back));
}

TEST_F(ZoomTest, AShortRecordingFitsPointByPoint) {
  Open(60);
  Press(fit);
  EXPECT_THAT(Shown(), ElementsAre(1, 1, 60, 3));
  Press({.key = Key::kCharacter, .control = true, .character = '0'});
  EXPECT_THAT(Shown(), ElementsAre(1, 1, 25, 1));
}

TEST_F(ZoomTest, WideSlicesScrollAndAreReadOut) {
  Open(100'000);
  Press(fit);
  Press({.key = Key::kCharacter, .character = '+'});
  EXPECT_THAT(Shown(), ElementsAre(16'626, 5, 13'350, 2670));
  Press({.key = Key::kEnd});
  EXPECT_EQ(Shown().front(), 100'000 - 25 * 2670 + 1);
  Press({.key = Key::kLeft});
  EXPECT_EQ(Shown().front(), 100'000 - 26 * 2670 + 1);
  Paint();
  form.mscChart1.MouseMoved({.at = {400, 200}});
  const auto& readout = form.mscChart1.Readout();
  ASSERT_EQ(readout.size(), 2U);
  EXPECT_THAT(readout[0].text, ::testing::MatchesRegex("Points 6.... to 6...."));
  EXPECT_THAT(readout[1].text, ::testing::MatchesRegex("P003: 6.... to 6...."));
  // A cursor is on the first point of its row, read from the file.
  form.mscChart1.MousePressed({.at = {400, 200}, .button = MouseButton::kLeft});
  const auto label = form.mscChart1.CursorLabel(MeasuringCursor::kFirst);
  ASSERT_TRUE(label.has_value());
  EXPECT_EQ(form.mscChart1.CursorReadout()[0].text, "Cursor 1: point " + std::to_string(*label) + ", 08:00:00");
  // The slider leaves the wide slice.
  form.scroll.sldPointsPerDivision.SetValue(100);
  const std::vector<std::int64_t> shown = Shown();
  EXPECT_THAT(std::vector(shown.begin() + 1, shown.end()), ElementsAre(1, 2500, 100));
}

TEST_F(ZoomTest, ABoxWithShiftZoomsIntoItsValuesToo) {
  Open(1000);
  Press({.key = Key::kCharacter, .character = 'F'});
  for (const bool lanes : {false, true}) {
    if (lanes) Press({.key = Key::kCharacter, .character = 'L'});
    Paint();
    const Rect front = form.mscChart1.Lanes()[0].plot.front;
    const ValueAxis before = form.mscChart1.Lanes()[0].plot.axis;
    const auto at = [&](double x, double y, bool shift = true) {
      return MouseInput{
          .at = {front.x + x * front.width, front.y + y * front.height}, .shift = shift, .button = MouseButton::kLeft};
    };
    form.mscChart1.MousePressed(at(0.2, 0.25));
    form.mscChart1.MouseMoved(at(0.6, 0.75));
    form.mscChart1.MouseReleased(at(0.6, 0.75));
    EXPECT_EQ(form.View().Division(), 16);
    const ChartModel& model = form.mscChart1.Model();
    const auto& range = lanes ? model.series[0].range : model.valueRange;
    ASSERT_TRUE(range.has_value());
    EXPECT_DOUBLE_EQ(range->minimum, before.Minimum() + 0.25 * (before.Maximum() - before.Minimum()));
    EXPECT_DOUBLE_EQ(range->maximum, before.Minimum() + 0.75 * (before.Maximum() - before.Minimum()));
    Press(back);
    EXPECT_FALSE(form.mscChart1.Model().valueRange.has_value() || form.mscChart1.Model().series[0].range.has_value());
    EXPECT_EQ(form.View().Division(), 40);
  }
}

TEST_F(ZoomTest, TheWheelZoomsAtThePointerABoxZoomsIntoItAndTheMiddleButtonPans) {
  Open(100'000);
  Press(fit);
  Paint();
  const double x = 600;
  const auto share = form.mscChart1.ShareAt({x, 200});
  ASSERT_TRUE(share.has_value());
  const auto pointAtShare = [&] {
    const std::vector<std::int64_t> shown = Shown();
    return static_cast<double>(shown[0]) + *share * static_cast<double>(shown[1] * shown[2]);
  };
  const double before = pointAtShare();
  for (int i = 0; i < 4; ++i) EXPECT_TRUE(form.mscChart1.WheelTurned({.notches = 1, .at = {x, 200}, .control = true}));
  EXPECT_LT(form.View().Division(), 1000);
  EXPECT_NEAR(pointAtShare(), before, 8);
  Press(back);  // one step for all the turns
  EXPECT_EQ(form.View().Division(), 4000);
  Paint();

  const double perPixel = 100'000 * (*form.mscChart1.ShareAt({700, 200}) - *share) / 100;
  const auto mouse = [](double at, MouseButton button) { return MouseInput{.at = {at, 200}, .button = button}; };
  form.mscChart1.MousePressed(mouse(300, MouseButton::kLeft));
  EXPECT_TRUE(form.mscChart1.CursorLabel(MeasuringCursor::kFirst).has_value());
  form.mscChart1.MouseMoved(mouse(400, MouseButton::kLeft));
  EXPECT_FALSE(form.mscChart1.CursorLabel(MeasuringCursor::kFirst).has_value());  // it was no click
  form.mscChart1.MouseReleased(mouse(400, MouseButton::kLeft));
  EXPECT_NEAR(static_cast<double>(form.View().Span()), 100 * perPixel, 0.02 * 100 * perPixel + 25);

  Paint();
  const std::int64_t from = Shown().front();
  form.mscChart1.MousePressed(mouse(400, MouseButton::kMiddle));
  form.mscChart1.MouseMoved(mouse(300, MouseButton::kMiddle));
  EXPECT_GT(Shown().front(), from);
  form.mscChart1.MouseMoved(mouse(400, MouseButton::kMiddle));
  EXPECT_EQ(Shown().front(), from);
}

TEST(WideDivisionTest, IsRoundAndHasWholeRows) {
  const std::tuple<std::int64_t, std::int64_t, std::int64_t> cases[] = {
      {1311, 1320, 2},      {2621, 2630, 5},          {6551, 6560, 10},
      {10'001, 10'100, 20}, {800'000, 800'000, 1000}, {80'000'000, 80'000'000, 100'000}};
  for (const auto& [wanted, points, perRow] : cases) {
    const WideDivision division = ChooseWideDivision(wanted);
    EXPECT_EQ(std::pair(division.points, division.pointsPerRow), std::pair(points, perRow)) << wanted;
  }
}

}  // namespace
}  // namespace chartproject
