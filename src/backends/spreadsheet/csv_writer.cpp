// The text file grows beside its target, row by row.
#include "backends/spreadsheet/csv_writer.h"

#include <cerrno>
#include <charconv>
#include <cstdio>

#include "backends/posix/part_file.h"
#include "backends/posix/posix_error.h"
#include "backends/posix/posix_path.h"

namespace chartproject {

namespace {

struct FileCloser {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

void AppendField(std::string& line, const SheetCell& cell) {
  if (cell.kind == SheetCell::Kind::kNumber) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, cell.number).ptr;
    line.append(digits, end);
  } else if (cell.text.find_first_of(",\"\r\n") == std::string::npos) {
    line += cell.text;
  } else {
    line += '"';
    for (const char character : cell.text) {
      if (character == '"') line += '"';
      line += character;
    }
    line += '"';
  }
}

class CsvWriter : public WorkbookWriter {
 public:
  explicit CsvWriter(const std::string& targetName)
      : part_(targetName), file_(std::fopen(part_.Name().c_str(), "wbe")) {
    if (!file_) throw FileError(errno, part_.Name());
  }

  void BeginSheet(const std::string& /*name*/) override { nextRow_ = 1; }

  void WriteRow(int row, std::span<const SheetCell> cells) override {
    line_.clear();
    for (; nextRow_ < row; ++nextRow_) line_ += "\r\n";
    ++nextRow_;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i > 0) line_ += ',';
      AppendField(line_, cells[i]);
    }
    line_ += "\r\n";
    if (std::fwrite(line_.data(), 1, line_.size(), file_.get()) != line_.size()) throw FileError(errno, part_.Name());
  }

  void Save(const std::string& /*fileName*/) override {
    if (std::fflush(file_.get()) != 0) throw FileError(errno, part_.Name());
    part_.Commit();
  }

 private:
  PartFile part_;
  std::unique_ptr<std::FILE, FileCloser> file_;
  std::string line_;
  int nextRow_ = 1;
};

}  // namespace

std::unique_ptr<WorkbookWriter> MakeCsvWriter(const std::string& targetName) {
  return std::make_unique<CsvWriter>(targetName);
}

}  // namespace chartproject
