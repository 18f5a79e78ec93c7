// Writes the modern workbook (Office Open XML).
#pragma once

#include <memory>

#include "platform/side_file.h"
#include "platform/spreadsheet/workbook_writer.h"

namespace chartproject {

[[nodiscard]] std::unique_ptr<WorkbookWriter> MakeXlsxWriter(const std::string& targetName, const FileRights& rights);

}  // namespace chartproject
