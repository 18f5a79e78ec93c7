// print FILE [--output PDF] [--report]: the page of the chart window without the window, and the report.
#include <array>
#include <optional>
#include <ostream>
#include <string>
#include <utility>

#include "acquire/dialog/input_rules.h"
#include "chart/output/chart_page.h"
#include "chart/picture/chart_scene.h"
#include "chart/report/report_pages.h"
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
    app->add_flag(
        "--report", report_,
        "also what is known of the recording, its drive and the printed range, on further pages; the range is "
        "all the points unless it is given");
    app->add_option("--title", title_, "title of the report")->type_name("TEXT");
    app->add_option("--remark", remark_, "remark in the report; it may have several lines")->type_name("TEXT");
    app->add_option("--cursors", cursors_, "points whose values the report shows, one or two, for example 120,340")
        ->type_name("N[,N]");
    return app;
  }

  ExitCode Run(Session& session) override {
    if (!report_) RefuseReportOptions();
    ChartPictureOptions::Choice choice = options_.Parse();
    choice.whole = choice.whole || report_;
    ReportRequest request{{}, choice.look, title_, remark_, ParseCursors()};
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
    request.range = LoadChosenSlice(view, component.strChartFileName, choice, component.language);
    RefuseCursorsOutside(view, request);
    NameSeriesIfKnown(view, component);
    ChartPage page = view.Page(component, choice.look);
    ChartLook look = choice.look;
    look.failures = false;  // the page is a document of the chart file alone
    page.picture = DrawPicture(view.Model(look), component.ports.locale.Numbers(), kPictureSize, kPictureScale,
                               *desktop.Forms().Pictures());
    page.showStatus = [&session](const std::string& text) {
      if (!text.empty()) session.Err() << text << "\n";
    };
    return Print(component, view, std::move(page), request) ? ExitCode::kDone : ExitCode::kRunTimeError;
  }

 private:
  bool Print(Component& component, const ChartView& view, ChartPage page, const ReportRequest& request) const {
    if (!report_) return PrintChartPage(component, page);
    return PrintReport(component, std::move(page), MakeReport(component, view, request).value());
  }

  void RefuseReportOptions() const {
    for (const auto& [option, value] :
         {std::pair("--title", &title_), std::pair("--remark", &remark_), std::pair("--cursors", &cursors_)}) {
      if (!value->empty()) throw RefusedError(std::string(option) + ": only with --report");
    }
  }

  static void RefuseCursorsOutside(ChartView& view, const ReportRequest& request) {
    for (const auto& cursor : request.cursors) {
      if (cursor && view.PointAlone(*cursor).RowCount() == 0) {
        throw RefusedError("--cursors: the file holds no point " + std::to_string(*cursor));
      }
    }
  }

  [[nodiscard]] std::array<std::optional<std::int64_t>, 2> ParseCursors() const {
    std::array<std::optional<std::int64_t>, 2> cursors;
    if (cursors_.empty()) return cursors;
    const std::size_t comma = cursors_.find(',');
    cursors[0] = ParseNumber(cursors_.substr(0, comma), "--cursors", 1, kMostPoints);
    if (comma != std::string::npos) {
      cursors[1] = ParseNumber(cursors_.substr(comma + 1), "--cursors", 1, kMostPoints);
    }
    return cursors;
  }

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

  std::string file_;
  std::string output_;
  std::string paper_;
  bool report_ = false;
  std::string title_;
  std::string remark_;
  std::string cursors_;
  ChartPictureOptions options_;
};

}  // namespace

std::unique_ptr<Command> MakePrintCommand() {
  return std::make_unique<PrintCommand>();
}

}  // namespace chartproject
