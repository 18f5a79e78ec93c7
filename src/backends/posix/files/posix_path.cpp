// Separators and folders of file names.
#include "backends/posix/files/posix_path.h"

#include <algorithm>

namespace chartproject {

std::string PosixPath(std::string_view name) {
  std::string path(name);
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

std::string FolderOf(std::string_view path) {
  const auto last = path.find_last_not_of('/');
  if (last == std::string_view::npos) return path.empty() ? "." : "/";
  const auto slash = path.find_last_of('/', last);
  if (slash == std::string_view::npos) return ".";
  const auto end = path.find_last_not_of('/', slash);
  return end == std::string_view::npos ? "/" : std::string(path.substr(0, end + 1));
}

}  // namespace chartproject
