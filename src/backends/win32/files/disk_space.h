// Free and total bytes of a disk, also on systems that lack the 64-bit measurement.
#pragma once

#include <string>

#include "platform/file_system.h"

namespace chartproject::win32 {

/// Measures the disk named by the first three characters of a file's name ("C:\"); a name without a drive letter is on
/// the disk of its folder, or on the current one. Throws RunTimeError as file operations do.
[[nodiscard]] DiskSpace MeasureDiskSpace(const std::string& fileName);

/// The same from clusters and sectors alone. 32-bit arithmetic: RunTimeError 6 for a disk of 2 GiB or more.
[[nodiscard]] DiskSpace MeasureDiskSpaceBySectors(const std::string& root);

}  // namespace chartproject::win32
