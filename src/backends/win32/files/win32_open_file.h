// Open files by the system's own functions: files on disks only, no devices and pipes.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "backends/win32/handles.h"
#include "platform/file_system.h"

namespace chartproject::win32 {

/// Tries for what another program may have for a moment: readers, scanners, backups.
inline constexpr int kFilePatience = 50;
inline constexpr DWORD kFileRetryMilliseconds = 20;
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// CreateFileW; throws NotARegularFile for a device or pipe, RunTimeError for any failure.
/// @param flags besides FILE_ATTRIBUTE_NORMAL @param patience tries again while another program has the file
[[nodiscard]] OwnedFile OpenOnDisk(const std::string& name, DWORD access, DWORD share, DWORD disposition,
                                   DWORD flags = 0, int patience = 0);

/// Which file it is, how long, and when it was last changed. Throws RunTimeError. @param name for errors
[[nodiscard]] FileIdentity IdentityOf(HANDLE file, const std::string& name);

/// Throws RunTimeError 75 when the handle is that of a link (opened with FILE_FLAG_OPEN_REPARSE_POINT).
void RefuseLink(HANDLE file, const std::string& name);

/// Appends the bytes; a part that fitted is taken back when the rest did not. Throws RunTimeError.
void AppendWhole(HANDLE file, std::string_view bytes, const std::string& name);

[[nodiscard]] std::unique_ptr<InputFile> MakeInputFile(OwnedFile file, std::string name);
[[nodiscard]] std::unique_ptr<OutputFile> MakeOutputFile(OwnedFile file, std::string name);

/// Gives a file another name in one atomic step, replacing a file that has that name. Throws RunTimeError.
void MoveOver(const std::string& from, const std::string& to);
/// The same, but false, and no change, when something has that name.
[[nodiscard]] bool MoveToFreeName(const std::string& from, const std::string& to);

}  // namespace chartproject::win32
