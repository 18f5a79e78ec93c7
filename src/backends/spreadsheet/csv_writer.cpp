// The text file grows beside its target, row by row.
#include "backends/spreadsheet/csv_writer.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>

#include "backends/posix/files/part_file.h"
#include "backends/posix/files/posix_error.h"

namespace chartproject {

namespace {

struct FileCloser {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

/// A sign before digits, or signs alone ("--"): what a spreadsheet reads as the number or text that it looks like.
bool IsPlainSigned(std::string_view text) noexcept {
  if (text.find_first_not_of("+-") == std::string_view::npos) return true;
  text.remove_prefix(1);
  if (text.find_first_not_of("0123456789.,") == std::string_view::npos) return true;
  const std::size_t exponent = text.find_first_of("eE");
  if (exponent == 0 || text.find_first_not_of("0123456789.,") != exponent) return false;
  const std::string_view digits = text.substr(exponent + 1);
  const std::string_view unsignedDigits = digits.substr(digits.starts_with('-') || digits.starts_with('+') ? 1 : 0);
  return !unsignedDigits.empty() && unsignedDigits.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Puts the apostrophe that makes it a text before what a spreadsheet would take for a formula: at the beginning, and
/// after what another list separator or a line end may part from it.
std::string WithoutFormulas(std::string_view text) {
  constexpr std::string_view kPartings = ";\t\r\n";
  std::string safe;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find_first_of(kPartings, begin), text.size());
    // A quote that another separator puts at a cell's beginning is taken away.
    const std::size_t first = std::min(text.find_first_not_of('"', begin), end);
    const std::string_view piece = text.substr(first, end - first);
    const bool parts = begin == 0 && end == 0 && text[0] != ';';  // begins with a tab or a line end
    const bool formula = !piece.empty() && (piece[0] == '=' || piece[0] == '@' ||
                                            ((piece[0] == '+' || piece[0] == '-') && !IsPlainSigned(piece)));
    if (parts || formula) safe += '\'';
    safe += text.substr(begin, end - begin + 1);
    begin = end + 1;
  }
  return safe;
}

void AppendNumber(std::string& line, double number, const std::string& decimalSeparator) {
  char digits[32];
  char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  char* const point = std::find(digits, end, '.');
  line.append(digits, point);
  if (point != end) line.append(decimalSeparator).append(point + 1, end);
}

void AppendText(std::string& line, const SheetCell& cell) {
  // Most texts are times and "--".
  const bool plain = cell.text.find_first_of("=+-@;\t\r\n") == std::string::npos;
  const std::string safe = plain ? std::string() : WithoutFormulas(cell.text);
  const std::string_view text = plain ? std::string_view(cell.text) : safe;
  if (text.find_first_of(",;\t\"\r\n") == std::string_view::npos) {
    line += text;
  } else {
    line += '"';
    for (const char character : text) {
      if (character == '"') line += '"';
      line += character;
    }
    line += '"';
  }
}

class CsvWriter : public WorkbookWriter {
 public:
  CsvWriter(const std::string& targetName, const std::string& decimalSeparator, const FileRights& rights)
      : part_(targetName, rights),
        file_(std::fopen(part_.OpenName().c_str(), "wbe")),
        decimalSeparator_(decimalSeparator),
        separator_(decimalSeparator == "," ? ';' : ',') {
    if (!file_) throw FileError(errno, targetName);
  }

  [[nodiscard]] std::size_t LongestText() const noexcept override { return std::string::npos; }

  void BeginSheet(const std::string& /*name*/) override { nextRow_ = 1; }

  void WriteRow(int row, std::span<const SheetCell> cells) override {
    line_.clear();
    for (; nextRow_ < row; ++nextRow_) line_ += "\r\n";
    ++nextRow_;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i > 0) line_ += separator_;
      if (cells[i].kind == SheetCell::Kind::kNumber) {
        AppendNumber(line_, cells[i].number, decimalSeparator_);
      } else {
        AppendText(line_, cells[i]);
      }
    }
    line_ += "\r\n";
    if (std::fwrite(line_.data(), 1, line_.size(), file_.get()) != line_.size()) throw FileError(errno, part_.Target());
  }

  void Save(const std::string& /*fileName*/) override {
    if (std::fflush(file_.get()) != 0) throw FileError(errno, part_.Target());
    part_.Commit();
  }

 private:
  PartFile part_;
  std::unique_ptr<std::FILE, FileCloser> file_;
  std::string decimalSeparator_;
  char separator_;
  std::string line_;
  int nextRow_ = 1;
};

}  // namespace

std::unique_ptr<WorkbookWriter> MakeCsvWriter(const std::string& targetName, const std::string& decimalSeparator,
                                              const FileRights& rights) {
  return std::make_unique<CsvWriter>(targetName, decimalSeparator, rights);
}

}  // namespace chartproject
