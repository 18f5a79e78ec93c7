// Flush, rename, or remove.
#include "backends/posix/part_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "backends/posix/posix_error.h"
#include "backends/posix/posix_path.h"

namespace chartproject {

PartFile::PartFile(const std::string& target) : target_(PosixPath(target)), partName_(target_ + ".part") {
  // A rename would put the file in the place of a device or a folder's link.
  struct stat existing {};
  if (stat(target_.c_str(), &existing) == 0 && !S_ISREG(existing.st_mode)) {
    throw RunTimeError(error_number::kPathFileAccess, Text::kNotARegularFile, {target_});
  }
}

PartFile::~PartFile() {
  if (!committed_) unlink(partName_.c_str());
}

void PartFile::Commit() {
  const int file = open(partName_.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) throw FileError(errno, partName_);
  const bool flushed = fsync(file) == 0;
  const int flushError = errno;
  close(file);
  if (!flushed) throw FileError(flushError, partName_);
  if (std::rename(partName_.c_str(), target_.c_str()) != 0) throw FileError(errno, target_);
  committed_ = true;
}

}  // namespace chartproject
