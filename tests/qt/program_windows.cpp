// The chart file, and keys in its window.
#include "qt/program_windows.h"

#include <gtest/gtest.h>

namespace chartproject {

ChartViewer::ChartViewer(const std::string& language) : outside(language) {
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

void ChartViewer::Close() {
  user.Do([this] { form.Unload(); }).GoThrough();
}

}  // namespace chartproject
