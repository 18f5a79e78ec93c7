// print FILE [--output PDF]: the page of the chart window without the window.
#include <optional>
#include <ostream>
#include <string>
#include <utility>

#include "chart/output/chart_page.h"
#include "chart/picture/chart_scene.h"
#include "common/error_log.h"
#include "common/values/text.h"
#include "host/arguments/arguments.h"
#include "host/arguments/chart_argument.h"
#include "host/arguments/command.h"
#include "host/arguments/interrupted_argument.h"
#include "host/reports/chart_picture.h"
#include "host/session/session.h"

namespace chartproject {

namespace {

constexpr Size kPictureSize{660, 480};  // pixels: 17.5 cm by 12.7 cm on paper
constexpr double kPictureScale = 2.0;   // paper shows more than a screen does

class PrintCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("print", "Print the chart of a chart file with its header");
    app->add_option("FILE", file_, "chart file")->type_name("")->required();
    app->add_option("--output", output_, "PDF file to write [default: the system's default printer]")->type_name("PDF");
    app->add_option("--paper", paper_, "size of the paper [default: the printer's own, or that of the country]")
        ->type_name("A3|A4|A5|Letter|Legal");
    options_.AddTo(*app);
    return app;
  }

  ExitCode Run(Session& session) override {
    const ChartPictureOptions::Choice choice = options_.Parse();
    const auto paper = ParsePaper();
    RefuseInterrupted(session.ThePorts(), FullName(file_));
    if (!output_.empty()) {
      RefuseOutputOnto(FullName(file_), FullName(output_));
      RefuseOutputOntoRecording(session.ThePorts(), FullName(output_));
    }
    Desktop& desktop = session.UseDesktop(DesktopMode::kOffscreen);
    if (!output_.empty()) desktop.PrintToFile(FullName(output_));
    if (paper) desktop.UsePaper(*paper);
    Component& component = session.Instance().State();
    component.strChartFileName = FullName(file_);

    ChartView view(component.ports, component.chartHeader);
    LoadChosenSlice(view, component.strChartFileName, choice);
    NameSeries(view, component);
    ChartPage page = view.Page(component, choice.look);
    ChartLook look = choice.look;
    look.failures = false;  // the page is a document of the chart file alone
    page.picture = DrawPicture(view.Model(look), component.ports.locale.Numbers(), kPictureSize, kPictureScale,
                               *desktop.Forms().Pictures());
    page.showStatus = [&session](const std::string& text) {
      if (!text.empty()) session.Err() << text << "\n";
    };
    return PrintChartPage(component, page) ? ExitCode::kDone : ExitCode::kRunTimeError;
  }

 private:
  [[nodiscard]] std::optional<PaperSize> ParsePaper() const {
    static const std::pair<const char*, PaperSize> kPapers[] = {{"A3", {29.7, 42.0}},
                                                                {"A4", {21.0, 29.7}},
                                                                {"A5", {14.8, 21.0}},
                                                                {"LETTER", {21.59, 27.94}},
                                                                {"LEGAL", {21.59, 35.56}}};
    if (paper_.empty()) return std::nullopt;
    for (const auto& [name, size] : kPapers) {
      if (ToUpperAscii(paper_) == name) return size;
    }
    throw RefusedError("--paper: A3, A4, A5, Letter or Legal, not \"" + paper_ + "\"");
  }

  /// A file of a drive that the project does not have is printed with the parameters' numbers alone.
  static void NameSeries(ChartView& view, Component& component) {
    try {
      if (!component.driveTable.At(view.DriveAddress()).Type.empty()) view.NameSeries(component);
    } catch (const RunTimeError& error) {
      NoteRunTimeError(component, "NameSeries", error);  // an address outside the table
    }
  }

  std::string file_;
  std::string output_;
  std::string paper_;
  ChartPictureOptions options_;
};

}  // namespace

std::unique_ptr<Command> MakePrintCommand() {
  return std::make_unique<PrintCommand>();
}

}  // namespace chartproject
