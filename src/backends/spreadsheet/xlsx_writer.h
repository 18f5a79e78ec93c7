// Writes the modern workbook (Office Open XML).
#pragma once

#include <memory>

#include "backends/spreadsheet/workbook_writer.h"
#include "platform/side_file.h"

namespace chartproject {

[[nodiscard]] std::unique_ptr<WorkbookWriter> MakeXlsxWriter(const std::string& targetName, const FileRights& rights);

}  // namespace chartproject
