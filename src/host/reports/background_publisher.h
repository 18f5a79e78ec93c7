// acquire --publish: a publisher on a thread of its own beside the recording.
#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "backends/headless/code_page_1252.h"
#include "backends/posix/files/posix_file_system.h"
#include "backends/posix/posix_clock.h"
#include "backends/posix/posix_locale.h"
#include "backends/posix/posix_time_zone.h"
#include "publish/publisher.h"
#include "texts/language.h"

namespace chartproject {

/// Shares nothing with the recorder but the files on disk, and has a lower priority: no point waits for it.
class BackgroundPublisher {
 public:
  /// Begins at once. @param request is live; @param language of the notices
  BackgroundPublisher(PublishRequest request, std::unique_ptr<LinePoster> poster, Language language);
  /// Ends within moments; the position is kept.
  ~BackgroundPublisher();
  BackgroundPublisher(const BackgroundPublisher&) = delete;
  BackgroundPublisher& operator=(const BackgroundPublisher&) = delete;

  /// What the user should know, a sentence each, since the last call.
  [[nodiscard]] std::vector<std::string> TakeNotices();
  /// The recording ended: sends the rest. @param points of it; @param time to wait at most
  /// @param goOn asked many times a second; false ends the wait. @return whether all points are acknowledged
  [[nodiscard]] bool Finish(std::int64_t points, std::chrono::seconds time, const std::function<bool()>& goOn);
  [[nodiscard]] PublishReport Report();
  [[nodiscard]] const std::string& Server() const { return poster_->Server(); }

 private:
  void Run();
  void Publish(Publisher& publisher);
  void Notice(std::string sentence);

  std::unique_ptr<LinePoster> poster_;
  PublishRequest request_;
  Language language_;
  PosixFileSystem files_;
  CodePage1252 codePage_;
  PosixLocale locale_ = PosixLocale::FromEnvironment();
  PosixTimeZone zone_;
  PosixClock clock_;

  std::mutex mutex_;
  std::condition_variable changed_;
  PublishReport report_;
  PublishState state_ = PublishState::kSending;
  std::vector<std::string> notices_;
  std::atomic<bool> stopping_ = false;
  std::atomic<bool> ended_ = false;
  std::thread thread_;
};

}  // namespace chartproject
