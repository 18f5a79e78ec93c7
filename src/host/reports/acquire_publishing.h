// The publishing of one recording on the command line, from its start to its end report.
#pragma once

#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

#include "acquire/run/run_controller.h"
#include "host/arguments/publish_options.h"
#include "host/reports/background_publisher.h"
#include "recording/file/component.h"

namespace chartproject {

class AcquirePublishing {
 public:
  /// Checks everything that can be checked before the recording. @param options,component outlive this object. Throws
  /// as PublishOptions::MakePoster does.
  AcquirePublishing(const PublishOptions& options, Component& component);

  /// The recording has begun. @param chartFile full name
  void Begin(const std::string& chartFile);
  /// What the user should know since the last call, a sentence each.
  [[nodiscard]] std::vector<std::string> TakeNotices();
  /// Sends the rest, for a limited time: longer when the recording is complete than when the user ended it. Writes what
  /// became of it. @param goOn false ends the wait
  void Finish(const RunReport& run, std::ostream& err, const std::function<bool()>& goOn);
  /// After Finish; null when nothing was begun.
  [[nodiscard]] const nlohmann::ordered_json& Json() const noexcept { return json_; }

 private:
  const PublishOptions& options_;
  Component& component_;
  std::unique_ptr<LinePoster> poster_;
  std::unique_ptr<BackgroundPublisher> publisher_;
  std::string chartFile_;
  nlohmann::ordered_json json_;
};

}  // namespace chartproject
