// The chart window over a file in memory, on the headless back end, with what a user does in it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "chart/recording_canvas.h"
#include "chart/window/chart_form.h"
#include "chart/window/show_chart.h"
#include "gmock/gmock.h"
#include "support/fake_plant.h"
#include "support/fake_ports.h"

namespace chartproject {

/// Drive 01 is a KRA-09 whose driver file names parameter 3.
struct ChartWindowTest : ::testing::Test {
  static constexpr const char* kFile = "/data/Test.cht";

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

/// A letter or digit over the chart, with Ctrl where it is written in front of it: "^G".
inline KeyPress Typed(std::string_view key) {
  return {.key = Key::kCharacter, .control = key.front() == '^', .character = key.back()};
}

}  // namespace chartproject
