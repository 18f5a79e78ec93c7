// The report: what it says of a recording in exact words and numbers, and where it puts them on the paper.
#include <gmock/gmock.h>

#include "chart/recording_canvas.h"
#include "chart/report/report_pages.h"
#include "support/error_of.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

constexpr const char* kFile = "/data/Test.cht";

struct ReportTest : ::testing::Test {
  ReportTest() {
    component.language = Language::kEnglish;
    component.settings.strBin = component.settings.strDrivers = "/bin";
    component.driveTable.At(1) = {"01", "KRA-09", "2.40", "", "", "PUMP-3", "KRA.0016", "SN-77"};
    std::string rows;
    for (int i = 1; i <= 40; ++i) {
      rows +=
          "08:00:" + std::to_string(10 + i) + "#" + std::to_string(i) + "#" + (i == 7 ? "--" : "50.25") + "####\r\n";
    }
    fakes.files.Put(kFile,
                    "[INFO]\r\nDrive Address=01\r\nNumber of Parameters=2\r\nPXXX1=003\r\nPXXX2=005\r\nScan Time=1\r\n"
                    "Unit=s\r\nNumber of Points=40\r\nTrigger Mode=Event\r\nEvent=PXXX>=Content\r\nPXXX=005\r\n"
                    "Content=12\r\nStart Date=31/01/2026\r\nStart Time=08:00:11\r\nEnd Date=31/01/2026\r\n"
                    "End Time=08:00:50\r\n\r\n[TIME/CONTENT]\r\n" +
                        rows);
  }
  void PutCompanion(const std::string& sections) {
    fakes.files.Put(std::string(kFile) + ".readings",
                    "[CHART READINGS]\r\nStart Date=31/01/2026\r\nStart Time=08:00:11\r\nEnd Date=31/01/2026\r\n"
                    "End Time=08:00:50\r\nPoints=40\r\n" +
                        sections);
  }
  ChartReport Make(const ReportRequest& request) {
    view.Open(kFile);
    view.NameSeries(component);
    return MakeReport(component, view, request).value();
  }
  static void Say(Transcript& transcript, const ChartReport& report) {
    transcript.Say(report.range, ", drawn from ", report.chart.firstRowLabel, ", rows ", report.chart.rowCount);
    for (const auto* items : {&report.recording, &report.drive, &report.more})
      for (const ReportItem& item : *items) transcript.Say(item.label, ": ", item.value);
    for (const ReportTable* table : {&report.statistics, &report.cursorValues}) {
      std::string line;
      for (const std::string& head : table->heads) line += head + "|";
      for (const ReportTable::Row& row : table->rows) {
        line += "\n";
        for (const std::string& cell : row.cells) line += cell + "|";
      }
      transcript.Add(line);
    }
  }

  FakePorts fakes;
  FakePlant plant;
  Component component{fakes.ports, fakes.forms, plant};
  ChartView view{fakes.ports, component.chartHeader};
};

TEST_F(ReportTest, SaysWhatIsKnownOfTheRecordingAndItsRange) {
  Transcript transcript("report");
  transcript.Step("points 5 to 8, both cursors");
  Say(transcript, Make({.range = {5, 8}, .cursors = {6, 7}}));
  PutCompanion(
      "[FAILED]\r\n2 P005 7 7 1 no-answer\r\n[PACE]\r\nAsked=1000\r\nShortest=990\r\nMean=1100\r\nLongest=4000\r\n"
      "Latest=3000\r\n[TIMES]\r\nWithin=5\r\n1 0\r\n40 42900\r\n[SOURCE]\r\nDrives=simulated\r\n");
  transcript.Step("what the companion knows, the second cursor");
  Say(transcript, Make({.range = {}, .cursors = {std::nullopt, 7}}));
}

TEST_F(ReportTest, RefusesARangeWithoutPointsAndKeepsTheShownSlice) {
  for (const PointRange& range : {PointRange{41, 50}, PointRange{8, 5}}) {
    EXPECT_EQ(ErrorOf([&] { Make({.range = range}); }), 5);
  }
  view.Load();
  MakeReport(component, view, {.range = {5, 8}}).value();
  EXPECT_EQ(view.ShownRange(), (PointRange{1, 25}));
}

struct ReportPagesTest : ReportTest {
  ReportPagesTest() {
    page.fileName = kFile;
    page.series = {{"P003", "Motor current", "1"}, {"P005", "", "20"}};
    page.picture = {660, 480, std::vector<std::uint32_t>(660UL * 480UL), 96};
    fakes.printer.draw = [this](const std::function<void(Canvas&)>& paint) {
      testing::RecordingCanvas canvas({676, 397});
      paint(canvas);
      for (const std::string& text : canvas.Texts()) drawn.push_back(text);
    };
  }
  ChartPage page;
  std::vector<std::string> drawn;
};

TEST_F(ReportPagesTest, LeavesTheFirstPageAsItIsAndNothingLeavesThePaper) {
  ChartReport report = Make({.range = {}, .title = "Pump 3", .remark = "ok", .cursors = {5, 9}});
  ASSERT_TRUE(PrintChartPage(component, page));
  const std::vector<FakePrinter::Text> plain = fakes.printer.texts;
  for (const bool long_ : {false, true}) {
    if (long_) {
      report.title = std::string(300, 't');
      report.remark = std::string(9000, 'r') + "\n" + std::string(20'000, 's');
      for (auto* items : {&report.recording, &report.drive, &report.more}) {
        for (ReportItem& item : *items) item.value = std::string(400, 'v');
      }
      for (auto& row : report.statistics.rows) row.cells[0] = std::string(300, 'n');
      for (auto& row : report.cursorValues.rows) row.cells[1] = std::string(300, '8');
    }
    for (const PageArea& area : {PageArea{21.0, 29.7, 20.4, 29.1}, PageArea{21.59, 27.94, 20.9, 27.3}}) {
      fakes.printer.page = area;
      fakes.printer.texts.clear();
      drawn.clear();
      ASSERT_TRUE(PrintReport(component, page, report));
      const std::vector<FakePrinter::Text>& texts = fakes.printer.texts;
      for (std::size_t i = 0; i < plain.size() && area.height > 29; ++i) {
        EXPECT_EQ(std::tuple(texts[i].text, texts[i].x, texts[i].y), std::tuple(plain[i].text, plain[i].x, plain[i].y));
      }
      for (const FakePrinter::Text& text : texts) {
        const double right = text.x + fakes.printer.TextWidth(text.text, text.font);
        EXPECT_LE(right, area.right + 1e-9) << text.text;
        EXPECT_LE(text.y + text.font.points * 2.54 / 72, area.bottom) << text.text;
        for (const FakePrinter::Text& other : texts) {
          const bool overprints =
              other.page == text.page && std::abs(other.y - text.y) < 0.2 && other.x > text.x && other.x < right - 1e-9;
          EXPECT_FALSE(overprints) << text.text << " / " << other.text;
        }
      }
      EXPECT_EQ(texts[plain.size()].text == "Pump 3", !long_) << "in the empty part of the first page";
      for (const auto& box : fakes.printer.drawings) EXPECT_LE(box.x + box.width, area.right);
      EXPECT_THAT(drawn, ::testing::IsSupersetOf({"1", "2"})) << "the cursors";
      EXPECT_EQ(fakes.printer.pages == 2, !long_);
      const std::string pages = std::to_string(fakes.printer.pages);
      EXPECT_EQ(texts.back().text, "Page " + pages + " of " + pages);
    }
  }
  const auto cut = [](const FakePrinter::Text& text) { return text.text.find("...") != std::string::npos; };
  EXPECT_GE(std::ranges::count_if(fakes.printer.texts, cut), 15);
}

}  // namespace
}  // namespace chartproject
