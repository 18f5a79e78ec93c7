// Which of our run-time errors a code of the system is.
#include "backends/win32/system_error.h"

#include <cstdio>

#include "backends/win32/wide_text.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

std::string SystemMessage(DWORD code) {
  wchar_t buffer[512];
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0, buffer,
                                static_cast<DWORD>(std::size(buffer)), nullptr);
  while (length > 0 && (buffer[length - 1] == L'\n' || buffer[length - 1] == L'\r' || buffer[length - 1] == L' ')) {
    --length;
  }
  if (length == 0) {
    constexpr DWORD kFirstResultCode = 0x80000000;  // those are known by their hexadecimal digits
    char text[40];
    std::snprintf(text, sizeof text, code < kFirstResultCode ? "system error %lu" : "system error 0x%08lX", code);
    return text;
  }
  return ToUtf8({buffer, length});
}

int FileErrorNumber(DWORD code) noexcept {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
      return error_number::kFileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return error_number::kPathNotFound;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return error_number::kDiskFull;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return error_number::kPermissionDenied;
    case ERROR_ACCESS_DENIED:
    case ERROR_INVALID_NAME:
    case ERROR_DIRECTORY:
    case ERROR_ALREADY_EXISTS:
    case ERROR_DIR_NOT_EMPTY:
      return error_number::kPathFileAccess;
    default:
      return error_number::kDeviceIo;
  }
}

void ThrowFileError(DWORD code, const std::string& name) {
  throw RunTimeError(FileErrorNumber(code), name + ": " + SystemMessage(code));
}

}  // namespace chartproject::win32
