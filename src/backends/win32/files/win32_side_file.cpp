// Made with CREATE_NEW, checked at each opening.
#include "backends/win32/files/win32_side_file.h"

#include <vector>

#include "backends/win32/files/disk_space.h"
#include "backends/win32/system_error.h"
#include "backends/win32/wide_text.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

namespace {

/// The access rights of a file that will be replaced, for the one that replaces it. A disk without rights has none.
void GiveRights(const std::string& from, const std::string& to) {
  const std::wstring source = ToWide(from);
  DWORD size = 0;
  GetFileSecurityW(source.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  if (size == 0) return;
  std::vector<unsigned char> rights(size);
  if (GetFileSecurityW(source.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size) == 0) return;
  SetFileSecurityW(ToWide(to).c_str(), DACL_SECURITY_INFORMATION, rights.data());
}

bool SameFile(const FileIdentity& one, const FileIdentity& other) {
  return one.volume == other.volume && one.index == other.index;
}

}  // namespace

Win32SideFile::Win32SideFile(const SideFileRequest& request) : target_(request.target) {
  for (int n = 0;; ++n) {
    name_ = SideFileName(target_, request.ending, n);
    const OwnedFile file(CreateFileW(ToWide(name_).c_str(), GENERIC_WRITE, kShareAll, nullptr, CREATE_NEW,
                                     FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    shownName_ = request.names == 1 ? name_ : target_;
    if (file.Valid()) {
      own_ = IdentityOf(file.Get(), shownName_);
      break;
    }
    const DWORD code = GetLastError();
    if (code != ERROR_FILE_EXISTS || n + 1 >= request.names) ThrowFileError(code, shownName_);
  }
  GiveRights(target_, name_);
}

Win32SideFile::~Win32SideFile() {
  if (!kept_ && HasItsName()) DeleteFileW(ToWide(name_).c_str());
}

OwnedFile Win32SideFile::OpenOwn(DWORD access, DWORD share) const {
  OwnedFile file = OpenOnDisk(name_, access, share, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, kFilePatience);
  if (!SameFile(IdentityOf(file.Get(), shownName_), own_)) throw SideFileLost(shownName_);
  return file;
}

bool Win32SideFile::HasItsName() const {
  try {
    (void)OpenOwn(FILE_READ_ATTRIBUTES, kShareAll);
    return true;
  } catch (const RunTimeError&) {
    return false;  // taken away, or not to be reached: in both cases not ours to delete
  }
}

std::unique_ptr<OutputFile> Win32SideFile::OpenForWriting() {
  return MakeOutputFile(OpenOwn(GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE), shownName_);
}

std::unique_ptr<InputFile> Win32SideFile::OpenForReading() {
  return MakeInputFile(OpenOwn(GENERIC_READ, kShareAll), shownName_);
}

DiskSpace Win32SideFile::AppendAndMeasure(std::string_view bytes) {
  {
    const OwnedFile file = [this] {
      try {
        return OpenOwn(GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE);
      } catch (const RunTimeError& error) {
        const bool gone =
            error.Number() == error_number::kFileNotFound || error.Number() == error_number::kPathNotFound;
        if (gone || dynamic_cast<const SideFileLost*>(&error) != nullptr) throw SideFileLost(shownName_);
        throw SideFileAway(error);
      }
    }();
    if (IdentityOf(file.Get(), shownName_).size != appended_) throw SideFileLost(shownName_);
    AppendWhole(file.Get(), bytes, shownName_);
    appended_ += bytes.size();
    const ULONGLONG now = GetTickCount64();
    written_ = now;
    if (flushed_ == 0 || now - flushed_ >= kFlushMilliseconds) {
      flushed_ = now;
      if (FlushFileBuffers(file.Get()) == 0) ThrowFileError(GetLastError(), shownName_);
    }
  }
  return MeasureDiskSpace(name_);
}

bool Win32SideFile::TakeTarget() {
  if (!HasItsName()) throw SideFileLost(name_);
  if (!MoveToFreeName(name_, target_)) return false;
  kept_ = true;
  return true;
}

void Win32SideFile::ReplaceTarget() {
  CheckReplaceableWin32(target_);
  if (!HasItsName()) throw SideFileLost(name_);
  MoveOver(name_, target_);
  kept_ = true;
}

void CheckReplaceableWin32(const std::string& name) {
  const DWORD attributes = GetFileAttributesW(ToWide(name).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return;  // nothing there, or its making will say what is wrong
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    throw RunTimeError(error_number::kPathFileAccess, Text::kIsAFolder, {name});
  }
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    throw RunTimeError(error_number::kPermissionDenied, Text::kMarkedReadOnly, {name});
  }
  (void)OpenOnDisk(name, FILE_READ_ATTRIBUTES, kShareAll, OPEN_EXISTING);
}

}  // namespace chartproject::win32
