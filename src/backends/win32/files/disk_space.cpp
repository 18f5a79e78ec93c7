// The 64-bit measurement when the system has it, else the one by sectors.
#include "backends/win32/files/disk_space.h"

#include <limits>

#include "backends/win32/system_error.h"
#include "backends/win32/wide_text.h"
#include "backends/win32/win32_code_page.h"
#include "platform/run_time_error.h"

namespace chartproject::win32 {

namespace {

using MeasureFunction = BOOL(WINAPI*)(LPCSTR, PULARGE_INTEGER, PULARGE_INTEGER, PULARGE_INTEGER);

/// The disk's root, or a folder on it; empty for the current disk.
std::string DiskOf(const std::string& fileName) {
  if (fileName.size() >= 2 && fileName[1] == ':') return fileName.substr(0, 3);
  const std::size_t cut = fileName.find_last_of("\\/");
  return cut == std::string::npos ? std::string() : fileName.substr(0, cut + 1);
}

std::uint64_t Bytes32(std::uint64_t clusters, std::uint64_t sectorsPerCluster, std::uint64_t bytesPerSector) {
  const std::uint64_t bytes = clusters * sectorsPerCluster * bytesPerSector;
  if (bytes > static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max())) {
    throw RunTimeError(error_number::kOverflow, Text::kDiskTooLarge);
  }
  return bytes;
}

}  // namespace

DiskSpace MeasureDiskSpace(const std::string& fileName) {
  static const Win32CodePage page;  // asked for at each point of a long recording
  const std::string disk = page.Encode(DiskOf(fileName));
  // Looked up at every measurement: the module may be replaced by the host's own layer.
  const HMODULE kernel = GetModuleHandleA("kernel32.dll");
  const FARPROC found = kernel == nullptr ? nullptr : GetProcAddress(kernel, "GetDiskFreeSpaceExA");
  if (found == nullptr) return MeasureDiskSpaceBySectors(disk);
  const auto measure = reinterpret_cast<MeasureFunction>(reinterpret_cast<void*>(found));
  ULARGE_INTEGER available;
  ULARGE_INTEGER total;
  ULARGE_INTEGER totalFree;
  if (measure(disk.empty() ? nullptr : disk.c_str(), &available, &total, &totalFree) == 0) {
    ThrowFileError(GetLastError(), fileName);
  }
  return DiskSpace{total.QuadPart, totalFree.QuadPart, available.QuadPart};
}

DiskSpace MeasureDiskSpaceBySectors(const std::string& root) {
  DWORD sectorsPerCluster = 0;
  DWORD bytesPerSector = 0;
  DWORD freeClusters = 0;
  DWORD clusters = 0;
  if (GetDiskFreeSpaceA(root.empty() ? nullptr : root.c_str(), &sectorsPerCluster, &bytesPerSector, &freeClusters,
                        &clusters) == 0) {
    ThrowFileError(GetLastError(), root);
  }
  const std::uint64_t free = Bytes32(freeClusters, sectorsPerCluster, bytesPerSector);
  return DiskSpace{Bytes32(clusters, sectorsPerCluster, bytesPerSector), free, free};
}

}  // namespace chartproject::win32
