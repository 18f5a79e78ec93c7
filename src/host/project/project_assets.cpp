// Where each file of share/ goes in a project.
#include "host/project/project_assets.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>

#include "host/project/share_files.h"

namespace chartproject {

namespace {

struct Place {
  std::string_view share;    ///< the name in share/
  std::string_view project;  ///< the name in the project
};

constexpr std::array kPlaces{Place{"sounds/NIMClick.wav", "media/NIMClick.wav"},
                             Place{"sounds/Complete.wav", "media/Complete.wav"},
                             Place{"sounds/ir_end.wav", "media/ir_end.wav"},
                             Place{"icons/Select.cur", "graphics/Cursor/Select.cur"},
                             Place{"icons/Kestrel.ico", "graphics/Icon/General/Kestrel.ico"},
                             Place{"icons/Orlin.ico", "graphics/Icon/General/Orlin.ico"},
                             Place{"help/pt.html", "help/Kshelpp.HLP"},
                             Place{"help/en.html", "help/Kshelpe.HLP"},
                             Place{"help/es.html", "help/Kshelps.HLP"}};

}  // namespace

ProjectFiles MakeAssetFiles() {
  ProjectFiles files;
  for (const auto& [share, project] : kPlaces) {
    const auto file = std::ranges::find(ShareFiles(), share, &EmbeddedFile::name);
    if (file == ShareFiles().end()) throw std::logic_error("share/" + std::string(share) + " is not embedded");
    files.push_back({std::string(project), std::string(file->bytes)});
  }
  return files;
}

}  // namespace chartproject
