// Entering a folder and coming back.
#include "common/folder_scope.h"

#include <exception>

namespace chartproject {

FolderScope::FolderScope(FileSystem& files, const std::string& folder) noexcept : files_(files) {
  try {
    former_ = files_.CurrentFolder();
    files_.ChangeFolder(folder);
  } catch (const std::exception&) {
    former_.reset();
  }
}

FolderScope::~FolderScope() {
  if (!former_) return;
  try {
    files_.ChangeFolder(*former_);
  } catch (const std::exception&) {
    // The former folder was removed meanwhile; there is nowhere to go back to.
    former_.reset();
  }
}

}  // namespace chartproject
