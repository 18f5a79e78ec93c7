// The printed page: what stands where, long names, small pages, failing printers.
#include "chart/chart_page.h"

#include <gmock/gmock.h>

#include "chart/page_text.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::HasSubstr;

struct ChartPageTest : ::testing::Test {
  ChartPageTest() {
    component.languageBase = 1000;
    component.settings.strGraphics = "/graphics";
    component.settings.strBin = "/bin";
    page.fileName = "/data/Test.cht";
    page.header.DriveAddress = "01";
    page.header.ScanTime = "1000";
    page.header.Unit = "ms";
    page.header.NumberOfPoints = "100";
    page.series = {{3, "Motor current", "1"}, {40000, "", "20"}};
    page.grid = true;
    page.line = true;
    page.chartType = "2D Line";
    page.picture = {640, 320, std::vector<std::uint32_t>(640UL * 320UL), 96};
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const auto& text : fakes.printer.texts) texts.push_back(text.text);
    return texts;
  }
  FakePorts fakes;
  FakePlant plant;
  Component component{fakes.ports, fakes.forms, plant};
  ChartPage page;
};

TEST_F(ChartPageTest, PrintsEveryLineInItsOrderPlaceAndColour) {
  std::vector<std::string> status;
  page.showStatus = [&status](const std::string& text) { status.push_back(text); };
  EXPECT_TRUE(PrintChartPage(component, page));
  const std::string blanks(22, ' ');
  EXPECT_THAT(Texts(), ElementsAre("Kestrel v5.60", "31/01/2026" + blanks + "8h00m00" + blanks + "Test.cht",
                                   "Chart File: ", "/data/Test.cht", "Drive Address: ", "01", "Parameters: ",
                                   "P003, Motor current, Scale 1...32767: 1", "P40000, Scale 1...32767: 20",
                                   "Grid: ", "Yes", "Marker: ", "No", "Line: ", "Yes", "Chart Type: ", "2D Line",
                                   "Time among Points: ", "1000 ms", "Number of Points: ", "100"));
  const auto& texts = fakes.printer.texts;
  EXPECT_EQ(texts[0].x, 4.0);
  EXPECT_EQ(texts[0].y, 1.0);
  EXPECT_EQ(texts[0].font.color, 16711680);
  for (std::size_t i = 2; i < texts.size(); ++i) {
    EXPECT_EQ(texts[i].x, texts[i].font.bold ? 2.5 : 7.0) << texts[i].text;
    EXPECT_GE(texts[i].y, texts[i - 1].y);
  }
  EXPECT_EQ(texts[7].font.color, 255);
  EXPECT_EQ(texts[8].font.color, 65280);
  EXPECT_THAT(fakes.printer.icons, ElementsAre("/graphics/Icon\\General\\Orlin.ico"));
  ASSERT_EQ(fakes.printer.pictures.size(), 1U);
  EXPECT_NEAR(fakes.printer.pictures[0].width, 640 / 96.0 * 2.54, 1e-9);
  EXPECT_GT(fakes.printer.pictures[0].y, texts.back().y);
  EXPECT_EQ(fakes.printer.documentsPrinted, 1);
  EXPECT_THAT(status, ElementsAre("Printing ...", ""));
}

TEST_F(ChartPageTest, KeepsEverythingOnThePage) {
  page.fileName = "/data/" + std::string(300, 'f') + "/" + std::string(200, 'g') + ".cht";
  page.series.assign(4, {999, std::string(400, 'n'), "32767"});
  page.picture = {4000, 4000, std::vector<std::uint32_t>(16'000'000), 96};
  for (const PageArea& area : {PageArea{21.0, 29.7, 20.4, 29.1}, PageArea{21.59, 27.94, 20.9, 27.3}}) {
    fakes.printer.page = area;
    EXPECT_TRUE(PrintChartPage(component, page));
    for (const auto& text : fakes.printer.texts) {
      EXPECT_LE(text.x + fakes.printer.TextWidth(text.text, text.font), area.right + 1e-9) << text.text;
    }
    const auto& picture = fakes.printer.pictures.back();
    EXPECT_LE(picture.x + picture.width, area.right + 1e-9);
    EXPECT_LE(picture.y + picture.height, area.bottom + 1e-9);
    EXPECT_GT(picture.height, 4);
  }
}

TEST_F(ChartPageTest, SurvivesWhatAPrinterMayDo) {
  fakes.printer.missingIcon = 53;  // worth a line in the log only
  EXPECT_TRUE(PrintChartPage(component, page));
  EXPECT_THAT(fakes.files.Bytes("/bin/Kestrel.log"), HasSubstr("Err.Number = 53"));
  EXPECT_TRUE(fakes.dialogs.boxes.empty());

  fakes.printer.declined = true;
  EXPECT_FALSE(PrintChartPage(component, page));
  fakes.printer.declined = false;

  fakes.printer.failAfterTexts = static_cast<int>(fakes.printer.texts.size()) + 5;
  EXPECT_FALSE(PrintChartPage(component, page));
  EXPECT_EQ(fakes.printer.documentsPrinted, 1);
  EXPECT_EQ(fakes.printer.documentsAbandoned, 1);
  ASSERT_EQ(fakes.dialogs.boxes.size(), 1U);
  EXPECT_THAT(fakes.dialogs.boxes[0].prompt, HasSubstr("Err.Number = 482"));
}

TEST_F(ChartPageTest, WrapsBehindSeparatorsAndNeverInsideACharacter) {
  const PrintFont font{"Times New Roman", 72, false, false, 0};  // a byte is 1.27 cm wide
  EXPECT_THAT(WrapText(fakes.printer, "ab cd/ef", font, 1.27 * 4 + 0.01, 3), ElementsAre("ab ", "cd/", "ef"));
  EXPECT_THAT(WrapText(fakes.printer, "abcdefghij", font, 1.27 * 5 + 0.01, 1), ElementsAre("a...j"));
  EXPECT_THAT(WrapText(fakes.printer, "", font, 5, 3), ElementsAre(""));
  EXPECT_THAT(WrapText(fakes.printer, "\xC3\xA9\xC3\xA9", font, 0.1, 3), ElementsAre("\xC3\xA9", "\xC3\xA9"));
}

}  // namespace
}  // namespace chartproject
