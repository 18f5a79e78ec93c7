// Flush, rename, or remove.
#include "platform/spreadsheet/part_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/run_time_error.h"

namespace chartproject {

std::string NativeName(std::string name) {
  std::replace(name.begin(), name.end(), '\\', '/');
  return name;
}

int RunTimeErrorNumber(int systemError) {
  switch (systemError) {
    case ENOENT:
    case ENOTDIR:
      return error_number::kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return error_number::kPermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return error_number::kDiskFull;
    case EISDIR:
    case ENAMETOOLONG:
      return error_number::kPathFileAccess;
    default:
      return error_number::kDeviceIo;
  }
}

void ThrowFileError(const std::string& fileName, int systemError) {
  throw RunTimeError(RunTimeErrorNumber(systemError), fileName + ": " + std::strerror(systemError));
}

PartFile::PartFile(const std::string& target) : target_(NativeName(target)), partName_(target_ + ".part") {}

PartFile::~PartFile() {
  if (!committed_) unlink(partName_.c_str());
}

void PartFile::Commit() {
  const int file = open(partName_.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) ThrowFileError(partName_, errno);
  const bool flushed = fsync(file) == 0;
  const int flushError = errno;
  close(file);
  if (!flushed) ThrowFileError(partName_, flushError);
  if (std::rename(partName_.c_str(), target_.c_str()) != 0) ThrowFileError(target_, errno);
  committed_ = true;
}

}  // namespace chartproject
