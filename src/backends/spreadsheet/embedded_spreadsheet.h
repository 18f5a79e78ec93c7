// The spreadsheet application of systems that have none to automate: it keeps the row at work and writes workbooks.
#pragma once

#include <string_view>

#include "platform/locale.h"
#include "platform/spreadsheet.h"

namespace chartproject {

/// True for a name with the ending, in upper or lower case.
[[nodiscard]] bool HasEnding(std::string_view name, std::string_view ending);

/// Cells are written row by row: a cell of a row above the last one written, or of a sheet before it, is finished and
/// refused with RunTimeError 1004. So a workbook of any size takes the memory of a few rows.
/// The target's ending, in any case, chooses the format: ".csv" plain text, anything else the legacy workbook.
class EmbeddedSpreadsheets : public SpreadsheetApplications {
 public:
  /// @param locale how entered values are read; outlives this object
  explicit EmbeddedSpreadsheets(const Locale& locale) : locale_(locale) {}

  /// Never one: an embedded application belongs to one export.
  [[nodiscard]] std::unique_ptr<SpreadsheetApplication> AttachRunning() override { return nullptr; }
  [[nodiscard]] std::unique_ptr<SpreadsheetApplication> Create(const std::string& targetName,
                                                               const FileRights& rights) override;
  [[nodiscard]] std::optional<WorkbookLimits> Limits(const std::string& targetName) const override;

 private:
  const Locale& locale_;
};

}  // namespace chartproject
