// A drive link that replays a scripted plant, for tests and demonstrations.
#pragma once

#include <memory>
#include <string>

#include "drive/drive_link.h"
#include "links/scenario_script.h"
#include "platform/clock.h"

namespace chartproject {

/// Time 0 of the script is the moment at which a link is opened. A read takes no time; a parameter without a text so
/// far, and every parameter of a silent drive, fails. GetText gives the text as written, GetValue its number (0 when it
/// is not a number).
class ScenarioLinkFactory : public DriveLinkFactory {
 public:
  /// Reads the script at once, so that a malformed one is known before anything is recorded. @see ScenarioScript::Load
  ScenarioLinkFactory(FileSystem& files, Clock& clock, const std::string& fileName);
  [[nodiscard]] std::unique_ptr<DriveLink> Create() override;

 private:
  Clock& clock_;
  std::shared_ptr<const ScenarioScript> script_;
};

}  // namespace chartproject
