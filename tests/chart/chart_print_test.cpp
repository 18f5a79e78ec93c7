// What leaves the chart window: pictures, workbooks, the report, the printed page.
#include <gmock/gmock.h>

#include "chart/chart_window_fixture.h"
#include "chart/window/range_forms.h"

namespace chartproject {
namespace {

using ::testing::ElementsAre, ::testing::EndsWith, ::testing::HasSubstr, ::testing::IsEmpty;

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

}  // namespace
}  // namespace chartproject
