// What happens when, and what is said of it.
#include "host/reports/acquire_publishing.h"

#include <algorithm>

#include "common/environment/language.h"
#include "host/reports/publish_report.h"
#include "publish/publish_texts.h"

namespace chartproject {
namespace {

/// Of a recording that the user ended: who presses Ctrl-C wants to leave.
constexpr std::chrono::seconds kWaitWhenStopped{5};
constexpr std::chrono::seconds kBeforeWords{1};

}  // namespace

AcquirePublishing::AcquirePublishing(const PublishOptions& options, Component& component)
    : options_(options),
      component_(component),
      poster_(options.MakePoster(component.ports.files, component.language)) {}

void AcquirePublishing::Begin(const std::string& chartFile) {
  chartFile_ = component_.ports.files.ResolveLink(chartFile);
  const LineTags tags = TagsOf(component_, component_.chartHeader, options_.Host(), false);
  PublishRequest request{.chartFile = chartFile_,
                         .measurement = options_.Measurement(),
                         .tags = [tags](const ChartHeader&) { return tags; },
                         .live = true};
  publisher_ = std::make_unique<BackgroundPublisher>(std::move(request), std::move(poster_), component_.language);
}

std::vector<std::string> AcquirePublishing::TakeNotices() {
  return publisher_ ? publisher_->TakeNotices() : std::vector<std::string>();
}

void AcquirePublishing::Finish(const RunReport& run, std::ostream& err, const std::function<bool()>& goOn) {
  if (!publisher_) return;
  const std::int64_t points = run.points;
  std::chrono::seconds wait{options_.Wait()};
  if (run.end == RunEnd::kStopped) wait = std::min(wait, kWaitWhenStopped);
  bool complete = points == 0 || publisher_->Finish(points, std::min(wait, kBeforeWords), goOn);
  const PublishReport soFar = publisher_->Report();
  if (!complete && !soFar.fault && goOn() && wait > kBeforeWords) {
    err << FillIn(LoadMessage(component_, Text::kPublishSendingRest),
                  {std::to_string(points - soFar.acknowledged), publisher_->Server(), std::to_string(wait.count())})
        << "\n"
        << std::flush;
    complete = publisher_->Finish(points, wait - kBeforeWords, goOn);
  }
  const PublishReport report = publisher_->Report();
  for (const std::string& sentence : publisher_->TakeNotices()) err << sentence << "\n";
  if (complete) {
    err << FillIn(LoadMessage(component_, Text::kPublishAllSent), {std::to_string(points), publisher_->Server()})
        << "\n";
  } else {
    err << FillIn(
               LoadMessage(component_, Text::kPublishRest),
               {std::to_string(points - report.acknowledged), std::to_string(points), options_.CommandFor(chartFile_)})
        << "\n";
  }
  err << std::flush;
  json_ = PublishJson(chartFile_, publisher_->Server(), report, complete);
  publisher_.reset();
}

}  // namespace chartproject
