// Help, sounds and pictures of the ready project: files of share/ under the names that the system asks for.
#pragma once

#include "host/project/project_file.h"

namespace chartproject {

/// Help pages are hypertext in UTF-8, one a language; each help context number is an anchor of the page: 91 the
/// acquisition dialog, 152 driver files, 200 the chart window.
[[nodiscard]] ProjectFiles MakeAssetFiles();

}  // namespace chartproject
