// The run-time error of each errno.
#include "backends/posix/files/posix_error.h"

#include <sys/stat.h>

#include <cerrno>
#include <system_error>

#include "backends/posix/files/posix_path.h"

namespace chartproject {

namespace {

std::string Describe(int errorNumber, const std::string& name) {
  return name + ": " + std::generic_category().message(errorNumber);
}

bool IsFull(int errorNumber) {
  return errorNumber == ENOSPC || errorNumber == EDQUOT || errorNumber == EFBIG;
}

bool FolderAboveExists(const std::string& name) {
  struct stat status {};
  return stat(FolderOf(PosixPath(name)).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

int FileErrorNumber(int errorNumber, const std::string& name) {
  if (IsFull(errorNumber)) return error_number::kDiskFull;
  switch (errorNumber) {
    case EACCES:
    case EPERM:
    case EROFS:
      return error_number::kPermissionDenied;
    case ENOENT:
      return FolderAboveExists(name) ? error_number::kFileNotFound : error_number::kPathNotFound;
    case ENOTDIR:
      return error_number::kPathNotFound;
    default:
      return error_number::kPathFileAccess;
  }
}

}  // namespace

RunTimeError FileError(int errorNumber, const std::string& name) {
  return RunTimeError(FileErrorNumber(errorNumber, name), Describe(errorNumber, name));
}

RunTimeError DeviceError(int errorNumber, const std::string& name) {
  return RunTimeError(IsFull(errorNumber) ? error_number::kDiskFull : error_number::kDeviceIo,
                      Describe(errorNumber, name));
}

}  // namespace chartproject
