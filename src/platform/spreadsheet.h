// Port: the spreadsheet application that exports are written with.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/side_file.h"

namespace chartproject {

/// The named arguments of a workbook's "SaveAs".
struct SaveAsArguments {
  std::string fileName;              ///< "FileName"
  std::int32_t fileFormat = 0;       ///< "FileFormat"
  std::string password;              ///< "Password"
  std::string writeResPassword;      ///< "WriteResPassword"
  bool readOnlyRecommended = false;  ///< "ReadOnlyRecommended"
  bool createBackup = false;         ///< "CreateBackup"
};

/// The application's normal workbook format.
inline constexpr std::int32_t kNormalWorkbookFormat = -4143;

/// One running spreadsheet application with at most one open workbook. Sheets, rows and columns count from 1.
/// Every operation throws RunTimeError when the application refuses it. Destroying the object releases it without
/// saving.
class SpreadsheetApplication {
 public:
  virtual ~SpreadsheetApplication() = default;
  /// "workbooks.Add": a new workbook with at least one sheet.
  virtual void AddWorkbook() = 0;
  /// "sheets.Count".
  [[nodiscard]] virtual int SheetCount() = 0;
  /// "sheets.Add" with the argument "after": a new sheet after the given one.
  virtual void AddSheetAfter(int sheet) = 0;
  /// A sheet's "Name".
  virtual void SetSheetName(int sheet, const std::string& name) = 0;
  /// "Cells(row, column)" = a text that stays one.
  virtual void WriteText(int sheet, int row, int column, std::string_view text) = 0;
  /// A cell's "Value" = a text entered as a user would: one that reads as a number in the user's locale becomes one.
  virtual void EnterValue(int sheet, int row, int column, std::string_view text) = 0;
  /// A cell's "Value" as text; empty for an empty cell.
  [[nodiscard]] virtual std::string ReadValue(int sheet, int row, int column) = 0;
  /// "SaveAs". The file appears only when it is complete.
  virtual void SaveAs(const SaveAsArguments& arguments) = 0;
  /// "quit": unsaved work is dropped.
  virtual void Quit() = 0;
};

/// Bytes that the parts of a workbook take at most on the disk, in the file or in a working file.
struct WorkbookSizes {
  std::uint64_t row = 0;         ///< beside its cells
  std::uint64_t number = 0;      ///< a cell's number
  std::uint64_t text = 0;        ///< a cell's text, beside its letters
  std::uint64_t letter = 0;      ///< a letter beyond ASCII; others take one
  std::uint64_t mostGrowth = 0;  ///< no row of a chart file grows to as many times its bytes
  unsigned diskPercent = 100;    ///< on the disk when the workbook is made, in percent of the sum of the parts
};

/// What a workbook can hold and takes; nothing where the application alone knows.
struct WorkbookLimits {
  std::uint64_t bytes = std::numeric_limits<std::uint64_t>::max();  ///< largest size of the workbook
  int sheets = std::numeric_limits<int>::max();                     ///< largest number of sheets
  WorkbookSizes sizes{};
};

/// Finds or starts the spreadsheet application of the class "Excel.Application".
class SpreadsheetApplications {
 public:
  virtual ~SpreadsheetApplications() = default;
  /// An instance that already runs; null when there is none.
  [[nodiscard]] virtual std::unique_ptr<SpreadsheetApplication> AttachRunning() = 0;
  /// A new instance; null when the application is not installed.
  /// @param targetName the file that will be saved: an embedded application chooses its format and its working place
  /// by it, an installed one ignores it
  /// @param rights of the file that had this name until now, for the one that will have it; an installed application
  /// ignores them
  [[nodiscard]] virtual std::unique_ptr<SpreadsheetApplication> Create(const std::string& targetName,
                                                                       const FileRights& rights) = 0;
  /// @param targetName as in Create
  [[nodiscard]] virtual std::optional<WorkbookLimits> Limits(const std::string& targetName) const = 0;
};

}  // namespace chartproject
