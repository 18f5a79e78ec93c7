// The chart control: pointer, cursors, requests to paint, the copied picture;
// its texts about points: times across midnight, differences, gaps, the scan time in its units.
#include "chart/window/control/chart_control.h"
#include "recording/companion/point_clock.h"

#include <gmock/gmock.h>

#include "chart/recording_canvas.h"
#include "chart/window/control/readout.h"
#include "common/values/measured_text.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre;
using testing::RecordingCanvas;

class ChartForm : public Form {
 public:
  explicit ChartForm(FakePorts& fakes) : Form(fakes.forms, "frmSample", [](const auto&, const auto&) {}) {}
  ChartControl chart{*this, "mscChart1"};
};

struct ChartControlTest : ::testing::Test {
  ChartControlTest() {
    Show(101, 25);
    chart.Paint(canvas);
  }
  void Show(std::int64_t firstLabel, int rows) {
    ChartModel model;
    model.kind = ChartKind::k2dLine;
    model.firstRowLabel = firstLabel;
    model.rowCount = rows;
    model.series.push_back({.label = {}, .values = std::vector<double>(rows, 3.0), .color = kSeriesColors[0]});
    chart.SetModel(std::move(model));
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

TEST(ReadoutTest, WritesTimesAsFineAsTheyAre) {
  const std::pair<double, const char*> cases[] = {{0, "00:00:00"},          {0.4, "0.4 s"},      {-0.4, "-0.4 s"},
                                                  {0.30000000004, "0.3 s"}, {5, "00:00:05"},     {-5, "-00:00:05"},
                                                  {65.25, "00:01:05.25"},   {172800, "48:00:00"}};
  for (const auto& [seconds, text] : cases) EXPECT_EQ(TimeText(seconds, {".", ","}), text) << seconds;
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

TEST(ReadoutTest, NamesReadingsThatFailedAndCountsRealTimes) {
  FakePorts fakes;
  Environment environment{fakes.ports, fakes.forms};
  environment.language = Language::kEnglish;
  ChartHeader header;
  header.ScanTime = "1";
  header.Unit = "s";
  const PointReading first{12, "10:15:02", {0, 7}, {"no answer", ""}};
  const PointReading second{40, "10:15:30", {3, 1}, {"", ""}};
  const PointTimes times({{1, 0}, {20, 38'000}, {100, 118'000}}, 5);
  EXPECT_THAT(Texts(PointReadout(environment, first, {"P001", "P002"})),
              ElementsAre("-1|Point 12, 10:15:02", "0|P001: 0 (not read: no answer)", "1|P002: 7"));
  EXPECT_THAT(Texts(CursorReadout(environment, header, {first, second}, {"P001", "P002"}, &times)),
              ElementsAre("-1|Cursor 1: point 12, 10:15:02", "-1|Cursor 2: point 40, 10:15:30",
                          "-1|Difference: 28 points, 00:00:36", "0|P001: 0! -> 3 (+3)", "1|P002: 7 -> 1 (-6)"));
}

}  // namespace
}  // namespace chartproject
