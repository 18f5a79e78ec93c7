// acquire: records on the acquisition dialog without a window, or opens it in one.
#include <exception>
#include <optional>
#include <ostream>

#include "backends/posix/keyboard_signals.h"
#include "backends/posix/posix_time_zone.h"
#include "common/environment/language.h"
#include "drive/drive_models.h"
#include "drive/driver_file.h"
#include "host/arguments/acquire_request.h"
#include "host/arguments/command.h"
#include "host/reports/acquire_publishing.h"
#include "host/reports/plan_test.h"
#include "host/reports/progress.h"
#include "host/reports/row_stream.h"
#include "host/reports/run_report.h"
#include "host/session/session.h"
#include "host/window/recent_charts.h"
#include "recording/file/trigger_events.h"

namespace chartproject {

namespace {

std::string EventCodes() {
  std::string codes;
  for (int event = 0; event < kEventCount; ++event)
    codes += (event > 0 ? " " : "") + std::string(EventCode(EventAt(event)));
  return codes;
}

/// One recording without a window: acts as the user of the dialog.
class HeadlessRecording {
 public:
  HeadlessRecording(Session& session, const AcquireRequest& request)
      : session_(session), request_(request), progress_(session.Err(), ProgressKindFor(session.Options().quiet)) {
    if (request.publish != nullptr) publishing_.emplace(*request.publish, session.Instance().State());
  }

  ExitCode Run() {
    HeadlessFormHost& host = session_.Headless();
    ConsoleDialogs& boxes = session_.Console();
    host.onShown = [this](Form& form) { Begin(form); };
    host.onTick = [this](Form& form) { Watch(form); };
    boxes.beforeBox = [this] { progress_.EndLine(); };
    session_.Instance().AcquireVar();
    progress_.EndLine();
    host.onShown = nullptr;
    host.onTick = nullptr;
    boxes.beforeBox = nullptr;
    if (refusal_) std::rethrow_exception(refusal_);
    if (publishing_ && ended_) {
      publishing_->Finish(report_, session_.Err(), [this] { return !session_.ThePorts().keyboard.EscapePressed(); });
    }
    return (ended_ ? failed_ : Failed()) ? ExitCode::kRunTimeError : Outcome();
  }

 private:
  void Begin(Form& shown) {
    auto* const form = dynamic_cast<AcquireForm*>(&shown);
    if (form == nullptr) return;
    form->controller.pointTaken = [this](const AcquisitionRun& run) {
      if (rows_) rows_->Write(run);
      progress_.Show(run.Kept(), run.Plan().numberOfPoints);
    };
    form->controller.noticed = [this](const std::string& notice) {
      progress_.EndLine();
      session_.Err() << notice << "\n" << std::flush;
      KeyboardSignals::Watch();  // Ctrl-C ends what is going on, also before the first point
    };
    form->runEnded = [this](const RunReport& report) {
      report_ = report;
      ended_ = true;
      failed_ = Failed();  // what goes wrong afterwards, for example in storing settings, is not the recording's fault
    };
    try {
      Component& component = session_.Instance().State();
      FillAndStart(*form, request_, component, session_.Console());
      const std::string& model = component.driveTable.At(form->Run().Plan().driveAddress).Type;
      if (!ShowsValues(model)) {
        session_.Err() << FillIn(LoadMessage(component, Text::kModelShowsNoNumbers), {model}) << "\n" << std::flush;
      }
      if (request_.rows) rows_.emplace(session_.Out(), component, form->Run().Plan(), zone_);
      if (publishing_) publishing_->Begin(request_.fileName);
      if (form->Run().State() == RunState::kArmed) progress_.Note("waiting for " + request_.trigger);
    } catch (const StepFailed&) {
      refusal_ = std::current_exception();
      NameDriverFault();
    } catch (const std::runtime_error&) {  // a refusal
      refusal_ = std::current_exception();
    }
    errorsBefore_ = session_.Console().ErrorCount();
    // Until now a signal ends the program, as no data can be lost. From now on it ends the recording.
    KeyboardSignals::Watch();
    // Nothing was started: there is nothing to wait for.
    if (!form->Run().Active()) form->Unload();
  }

  /// A driver file that is a device or a pipe is a mistake of the command's user, as a chart file of that kind is.
  void NameDriverFault() {
    Component& component = session_.Instance().State();
    try {
      const int address = ParseNumber(component.selectedDriveAddress, "--address", 0, kLastDriveAddress);
      (void)component.ports.files.OpenForReading(DriverFileName(component, static_cast<std::int16_t>(address)));
    } catch (const NotARegularFile&) {
      refusal_ = std::current_exception();
    } catch (const std::runtime_error&) {
      return;  // the step's own failure says enough
    }
  }

  void Watch(Form& shown) {
    auto* const form = dynamic_cast<AcquireForm*>(&shown);
    if (form == nullptr) return;
    // A handler that failed once fails at every tick: the points so far are kept, and the user has seen the reason.
    if (Failed()) form->StopRun();
    ShowPublishing();
    if (!form->Run().Active()) form->Unload();
  }

  void ShowPublishing() {
    if (!publishing_) return;
    for (const std::string& sentence : publishing_->TakeNotices()) {
      progress_.EndLine();
      session_.Err() << sentence << "\n" << std::flush;
    }
  }

  /// A handler let an error out while the recording ran. Errors shown before the start (for example about a drive that
  /// was then replaced) do not count.
  [[nodiscard]] bool Failed() const { return session_.Console().ErrorCount() > errorsBefore_; }

  [[nodiscard]] ExitCode Outcome() {
    const ChartWriteResult& written = report_.written;
    const bool inFile = written.kind == ChartWriteResult::Kind::kWritten;
    if (request_.json) {
      PrintRunJson(session_.Out(), report_, publishing_ ? publishing_->Json() : nlohmann::ordered_json());
    } else {
      // Standard output belongs to the rows.
      PrintRunSentences(rows_ ? session_.Err() : session_.Out(), report_, session_.ThePorts().locale.Numbers());
    }
    if (inFile && written.rows < report_.points) return ExitCode::kRunTimeError;
    if (report_.end == RunEnd::kComplete) {
      if (inFile) return ExitCode::kDone;
      return written.kind == ChartWriteResult::Kind::kFailed ? ExitCode::kRunTimeError : ExitCode::kEndedEarly;
    }
    const bool nothing = report_.end == RunEnd::kFailed && report_.points == 0;
    return written.lost > 0 || nothing ? ExitCode::kRunTimeError : ExitCode::kEndedEarly;
  }

  Session& session_;
  const AcquireRequest& request_;
  Progress progress_;
  PosixTimeZone zone_;
  std::optional<RowStream> rows_;
  std::optional<AcquirePublishing> publishing_;
  RunReport report_;
  bool ended_ = false;
  bool failed_ = false;
  std::exception_ptr refusal_;
  int errorsBefore_ = 0;
};

constexpr int kUsualWait = 30;   // seconds, after the recording, for the points that a server does not have yet
constexpr int kMostGiven = 100;  // too many are refused with the dialog's reason, not by the parser

class AcquireCommand : public Command {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* app = program.add_subcommand(
        "acquire", "Record parameters of a drive; without --file and --parameters the dialog opens");
    app->add_option("--file", request_.fileName, "chart file to write")->type_name("PATH");
    app->add_option("--parameters", request_.parameters, "one to four parameter numbers, for example 3,5")
        ->delimiter(',')
        ->expected(1, kMostGiven)
        ->type_name("P[,P...]");
    app->add_option("--address", request_.address, "drive address, 1 to 30 (default: the project's selected drive)")
        ->type_name("ADDRESS");
    app->add_option("--points", request_.points, "number of points, 1 to 2000000000 (default: 5)")->type_name("N");
    app->add_option("--every", every_, "time between points: 200ms to 65535ms, 1s to 65s, or hh:mm:ss (default: 1s)")
        ->type_name("TIME");
    app->add_option("--trigger", request_.trigger, "record when an event occurs, one of: " + EventCodes())
        ->type_name("CODE");
    app->add_option("--compare", request_.compare, "parameter that a PXXX event compares")->type_name("PARAMETER");
    app->add_option("--content", request_.content, "value that a PXXX event compares with")->type_name("VALUE");
    app->add_flag("--json", request_.json, "the report at the end as one JSON object");
    app->add_option("--rows", rows_,
                    "- writes every point to standard output, too, the moment it is taken: one JSON object a line, as "
                    "\"export --plain --format jsonl\" has them")
        ->type_name("-");
    publish_.AddTo(*app, "--publish", kUsualWait);
    app->add_flag("--test", test_, "record nothing: read the plan once, and say how long a point takes");
    return app;
  }

  ExitCode Run(Session& session) override {
    if (!publish_.Given()) publish_.RefuseWithoutAddress();
    if (test_) return Test(session);
    if (request_.fileName.empty() != request_.parameters.empty()) {
      throw RefusedError("acquire: give both --file and --parameters, or none of them for the dialog");
    }
    if (request_.fileName.empty()) {
      for (const std::string* option :
           {&request_.address, &request_.points, &every_, &request_.trigger, &request_.compare, &request_.content}) {
        if (!option->empty()) throw RefusedError("acquire: in the dialog all is chosen there; leave the options out");
      }
      if (request_.json) throw RefusedError("acquire: --json goes with --file and --parameters");
      if (!rows_.empty()) throw RefusedError("acquire: --rows goes with --file and --parameters");
      if (publish_.Given()) throw RefusedError("acquire: --publish goes with --file and --parameters");
      session.UseDesktop(DesktopMode::kScreen);
      RememberAllCharts(session.Instance().State());
      session.Instance().AcquireVar();
      return ExitCode::kDone;
    }
    const bool compares = IsCompareEvent(EventOfCode(request_.trigger));
    if (!compares && !(request_.compare.empty() && request_.content.empty())) {
      throw RefusedError("acquire: --compare and --content go with a PXXX event of --trigger");
    }
    if (compares && request_.compare.empty()) {
      throw RefusedError("acquire: a PXXX event needs --compare, the parameter that it watches");
    }
    if (request_.fileName == "-") {
      throw RefusedError(
          "acquire: a recording needs a file, so that nothing is lost; --rows - writes its points to "
          "standard output, too");
    }
    if (!rows_.empty() && rows_ != "-") throw RefusedError("--rows: only -, standard output");
    if (!rows_.empty() && request_.json) throw RefusedError("acquire: --rows and --json both want standard output");
    request_.rows = !rows_.empty();
    if (publish_.Given()) request_.publish = &publish_;
    request_.fileName = FullName(request_.fileName);
    if (!every_.empty()) request_.every = ParseTimeBetweenPoints(every_);
    return HeadlessRecording(session, request_).Run();
  }

  [[nodiscard]] bool OutputIsItsResult() const override { return !rows_.empty(); }

 private:
  ExitCode Test(Session& session) {
    if (request_.parameters.empty()) throw RefusedError("acquire: --test needs --parameters");
    if (!every_.empty()) request_.every = ParseTimeBetweenPoints(every_);
    return TestPlan(session, request_);
  }

  AcquireRequest request_;
  std::string every_;
  std::string rows_;
  PublishOptions publish_;
  bool test_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeAcquireCommand() {
  return std::make_unique<AcquireCommand>();
}

}  // namespace chartproject
