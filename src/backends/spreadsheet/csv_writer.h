// Writes the rows of a workbook as comma-separated text.
#pragma once

#include <memory>

#include "backends/spreadsheet/workbook_writer.h"
#include "platform/side_file.h"

namespace chartproject {

/// UTF-8, lines ended by CR LF, full stop as decimal separator, texts quoted where they must be, with an apostrophe
/// before what a spreadsheet would take for a formula; the sheets follow each other without a mark, for they exist only
/// because a sheet's rows are limited.
[[nodiscard]] std::unique_ptr<WorkbookWriter> MakeCsvWriter(const std::string& targetName, const FileRights& rights);

}  // namespace chartproject
