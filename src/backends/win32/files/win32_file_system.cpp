// Files and folders by the system's own functions.
#include "backends/win32/files/win32_file_system.h"

#include <shlobj.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "backends/win32/com_module.h"
#include "backends/win32/files/disk_space.h"
#include "backends/win32/files/win32_side_file.h"
#include "backends/win32/handles.h"
#include "backends/win32/system_error.h"
#include "backends/win32/wide_text.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

namespace {

[[nodiscard]] DWORD Attributes(const std::string& name) {
  return GetFileAttributesW(ToWide(name).c_str());
}

[[nodiscard]] bool IsFolder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Information of a token or a file that the system gives in a size of its own; empty when it gives none.
template <typename Ask>
std::vector<unsigned char> Asked(const Ask& ask) {
  DWORD size = 0;
  ask(nullptr, 0, &size);
  std::vector<unsigned char> bytes(size);
  if (size == 0 || ask(bytes.data(), size, &size) == 0) bytes.clear();
  return bytes;
}

/// Whether the calling user owns a file, or the group does to which his files belong (the administrators'). True on a
/// disk that keeps no owners.
bool OwnedByUser(const std::wstring& path) {
  const auto security = Asked([&path](unsigned char* bytes, DWORD room, DWORD* size) {
    return GetFileSecurityW(path.c_str(), OWNER_SECURITY_INFORMATION, bytes, room, size);
  });
  PSID owner = nullptr;
  BOOL defaulted = FALSE;
  if (security.empty() ||
      GetSecurityDescriptorOwner(const_cast<unsigned char*>(security.data()), &owner, &defaulted) == 0 ||
      owner == nullptr) {
    return true;
  }
  HANDLE token = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == 0) return false;
  const auto read = [token](TOKEN_INFORMATION_CLASS kind) {
    return Asked([token, kind](unsigned char* bytes, DWORD room, DWORD* size) {
      return GetTokenInformation(token, kind, bytes, room, size);
    });
  };
  const auto user = read(TokenUser);
  const auto newFiles = read(TokenOwner);
  CloseHandle(token);
  return (!user.empty() && EqualSid(owner, reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid) != 0) ||
         (!newFiles.empty() && EqualSid(owner, reinterpret_cast<const TOKEN_OWNER*>(newFiles.data())->Owner) != 0);
}

class Win32FileLock : public FileLock {
 public:
  explicit Win32FileLock(OwnedFile marker) : marker_(std::move(marker)) {}

 private:
  OwnedFile marker_;
};

}  // namespace

bool Win32FileSystem::FileExists(const std::string& name) {
  const DWORD attributes = Attributes(name);
  return !name.empty() && attributes != INVALID_FILE_ATTRIBUTES && !IsFolder(attributes);
}

bool Win32FileSystem::FolderExists(const std::string& name) {
  return IsFolder(Attributes(name));
}

std::unique_ptr<InputFile> Win32FileSystem::OpenForReading(const std::string& name) {
  return MakeInputFile(OpenOnDisk(name, GENERIC_READ, kShareAll, OPEN_EXISTING), name);
}

void Win32FileSystem::Append(const std::string& name, std::string_view bytes) {
  const OwnedFile file = OpenOnDisk(name, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, OPEN_ALWAYS,
                                    FILE_FLAG_OPEN_REPARSE_POINT, kFilePatience);
  RefuseLink(file.Get(), name);
  AppendWhole(file.Get(), bytes, name);
}

std::unique_ptr<SideFile> Win32FileSystem::MakeSideFile(const SideFileRequest& request) {
  return std::make_unique<Win32SideFile>(request);
}

std::string Win32FileSystem::ResolveLink(const std::string& name) {
  const DWORD attributes = Attributes(name);
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return name;
  const OwnedFile file = OpenOnDisk(name, FILE_READ_ATTRIBUTES, kShareAll, OPEN_EXISTING);
  std::wstring path(GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
  path.resize(
      GetFinalPathNameByHandleW(file.Get(), path.data(), static_cast<DWORD>(path.size()), FILE_NAME_NORMALIZED));
  return path.empty() ? name : ToUtf8(WithoutLongNamePrefix(path));
}

void Win32FileSystem::CheckReplaceable(const std::string& name) {
  CheckReplaceableWin32(name);
}

void Win32FileSystem::CheckOwned(const std::string& name) {
  const std::wstring path = ToWide(name);
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return;
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    throw RunTimeError(error_number::kPermissionDenied, Text::kLinkNotFollowed, {name});
  }
  if (!OwnedByUser(path)) throw RunTimeError(error_number::kPermissionDenied, Text::kOfAnotherUser, {name});
}

LockAttempt Win32FileSystem::Lock(const std::string& name) {
  constexpr int kMarkerNames = 10;
  for (int n = 0;; ++n) {
    // Not shared, and deleted by the system when its handle is closed, however the program ends.
    const std::string marker = SideFileName(name, ".lock", n);
    OwnedFile file(CreateFileW(ToWide(marker).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                               FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    if (file.Valid()) return {std::make_unique<Win32FileLock>(std::move(file)), {}};
    const DWORD code = GetLastError();
    if (code != ERROR_FILE_EXISTS && code != ERROR_SHARING_VIOLATION) ThrowFileError(code, name);
    // Nobody can open a marker in use. Any other file belongs to somebody else or was left by a power cut.
    const OwnedFile other(
        CreateFileW(ToWide(marker).c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!other.Valid() && GetLastError() == ERROR_SHARING_VIOLATION) return {nullptr, marker};
    if (n + 1 == kMarkerNames) ThrowFileError(code, marker);
  }
}

void Win32FileSystem::Delete(const std::string& name) {
  if (DeleteFileW(ToWide(name).c_str()) == 0) ThrowFileError(GetLastError(), name);
}

std::vector<std::string> Win32FileSystem::FilesIn(const std::string& folder) {
  std::vector<std::string> names;
  WIN32_FIND_DATAW found;
  const std::string pattern = (folder.empty() ? "." : folder) + "\\*";
  const HANDLE search = FindFirstFileW(ToWide(pattern).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) {
    const DWORD code = GetLastError();
    ThrowFileError(code == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND : code, folder);
  }
  do {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.push_back(ToUtf8(found.cFileName));
  } while (FindNextFileW(search, &found) != 0);
  FindClose(search);
  std::sort(names.begin(), names.end());
  return names;
}

void Win32FileSystem::MakeFolder(const std::string& name) {
  if (name.empty() || FolderExists(name)) return;
  const std::size_t cut = name.find_last_of("\\/");
  if (cut != std::string::npos && cut > 0 && name[cut - 1] != ':') MakeFolder(name.substr(0, cut));
  if (CreateDirectoryW(ToWide(name).c_str(), nullptr) == 0 && !FolderExists(name)) {
    ThrowFileError(GetLastError(), name);
  }
}

std::string Win32FileSystem::CurrentFolder() {
  std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
  folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  return ToUtf8(folder);
}

void Win32FileSystem::ChangeFolder(const std::string& name) {
  if (SetCurrentDirectoryW(ToWide(name).c_str()) != 0) return;
  const DWORD code = GetLastError();
  ThrowFileError(code == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND : code, name);
}

std::string Win32FileSystem::TemporaryFolder() {
  std::wstring folder(MAX_PATH + 1, L'\0');
  folder.resize(GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
  return ToUtf8(folder);
}

std::string Win32FileSystem::CacheFolder() {
  std::wstring folder(MAX_PATH, L'\0');
  if (FAILED(SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder.data()))) return {};
  folder.resize(folder.find(L'\0'));
  return ToUtf8(folder);
}

DiskSpace Win32FileSystem::SpaceFor(const std::string& name) {
  return MeasureDiskSpace(name);
}

}  // namespace chartproject::win32
