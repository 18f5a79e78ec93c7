// Choosing the drive link by the option --link.
#include "host/session/drive_links.h"

#include "links/scenario_link.h"
#include "links/simulated_link.h"
#include "platform/run_time_error.h"

namespace chartproject {

std::unique_ptr<DriveLinkFactory> MakeDriveLinks(const std::string& link, FileSystem& files, Clock& clock,
                                                 const WaitUntil& waitUntil, const Locale& locale) {
  constexpr std::string_view kScenario = "scenario:";
  if (link.starts_with(kScenario)) {
    return std::make_unique<ScenarioLinkFactory>(files, clock, waitUntil, link.substr(kScenario.size()));
  }
  if (link == "sim") return std::make_unique<SimulatedLinkFactory>(clock, locale);
  throw RunTimeError(error_number::kCannotCreateObject, Text::kUnknownDriveLink, {link});
}

}  // namespace chartproject
