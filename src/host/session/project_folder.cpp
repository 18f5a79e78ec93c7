// The folder by profile, or by home.
#include "host/session/project_folder.h"

#include <cstdlib>

#include "common/values/text.h"

namespace chartproject {

std::string FirstProjectFolder(const GlobalOptions& options) {
  if (!options.profileFolder.empty()) return JoinPath(options.profileFolder, "Project");
  const char* const home = std::getenv("HOME");
  return JoinPath(home == nullptr || *home == '\0' ? "/tmp" : home, "ChartProject");
}

}  // namespace chartproject
