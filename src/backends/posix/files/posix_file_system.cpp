// Files and folders by the system's own calls.
#include "backends/posix/files/posix_file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "backends/posix/files/open_file.h"
#include "backends/posix/files/posix_error.h"
#include "backends/posix/files/posix_path.h"
#include "backends/posix/files/posix_side_file.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

RunTimeError FolderError(int errorNumber, const std::string& name) {
  const RunTimeError error = FileError(errorNumber, name);
  return error.Number() == error_number::kFileNotFound ? RunTimeError(error_number::kPathNotFound, error.Description())
                                                       : error;
}

DiskSpace SpaceOf(const struct statvfs& disk) {
  const std::uint64_t unit = disk.f_frsize;
  return DiskSpace{unit * disk.f_blocks, unit * disk.f_bfree, unit * disk.f_bavail};
}

}  // namespace

bool PosixFileSystem::FileExists(const std::string& name) {
  struct stat status {};
  return !name.empty() && stat(PosixPath(name).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

bool PosixFileSystem::FolderExists(const std::string& name) {
  struct stat status {};
  return !name.empty() && stat(PosixPath(name).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::unique_ptr<InputFile> PosixFileSystem::OpenForReading(const std::string& name) {
  return MakeInputFile(OpenRegular(name, O_RDONLY), name);
}

void PosixFileSystem::Append(const std::string& name, std::string_view bytes) {
  Descriptor file = OpenRegular(name, O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW);
  struct stat status {};
  if (fstat(file.Number(), &status) != 0) throw FileError(errno, name);
  if (status.st_nlink > 1) {
    throw RunTimeError(error_number::kPathFileAccess, Text::kFileOfSeveralNames, {name});
  }
  AppendWhole(file, bytes, name);
  if (file.Close() != 0) throw DeviceError(errno, name);
}

std::unique_ptr<SideFile> PosixFileSystem::MakeSideFile(const SideFileRequest& request) {
  return std::make_unique<PosixSideFile>(request);
}

std::string PosixFileSystem::ResolveLink(const std::string& name) {
  return ResolveLinkPosix(name);
}

void PosixFileSystem::CheckReplaceable(const std::string& name) {
  CheckReplaceablePosix(name);
}

FileRights PosixFileSystem::RightsOf(const std::string& name) {
  return RightsOfPosix(name);
}

void PosixFileSystem::CheckOwned(const std::string& name) {
  struct stat status {};
  if (lstat(PosixPath(name).c_str(), &status) != 0) return;
  if (S_ISLNK(status.st_mode)) {
    throw RunTimeError(error_number::kPermissionDenied, Text::kLinkNotFollowed, {name});
  }
  if (status.st_uid != geteuid()) {
    throw RunTimeError(error_number::kPermissionDenied, Text::kOfAnotherUser, {name});
  }
}

void PosixFileSystem::Delete(const std::string& name) {
  if (unlink(PosixPath(name).c_str()) != 0) throw FileError(errno, name);
}

std::vector<std::string> PosixFileSystem::FilesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  const std::string path = folder.empty() ? "." : PosixPath(folder);
  for (std::filesystem::directory_iterator at(path, error), end; !error && at != end; at.increment(error)) {
    std::error_code unknown;  // of an entry that goes at this moment
    if (!at->is_directory(unknown)) names.push_back(at->path().filename().string());
  }
  if (error) throw FolderError(error.value(), folder);
  std::sort(names.begin(), names.end());
  return names;
}

void PosixFileSystem::MakeFolder(const std::string& name) {
  std::error_code error;
  std::filesystem::create_directories(PosixPath(name), error);
  if (error) throw FolderError(error.value(), name);
}

std::string PosixFileSystem::CurrentFolder() {
  std::error_code error;
  const auto folder = std::filesystem::current_path(error);
  if (error) throw FolderError(error.value(), ".");
  return folder.string();
}

void PosixFileSystem::ChangeFolder(const std::string& name) {
  if (chdir(PosixPath(name).c_str()) != 0) throw FolderError(errno, name);
}

std::string PosixFileSystem::TemporaryFolder() {
  std::error_code error;
  const auto folder = std::filesystem::temp_directory_path(error);
  return error ? "/tmp" : folder.string();
}

std::string PosixFileSystem::CacheFolder() {
  const char* const chosen = std::getenv("XDG_CACHE_HOME");
  if (chosen != nullptr && *chosen == '/') return chosen;  // any other value is to be ignored
  const char* const home = std::getenv("HOME");
  return home == nullptr || *home != '/' ? std::string() : std::string(home) + "/.cache";
}

DiskSpace PosixFileSystem::SpaceFor(const std::string& name) {
  struct statvfs disk {};
  std::string path = name.empty() ? "." : PosixPath(name);
  // The file, or the nearest folder above it that is there already.
  while (statvfs(path.c_str(), &disk) != 0) {
    const std::string above = FolderOf(path);
    if ((errno != ENOENT && errno != ENOTDIR) || above == path) throw FileError(errno, name);
    path = above;
  }
  return SpaceOf(disk);
}

}  // namespace chartproject
