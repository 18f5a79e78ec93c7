// One file of a ready project, before it is on the disk.
#pragma once

#include <string>
#include <vector>

namespace chartproject {

struct ProjectFile {
  std::string name;   ///< seen from the project's folder, with "/"
  std::string bytes;  ///< as they go to the disk
};

using ProjectFiles = std::vector<ProjectFile>;

}  // namespace chartproject
