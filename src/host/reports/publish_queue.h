// publish: several recordings, one after the other; those that still run are followed meanwhile, to their ends.
#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "backends/posix/posix_clock.h"
#include "backends/posix/posix_time_zone.h"
#include "host/arguments/publish_options.h"
#include "host/reports/progress.h"
#include "host/session/session.h"
#include "publish/publisher.h"

namespace chartproject {

class PublishQueue {
 public:
  /// @param again from the first point of each. Throws as PublishOptions::MakePoster does.
  PublishQueue(Session& session, const PublishOptions& options, bool again);

  /// Sends them, full names. What fails is reported on standard error; the others go on.
  [[nodiscard]] ExitCode Run(const std::vector<std::string>& files);
  /// One entry for each file, in the order of their ends.
  [[nodiscard]] const nlohmann::ordered_json& Json() const noexcept { return json_; }
  /// One line for each file that was sent whole.
  [[nodiscard]] const std::string& Sentences() const noexcept { return sentences_; }

 private:
  struct Job {
    std::string file;
    std::unique_ptr<Publisher> publisher;
  };

  void Open(const std::string& file);
  void Turn();
  /// @return whether it has ended
  bool Step(Job& job);
  void End(const Job& job, bool complete);
  void Say(const std::string& file, const std::string& sentence);
  void SayFault(const std::string& file, const RunTimeError& fault);
  void ShowProgress(const Publisher& publisher);
  [[nodiscard]] bool GoOn();
  [[nodiscard]] Language UserLanguage();

  Session& session_;
  const PublishOptions& options_;
  bool again_;
  std::unique_ptr<LinePoster> poster_;
  Progress progress_;
  PosixTimeZone zone_;
  PosixClock clock_;
  std::unique_ptr<Job> current_;
  std::vector<std::unique_ptr<Job>> followed_;
  bool worked_ = false;  ///< in this turn
  bool stopped_ = false;
  bool failed_ = false;
  std::string sentences_;
  nlohmann::ordered_json json_ = nlohmann::ordered_json::array();
};

}  // namespace chartproject
