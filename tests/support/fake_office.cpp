// The fake printer and spreadsheet application.
#include "support/fake_office.h"

#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr double kCentimetresPerPoint = 2.54 / 72;

class FakeSpreadsheet : public SpreadsheetApplication {
 public:
  explicit FakeSpreadsheet(FakeSpreadsheetLog& log) : log_(log) {}
  ~FakeSpreadsheet() override { log_.calls.emplace_back("release"); }
  void AddWorkbook() override {
    log_.calls.emplace_back("workbooks.Add");
    log_.sheetNames = {"Sheet1"};
  }
  int SheetCount() override { return static_cast<int>(log_.sheetNames.size()); }
  void AddSheetAfter(int sheet) override {
    log_.calls.push_back("sheets.Add after " + std::to_string(sheet));
    log_.sheetNames.insert(log_.sheetNames.begin() + sheet, "new");
  }
  void SetSheetName(int sheet, const std::string& name) override {
    log_.sheetNames.at(static_cast<std::size_t>(sheet) - 1) = name;
  }
  void WriteText(int sheet, int row, int column, std::string_view text) override {
    if (row == log_.failAtRow)
      throw RunTimeError(error_number::kApplicationDefined, "Application-defined or object-defined error");
    log_.cells[Key(sheet, row, column)] = text;
  }
  void EnterValue(int sheet, int row, int column, std::string_view text) override {
    log_.cells[Key(sheet, row, column)] = "=" + std::string(text);
  }
  std::string ReadValue(int sheet, int row, int column) override { return log_.cells[Key(sheet, row, column)]; }
  void SaveAs(const SaveAsArguments& arguments) override {
    log_.calls.push_back("SaveAs FileName=" + arguments.fileName +
                         " FileFormat=" + std::to_string(arguments.fileFormat) + " Password=" + arguments.password +
                         " WriteResPassword=" + arguments.writeResPassword +
                         " ReadOnlyRecommended=" + std::to_string(arguments.readOnlyRecommended) +
                         " CreateBackup=" + std::to_string(arguments.createBackup));
  }
  void Quit() override { log_.calls.emplace_back("quit"); }

 private:
  static std::string Key(int sheet, int row, int column) {
    return std::to_string(sheet) + "!" + std::to_string(row) + "," + std::to_string(column);
  }
  FakeSpreadsheetLog& log_;
};

}  // namespace

bool FakePrinter::StartDocument(const std::string& name) {
  title = name;
  y_ = 0;
  pages = 1;
  return !declined;
}

double FakePrinter::TextWidth(std::string_view text, const PrintFont& font) const {
  return static_cast<double>(text.size()) * font.points * 0.5 * kCentimetresPerPoint;
}

void FakePrinter::PrintText(std::string_view text, double x, double y, const PrintFont& font) {
  if (failAfterTexts >= 0 && static_cast<int>(texts.size()) >= failAfterTexts) {
    throw RunTimeError(error_number::kPrinter, "Printer error");
  }
  texts.push_back({std::string(text), x, y, font, pages});
  y_ = y;
  lastPoints_ = font.points;
}

void FakePrinter::NextLine() {
  y_ += lastPoints_ * 1.2 * kCentimetresPerPoint;
}

void FakePrinter::PaintPicture(const Bitmap& /*picture*/, double x, double y, double width, double height) {
  pictures.push_back({x, y, width, height});
}

void FakePrinter::Draw(double x, double y, double width, double height, const std::function<void(Canvas&)>& paint) {
  drawings.push_back({x, y, width, height});
  if (draw) draw(paint);
}

void FakePrinter::NextPage() {
  ++pages;
  y_ = 0;
}

void FakePrinter::PaintPictureFile(const std::string& fileName, double /*x*/, double /*y*/) {
  if (missingIcon != 0) throw RunTimeError(missingIcon, "File not found: " + fileName);
  icons.push_back(fileName);
}

std::unique_ptr<SpreadsheetApplication> FakeSpreadsheets::AttachRunning() {
  log.calls.emplace_back(running ? "attach" : "attach: none");
  return running ? std::make_unique<FakeSpreadsheet>(log) : nullptr;
}

std::unique_ptr<SpreadsheetApplication> FakeSpreadsheets::Create(const std::string& /*targetName*/,
                                                                 const FileRights& /*rights*/) {
  log.calls.emplace_back(installed ? "create" : "create: none");
  return installed ? std::make_unique<FakeSpreadsheet>(log) : nullptr;
}

}  // namespace chartproject
