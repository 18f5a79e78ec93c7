// The chart window on the headless back end: opening, scrolling, scales, switches, notices, printing.
#include <gmock/gmock.h>

#include "chart/recording_canvas.h"
#include "chart/window/chart_form.h"
#include "chart/window/find_forms.h"
#include "chart/window/range_forms.h"
#include "chart/window/show_chart.h"
#include "chart/window/status_form.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"
#include "support/typing.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::EndsWith, ::testing::HasSubstr, ::testing::IsEmpty, ::testing::Not;

constexpr const char* kFile = "/data/Test.cht";

struct ChartWindowTest : ::testing::Test {
  ChartWindowTest() {
    component.language = Language::kEnglish;
    component.settings.strLanguage = "English";
    component.settings.strGrid = component.settings.strMarker = "No";
    component.settings.strLine = component.settings.strSound = "Yes";
    component.settings.strDrivers = "/drivers";
    component.settings.intChartType = 3;
    component.driveTable.At(1) = {"01", "KRA-09", "2.40", "", "", "", "", ""};
    fakes.forms.pictures = &pictures;
    fakes.files.Put("/drivers/KRA09V240E.wcd", "#P003#Motor current############\r\n");
    fakes.files.Put("\\Kestrel.log", "");
  }
  void Put(const std::string& points, int rows, const std::string& parameters = "2", const std::string& drive = "01") {
    std::string text =
        "[INFO]\r\nDrive Address=" + drive + "\r\nNumber of Parameters=" + parameters +
        "\r\nPXXX1=003\r\nPXXX2=999\r\nScan Time=1\r\nUnit=s\r\nNumber of Points=" + points +
        "\r\nTrigger Mode=Event\r\nEvent=PXXX>=Content\r\nPXXX=005\r\nContent=12\r\n\r\n[TIME/CONTENT]\r\n";
    for (int i = 1; i <= rows; ++i) text += "08:00:00#" + std::to_string(i) + "#" + std::to_string(-i) + "####\r\n";
    fakes.files.Put(kFile, text);
  }
  /// Opens the file and does what a user would.
  void Show(const std::function<void(ChartForm&)>& user) {
    shown = false;
    fakes.forms.onShown = [&](Form& form) {
      if (form.Name() != "frmChart") return asked(form);
      shown = true;
      user(static_cast<ChartForm&>(form));
      if (form.IsShown()) form.CloseByUser();
    };
    ShowChart(component, kFile);
  }
  static std::vector<double> Column(const ChartForm& form, int column) {
    return form.mscChart1.Model().series.at(static_cast<std::size_t>(column)).values;
  }
  std::vector<std::string> Prompts() { return fakes.dialogs.TakePrompts(); }
  static std::int64_t FirstLabel(const ChartForm& form) { return form.mscChart1.Model().firstRowLabel; }

  FakePorts fakes;
  testing::RecordingPictures pictures;
  FakePlant plant;
  Component component{fakes.ports, fakes.forms, plant};
  bool shown = false;
  std::function<void(Form&)> asked;  ///< what a user does in a small window over the chart window
};

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
    EXPECT_EQ(form.series.lblPXXX1.Caption() + form.series.lblPXXX1Function.Caption(), "P003Motor current");
    EXPECT_EQ(form.series.lblPXXX1Function.ToolTipText(), "Motor current");
    EXPECT_TRUE(form.scales.txtScale2.Enabled());
    EXPECT_FALSE(form.scales.txtScale3.Enabled());
    EXPECT_FALSE(form.scales.cmdUpdateChart.Enabled());
    EXPECT_EQ(form.Caption(), "Chart File - Test.cht");
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
      std::vector<std::string> all;
      const auto add = [&all](const MenuItem& item, const std::string& indent, const auto& each) -> void {
        const std::string state = std::string(item.enabled ? "" : " (off)") + (item.checked ? " (on)" : "");
        all.push_back(indent + item.text + (item.key.empty() ? "" : " | " + item.key) + state);
        for (const MenuItem& inner : item.items) each(inner, indent + " ", each);
      };
      for (const MenuItem& item : form.mscChart1.ContextMenu()) add(item, "", add);
      return all;
    };
    const std::vector<std::string> expected{"Whole recording | F",
                                            "One point a division | Ctrl+0 (off)",
                                            "Zoom in | + (off)",
                                            "Zoom out | -",
                                            "Previous view | Backspace (off)",
                                            "Overview (on)",
                                            "",
                                            "Go",
                                            " One division back | Left",
                                            " One division on | Right",
                                            " One page back | Page Up",
                                            " One page on | Page Down",
                                            " First point | Home",
                                            " Last point | End",
                                            " Go to... | Ctrl+G",
                                            " Find... | Ctrl+F",
                                            " Find the next one | N",
                                            " Find the one before | Shift+N",
                                            "Look",
                                            " Grid",
                                            " Line (on)",
                                            " Marker",
                                            " Axis: points | P (on)",
                                            " Axis: elapsed time | E",
                                            " Axis: time of day | T (off)",
                                            " One lane a series | L",
                                            " Magnify the values | I (off)",
                                            " Shrink the values | O (off)",
                                            " Keep the range of values | K (off)",
                                            " Automatic range of values | A (off) (on)",
                                            " Series 1 | 1 (on)",
                                            " Series 2 | 2 (on)",
                                            " Series 3 | 3 (off)",
                                            " Series 4 | 4 (off)",
                                            "Measure",
                                            " First cursor: one point back | Ctrl+Left",
                                            " First cursor: one point on | Ctrl+Right",
                                            " Second cursor: one point back | Ctrl+Shift+Left",
                                            " Second cursor: one point on | Ctrl+Shift+Right",
                                            " Statistics between the cursors | S (off)",
                                            " Copy the numbers | Ctrl+C (off)",
                                            " Remove the cursors | Esc (off)",
                                            "",
                                            "Copy the picture | Ctrl+Shift+C",
                                            "Save the picture... | Ctrl+S",
                                            "Export",
                                            "Print",
                                            "Print report... | Ctrl+P"};
    EXPECT_EQ(lines(), expected);
    form.mscChart1.MenuChosen(static_cast<int>(ChartAction::kLastPoint) + 1);
    EXPECT_EQ(FirstLabel(form), 76);
    form.mscChart1.MenuChosen(static_cast<int>(ChartAction::kGrid) + 1);
    EXPECT_EQ(form.switches.chkGrid.Value(), 1);
    EXPECT_THAT(lines(), ::testing::Contains(" Grid (on)"));
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

/// A letter or digit over the chart, with Ctrl where it is written in front of it: "^G".
KeyPress Typed(std::string_view key) {
  return {.key = Key::kCharacter, .control = key.front() == '^', .character = key.back()};
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

TEST_F(ChartWindowTest, CopiesAndSavesThePictureButNeverOverAnotherFile) {
  Put("100", 100);
  Show([&](ChartForm& form) {
    EXPECT_TRUE(form.mscChart1.KeyPressed({.key = Key::kCharacter, .shift = true, .control = true, .character = 'C'}));
    EXPECT_EQ(fakes.clipboard.Picture()->width, 1280);
    const std::string png = "\x89PNG\r\n\x1A\n";
    fakes.files.Put("/data/old.png", png);
    fakes.dialogs.answers = {box_answer::kYes};
    for (const char* name : {"/data/new", "/data/old.png", kFile}) {
      fakes.dialogs.fileAnswer = name;
      EXPECT_TRUE(form.mscChart1.KeyPressed(Typed("^S")));
    }
    EXPECT_EQ(fakes.files.Bytes("/data/new.png"), "PNG of 1280");
    EXPECT_EQ(fakes.files.Bytes("/data/old.png"), "PNG of 1280");
    EXPECT_EQ(fakes.files.Bytes("/data/Test.cht.png"), "PNG of 1280");
    fakes.files.Put("/data/old.png", "[INFO]");
    fakes.dialogs.fileAnswer = "/data/old.png";
    EXPECT_TRUE(form.mscChart1.KeyPressed(Typed("^S")));
    EXPECT_EQ(fakes.files.Bytes("/data/old.png"), "[INFO]");
  });
  EXPECT_THAT(Prompts(), ElementsAre("/data/old.png exists. Replace it?",
                                     "/data/old.png is not a PNG picture and stays as it is."));
}

TEST_F(ChartWindowTest, ExportsTheOpenFileAndIsUsableAgain) {
  Put("25", 25);
  Show([&](ChartForm& form) {
    fakes.dialogs.answers = {box_answer::kYes};
    fakes.dialogs.whileUp = [&](const MessageBoxRequest& request) {
      if (request.prompt.find("saved as") != std::string::npos) return;
      EXPECT_EQ(form.Pointer(), MousePointer::kDefault) << request.prompt;
    };
    form.output.cmdExport.Press();  // there is only one range: the question is the plain one
    EXPECT_THAT(Prompts(), ElementsAre(HasSubstr("Do you really want"), "File was saved as: /data/Test.cht.xls"));
    EXPECT_EQ(form.Pointer(), MousePointer::kDefault);
    EXPECT_TRUE(form.IsShown());
    form.scroll.ScrollTo(1);
    EXPECT_TRUE(form.IsLoaded());
  });
  EXPECT_EQ(fakes.spreadsheets.log.cells.at("1!22,2"), "=1");
}

TEST_F(ChartWindowTest, ExportsTheRangeThatIsChosenInItsQuestion) {
  Put("100", 100);
  Show([&](ChartForm& form) {
    form.scroll.hsbGraph.SetValue(10);
    form.mscChart1.SetCursor(MeasuringCursor::kFirst, 70);
    form.mscChart1.SetCursor(MeasuringCursor::kSecond, 61);
    const std::tuple<int, const char*, const char*, const char*> cases[] = {
        {-1, "=1", "=100", "Yes"}, {1, "=11", "=35", "Yes"}, {2, "=61", "=70", "Yes"}, {2, "", "", "No"}};
    for (const auto& [entry, first, last, answer] : cases) {
      fakes.files.Delete("/data/Test.cht.xls");
      fakes.spreadsheets.log.cells.clear();
      asked = [&, entry = entry, answer = answer](Form& window) {
        auto& box = static_cast<ExportForm&>(window);
        EXPECT_EQ(box.lblQuestion.Caption(),
                  "Do you really want to export the points to Excel?\r\nThis operation may take several minutes...");
        EXPECT_THAT(box.cboRange.Items(),
                    ElementsAre("All points (100)", "Visible slice: 11 to 35", "Between the cursors: 61 to 70"));
        EXPECT_EQ(box.cboRange.ListIndex(), 0);
        if (entry >= 0) box.cboRange.SetListIndex(entry);
        std::string_view(answer) == "Yes" ? box.cmdYes.Press() : box.cmdNo.Press();
      };
      form.output.cmdExport.Press();
      std::string end = "";
      for (int row = 22; fakes.spreadsheets.log.cells.contains("1!" + std::to_string(row) + ",2"); ++row) {
        end = fakes.spreadsheets.log.cells["1!" + std::to_string(row) + ",2"];
      }
      EXPECT_EQ(fakes.spreadsheets.log.cells["1!22,2"], first);
      EXPECT_EQ(end, last);
    }
  });
}

TEST_F(ChartWindowTest, PrintsAReportOfTheChosenRangeAndStaysOpen) {
  Put("100", 100);
  Show([&](ChartForm& form) {
    form.mscChart1.SetCursor(MeasuringCursor::kFirst, 3);
    const auto report = [&](const std::function<void(ReportForm&)>& user) {
      fakes.printer.texts.clear();
      asked = [&](Form& window) { user(static_cast<ReportForm&>(window)); };
      EXPECT_TRUE(form.mscChart1.KeyPressed(Typed("^P")));
      std::vector<std::string> texts;
      for (const FakePrinter::Text& text : fakes.printer.texts) texts.push_back(text.text);
      return texts;
    };
    EXPECT_THAT(report([](ReportForm& box) { box.cmdCancel.Press(); }), IsEmpty());
    const auto visible = report([](ReportForm& box) {
      EXPECT_EQ(box.cboRange.Text(), "Visible slice: 1 to 25");
      box.txtTitle.SetText("Commissioning");
      box.txtRemark.SetText("Load test\r\n\tno faults");
      box.cmdPrint.Press();
    });
    EXPECT_THAT(visible, ::testing::IsSupersetOf({"Commissioning", "Load test", " no faults", "Cursor 1",
                                                  "Points 1 to 25 of 100, 08:00:00 to 08:00:00", "Page 2 of 2"}));
    const auto all = report([](ReportForm& box) {
      EXPECT_EQ(box.txtTitle.Text(), "Commissioning") << "kept for the next report of the file";
      box.cboRange.SetListIndex(0);
      box.cmdPrint.Press();
    });
    EXPECT_THAT(all, ::testing::Contains("Points 1 to 100 of 100, 08:00:00 to 08:00:00"));
    EXPECT_EQ(FirstLabel(form), 1);
    EXPECT_EQ(fakes.printer.documentsPrinted, 2);
    form.scroll.hsbGraph.SetValue(10);
    EXPECT_EQ(FirstLabel(form), 11);
  });
  EXPECT_THAT(Prompts(), IsEmpty());
}

TEST_F(ChartWindowTest, PrintsThePictureAfterTheWindowHasGone) {
  Put("100", 100);
  fakes.dialogs.answers = {box_answer::kNo};
  Show([&](ChartForm& form) { form.output.cmdPrint.Press(); });
  EXPECT_THAT(Prompts(), ElementsAre("Print ?"));
  EXPECT_TRUE(fakes.clipboard.Picture().has_value());
  EXPECT_EQ(fakes.printer.documentsPrinted, 0);
  fakes.dialogs.answers = {box_answer::kYes};
  Show([&](ChartForm& form) {
    form.scales.upd1.Step(1);  // not drawn yet
    form.output.cmdPrint.Press();
  });
  EXPECT_EQ(fakes.printer.documentsPrinted, 1);
  EXPECT_EQ(fakes.printer.texts.at(7).text, "P003, Motor current, Scale 1...32767: 1");
  EXPECT_EQ(fakes.sound.played.front().fileName, "\\NIMClick.wav");
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
