// What the embedded spreadsheet application needs of a file format: rows in, a finished file out.
#pragma once

#include <span>
#include <string>

namespace chartproject {

/// A cell of a finished row.
struct SheetCell {
  enum class Kind { kEmpty, kNumber, kText };
  Kind kind = Kind::kEmpty;
  double number = 0;
  std::string text{};  ///< UTF-8; kept beside a number as it was entered
};

/// Takes the rows of one sheet after the other and keeps none of them in memory. Nothing of the target exists before
/// Save; destroying the writer drops the work. Operations throw RunTimeError 57, 61, 70, 75 or 76.
class WorkbookWriter {
 public:
  virtual ~WorkbookWriter() = default;
  /// Ends the sheet before it, if any.
  virtual void BeginSheet(const std::string& name) = 0;
  /// @param row from 1, above that of the row before; @param cells from column 1
  virtual void WriteRow(int row, std::span<const SheetCell> cells) = 0;
  /// Writes the file beside its target, hands it to the disk and gives it its name.
  virtual void Save(const std::string& fileName) = 0;
};

}  // namespace chartproject
