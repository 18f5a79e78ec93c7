// A drive link that replays a scripted plant, for tests and demonstrations.
#pragma once

#include <memory>
#include <string>

#include "drive/drive_link.h"
#include "links/scenario_script.h"
#include "platform/clock.h"

namespace chartproject {

/// Time 0 of the script is the moment at which a link is opened. A read gives what holds when it begins, and takes no
/// time but what the script says; while it waits it asks in slices whether it should go on. A parameter without a text
/// so far does not answer. GetText gives the text as written, GetValue its number (0 when it is not a number).
class ScenarioLinkFactory : public DriveLinkFactory {
 public:
  /// Reads the script at once, so that a malformed one is known before anything is recorded. @see ScenarioScript::Load
  /// @param waitUntil how time passes on the clock while a drive is slow
  ScenarioLinkFactory(FileSystem& files, Clock& clock, WaitUntil waitUntil, const std::string& fileName);
  [[nodiscard]] std::unique_ptr<DriveLink> Create(const LinkWait& wait) override;

 private:
  Clock& clock_;
  WaitUntil waitUntil_;
  std::shared_ptr<const ScenarioScript> script_;
};

}  // namespace chartproject
