// print FILE [--output PDF]: the page of the chart window without the window.
#include <ostream>

#include "chart/output/chart_page.h"
#include "chart/picture/series_label.h"
#include "common/environment/language.h"
#include "common/error_log.h"
#include "common/values/numbers.h"
#include "drive/driver_file.h"
#include "host/commands/arguments.h"
#include "host/commands/chart_argument.h"
#include "host/commands/chart_picture.h"
#include "host/commands/command.h"
#include "host/session/session.h"

namespace chartproject {

namespace {

constexpr Size kPictureSize{660, 480};  // pixels: 17.5 cm by 12.7 cm on paper
constexpr double kPictureScale = 2.0;   // paper shows more than a screen does

class PrintCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("print", "Print the chart of a chart file with its header");
    app->add_option("FILE", file_, "chart file")->required();
    app->add_option("--output", output_, "PDF file to write [default: the system's default printer]");
    options_.AddTo(*app);
    return app;
  }

  ExitCode Run(Session& session) override {
    const ChartPictureOptions::Choice choice = options_.Parse();
    if (!output_.empty()) RefuseOutputOnto(FullName(file_), FullName(output_));
    Desktop& desktop = session.UseDesktop(DesktopMode::kOffscreen);
    if (!output_.empty()) desktop.PrintToFile(FullName(output_));
    Component& component = session.Instance().State();
    component.strChartFileName = FullName(file_);

    ChartPictureForm form(desktop.Forms(), kPictureSize);
    form.Build(component.ports, component.strChartFileName, choice, component.chartHeader);
    ChartPage page = Describe(component, choice, form.SeriesCount());
    page.picture = form.Picture(kPictureScale);
    page.showStatus = [&session](const std::string& text) {
      if (!text.empty()) session.Err() << text << "\n";
    };
    return PrintChartPage(component, page) ? ExitCode::kDone : ExitCode::kRunTimeError;
  }

 private:
  static ChartPage Describe(Component& component, const ChartPictureOptions::Choice& choice, int seriesCount) {
    ChartPage page;
    page.fileName = component.strChartFileName;
    page.header = component.chartHeader;
    page.grid = choice.grid;
    page.marker = choice.markers;
    page.line = choice.lines;
    page.chartType = LoadMessage(component, ChartTypeName(choice.settings.chartType));
    const ParameterTable* const table = LoadNames(component);
    const ChartHeader& header = component.chartHeader;
    const NumberFormat& format = component.ports.locale.Numbers();
    const std::string* const numbers[] = {&header.PXXX1, &header.PXXX2, &header.PXXX3, &header.PXXX4};
    for (std::size_t s = 0; s < static_cast<std::size_t>(seriesCount); ++s) {
      const auto parameter = HeaderParameter(*numbers[s], format);
      page.series.push_back({HeaderParameterName(*numbers[s], format),
                             table != nullptr && parameter ? table->At(*parameter).name : std::string(),
                             std::to_string(choice.settings.scales[s])});
    }
    return page;
  }

  /// The tables of the drive that the file was recorded from; null when the project has no such drive, or no driver
  /// file for it: the page then shows the parameters' numbers alone.
  static const ParameterTable* LoadNames(Component& component) {
    std::int16_t address = 0;
    try {
      address = ToInteger16(component.chartHeader.DriveAddress, component.ports.locale.Numbers());
      if (component.driveTable.At(address).Type.empty()) return nullptr;
      LoadDriverFile(component, address);
    } catch (const RunTimeError& error) {
      NoteRunTimeError(component, "LoadDriverFile", error);  // the page is worth printing without names
      return nullptr;
    }
    return &component.parameterTables.At(address);
  }

  std::string file_;
  std::string output_;
  ChartPictureOptions options_;
};

}  // namespace

std::unique_ptr<Command> MakePrintCommand() {
  return std::make_unique<PrintCommand>();
}

}  // namespace chartproject
