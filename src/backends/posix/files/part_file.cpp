// Flush and rename; a part that is not committed goes with its side file.
#include "backends/posix/files/part_file.h"

namespace chartproject {

namespace {

std::string CheckedTarget(const std::string& target) {
  std::string file = ResolveLinkPosix(target);
  CheckReplaceablePosix(file);
  return file;
}

}  // namespace

PartFile::PartFile(const std::string& target, const FileRights& rights)
    : target_(target),
      file_({.target = CheckedTarget(target), .ending = ".part", .rights = rights}, PosixSideFile::Naming::kAtTheEnd) {}

void PartFile::Commit() {
  file_.Flush();
  file_.ReplaceTarget();
}

}  // namespace chartproject
