// export FILE [--output OUT]: a chart file's header and points into a workbook.
#include <unistd.h>

#include <ostream>

#include "backends/posix/keyboard_signals.h"
#include "backends/spreadsheet/embedded_spreadsheet.h"
#include "chart/output/excel_export.h"
#include "host/arguments/arguments.h"
#include "host/arguments/chart_argument.h"
#include "host/arguments/command.h"
#include "host/arguments/interrupted_argument.h"
#include "host/reports/progress.h"
#include "host/session/session.h"
#include "host/session/visible_output.h"

namespace chartproject {

namespace {

ExitCode CodeOf(ExportOutcome outcome) {
  switch (outcome) {
    case ExportOutcome::kSaved:
      return ExitCode::kDone;
    case ExportOutcome::kGivenUp:
      return ExitCode::kEndedEarly;
    case ExportOutcome::kFailed:
      return ExitCode::kRunTimeError;
    default:
      return ExitCode::kRefused;
  }
}

class ExportCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand("export", "Write the points of a chart file into a workbook");
    app->add_option("FILE", file_, "chart file")->type_name("")->required();
    app->add_option("--output", output_,
                    "workbook to write; its ending chooses the format: .xls, .xlsx (the modern workbook) or .csv (text "
                    "with the locale's list and decimal separators) [default: FILE.xls]")
        ->type_name("WORKBOOK");
    return app;
  }

  ExitCode Run(Session& session) override {
    Component& component = session.Instance().State();
    component.strChartFileName = FullName(file_);
    const std::string output = output_.empty() ? component.strChartFileName + ".xls" : FullName(output_);
    RefuseInterrupted(component.ports, component.strChartFileName);
    RefuseOutputOnto(component.strChartFileName, output);
    if (!output_.empty()) RequireEnding();
    component.ports.files.CheckReplaceable(component.ports.files.ResolveLink(output));
    ReadHeaderOf(component.ports, component.strChartFileName, component.chartHeader);
    KeyboardSignals::Watch();
    ExportRequest request{component.strChartFileName, output, component.chartHeader};
    request.progress = [this, &session](std::uint64_t done, std::uint64_t total) {
      if (terminal_ && !session.Options().quiet) ShowProgress(session.Err(), done, total);
      return !session.ThePorts().keyboard.EscapePressed();
    };
    session.Console().beforeBox = [this, &session] { EndLine(session.Err()); };
    const ExportOutcome outcome = ExportToSpreadsheet(component, request);
    session.Console().beforeBox = nullptr;
    EndLine(session.Err());
    return CodeOf(outcome);
  }

 private:
  void RequireEnding() const {
    std::string listed;
    for (const std::string_view ending : kWorkbookEndings) {
      if (HasEnding(output_, ending)) return;
      listed.append(listed.empty() ? "" : ", ").append(ending);
    }
    throw RefusedError("--output: \"" + output_ + "\" has none of the endings " + listed);
  }

  /// A bar on a terminal; a file or pipe gets the messages only.
  void ShowProgress(std::ostream& err, std::uint64_t done, std::uint64_t total) {
    const auto percent = static_cast<std::int64_t>(total == 0 ? 100 : done * 100 / total);
    if (percent == shownPercent_) return;
    shownPercent_ = percent;
    constexpr int kBarWidth = 40;
    RestartLine(err);
    err << "Exporting [" << ProgressBarText(percent, 100, kBarWidth) << "] " << percent << " %" << std::flush;
    lineOpen_ = true;
  }

  void EndLine(std::ostream& err) {
    if (lineOpen_) err << "\n";
    lineOpen_ = false;
  }

  std::string file_;
  std::string output_;
  bool terminal_ = isatty(STDERR_FILENO) != 0;
  bool lineOpen_ = false;
  std::int64_t shownPercent_ = -1;
};

}  // namespace

std::unique_ptr<Command> MakeExportCommand() {
  return std::make_unique<ExportCommand>();
}

}  // namespace chartproject
