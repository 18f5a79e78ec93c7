// Sheets, the row at work, and the reading of entered values.
#include "backends/spreadsheet/embedded_spreadsheet.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "backends/spreadsheet/biff8_writer.h"
#include "backends/spreadsheet/csv_writer.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

/// A plain number with the user's decimal separator; anything else (grouping, units, times) stays text.
std::optional<double> ReadNumber(std::string_view text, std::string_view decimalSeparator) {
  char plain[64];
  if (text.empty() || text.size() >= sizeof plain) return std::nullopt;
  const std::size_t separator = text.find(decimalSeparator);
  std::size_t length = text.copy(plain, text.size());
  if (separator != std::string_view::npos) {
    plain[separator] = '.';
    length = separator + 1;
    length += text.substr(separator + decimalSeparator.size()).copy(plain + length, text.size());
  } else if (text.find('.') != std::string_view::npos) {
    return std::nullopt;
  }
  const char* begin = plain[0] == '+' && length > 1 && plain[1] != '-' ? plain + 1 : plain;
  double value = 0;
  const auto result = std::from_chars(begin, plain + length, value);
  const bool number = result.ec == std::errc() && result.ptr == plain + length && value - value == 0;
  return number ? std::optional(value) : std::nullopt;
}

class EmbeddedSpreadsheet : public SpreadsheetApplication {
 public:
  EmbeddedSpreadsheet(std::unique_ptr<WorkbookWriter> writer, std::string decimalSeparator)
      : writer_(std::move(writer)), decimalSeparator_(std::move(decimalSeparator)) {}

  void AddWorkbook() override { names_ = {"Sheet1"}; }
  int SheetCount() override { return static_cast<int>(names_.size()); }

  void AddSheetAfter(int sheet) override {
    if (sheet != SheetCount())
      throw RunTimeError(error_number::kApplicationDefined, "Sheets are added after the last one");
    names_.push_back("Sheet" + std::to_string(names_.size() + 1));
  }

  void SetSheetName(int sheet, const std::string& name) override {
    if (sheet < 1 || sheet > SheetCount() || sheet <= begunSheets_) {
      throw RunTimeError(error_number::kApplicationDefined, "The sheet is not there or already has rows");
    }
    names_[static_cast<std::size_t>(sheet) - 1] = name;
  }

  void WriteText(int sheet, int row, int column, std::string_view text) override {
    SheetCell& cell = CellAt(sheet, row, column);
    if (text.size() > writer_->LongestText()) {
      throw RunTimeError(error_number::kApplicationDefined, Text::kCellTextTooLong);
    }
    cell.kind = text.empty() ? SheetCell::Kind::kEmpty : SheetCell::Kind::kText;
    cell.text = text;
  }

  void EnterValue(int sheet, int row, int column, std::string_view text) override {
    SheetCell& cell = CellAt(sheet, row, column);
    cell.text = text;
    if (const auto number = ReadNumber(text, decimalSeparator_)) {
      cell.kind = SheetCell::Kind::kNumber;
      cell.number = *number;
    } else {
      cell.kind = text.empty() ? SheetCell::Kind::kEmpty : SheetCell::Kind::kText;
    }
  }

  std::string ReadValue(int sheet, int row, int column) override { return CellAt(sheet, row, column).text; }

  void SaveAs(const SaveAsArguments& arguments) override {
    if (!writer_) throw RunTimeError(error_number::kApplicationDefined, "There is no workbook to save");
    FinishRow();
    BeginSheets(SheetCount());
    writer_->Save(arguments.fileName);
    writer_.reset();
  }

  void Quit() override {
    writer_.reset();
    columnsInUse_ = 0;
  }

 private:
  SheetCell& CellAt(int sheet, int row, int column) {
    // A point's cells are asked for a dozen times: one that is in use already is found at once.
    const auto index = static_cast<std::size_t>(column);
    if (sheet != sheet_ || row != row_ || column < 1 || index > columnsInUse_) MakeCell(sheet, row, column);
    return cells_[index - 1];
  }

  /// Goes on to the cell's row, and takes the columns up to it in use.
  void MakeCell(int sheet, int row, int column) {
    if (!writer_ || sheet < 1 || sheet > SheetCount() || row < 1 || column < 1 || column > 256) {
      throw RunTimeError(error_number::kApplicationDefined, "There is no such cell");
    }
    if (sheet != sheet_ || row != row_) {
      if (sheet < sheet_ || (sheet == sheet_ && row < row_)) {
        throw RunTimeError(error_number::kApplicationDefined, "The cell's row is already finished");
      }
      FinishRow();
      sheet_ = sheet;
      row_ = row;
    }
    const auto columns = static_cast<std::size_t>(column);
    if (cells_.size() < columns) cells_.resize(columns);
    for (; columnsInUse_ < columns; ++columnsInUse_) {
      cells_[columnsInUse_].kind = SheetCell::Kind::kEmpty;
      cells_[columnsInUse_].text.clear();
    }
  }

  void FinishRow() {
    if (columnsInUse_ == 0) return;
    BeginSheets(sheet_);
    writer_->WriteRow(row_, std::span(cells_).first(columnsInUse_));
    columnsInUse_ = 0;
  }

  void BeginSheets(int last) {
    while (begunSheets_ < last) writer_->BeginSheet(names_[static_cast<std::size_t>(begunSheets_++)]);
  }

  std::unique_ptr<WorkbookWriter> writer_;
  std::string decimalSeparator_;
  std::vector<std::string> names_;
  std::vector<SheetCell> cells_;  // of the row at work; kept from row to row for their texts' memory
  std::size_t columnsInUse_ = 0;
  int sheet_ = 0;
  int row_ = 0;
  int begunSheets_ = 0;
};

}  // namespace

bool HasEnding(std::string_view name, std::string_view ending) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return name.size() >= ending.size() &&
         std::ranges::equal(name.substr(name.size() - ending.size()), ending, {}, lower, lower);
}

std::unique_ptr<SpreadsheetApplication> EmbeddedSpreadsheets::Create(const std::string& targetName,
                                                                     const FileRights& rights) {
  std::unique_ptr<WorkbookWriter> writer;
  if (HasEnding(targetName, ".csv")) {
    writer = MakeCsvWriter(targetName, locale_.Numbers().decimalSeparator, rights);
  } else {
    writer = MakeBiff8Writer(targetName, rights);
  }
  return std::make_unique<EmbeddedSpreadsheet>(std::move(writer), locale_.Numbers().decimalSeparator);
}

std::optional<WorkbookLimits> EmbeddedSpreadsheets::Limits(const std::string& targetName) const {
  WorkbookLimits limits;
  if (HasEnding(targetName, ".csv")) {  // separators and a line end; quotes, which few texts need, are not counted
    limits.sizes = {.row = 6, .letter = 3, .mostGrowth = 4};
  } else {  // records: all of them first in a working file, then in the workbook
    limits = {kLargestBiff8Workbook, kMostBiff8Sheets, {.row = 20, .number = 18, .text = 13, .letter = 2}};
    limits.sizes.mostGrowth = 8;
    limits.sizes.diskPercent = 200;
  }
  return limits;
}

}  // namespace chartproject
