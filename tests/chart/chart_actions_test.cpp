// What the chart window does by keys, wheel and menu: axes, statistics, places and searches.
#include <gmock/gmock.h>

#include "chart/chart_window_fixture.h"
#include "chart/window/find_forms.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::EndsWith, ::testing::HasSubstr, ::testing::IsEmpty;

TEST_F(ChartWindowTest, KeysAndWheelScrollByDivisionsAlsoWhereTheBarIsCoarse) {
  Put("100000", 5000);
  Show([&](ChartForm& form) {
    const auto first = [&form](Key key) {
      EXPECT_TRUE(form.mscChart1.KeyPressed({.key = key}));
      return FirstLabel(form);
    };
    EXPECT_EQ(first(Key::kRight), 2);
    EXPECT_EQ(first(Key::kPageDown), 26);
    EXPECT_EQ(first(Key::kLeft), 25);
    EXPECT_EQ(first(Key::kPageUp), 1);
    EXPECT_EQ(first(Key::kPageUp), 1);
    EXPECT_TRUE(form.mscChart1.WheelTurned({.notches = -2}));
    EXPECT_EQ(FirstLabel(form), 7);
    // The file ends before the points that its header names: from there on N is what the file holds.
    EXPECT_EQ(first(Key::kEnd), 4976);
    EXPECT_EQ(first(Key::kRight), 4976);
    EXPECT_THAT(form.rtfInfo.Text(), EndsWith("\r\n\r\nThe file holds 5000 points; its header names 100000.\r\n"));
    EXPECT_EQ(std::pair(form.scroll.hsbGraph.Maximum(), form.mscChart1.Model().rowCount), std::pair(4975, 25));
    EXPECT_EQ(first(Key::kHome), 1);
  });
}

TEST_F(ChartWindowTest, TheMenuOffersEachActionWithItsKeyAndState) {
  Put("100", 100);
  Show([&](ChartForm& form) {
    const auto lines = [&form] {
      std::string all;
      const auto add = [&all](const MenuItem& item, const std::string& indent, const auto& each) -> void {
        const std::string state = std::string(item.enabled ? "" : " (off)") + (item.checked ? " (on)" : "");
        all += indent + item.text + (item.key.empty() ? "" : " | " + item.key) + state + "\n";
        for (const MenuItem& inner : item.items) each(inner, indent + " ", each);
      };
      for (const MenuItem& item : form.mscChart1.ContextMenu()) add(item, "", add);
      return all;
    };
    EXPECT_EQ(lines(),
              "Whole recording | F\nOne point a division | Ctrl+0 (off)\nZoom in | + (off)\nZoom out | -\n"
              "Previous view | Backspace (off)\nOverview (on)\n\nGo\n One division back | Left\n"
              " One division on | Right\n One page back | Page Up\n One page on | Page Down\n First point | Home\n"
              " Last point | End\n Go to... | Ctrl+G\n Find... | Ctrl+F\n Find the next one | N\n"
              " Find the one before | Shift+N\nLook\n Grid\n Line (on)\n Marker\n Axis: points | P (on)\n"
              " Axis: elapsed time | E\n Axis: time of day | T (off)\n One lane a series | L\n"
              " Magnify the values | I (off)\n Shrink the values | O (off)\n Keep the range of values | K (off)\n"
              " Automatic range of values | A (off) (on)\n Series 1 | 1 (on)\n Series 2 | 2 (on)\n Series 3 | 3 (off)\n"
              " Series 4 | 4 (off)\nMeasure\n First cursor: one point back | Ctrl+Left\n"
              " First cursor: one point on | Ctrl+Right\n Second cursor: one point back | Ctrl+Shift+Left\n"
              " Second cursor: one point on | Ctrl+Shift+Right\n Statistics between the cursors | S (off)\n"
              " Copy the numbers | Ctrl+C (off)\n Remove the cursors | Esc (off)\n\nCopy the picture | Ctrl+Shift+C\n"
              "Save the picture... | Ctrl+S\nExport\nPrint\nPrint report... | Ctrl+P\n");
    form.mscChart1.MenuChosen(static_cast<int>(ChartAction::kLastPoint) + 1);
    EXPECT_EQ(FirstLabel(form), 76);
    form.mscChart1.MenuChosen(static_cast<int>(ChartAction::kGrid) + 1);
    EXPECT_EQ(form.switches.chkGrid.Value(), 1);
    EXPECT_THAT(lines(), HasSubstr("\n Grid (on)\n"));
  });
  // A key means one thing only.
  for (const ChartActionRow& row : ChartActionRows()) {
    const auto same = [&row](const ChartActionRow& other) { return other.key == row.key; };
    EXPECT_TRUE(row.key.key == Key::kNone || std::ranges::count_if(ChartActionRows(), same) == 1)
        << static_cast<int>(row.action);
  }
}

TEST_F(ChartWindowTest, KeysAndWheelOverAFileThatIsGoneAreErrorsOfTheWindow) {
  Put("100", 100);
  Show([&](ChartForm& form) {
    fakes.files.Delete(kFile);
    form.mscChart1.KeyPressed({.key = Key::kRight});
    form.mscChart1.WheelTurned({.notches = -1});
    EXPECT_EQ(FirstLabel(form), 1);
  });
  EXPECT_THAT(fakes.files.Bytes("\\Kestrel.log"),
              ::testing::AllOf(HasSubstr("mscChart1_KeyDown"), HasSubstr("mscChart1_Wheel")));
}

TEST_F(ChartWindowTest, ReadsOutThePointerAndTheCursors) {
  Put("100", 100);
  Show([&](ChartForm& form) {
    form.mscChart1.SetCursor(MeasuringCursor::kFirst, 5);
    form.scroll.hsbGraph.SetValue(60);
    form.mscChart1.SetCursor(MeasuringCursor::kSecond, 70);
    EXPECT_EQ(form.mscChart1.CursorReadout().at(2).text, "Difference: 65 points, 00:01:05");
    EXPECT_EQ(form.mscChart1.CursorReadout().at(3).text, "P003: 5 -> 70 (+65)");
  });
}

TEST_F(ChartWindowTest, AxesFollowKeysWheelAndSwatchesAndTheirUnitIsRemembered) {
  Put("100", 100);
  fakes.files.Put(kFile, "Start Time=08:00:00\r\n" + fakes.files.Bytes(kFile));
  testing::RecordingCanvas canvas({640, 360});
  Show([&](ChartForm& form) {
    ChartControl& chart = form.mscChart1;
    for (const char* key : {"T", "L", "2"}) EXPECT_TRUE(chart.KeyPressed(Typed(key))) << key;
    chart.Paint(canvas);
    EXPECT_THAT(canvas.Texts(), ::testing::IsSupersetOf({"08:00:00", "Motor current"}));
    EXPECT_EQ(form.series.picPXXX2.BackColor(), (Color{236, 236, 232}));
    form.series.picPXXX2.Press();
    form.series.picPXXX1.Press();
    chart.Paint(canvas);
    EXPECT_THAT(chart.Lanes().at(0).series, ElementsAre(1));
    const Rect& front = chart.Lanes()[0].plot.front;
    EXPECT_TRUE(chart.WheelTurned({.notches = 1, .at = {front.x - 5, front.y}}));
    EXPECT_EQ(chart.Model().series[1].range->maximum, 0) << "the value under the pointer stays";
    EXPECT_EQ(chart.Model().series[1].range->minimum, -25 * 0.8);
    EXPECT_EQ(FirstLabel(form), 1);
    form.scroll.ScrollTo(50);
    EXPECT_TRUE(chart.Model().series[1].range) << "another slice keeps the range";
    EXPECT_TRUE(chart.KeyPressed(Typed("A")));
    EXPECT_FALSE(chart.Model().series[1].range);
  });
  Show([&](ChartForm& form) {
    EXPECT_EQ(form.mscChart1.Model().categoryUnit, CategoryUnit::kTimeOfDay);
    EXPECT_TRUE(form.mscChart1.Model().lanes);
    EXPECT_TRUE(form.mscChart1.Model().series[0].visible);
  });
}

TEST_F(ChartWindowTest, MeasuresBetweenTheCursorsByKeysAndCopiesTheNumbers) {
  Put("50000", 50000);
  fakes.locale.UseComma();
  Show([&](ChartForm& form) {
    ChartControl& chart = form.mscChart1;
    const auto readout = [&chart] {
      std::vector<std::string> lines;
      for (const ReadoutLine& line : chart.CursorReadout()) {
        lines.push_back(line.text);
        for (const std::string& cell : line.cells) lines.back() += "|" + cell;
      }
      return lines;
    };
    EXPECT_FALSE(chart.KeyPressed(Typed("S"))) << "nothing to measure between";
    for (const bool shift : {false, true, true, true}) {
      EXPECT_TRUE(chart.KeyPressed({.key = Key::kRight, .shift = shift, .control = true}));
    }
    EXPECT_TRUE(chart.KeyPressed(Typed("S")));
    EXPECT_THAT(readout(), ElementsAre("Cursor 1: point 13, 08:00:00", "Cursor 2: point 15, 08:00:00",
                                       "Difference: 2 points, 00:00:02", "|P003|P999", "Minimum|13|-15",
                                       "Maximum|15|-13", "Mean|14|-14", "RMS|14,0238|14,0238", "Slope, per s|1|-1",
                                       "Integral, x s|28|-28", "Crossings of the mean|1|1"));
    EXPECT_TRUE(chart.KeyPressed(Typed("^C")));
    EXPECT_THAT(fakes.clipboard.Text(), HasSubstr("P003: 13 -> 15 (+2)\r\n"));
    EXPECT_THAT(fakes.clipboard.Text(), EndsWith("RMS\t14,0237893119751\t14,0237893119751\r\nSlope, per s\t1\t-1\r\n"
                                                 "Integral, x s\t28\t-28\r\nCrossings of the mean\t1\t1\r\n"));
    chart.SetCursor(MeasuringCursor::kSecond, 50000);
    EXPECT_EQ(readout().back(), "Key S: statistics of 49.988 points");
    EXPECT_TRUE(chart.KeyPressed(Typed("S")));
    EXPECT_THAT(readout(), ::testing::Contains("Maximum|50000|-13"));
    EXPECT_TRUE(chart.KeyPressed({.key = Key::kLeft, .shift = true, .control = true}));
    EXPECT_EQ(FirstLabel(form), 49976) << "the slice follows a cursor out of it";
  });
}

TEST_F(ChartWindowTest, GoesToAPlaceAndFindsMarksAndNamesPoints) {
  Put("1000", 1000);
  fakes.files.Put(kFile, "Start Time=08:00:00\r\n" + fakes.files.Bytes(kFile));
  Show([&](ChartForm& form) {
    ChartControl& chart = form.mscChart1;
    const auto answer = [&](std::string_view key, const std::function<void(Form&)>& user) {
      asked = user;
      EXPECT_TRUE(chart.KeyPressed(Typed(key)));
    };
    const std::tuple<int, const char*, std::string> places[] = {{0, "500", "Point 500, 08:00:00"},
                                                                {1, "00:01:40", "Point 101, 08:00:00"},
                                                                {2, "08:05:00", "Point 301, 08:00:00"}};
    for (const auto& [unit, text, mark] : places) {
      answer("^G", [unit = unit, text = text](Form& window) {
        auto& box = static_cast<GoToForm&>(window);
        box.cboUnit.SetListIndex(unit);
        box.txtPlace.SetText(text);
        box.cmdOK.Press();
      });
      EXPECT_EQ(chart.Mark()->text, mark);
    }
    answer("^G", [](Form& window) {
      auto& box = static_cast<GoToForm&>(window);
      for (const char* text : {"1001", "next"}) {
        box.txtPlace.SetText(text);
        box.cmdOK.Press();
      }
      box.cmdCancel.Press();
    });
    EXPECT_THAT(Prompts(), ElementsAre("The recording goes from point 1 to point 1000.",
                                       "\"next\" cannot be read. Write for example 1000."));
    EXPECT_EQ(chart.Mark()->label, 301);

    answer("^F", [](Form& window) {
      auto& box = static_cast<FindForm&>(window);
      box.cboSeries.SetListIndex(1);
      box.txtValue.SetText("-700.5");
      box.cmdNext.Press();
    });
    EXPECT_EQ(chart.Mark()->text, "P999 crosses -700.5 at point 701, 08:00:00");
    EXPECT_EQ(FirstLabel(form), 689);
    EXPECT_TRUE(chart.KeyPressed(Typed("N")));
    EXPECT_EQ(form.reading.lblStatus.Caption(), "Nothing found: Crossing of a value, P999");
    EXPECT_EQ(chart.Mark()->label, 701);
    EXPECT_TRUE(chart.KeyPressed({.key = Key::kEscape}));
    EXPECT_FALSE(chart.Mark());
  });
}

TEST_F(ChartWindowTest, PlacesAreNumbersDurationsAndTimesOfDayOnAnyDay) {
  ChartHeader header;
  header.ScanTime = "500";
  header.Unit = "ms";
  header.StartTime = "23:59:50";
  const std::string first = fakes.locale.DateText({.year = 2026, .month = 11, .day = 30});
  header.StartDate = first;
  const PointClock clock(header, nullptr, fakes.locale);
  const std::string second = fakes.locale.DateText({.year = 2026, .month = 12, .day = 1});
  using enum CategoryUnit;
  const std::tuple<CategoryUnit, std::string, std::optional<std::int64_t>> cases[] = {
      {kPoints, " 12 ", 12},
      {kPoints, "1.5", std::nullopt},
      {kElapsed, "10", 21},
      {kElapsed, "00:01:00.5", 122},
      {kElapsed, "1:2", std::nullopt},
      {kTimeOfDay, "23:59:51", 3},
      {kTimeOfDay, "00:00:10", 41},
      {kTimeOfDay, second + " 00:00:10", 41},
      {kTimeOfDay, first + " 00:00:00", -172779},
      {kTimeOfDay, "10", std::nullopt}};
  for (const auto& [unit, text, point] : cases) EXPECT_EQ(PlaceOf(text, unit, clock, fakes.locale), point) << text;
}

}  // namespace
}  // namespace chartproject
