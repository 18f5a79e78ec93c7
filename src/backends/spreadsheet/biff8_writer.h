// Writes the legacy binary workbook: BIFF8 records in a compound file.
#pragma once

#include <memory>

#include "backends/spreadsheet/workbook_writer.h"
#include "platform/side_file.h"

namespace chartproject {

/// Largest stream that every reader of compound files takes: below 2 GiB, less room for the container's own tables.
inline constexpr std::uint64_t kLargestBiff8Workbook = 0x7F000000;
/// More sheets than this are shown by no reader in reasonable time.
inline constexpr int kMostBiff8Sheets = 1000;

/// @param targetName the file to be saved; rows wait in an unnamed file in its folder
[[nodiscard]] std::unique_ptr<WorkbookWriter> MakeBiff8Writer(const std::string& targetName, const FileRights& rights);

}  // namespace chartproject
