// Opens, writes, renames: each failure with the file's name and the system's reason.
#include "backends/win32/win32_file_system.h"

#include <limits>

#include "backends/win32/disk_space.h"
#include "backends/win32/handles.h"
#include "backends/win32/system_error.h"
#include "backends/win32/wide_text.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

namespace {

constexpr DWORD kRetryMilliseconds = 20;
constexpr int kPatience = 50;  // tries for what another program may have for a moment: readers, scanners, backups
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

[[nodiscard]] DWORD Attributes(const std::string& name) {
  return GetFileAttributesW(ToWide(name).c_str());
}

[[nodiscard]] bool IsFolder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

[[nodiscard]] HANDLE Open(const std::string& name, DWORD access, DWORD share, DWORD disposition, int patience = 0) {
  const std::wstring wide = ToWide(name);
  for (int tries = 0;; ++tries) {
    // The other end of a named pipe must not act in the user's name.
    constexpr DWORD kFlags = FILE_ATTRIBUTE_NORMAL | SECURITY_SQOS_PRESENT | SECURITY_ANONYMOUS;
    OwnedFile file(CreateFileW(wide.c_str(), access, share, nullptr, disposition, kFlags, nullptr));
    if (file.Valid()) {
      if (GetFileType(file.Get()) == FILE_TYPE_DISK) return file.Release();
      throw RunTimeError(error_number::kPathFileAccess, Text::kNotARegularFile, {name});  // a device or a pipe
    }
    const DWORD code = GetLastError();
    // The system calls a folder and a read-only file the same; so do our numbers (75).
    if (code != ERROR_SHARING_VIOLATION || tries >= patience) ThrowFileError(code, name);
    Sleep(kRetryMilliseconds);
  }
}

void WriteAll(HANDLE file, std::string_view bytes, const std::string& name) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto part = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 30));
    if (WriteFile(file, bytes.data(), part, &written, nullptr) == 0) ThrowFileError(GetLastError(), name);
    if (written == 0) ThrowFileError(ERROR_DISK_FULL, name);
    bytes.remove_prefix(written);
  }
}

bool HoldsBytes(const std::wstring& file) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  return GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data) != 0 &&
         ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 || data.nFileSizeHigh != 0 || data.nFileSizeLow != 0);
}

void SeekTo(HANDLE file, std::uint64_t offset, const std::string& name) {
  LARGE_INTEGER place;
  place.QuadPart = static_cast<LONGLONG>(offset);
  if (SetFilePointerEx(file, place, nullptr, FILE_BEGIN) == 0) ThrowFileError(GetLastError(), name);
}

class Win32InputFile : public InputFile {
 public:
  explicit Win32InputFile(const std::string& name)
      : name_(name), file_(Open(name, GENERIC_READ, kShareAll, OPEN_EXISTING)) {}

  std::size_t Read(std::span<char> buffer) override {
    DWORD got = 0;
    const auto wanted = static_cast<DWORD>(std::min<std::size_t>(buffer.size(), 1U << 30));
    if (ReadFile(file_.Get(), buffer.data(), wanted, &got, nullptr) == 0) ThrowFileError(GetLastError(), name_);
    return got;
  }
  void Seek(std::uint64_t offset) override { SeekTo(file_.Get(), offset, name_); }
  FileIdentity Identity() override {
    BY_HANDLE_FILE_INFORMATION info;
    if (GetFileInformationByHandle(file_.Get(), &info) == 0) ThrowFileError(GetLastError(), name_);
    const auto join = [](DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; };
    const std::uint64_t ticks = join(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime);
    // Ticks of 100 ns since 1601 pass 63 bits as nanoseconds; counted from 1970 they do not.
    constexpr std::int64_t kTicksTo1970 = 116444736000000000;
    return FileIdentity{info.dwVolumeSerialNumber, join(info.nFileIndexHigh, info.nFileIndexLow),
                        join(info.nFileSizeHigh, info.nFileSizeLow),
                        (static_cast<std::int64_t>(ticks) - kTicksTo1970) * 100};
  }

 private:
  std::string name_;
  OwnedFile file_;
};

class Win32OutputFile : public OutputFile {
 public:
  explicit Win32OutputFile(const std::string& name)
      : name_(name), file_(Open(name, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, CREATE_ALWAYS)) {}

  void Write(std::string_view bytes) override { WriteAll(file_.Get(), bytes, name_); }
  void Seek(std::uint64_t offset) override { SeekTo(file_.Get(), offset, name_); }
  void FlushAndClose() override {
    if (FlushFileBuffers(file_.Get()) == 0) ThrowFileError(GetLastError(), name_);
    file_.Close();
  }

 private:
  std::string name_;
  OwnedFile file_;
};

class Win32FileLock : public FileLock {
 public:
  explicit Win32FileLock(HANDLE marker) : marker_(marker) {}

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
  return std::make_unique<Win32InputFile>(name);
}

std::unique_ptr<OutputFile> Win32FileSystem::Create(const std::string& name) {
  return std::make_unique<Win32OutputFile>(name);
}

void Win32FileSystem::Append(const std::string& name, std::string_view bytes) {
  const OwnedFile file(Open(name, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, OPEN_ALWAYS, kPatience));
  LARGE_INTEGER end{};
  if (SetFilePointerEx(file.Get(), LARGE_INTEGER{}, &end, FILE_END) == 0) ThrowFileError(GetLastError(), name);
  try {
    WriteAll(file.Get(), bytes, name);
  } catch (const RunTimeError&) {
    if (SetFilePointerEx(file.Get(), end, nullptr, FILE_BEGIN) != 0) SetEndOfFile(file.Get());
    throw;
  }
}

std::unique_ptr<FileLock> Win32FileSystem::Lock(const std::string& name) {
  std::wstring file = ToWide(name + ".lock");
  // A marker is empty. A file of the user's is not, and must not go: the same free name is found by every program.
  for (int other = 1; HoldsBytes(file); ++other) file = ToWide(name + ".lock" + std::to_string(other));
  // Shared with nobody, and taken away by the system when its handle goes, however its program ends.
  const HANDLE marker = CreateFileW(file.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (marker == INVALID_HANDLE_VALUE) {
    const DWORD code = GetLastError();
    if (code == ERROR_SHARING_VIOLATION) return nullptr;
    ThrowFileError(code, name);
  }
  return std::make_unique<Win32FileLock>(marker);
}

void Win32FileSystem::Delete(const std::string& name) {
  if (DeleteFileW(ToWide(name).c_str()) == 0) ThrowFileError(GetLastError(), name);
}

void Win32FileSystem::Rename(const std::string& from, const std::string& to) {
  constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  for (int tries = 0; MoveFileExW(ToWide(from).c_str(), ToWide(to).c_str(), kHow) == 0; ++tries) {
    const DWORD code = GetLastError();
    const bool held = code == ERROR_SHARING_VIOLATION || code == ERROR_ACCESS_DENIED;  // the file, or the one replaced
    if (!held || tries >= kPatience) ThrowFileError(code, to);
    Sleep(kRetryMilliseconds);
  }
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

DiskSpace Win32FileSystem::SpaceFor(const std::string& name) {
  return MeasureDiskSpace(name);
}

}  // namespace chartproject::win32
