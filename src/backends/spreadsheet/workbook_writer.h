// What the embedded spreadsheet application needs of a file format: rows in, a finished file out.
#pragma once

#include <array>
#include <cstddef>
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

/// How a workbook looks: the labels of the columns, in the first sheet, are bold and stay in sight while the rows
/// scroll.
inline constexpr int kLabelRow = 21;
/// Characters, for the longest labels of the columns: "Number of Parameters", "PXXX1.Content" and the header's values.
inline constexpr std::array<int, 5> kColumnWidths{22, 16, 16, 16, 16};

/// Takes the rows of one sheet after the other and keeps none of them in memory. Nothing of the target exists before
/// Save; destroying the writer drops the work. Operations throw RunTimeError 57, 61, 70, 75 or 76.
class WorkbookWriter {
 public:
  virtual ~WorkbookWriter() = default;
  /// Bytes of the longest text that a cell takes.
  [[nodiscard]] virtual std::size_t LongestText() const noexcept = 0;
  /// Ends the sheet before it, if any.
  virtual void BeginSheet(const std::string& name) = 0;
  /// @param row from 1, above that of the row before; @param cells from column 1
  virtual void WriteRow(int row, std::span<const SheetCell> cells) = 0;
  /// Writes the file beside its target, flushes it to the disk and renames it.
  virtual void Save(const std::string& fileName) = 0;
};

}  // namespace chartproject
