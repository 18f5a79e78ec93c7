// export FILE [--output OUT]: a chart file's header and points into a workbook, or with --plain into a table for other
// programs.
#include <array>
#include <optional>
#include <ostream>
#include <string_view>

#include "backends/posix/keyboard_signals.h"
#include "backends/posix/posix_time_zone.h"
#include "backends/spreadsheet/embedded_spreadsheet.h"
#include "chart/output/excel_export.h"
#include "common/environment/language.h"
#include "common/message_box.h"
#include "host/arguments/arguments.h"
#include "host/arguments/chart_argument.h"
#include "host/arguments/command.h"
#include "host/arguments/interrupted_argument.h"
#include "host/arguments/range_options.h"
#include "host/reports/chart_picture.h"
#include "host/reports/plain_export.h"
#include "host/reports/progress.h"
#include "host/reports/xlsx_export.h"
#include "host/session/session.h"

namespace chartproject {

namespace {

/// The endings that choose a workbook's format.
constexpr std::array<std::string_view, 3> kWorkbookEndings{".xls", ".xlsx", ".csv"};

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
    CLI::App* app = program.add_subcommand("export", "Write the points of a chart file into a workbook or a table");
    app->add_option("FILE", file_, "chart file")->type_name("")->required();
    app->add_option(
           "--output", output_,
           "workbook to write; its ending chooses the format: .xls, .xlsx (charts, header, dated points) or .csv (text "
           "with the locale's list and decimal separators) [default: FILE.xls]; with --plain the table, - for "
           "standard output [default: FILE.csv]")
        ->type_name("WORKBOOK");
    range_.AddTo(*app);
    app->add_flag(
        "--plain", plain_,
        "a table for other programs: one head line, ISO 8601 times, numbers with a full stop, nothing where a "
        "reading failed; .csv, .tsv or .jsonl (one JSON object a point)");
    app->add_option("--format", format_, "of a plain table [default: by the ending of --output]")
        ->type_name("csv|tsv|jsonl");
    return app;
  }

  ExitCode Run(Session& session) override {
    if (!plain_ && !format_.empty()) throw RefusedError("--format: only with --plain");
    Component& component = session.Instance().State();
    component.strChartFileName = FullName(file_);
    RefuseInterrupted(component.ports, component.strChartFileName);
    ReadHeaderOf(component.ports, component.strChartFileName, component.chartHeader);
    ChartView view(component.ports, component.chartHeader);
    view.Open(component.strChartFileName);
    const PointRange range = range_.Resolve(view, component.language);
    if (plain_ || HasEnding(output_, ".xlsx")) return ExportTable(session, view, range);
    return ExportWorkbook(session, range);
  }

 private:
  ExitCode ExportWorkbook(Session& session, const PointRange& range) {
    Component& component = session.Instance().State();
    const std::string output = output_.empty() ? component.strChartFileName + ".xls" : FullName(output_);
    RefuseOutputOnto(component.strChartFileName, output);
    if (!output_.empty()) RequireEnding();
    component.ports.files.CheckReplaceable(component.ports.files.ResolveLink(output));
    KeyboardSignals::Watch();
    ExportRequest request{component.strChartFileName, output, component.chartHeader, range};
    request.progress = ProgressOf(session);
    session.Console().beforeBox = [this, &session] { Bar(session).EndLine(); };
    const ExportOutcome outcome = ExportToSpreadsheet(component, request);
    session.Console().beforeBox = nullptr;
    Bar(session).EndLine();
    return CodeOf(outcome);
  }

  ExitCode ExportTable(Session& session, ChartView& view, const PointRange& range) {
    Component& component = session.Instance().State();
    const std::string output = TableName(component.strChartFileName);
    PlainTable table{
        plain_ ? PlainFormatOf(format_, output) : PlainFormat::kCommas, {}, range, view.Facts().Clock(), {}};
    if (output != "-") {
      RefuseOutputOnto(component.strChartFileName, output);
      component.ports.files.CheckReplaceable(component.ports.files.ResolveLink(output));
      if (!format_.empty()) RefuseOutputOntoRecording(component.ports, output);  // then its name may have any ending
      if (component.ports.files.FileExists(output) && !AskToReplace(component, output)) return ExitCode::kRefused;
    }
    NameSeriesIfKnown(view, component);
    table.columns = PlainColumnsOf(view);
    table.firstMoment = FirstMoment(view.Facts().Clock(), PosixTimeZone());
    KeyboardSignals::Watch();
    const PlainTableReport report =
        plain_ ? WritePlainTable(component.ports, component.strChartFileName, output, table, ProgressOf(session))
               : WriteXlsx(component, view, component.ports.files.ResolveLink(output),
                           component.ports.files.RightsOf(output), table, ProgressOf(session));
    Bar(session).EndLine();
    const ExitCode code = Judge(session.Err(), report, table);
    if (code == ExitCode::kDone && !plain_) {
      ShowMessage(component, LoadMessage(component, Text::kFileSavedAs) + output, box_style::kInformation);
    }
    return code;
  }

  /// FILE.csv, or with the ending of the format that was asked for.
  [[nodiscard]] std::string TableName(const std::string& chartFile) const {
    if (output_.empty()) return chartFile + "." + (format_.empty() ? "csv" : format_);
    return output_ == "-" ? output_ : FullName(output_);
  }

  static bool AskToReplace(Component& component, const std::string& output) {
    const std::string question =
        LoadMessage(component, Text::kFileExistsBefore) + output + LoadMessage(component, Text::kFileExistsAfter);
    return ShowMessage(component, question, box_style::kYesNo + box_style::kQuestion) == box_answer::kYes;
  }

  static ExitCode Judge(std::ostream& err, const PlainTableReport& report, const PlainTable& table) {
    if (report.givenUp) return ExitCode::kEndedEarly;
    if (report.points == 0) {
      throw RefusedError(table.range.IsAll() ? "the file holds no point; no table was written"
                                             : "the file holds no point of that range; no table was written");
    }
    if (report.malformed > 0) {
      err << report.malformed << " lines are not points and were left out, the first is line " << report.firstMalformed
          << "\n";
    }
    if (!table.clock.Known() || !table.firstMoment) {
      err << "The file does not say when its points were taken: the column time has its own texts\n";
    }
    return ExitCode::kDone;
  }

  [[nodiscard]] std::function<bool(std::uint64_t, std::uint64_t)> ProgressOf(Session& session) {
    return [this, &session](std::uint64_t done, std::uint64_t total) {
      Bar(session).Show(static_cast<std::int64_t>(total == 0 ? 100 : done * 100 / total));
      return !session.ThePorts().keyboard.EscapePressed();
    };
  }

  PercentBar& Bar(Session& session) {
    if (!bar_) bar_.emplace(session.Err(), ProgressKindFor(session.Options().quiet), "Exporting");
    return *bar_;
  }

  void RequireEnding() const {
    std::string listed;
    for (const std::string_view ending : kWorkbookEndings) {
      if (HasEnding(output_, ending)) return;
      listed.append(listed.empty() ? "" : ", ").append(ending);
    }
    throw RefusedError("--output: \"" + output_ + "\" has none of the endings " + listed);
  }

  std::string file_;
  std::string output_;
  RangeOptions range_;
  bool plain_ = false;
  std::string format_;
  std::optional<PercentBar> bar_;
};

}  // namespace

std::unique_ptr<Command> MakeExportCommand() {
  return std::make_unique<ExportCommand>();
}

}  // namespace chartproject
