// The sounds and pictures of the ready project, made here: nothing of them comes from elsewhere.
#pragma once

#include "host/project/project_file.h"

namespace chartproject {

/// Sounds in "media" (mono wave files, 16 bits); cursor and icons (16 and 32 pixels) in "graphics".
[[nodiscard]] ProjectFiles MakeMediaFiles();

}  // namespace chartproject
