// The chart window: opening, scrolling, scales, switches, notices, files that change.
#include <gmock/gmock.h>

#include "chart/chart_window_fixture.h"
#include "chart/window/status_form.h"
#include "support/form_texts.h"
#include "support/typing.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::EndsWith, ::testing::HasSubstr, ::testing::IsEmpty, ::testing::Not;

TEST_F(ChartWindowTest, SaysThatItsValuesWereSimulated) {
  Put("100", 100);
  fakes.files.Put(std::string(kFile) + ".readings",
                  "[CHART READINGS]\r\nStart Date=\r\nStart Time=\r\nEnd Date=\r\nEnd Time=\r\nPoints=100\r\n"
                  "[SOURCE]\r\nDrives=simulated\r\n");
  Show([](ChartForm& form) {
    EXPECT_THAT(form.rtfInfo.Text(), EndsWith("\r\n\r\nThe values come from simulated drives.\r\n"));
  });
}

TEST_F(ChartWindowTest, ShowsHeaderSeriesAndFirstSlice) {
  Put("100", 100);
  Show([&](ChartForm& form) {
    EXPECT_EQ(form.rtfInfo.Text(),
              "File Name : /data/Test.cht\r\n\r\nDrive Address : 01\r\nTime among Points : 1 s\r\n"
              "Number of Points : 100\r\nTrigger Mode : Event\r\nEvent : <PXXX> >= Content\r\nParameter : P005\r\n"
              "Content : 12\r\nStart Date : \r\nStart Time : \r\nEnd Date : \r\nEnd Time : \r\n");
    const ChartModel& model = form.mscChart1.Model();
    EXPECT_EQ(std::tuple(model.rowCount, model.series.size(), model.firstRowLabel), std::tuple(25, 2U, 1));
    EXPECT_EQ(std::tuple(model.kind, model.legendVisible, model.wallPen), std::tuple(ChartKind::k2dLine, false, 6));
    EXPECT_EQ(model.backdrop, (Color{255, 255, 230}));
    EXPECT_EQ(Column(form, 1).back(), -25);
    EXPECT_TRUE(form.scales.txtScale2.Enabled());
    EXPECT_FALSE(form.scales.txtScale3.Enabled());
    EXPECT_FALSE(form.scales.cmdUpdateChart.Enabled());
    EXPECT_THAT(
        TextsOf(form),
        ElementsAre("Chart File - Test.cht", "P003", "P999", "Motor current (Motor current)",
                    " (Click, or key 1 over the chart: hides or shows the series)",
                    " (Click, or key 2 over the chart: hides or shows the series)",
                    " (Click, or key 3 over the chart: hides or shows the series)",
                    " (Click, or key 4 over the chart: hides or shows the series)",
                    " (Click: first cursor; Shift and click: second cursor; Esc: removes the cursors)",
                    "Points per division: 1", "Scale 1...32767", "Update Chart", "Chart Type", "Grid", "Line", "Marker",
                    "Export (Export graph data to an Excel file)", "Print (Print chart)", "&Ok (Ok (Alt+O))"));
    EXPECT_EQ(form.switches.cboChartType.Text(), "2D Line");
  });
  EXPECT_THAT(Prompts(), IsEmpty());
}

TEST_F(ChartWindowTest, OpensNoWindowWhereThereIsNothingToShow) {
  const std::tuple<std::string, bool, const char*> cases[] = {
      {"31", true, "Err.Number = 9"},
      {"x", true, "Err.Number = 13"},
      {"01", false, "Err.Number = 53"},
      {"07", true, "It was not possible to load /data/Test.cht\r\nAddress 07 does not exist."}};
  for (const auto& [drive, file, prompt] : cases) {
    Put("100", 100, "2", drive);
    if (!file) fakes.files.Delete(kFile);
    Show([](ChartForm&) {});
    EXPECT_FALSE(shown) << prompt;
    EXPECT_THAT(Prompts(), ElementsAre(HasSubstr(prompt)));
  }
  EXPECT_THAT(fakes.files.Bytes("\\Kestrel.log"), HasSubstr("Sub/Function = OpenFile"));
}

TEST_F(ChartWindowTest, SetsUpScrollBarAndSliderByTheNumberOfPoints) {
  const std::tuple<int, int, bool, std::tuple<int, int, int>> cases[] = {
      {25, 25, false, {100, 1, 1}}, {625, 625, true, {600, 1, 60}}, {40000, 40000, true, {32742, 1, 3274}}};
  for (const auto& [points, rows, usable, range] : cases) {
    Put(std::to_string(points), rows);
    Show([&, last = points, wanted = usable, numbers = range](ChartForm& form) {
      HScrollBar& bar = form.scroll.hsbGraph;
      EXPECT_EQ(bar.Visible(), wanted) << last;
      EXPECT_EQ(form.scroll.lblPointsPerDivision.Visible(), wanted) << last;
      EXPECT_EQ(form.scroll.sldPointsPerDivision.Enabled(), wanted) << last;
      if (!wanted) return;
      EXPECT_EQ(std::tuple(bar.Maximum(), bar.SmallChange(), bar.LargeChange()), numbers) << last;
      bar.SetValue(bar.Maximum());
      EXPECT_EQ(form.View().StartLine(), form.View().FirstLine() + last - 25) << last;
      EXPECT_EQ(FirstLabel(form), last - 24) << last;
    });
    EXPECT_THAT(Prompts(), IsEmpty()) << points;
  }
}

TEST_F(ChartWindowTest, SliderWalksDownToWhatFitsAndKeepsTheSliceInTheFile) {
  Put("625", 625);
  Show([&](ChartForm& form) {
    form.scroll.hsbGraph.SetValue(600);
    const ChartModel& model = form.mscChart1.Model();
    form.scroll.sldPointsPerDivision.SetValue(10);
    EXPECT_EQ(std::tuple(form.scroll.hsbGraph.Value(), form.scroll.hsbGraph.SmallChange()), std::tuple(375, 10));
    EXPECT_EQ(std::tuple(FirstLabel(form), model.rowCount, model.categoryScale.divisionsPerLabel),
              std::tuple(376, 250, 10));
    form.scroll.sldPointsPerDivision.SetValue(1310);
    EXPECT_EQ(std::tuple(form.scroll.sldPointsPerDivision.Value(), form.View().PointsPerDivision()),
              std::tuple(25, 25));
    EXPECT_EQ(std::tuple(form.scroll.hsbGraph.Value(), FirstLabel(form), model.rowCount), std::tuple(0, 1, 625));
    EXPECT_EQ(form.scroll.lblPointsPerDivision.Caption(), "Points per division: 25");
    form.scroll.sldPointsPerDivision.SetValue(1);
    EXPECT_EQ(form.View().EndLine() - form.View().StartLine(), 25);
  });
}

TEST_F(ChartWindowTest, ScalesMultiplyAndRefusedOnesAreNeverDrawn) {
  Put("100", 100);
  Show([&](ChartForm& form) {
    form.scales.upd1.Step(1);
    EXPECT_EQ(form.scales.txtScale1.Text(), "2");
    EXPECT_EQ(Column(form, 0).front(), 1);
    form.scales.cmdUpdateChart.Press();
    EXPECT_EQ(Column(form, 0).front(), 2);
    EXPECT_EQ(Column(form, 1).front(), -1);
    EXPECT_FALSE(form.scales.cmdUpdateChart.Enabled());
    form.scales.txtScale2.SetText("007");
    form.scales.txtScale2.LeaveFocus();
    EXPECT_EQ(form.scales.txtScale2.Text(), "7");
    EXPECT_EQ(form.scales.upd2.Value(), 7);

    const std::pair<const char*, const char*> refused[] = {{"0", "Value out of range !"},
                                                           {"", "Value out of range !"},
                                                           {"abc", "Value out of range !"},
                                                           {"-3", "Value out of range !"},
                                                           {"32768", "Err.Number = 6"}};
    int back = 0;
    form.mscChart1.lostFocus = {"mscChart1_LostFocus", [&back] { ++back; }};
    form.scales.txtScale1.SetFocus();
    for (const auto& [text, prompt] : refused) {
      TypeOver(form.scales.txtScale1, text);
      form.scroll.hsbGraph.SetValue(form.scroll.hsbGraph.Value() + 1);  // a load before the check
      EXPECT_EQ(Column(form, 0).front(), 2.0 * static_cast<double>(FirstLabel(form))) << text;
      TypeOver(form.scales.txtScale1, text);
      form.mscChart1.SetFocus();
      EXPECT_THAT(Prompts(), ElementsAre(HasSubstr(prompt))) << text;
      EXPECT_EQ(form.scales.txtScale1.Text(), "2");
    }
    EXPECT_EQ(back, 6) << "to the field from which a scale was refused";
  });
}

TEST_F(ChartWindowTest, SwitchesSurviveSlicesAndAreSaved) {
  Put("100", 100);
  Show([&](ChartForm& form) {
    form.switches.chkGrid.SetValue(1);
    form.switches.chkMarker.SetValue(1);
    form.switches.chkLine.SetValue(0);
    form.switches.cboChartType.SetListIndex(6);
    form.scroll.hsbGraph.SetValue(10);
    const ChartModel& model = form.mscChart1.Model();
    EXPECT_EQ(std::tuple(model.categoryGrid, model.secondValueGrid, model.kind), std::tuple(1, 1, ChartKind::k3dStep));
    EXPECT_TRUE(model.series[1].showMarker);
    EXPECT_FALSE(model.series[0].showLine);
    form.PlaceChangedByUser(300, 450, 15000, 12000);
    form.output.cmdOK.Press();
  });
  EXPECT_THAT(Prompts(), IsEmpty());
  auto& stored = fakes.settings.values["MyConf"];
  EXPECT_EQ(stored["strGrid"] + stored["strMarker"] + stored["strLine"] + stored["intChartType"], "YesYesNo6");
  Show([&](ChartForm& form) {
    EXPECT_EQ(form.switches.cboChartType.ListIndex(), 6);
    EXPECT_EQ(std::pair(form.Width(), form.Top()), std::pair(15000.0, 450.0));
  });
}

TEST_F(ChartWindowTest, AMalformedLineIsToldOnceAndTheChartStays) {
  Put("100", 30);
  fakes.files.Append(kFile, "broken\r\n");
  Show([&](ChartForm& form) {
    form.scroll.hsbGraph.SetValue(6);
    EXPECT_THAT(Prompts(), ElementsAre("Line error 45 : <<broken>>"));
    EXPECT_EQ(FirstLabel(form), 1);
    form.scroll.hsbGraph.SetValue(3);
    EXPECT_EQ(FirstLabel(form), 4);
  });
}

TEST_F(ChartWindowTest, AMalformedLineOfTheFirstSliceIsSaidUnderTheHeader) {
  Put("100", 3);
  fakes.files.Append(kFile, "broken\r\n");
  component.settings.strGrid = "Yes";
  Show([](ChartForm& form) {
    const ChartModel& model = form.mscChart1.Model();
    EXPECT_EQ(std::tuple(model.rowCount, model.valueGrid, model.wallPen), std::tuple(0, 0, 6));
    EXPECT_EQ(model.backdrop, (Color{255, 255, 230}));
    EXPECT_THAT(form.rtfInfo.Text(), EndsWith("End Time : \r\n\r\nLine error 18 : <<broken>>\r\n"));
  });
  EXPECT_THAT(Prompts(), ElementsAre("Line error 18 : <<broken>>"));
}

TEST_F(ChartWindowTest, CommentLinesAreNoFurtherPoints) {
  Put("30", 20);
  fakes.files.Append(kFile, "' a pause\r\n");
  for (int i = 0; i < 10; ++i) fakes.files.Append(kFile, "08:00:00#1#2####\r\n");
  Show([](ChartForm& form) {
    form.mscChart1.KeyPressed({.key = Key::kEnd});
    EXPECT_EQ(FirstLabel(form), 7);
    EXPECT_THAT(form.rtfInfo.Text(), Not(HasSubstr("continues")));
  });
}

TEST_F(ChartWindowTest, SaysWhereHeaderAndPointsDisagree) {
  using Case = std::tuple<const char*, int, const char*, int, const char*>;
  const Case cases[] = {
      {"10", 12, "2", 12, "The file continues after point 10, the last one its header announces."},
      {"20", 12, "2", 12, "The file holds 12 points; its header names 20."},
      {"1000", 25, "2", 25, "The file holds 25 points; its header names 1000."},
      {"many", 40, "2", 25, "The header does not name a number of points; the file holds 40."},
      {"40", 40, "7", 25, "The header does not name 1 to 4 parameters; 2 columns of the file are shown."}};
  for (const auto& [points, rows, parameters, shownRows, notice] : cases) {
    Put(points, rows, parameters);
    Show([&, wanted = shownRows, text = "\r\n\r\n" + std::string(notice) + "\r\n"](ChartForm& form) {
      EXPECT_EQ(form.mscChart1.Model().rowCount, wanted) << text;
      EXPECT_EQ(form.mscChart1.Model().series.size(), 2U) << text;
      EXPECT_THAT(form.rtfInfo.Text(), EndsWith(text));
    });
  }
  fakes.files.Put(kFile, "Drive Address=01\r\nNumber of Points=5\r\n");
  Show([&](ChartForm& form) {
    EXPECT_THAT(form.rtfInfo.Text(), HasSubstr("The file holds no points."));
    EXPECT_EQ(form.mscChart1.Model().rowCount, 0);
  });
}

TEST_F(ChartWindowTest, PointsBehindThoseOfTheHeaderAreReached) {
  for (const char* named : {"10", "40", "50"}) {
    Put(named, 100);
    Show([&](ChartForm& form) {
      if (form.scroll.hsbGraph.Maximum() == 15) form.scroll.hsbGraph.SetValue(15);
      EXPECT_TRUE(form.scroll.hsbGraph.Visible()) << named;
      EXPECT_TRUE(form.mscChart1.KeyPressed({.key = Key::kEnd})) << named;
      EXPECT_EQ(form.scroll.hsbGraph.Maximum(), 75);
      EXPECT_EQ(FirstLabel(form), 76);
      EXPECT_THAT(form.rtfInfo.Text(), HasSubstr("continues after point " + std::string(named)));
    });
  }
  Put("30", 30);
  fakes.files.Append(kFile, "\r\n' end\r\n");
  std::string bytes = fakes.files.Bytes(kFile);
  fakes.files.Overwrite(kFile, bytes.replace(bytes.find("PXXX1="), 6, "PXXX1=1e400\r\nOld="));
  Show([&](ChartForm& form) {
    form.scroll.hsbGraph.SetValue(5);
    EXPECT_THAT(form.rtfInfo.Text(), Not(HasSubstr("continues"))) << "what follows is not a point";
    EXPECT_EQ(FirstLabel(form), 6);
  });
}

TEST_F(ChartWindowTest, ShowsAReplacedFileFromItsStart) {
  Put("100", 100);
  Show([&](ChartForm& form) {
    form.scroll.sldPointsPerDivision.SetValue(2);
    form.scroll.hsbGraph.SetValue(20);
    Put("60", 60, "1");
    form.scroll.hsbGraph.SetValue(30);
    EXPECT_EQ(FirstLabel(form), 1);
    EXPECT_EQ(form.scroll.hsbGraph.Maximum(), 35);
    EXPECT_EQ(form.scroll.hsbGraph.Value(), 0);
    EXPECT_EQ(form.scroll.sldPointsPerDivision.Value(), 1);
    EXPECT_EQ(form.mscChart1.Model().series.size(), 1U);
    EXPECT_EQ(form.series.lblPXXX2.Caption() + form.series.lblPXXX2Function.Caption(), "");
    EXPECT_FALSE(form.series.picPXXX2.Enabled() || form.scales.txtScale2.Enabled());
    Put("60", 60, "1", "07");  // no such drive
    form.scroll.hsbGraph.SetValue(5);
    EXPECT_FALSE(form.IsShown());
  });
}

TEST_F(ChartWindowTest, EscGivesALongJumpUpAndTheSliceStays) {
  Put("400000", 400000);
  Show([&](ChartForm& form) {
    std::vector<std::string> status;
    fakes.forms.onKeepAlive = [&] {
      status.push_back(form.reading.lblStatus.Caption());
      EXPECT_EQ(form.Pointer(), MousePointer::kHourglass);
      fakes.keyboard.escape = true;
    };
    fakes.files.beforeBlock = [&] { fakes.clock.Advance(std::chrono::milliseconds(20)); };
    form.scroll.hsbGraph.SetValue(32742);
    EXPECT_THAT(status, ElementsAre(HasSubstr("Reading the file: ")));
    EXPECT_EQ(form.reading.lblStatus.Caption(), "Stopped. The chart stays where it was.");
    EXPECT_EQ(form.Pointer(), MousePointer::kDefault);
    EXPECT_EQ(form.scroll.hsbGraph.Value(), 0);
    EXPECT_EQ(FirstLabel(form), 1);
    form.scroll.hsbGraph.SetValue(1);
    EXPECT_EQ(FirstLabel(form), 13);
  });
}

TEST_F(ChartWindowTest, TheWindowMayMoveOnOrCloseDuringALongJump) {
  Put("400000", 400000);
  fakes.files.beforeBlock = [&] { fakes.clock.Advance(std::chrono::milliseconds(20)); };
  Show([&](ChartForm& form) {
    fakes.forms.onKeepAlive = [&] {
      form.scroll.sldPointsPerDivision.SetValue(4);
      form.output.cmdPrint.Press();
      form.scroll.hsbGraph.SetValue(2);
    };
    form.scroll.hsbGraph.SetValue(32742);
    EXPECT_EQ(form.scroll.hsbGraph.Value(), 2);
    EXPECT_EQ(FirstLabel(form), 25);
    EXPECT_EQ(form.View().PointsPerDivision(), 1);
    EXPECT_EQ(form.scroll.sldPointsPerDivision.Value(), 1);
    EXPECT_TRUE(form.IsShown());
  });
  Show([&](ChartForm& form) {
    fakes.forms.onKeepAlive = [&] { form.output.cmdOK.Press(); };
    form.scroll.hsbGraph.SetValue(32742);
    EXPECT_FALSE(form.IsShown());
    EXPECT_EQ(FirstLabel(form), 1);
  });
}

TEST_F(ChartWindowTest, ACompanionShadesFailedPointsAndGivesRealTimes) {
  Put("100", 100);
  const std::string companion =
      "[CHART READINGS]\r\nStart Date=\r\nStart Time=\r\nEnd Date=\r\nEnd Time=\r\nPoints=100\r\n[FAILED]\r\n"
      "1 P003 3 4 2 no-answer\r\n1 P003 24 90 67 checksum\r\n2 P005 200 200 1 no-answer\r\n[PACE]\r\nAsked=1000\r\n"
      "Shortest=1000\r\nMean=2000\r\nLongest=3000\r\nLatest=99000\r\n[TIMES]\r\nWithin=5\r\n1 0\r\n100 198000\r\n";
  fakes.files.Put(std::string(kFile) + ".readings", companion);
  Show([&](ChartForm& form) {
    const auto rows = [&form](std::size_t series) {
      std::vector<std::pair<int, int>> found;
      for (const RowRange& range : form.mscChart1.Model().series[series].failed)
        found.emplace_back(range.first, range.last);
      return found;
    };
    EXPECT_THAT(rows(0), ElementsAre(std::pair(2, 3), std::pair(23, 24)));
    EXPECT_THAT(rows(1), IsEmpty());
    EXPECT_THAT(form.rtfInfo.Text(),
                EndsWith("End Time : \r\n\r\nP003: 69 of 100 readings failed, last: bad checksum (points 3 to 90)\r\n"
                         "P005: 1 of 200 readings failed, last: no answer (points 200 to 200)\r\n"
                         "Real time between points: 2.00 s instead of 1.00 s (from 1.00 s to 3.00 s)\r\n"));
    form.mscChart1.SetCursor(MeasuringCursor::kFirst, 3);
    form.scroll.hsbGraph.SetValue(60);
    EXPECT_THAT(rows(0), ElementsAre(std::pair(0, 24)));
    form.mscChart1.SetCursor(MeasuringCursor::kSecond, 70);
    EXPECT_EQ(form.mscChart1.CursorReadout().at(2).text, "Difference: 67 points, 00:02:14");
    EXPECT_EQ(form.mscChart1.CursorReadout().at(3).text, "P003: 3! -> 70! (+67)");
  });
  fakes.files.Put(std::string(kFile) + ".readings", companion + "100 x\r\n");
  Show([&](ChartForm& form) {
    EXPECT_THAT(form.mscChart1.Model().series[0].failed, IsEmpty());
    EXPECT_THAT(
        form.rtfInfo.Text(),
        EndsWith("\r\nThe failed readings are not known: /data/Test.cht.readings, line 21: not understood\r\n"));
  });
}

TEST_F(ChartWindowTest, TheStatusIsAWindowInTheMiddleOfTheScreenUntilItIsEmpty) {
  StatusForm status(component);
  status.ShowText("Printing ...");
  EXPECT_EQ(status.Controls().front()->Caption() + "|" + status.Caption(), "Printing ...|Kestrel v5.60");
  EXPECT_TRUE(status.IsShown());
  EXPECT_EQ(status.Pointer(), MousePointer::kHourglass);
  EXPECT_EQ(2 * status.Left() + status.Width(), fakes.forms.ScreenSize().width);
  EXPECT_EQ(2 * status.Top() + status.Height(), fakes.forms.ScreenSize().height);
  status.ShowText("");
  EXPECT_FALSE(status.IsLoaded());
  EXPECT_EQ(status.Pointer(), MousePointer::kDefault);
}

}  // namespace
}  // namespace chartproject
