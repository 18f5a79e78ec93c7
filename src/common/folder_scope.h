// A change of the current folder that ends with the scope.
#pragma once

#include <optional>
#include <string>

#include "platform/file_system.h"

namespace chartproject {

/// Makes a folder the current one while it lives, and the former one again afterwards. Host and component share the
/// current folder with all of the process, so it is always given back. A folder that cannot be entered leaves the
/// current one as it is: what is shown then matters more than the folder.
class FolderScope {
 public:
  FolderScope(FileSystem& files, const std::string& folder) noexcept;
  ~FolderScope();
  FolderScope(const FolderScope&) = delete;
  FolderScope& operator=(const FolderScope&) = delete;

 private:
  FileSystem& files_;
  std::optional<std::string> former_;
};

}  // namespace chartproject
