// Rows into workbooks: any text arrives as a text, and no cell of the plain format is a formula.
#include <algorithm>
#include <array>
#include <fstream>

#include "backends/spreadsheet/embedded_spreadsheet.h"
#include "backends/spreadsheet/xlsx_file.h"
#include "bytes_file.h"
#include "platform/temporary_folder.h"
#include "support/error_of.h"
#include "support/fake_ports.h"
#include "targets.h"

namespace chartproject::fuzz {

namespace {

/// Writes the lines as cells of up to five columns, every second one entered as a value; the workbook's bytes.
std::string Write(std::string_view bytes, const char* ending) {
  static const TemporaryFolder folder;
  const std::string name = folder.Path() + "/out" + ending;
  const FakeLocale locale;
  EmbeddedSpreadsheets applications(locale);
  const auto application = applications.Create(name, {});
  application->AddWorkbook();
  int cell = 0;
  (void)ErrorOf([&] {  // 1004: a text that is too long
    for (; !bytes.empty(); ++cell) {
      const std::size_t end = std::min(bytes.find('\n'), bytes.size());
      const int row = 1 + cell / 5;
      if (cell % 2 == 0) {
        application->WriteText(1, row, 1 + cell % 5, bytes.substr(0, end));
      } else {
        application->EnterValue(1, row, 1 + cell % 5, bytes.substr(0, end));
      }
      bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    application->SaveAs({name, kNormalWorkbookFormat, "", "", false, false});
  });
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The cells as a spreadsheet parts them at a separator.
std::vector<std::string> CellsOf(std::string_view text, char separator) {
  std::vector<std::string> cells{""};
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char byte = text[i];
    if (byte == '"' && quoted && text.substr(i + 1, 1) == "\"") {
      cells.back() += text[++i];
    } else if (byte == '"' && (quoted || cells.back().empty())) {
      quoted = !quoted;
    } else if (!quoted && (byte == separator || byte == '\r' || byte == '\n')) {
      cells.emplace_back();
    } else {
      cells.back() += byte;
    }
  }
  return cells;
}

}  // namespace

void Csv(std::string_view bytes) {
  const std::string text = Write(bytes, ".csv");
  for (const char separator : {',', ';', '\t'}) {
    for (const std::string& cell : CellsOf(text, separator))
      Require(cell.empty() || (cell[0] != '=' && cell[0] != '@'));
  }
}

void Xls(std::string_view bytes) {
  const std::string book = Write(bytes, ".xls");
  Require(book.empty() || book.starts_with("\xD0\xCF\x11\xE0"));
}

/// The lines as texts and numbers of points, below heads and a header of the same.
void Xlsx(std::string_view bytes) {
  static const TemporaryFolder folder;
  const std::string name = folder.Path() + "/out.xlsx";
  const std::string line(bytes.substr(0, bytes.find('\n')));
  (void)ErrorOf([&] {
    XlsxFile file(name, {}, {line, {{line, line}}, {line, "number"}, false, 0, 0});
    for (std::string_view rest = bytes; !rest.empty();) {
      const std::string text(rest.substr(0, rest.find('\n')));
      const std::array values{XlsxValue(text), XlsxValue(static_cast<double>(text.size()))};
      file.AddPoint(text, values);
      rest.remove_prefix(std::min(text.size() + 1, rest.size()));
    }
    file.Save();
  });
  std::ifstream file(name, std::ios::binary);
  const std::string book{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  Require(book.empty() || (book.starts_with("PK") && book.find("<f>") == std::string::npos));
}

}  // namespace chartproject::fuzz
