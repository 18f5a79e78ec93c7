// The chart window as its users have it: keys, clicks and pointer, and no text cut in any language.
#include <gmock/gmock.h>

#include <QTest>
#include <QWidget>

#include "chart/chart_form.h"
#include "qt/dialog_window.h"

namespace chartproject {
namespace {

using ::testing::HasSubstr, ::testing::IsEmpty;

constexpr int kPoints = 40000;

/// The chart window over a file of 40,000 points of the plant's first drive.
struct ChartViewer {
  explicit ChartViewer(const std::string& language) : outside(language) {
    std::string text =
        "[INFO]\r\nDrive Address=01\r\nNumber of Parameters=2\r\nPXXX1=003\r\nPXXX2=005\r\nScan Time=1\r\nUnit=s\r\n"
        "Number of Points=40000\r\nTrigger Mode=Manual\r\n[TIME/CONTENT]\r\n";
    for (int i = 1; i <= kPoints; ++i) text += "08:00:00#" + std::to_string(i % 100) + "#7####\r\n";
    outside.fakes.files.Put("/data/Press.cht", text);
    outside.component.driveTable.At(1).Type = "KRA-09";
    outside.component.settings.strLine = "Yes";
    outside.component.settings.intChartType = 3;
    form.Load();
    EXPECT_TRUE(form.OpenFile("/data/Press.cht"));
  }
  /// A key, and what the first point shown is then.
  void KeyMovesTo(const std::string& key, std::int64_t first) {
    user.Key(key).Until(key + " moves to " + std::to_string(first),
                        [this, first] { return form.mscChart1.Model().firstRowLabel == first; });
  }
  void Close() {
    user.Do([this] { form.Unload(); }).GoThrough();
  }
  DialogWindow outside;
  ChartForm form{outside.component};
  User user{form};
};

TEST(ChartViewerTest, ScrollsAndScalesByKeys) {
  ChartViewer viewer("English");
  ChartForm& form = viewer.form;
  viewer.KeyMovesTo("Right", 2);
  viewer.KeyMovesTo("Next", 26);
  viewer.KeyMovesTo("End", kPoints - 24);
  viewer.KeyMovesTo("Left", kPoints - 25);
  viewer.KeyMovesTo("Home", 1);
  viewer.user.Key("Tab");
  viewer.KeyMovesTo("End", kPoints - 24);
  viewer.KeyMovesTo("Home", 1);
  viewer.user.Key("Tab").Key("Right").Until("two points a division", [&] { return form.PointsPerDivision() == 2; });
  // A typed scale is drawn by Enter.
  viewer.user.Click(form.txtScale1).Key("ctrl+a").Type("3").Key("Return").Until("the scaled chart", [&] {
    return form.mscChart1.DataPoint(0, 0) == 3.0;
  });
  viewer.Close();
  EXPECT_EQ(form.mscChart1.RowCount(), 50);
}

TEST(ChartViewerTest, ReadsOutThePointerAndTwoCursors) {
  ChartViewer viewer("English");
  ChartControl& chart = viewer.form.mscChart1;
  const auto at = [&](double part) {
    QWidget& widget = viewer.user.WidgetOf(chart);
    return QPoint(static_cast<int>(widget.width() * part), widget.height() / 2);
  };
  viewer.user.Do([&] {
    QWidget& widget = viewer.user.WidgetOf(chart);
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, at(0.3));
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::ShiftModifier, at(0.7));
    QTest::mouseMove(&widget, at(0.5));
  });
  const auto read = [&] { return chart.CursorReadout().size() == 5 && !chart.Readout().empty(); };
  viewer.user.Until("the readings", read).Then([&] {
    EXPECT_THAT(chart.CursorReadout()[2].text, HasSubstr("Difference: "));
    EXPECT_THAT(chart.Readout()[2].text, "P005: 7");
    SendKey("Escape");
  });
  viewer.user.Until("no cursor", [&] { return !chart.CursorLabel(MeasuringCursor::kFirst).has_value(); });
  viewer.Close();
}

TEST(ChartViewerTest, CutsNoTextInAnyLanguage) {
  for (const std::string language : {"English", "Portuguese", "Spanish"}) {
    ChartViewer viewer(language);
    const auto window = [&]() -> QWidget& { return viewer.user.Window(); };
    viewer.user.Do([&] {
      viewer.form.sldPointsPerDivision.SetValue(1310);
      window().resize(window().minimumSize());
    });
    viewer.user.Until("the least size", [&] { return window().size() == window().minimumSize(); }).Then([&] {
      EXPECT_THAT(CutTexts(window()), IsEmpty()) << language;
      SaveScreenshot(window(), "chart_least_" + language);
    });
    viewer.Close();
  }
}

}  // namespace
}  // namespace chartproject
