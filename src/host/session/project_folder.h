// Where the first project of a user is made.
#pragma once

#include <string>

#include "host/session/session.h"

namespace chartproject {

/// Beside the settings where a profile was named, else where the user looks for files of his own.
[[nodiscard]] std::string FirstProjectFolder(const GlobalOptions& options);

}  // namespace chartproject
