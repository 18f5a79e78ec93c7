// Writes the rows of a workbook as separated text.
#pragma once

#include <memory>

#include "backends/spreadsheet/workbook_writer.h"
#include "platform/side_file.h"

namespace chartproject {

/// UTF-8, lines ended by CR LF. Fields are separated and numbers written as the user's spreadsheet reads them: "," and
/// a full stop, or ";" and a comma where decimals have one. Texts are quoted where they must be, with an apostrophe
/// before what a spreadsheet would take for a formula. The sheets follow each other without a mark, for they exist only
/// because a sheet's rows are limited.
[[nodiscard]] std::unique_ptr<WorkbookWriter> MakeCsvWriter(const std::string& targetName,
                                                            const std::string& decimalSeparator,
                                                            const FileRights& rights);

}  // namespace chartproject
