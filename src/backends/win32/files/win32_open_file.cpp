// Opens, reads, writes: each failure with the file's name and the system's reason.
#include "backends/win32/files/win32_open_file.h"

#include <algorithm>
#include <utility>

#include "backends/win32/system_error.h"
#include "backends/win32/wide_text.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

namespace {

void WriteAll(HANDLE file, std::string_view bytes, const std::string& name) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto part = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 30));
    if (WriteFile(file, bytes.data(), part, &written, nullptr) == 0) ThrowFileError(GetLastError(), name);
    if (written == 0) ThrowFileError(ERROR_DISK_FULL, name);
    bytes.remove_prefix(written);
  }
}

void SeekTo(HANDLE file, std::uint64_t offset, const std::string& name) {
  LARGE_INTEGER place;
  place.QuadPart = static_cast<LONGLONG>(offset);
  if (SetFilePointerEx(file, place, nullptr, FILE_BEGIN) == 0) ThrowFileError(GetLastError(), name);
}

class Win32InputFile : public InputFile {
 public:
  Win32InputFile(OwnedFile file, std::string name) : name_(std::move(name)), file_(std::move(file)) {}

  std::size_t Read(std::span<char> buffer) override {
    DWORD got = 0;
    const auto wanted = static_cast<DWORD>(std::min<std::size_t>(buffer.size(), 1U << 30));
    if (ReadFile(file_.Get(), buffer.data(), wanted, &got, nullptr) == 0) ThrowFileError(GetLastError(), name_);
    return got;
  }
  void Seek(std::uint64_t offset) override { SeekTo(file_.Get(), offset, name_); }
  FileIdentity Identity() override { return IdentityOf(file_.Get(), name_); }

 private:
  std::string name_;
  OwnedFile file_;
};

class Win32OutputFile : public OutputFile {
 public:
  Win32OutputFile(OwnedFile file, std::string name) : name_(std::move(name)), file_(std::move(file)) {}

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

}  // namespace

OwnedFile OpenOnDisk(const std::string& name, DWORD access, DWORD share, DWORD disposition, DWORD flags, int patience) {
  // The other end of a named pipe must not act in the user's name.
  constexpr DWORD kFlags = FILE_ATTRIBUTE_NORMAL | SECURITY_SQOS_PRESENT | SECURITY_ANONYMOUS;
  const std::wstring wide = ToWide(name);
  for (int tries = 0;; ++tries) {
    OwnedFile file(CreateFileW(wide.c_str(), access, share, nullptr, disposition, kFlags | flags, nullptr));
    if (file.Valid()) {
      if (GetFileType(file.Get()) != FILE_TYPE_DISK) throw NotARegularFile(name);
      return file;
    }
    const DWORD code = GetLastError();
    // The system calls a folder and a read-only file the same; so do our numbers (75).
    if (code != ERROR_SHARING_VIOLATION || tries >= patience) ThrowFileError(code, name);
    Sleep(kFileRetryMilliseconds);
  }
}

FileIdentity IdentityOf(HANDLE file, const std::string& name) {
  BY_HANDLE_FILE_INFORMATION info;
  if (GetFileInformationByHandle(file, &info) == 0) ThrowFileError(GetLastError(), name);
  const auto join = [](DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; };
  const std::uint64_t ticks = join(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime);
  // Ticks of 100 ns since 1601 pass 63 bits as nanoseconds; counted from 1970 they do not.
  constexpr std::int64_t kTicksTo1970 = 116444736000000000;
  return FileIdentity{info.dwVolumeSerialNumber, join(info.nFileIndexHigh, info.nFileIndexLow),
                      join(info.nFileSizeHigh, info.nFileSizeLow),
                      (static_cast<std::int64_t>(ticks) - kTicksTo1970) * 100};
}

void RefuseLink(HANDLE file, const std::string& name) {
  BY_HANDLE_FILE_INFORMATION info;
  if (GetFileInformationByHandle(file, &info) == 0) ThrowFileError(GetLastError(), name);
  const bool link = (info.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (!link && info.nNumberOfLinks <= 1) return;
  throw RunTimeError(error_number::kPathFileAccess, link ? Text::kLinkNotFollowed : Text::kFileOfSeveralNames, {name});
}

void AppendWhole(HANDLE file, std::string_view bytes, const std::string& name) {
  LARGE_INTEGER end{};
  if (SetFilePointerEx(file, LARGE_INTEGER{}, &end, FILE_END) == 0) ThrowFileError(GetLastError(), name);
  try {
    WriteAll(file, bytes, name);
  } catch (const RunTimeError&) {
    if (SetFilePointerEx(file, end, nullptr, FILE_BEGIN) != 0) SetEndOfFile(file);
    throw;
  }
}

std::unique_ptr<InputFile> MakeInputFile(OwnedFile file, std::string name) {
  return std::make_unique<Win32InputFile>(std::move(file), std::move(name));
}

std::unique_ptr<OutputFile> MakeOutputFile(OwnedFile file, std::string name) {
  return std::make_unique<Win32OutputFile>(std::move(file), std::move(name));
}

void MoveOver(const std::string& from, const std::string& to) {
  constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  for (int tries = 0; MoveFileExW(ToWide(from).c_str(), ToWide(to).c_str(), kHow) == 0; ++tries) {
    const DWORD code = GetLastError();
    const bool held = code == ERROR_SHARING_VIOLATION || code == ERROR_ACCESS_DENIED;  // the file, or the one replaced
    if (!held || tries >= kFilePatience) ThrowFileError(code, to);
    Sleep(kFileRetryMilliseconds);
  }
}

bool MoveToFreeName(const std::string& from, const std::string& to) {
  for (int tries = 0; MoveFileExW(ToWide(from).c_str(), ToWide(to).c_str(), MOVEFILE_WRITE_THROUGH) == 0; ++tries) {
    const DWORD code = GetLastError();
    if (code == ERROR_ALREADY_EXISTS || code == ERROR_FILE_EXISTS) return false;
    if (code != ERROR_SHARING_VIOLATION || tries >= kFilePatience) ThrowFileError(code, to);
    Sleep(kFileRetryMilliseconds);
  }
  return true;
}

}  // namespace chartproject::win32
