// The help files of the ready project, one a language.
#pragma once

#include <string_view>

#include "host/project/project_file.h"

namespace chartproject {

/// Hypertext in UTF-8 under the names that the system asks for. Each help context number is an anchor of its own:
/// 91 the acquisition dialog, 152 driver files.
[[nodiscard]] ProjectFiles MakeHelpFiles(std::string_view folder);

}  // namespace chartproject
