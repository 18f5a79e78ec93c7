// The thread's loop, and the wait for its end.
#include "host/reports/background_publisher.h"

#include <sys/resource.h>
#include <unistd.h>

#include <utility>

#include "backends/posix/signal_free_thread.h"
#include "publish/publish_texts.h"

namespace chartproject {
namespace {

constexpr int kNiceness = 10;
constexpr auto kSlice = std::chrono::milliseconds(50);

}  // namespace

BackgroundPublisher::BackgroundPublisher(PublishRequest request, std::unique_ptr<LinePoster> poster, Language language)
    : poster_(std::move(poster)),
      request_(std::move(request)),
      language_(language),
      thread_(SignalFreeThread([this] { Run(); })) {}

BackgroundPublisher::~BackgroundPublisher() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void BackgroundPublisher::Run() {
  // Linux counts niceness by thread.
  (void)setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNiceness);
  Publisher publisher({files_, codePage_, locale_, zone_, clock_}, request_, *poster_);
  publisher.troubled = [&] { Notice(TroubleText(language_, poster_->Server(), *publisher.Report().trouble)); };
  publisher.recovered = [&] { Notice(FillIn(TextIn(language_, Text::kPublishRecovered), {poster_->Server()})); };
  try {
    Publish(publisher);
  } catch (const std::exception& error) {
    const std::lock_guard lock(mutex_);
    report_.fault = AsRunTimeError(error);
    state_ = PublishState::kFailed;
  }
}

void BackgroundPublisher::Publish(Publisher& publisher) {
  bool told = false;
  while (!stopping_) {
    if (ended_ && !told) {
      told = true;
      publisher.RecordingEnded();
      publisher.Hurry();
    }
    const PublishState state = publisher.Step([this, &told] { return !stopping_ && (told || !ended_); });
    if (publisher.Report().positionFault && !report_.positionFault) {
      Notice(FillIn(TextIn(language_, Text::kPublishPositionFault),
                    {publisher.Report().positionFault->Description(language_)}));
    }
    if (publisher.Report().fault) Notice(publisher.Report().fault->Description(language_));
    std::unique_lock lock(mutex_);
    report_ = publisher.Report();
    state_ = state;
    changed_.notify_all();
    if (state == PublishState::kComplete || state == PublishState::kFailed) return;
    if (state == PublishState::kSending) continue;
    const auto time = publisher.WakeAt() - clock_.Now();
    changed_.wait_for(lock, time, [this, &told] { return stopping_ || (ended_ && !told); });
  }
}

void BackgroundPublisher::Notice(std::string sentence) {
  const std::lock_guard lock(mutex_);
  notices_.push_back(std::move(sentence));
}

std::vector<std::string> BackgroundPublisher::TakeNotices() {
  const std::lock_guard lock(mutex_);
  return std::exchange(notices_, {});
}

PublishReport BackgroundPublisher::Report() {
  const std::lock_guard lock(mutex_);
  return report_;
}

bool BackgroundPublisher::Finish(std::int64_t points, std::chrono::seconds time, const std::function<bool()>& goOn) {
  const auto limit = std::chrono::steady_clock::now() + time;
  std::unique_lock lock(mutex_);
  ended_ = true;
  changed_.notify_all();
  const auto done = [this] { return state_ == PublishState::kComplete || state_ == PublishState::kFailed; };
  while (!done() && std::chrono::steady_clock::now() < limit) {
    changed_.wait_for(lock, kSlice);
    lock.unlock();
    const bool wanted = goOn();
    lock.lock();
    if (!wanted) break;
  }
  return state_ == PublishState::kComplete && report_.acknowledged >= points;
}

}  // namespace chartproject
