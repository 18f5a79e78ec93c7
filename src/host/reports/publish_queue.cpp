// Turn by turn: a step of the current recording, and of each that is followed.
#include "host/reports/publish_queue.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <utility>

#include "common/environment/language.h"
#include "common/values/text.h"
#include "host/arguments/interrupted_argument.h"
#include "host/reports/publish_report.h"
#include "publish/publish_texts.h"

namespace chartproject {
namespace {

constexpr Instant kSlice = std::chrono::milliseconds(50);

/// Without a terminal the end report says enough.
ProgressKind BarOrNothing(bool quiet) {
  const ProgressKind kind = ProgressKindFor(quiet);
  return kind == ProgressKind::kBar ? kind : ProgressKind::kNone;
}

}  // namespace

PublishQueue::PublishQueue(Session& session, const PublishOptions& options, bool again)
    : session_(session),
      options_(options),
      again_(again),
      poster_(options.MakePoster(session.ThePorts().files, UserLanguage())),
      progress_(session.Err(), BarOrNothing(session.Options().quiet)) {}

ExitCode PublishQueue::Run(const std::vector<std::string>& files) {
  for (auto file = files.begin(); GoOn();) {
    if (!current_ && file != files.end()) Open(*file++);
    if (current_ || !followed_.empty()) {
      Turn();
    } else if (file == files.end()) {
      break;
    }
  }
  if (current_) followed_.push_back(std::move(current_));
  for (const auto& job : followed_) End(*job, false);
  followed_.clear();
  if (failed_) return ExitCode::kRunTimeError;
  return stopped_ ? ExitCode::kEndedEarly : ExitCode::kDone;
}

bool PublishQueue::GoOn() {
  stopped_ = stopped_ || session_.ThePorts().keyboard.EscapePressed();
  return !stopped_;
}

Language PublishQueue::UserLanguage() {
  return session_.Instance().State().language;
}

void PublishQueue::Open(const std::string& file) {
  Ports& ports = session_.ThePorts();
  PublishRequest request;
  try {
    request.chartFile = ports.files.ResolveLink(ChartFileOf(file));
    const bool nothing = !ports.files.FileExists(request.chartFile);
    if (nothing && !IsBeingRecorded(ports.files, request.chartFile)) RefuseInterrupted(ports, request.chartFile);
  } catch (const RunTimeError& error) {
    PublishReport report;
    report.fault = error;
    json_.push_back(PublishJson(file, poster_->Server(), report, false));
    SayFault(file, error);
    failed_ = true;
    return;
  }
  request.measurement = options_.Measurement();
  request.again = again_;
  request.patience = std::chrono::seconds(options_.Wait());
  request.tags = [this](const ChartHeader& header) {
    return TagsOf(session_.Instance().State(), header, options_.Host(), true);
  };
  const PublishPorts outside{ports.files, ports.codePage, ports.locale, zone_, clock_};
  current_ = std::make_unique<Job>(Job{file, std::make_unique<Publisher>(outside, std::move(request), *poster_)});
  Publisher& publisher = *current_->publisher;
  publisher.troubled = [this, file, &publisher] {
    Say(file, TroubleText(UserLanguage(), poster_->Server(), *publisher.Report().trouble));
  };
  publisher.recovered = [this, file] {
    Say(file, FillIn(TextIn(UserLanguage(), Text::kPublishRecovered), {poster_->Server()}));
  };
}

void PublishQueue::Turn() {
  worked_ = false;
  std::erase_if(followed_, [this](const std::unique_ptr<Job>& job) { return Step(*job); });
  if (current_ && Step(*current_)) current_.reset();
  if (current_) ShowProgress(*current_->publisher);
  if (worked_) return;
  if (current_ && current_->publisher->Follows()) followed_.push_back(std::move(current_));
  SleepUntil(clock_.Now() + kSlice);
}

bool PublishQueue::Step(Job& job) {
  const PublishState state = job.publisher->Step([this] { return GoOn(); });
  worked_ = worked_ || state != PublishState::kWaiting;
  if (state != PublishState::kComplete && state != PublishState::kFailed) return false;
  End(job, state == PublishState::kComplete);
  return true;
}

void PublishQueue::End(const Job& job, bool complete) {
  if (!complete) job.publisher->KeepPosition();
  const PublishReport& report = job.publisher->Report();
  const auto text = [this](Text id, std::initializer_list<std::string> values) {
    return FillIn(TextIn(UserLanguage(), id), values);
  };
  if (report.fault) SayFault(job.file, *report.fault);
  if (report.positionFault) {
    Say(job.file, text(Text::kPublishPositionFault, {report.positionFault->Description(UserLanguage())}));
  }
  const std::string acknowledged = std::to_string(report.acknowledged);
  progress_.EndLine();
  if (complete) {
    sentences_ += VisibleText(job.file) + ": " + text(Text::kPublishAllSent, {acknowledged, poster_->Server()}) + "\n";
  } else {
    if (!report.fault) Say(job.file, text(Text::kPublishPlace, {acknowledged}));
    failed_ = failed_ || (!stopped_ && (report.fault || report.trouble));
  }
  json_.push_back(PublishJson(job.file, poster_->Server(), report, complete));
}

void PublishQueue::Say(const std::string& file, const std::string& sentence) {
  progress_.EndLine();
  session_.Err() << VisibleText(file) << ": " << sentence << "\n" << std::flush;
}

/// Most faults name their file.
void PublishQueue::SayFault(const std::string& file, const RunTimeError& fault) {
  const std::string description = fault.Description(UserLanguage());
  if (description.find(file) == std::string::npos) {
    Say(file, description);
    return;
  }
  progress_.EndLine();
  session_.Err() << VisibleText(description) << "\n" << std::flush;
}

void PublishQueue::ShowProgress(const Publisher& publisher) {
  constexpr double kLeast = 0.001;
  const std::int64_t done = publisher.Report().acknowledged;
  if (publisher.Share() < kLeast || done == 0) return;
  progress_.Show(done, std::max<std::int64_t>(done, std::llround(static_cast<double>(done) / publisher.Share())));
}

}  // namespace chartproject
