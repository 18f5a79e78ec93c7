// Rows into workbooks and tables: any text arrives as a text, no cell of the plain format is a formula, and every line
// of a table has the same cells.
#include <algorithm>
#include <array>
#include <fstream>
#include <nlohmann/json.hpp>

#include "backends/headless/code_page_1252.h"
#include "backends/posix/posix_time_zone.h"
#include "backends/spreadsheet/embedded_spreadsheet.h"
#include "backends/spreadsheet/xlsx_file.h"
#include "bytes_file.h"
#include "chart/plain/plain_table.h"
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

/// Cells of each line of a table with that separator, quoted as RFC 4180 says.
std::vector<int> CellCounts(std::string_view table, char separator) {
  std::vector<int> counts;
  int cells = 1;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table[i] == '"') {  // only at a cell's start: the ends of other cells are looked for below
      do i = table.find('"', i + 1) + 1;
      while (i < table.size() && table[i] == '"');
    }
    i = table.find_first_of(separator == ',' ? ",\n" : "\t\n", i);
    Require(i != std::string_view::npos);
    if (table[i] == separator) ++cells;
    if (table[i] == '\n') counts.push_back(std::exchange(cells, 1));
  }
  return counts;
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

/// The first byte chooses format, clock and how much one read gives; the next line is the heads' text, the rest a chart
/// file.
void Plain(std::string_view bytes) {
  if (bytes.empty()) return;
  const auto choice = static_cast<unsigned char>(bytes[0]);
  const std::size_t feed = std::min(bytes.find('\n'), bytes.size() - 1);
  const FakeLocale locale;
  const CodePage1252 codePage;
  const std::string head = codePage.Decode(bytes.substr(1, feed));
  const PosixTimeZone zone;
  ChartHeader header;
  header.Unit = "ms";
  header.ScanTime = "250";

  PlainTable table;
  table.format = PlainFormat{static_cast<std::uint8_t>(choice % 3)};
  table.columns = {{head}, {head}, {"P003"}, {"P004"}};
  if (choice & 4U) table.firstMoment = 0;
  if (choice & 8U) table.clock = PointClock(header, nullptr, locale);
  if (choice & 16U) table.range = {2, 3};
  BytesFile file(bytes.substr(feed + 1), choice & 32U ? 7 : SIZE_MAX);
  std::string text;
  const PlainTableReport report =
      PlainTableWriter(table, locale.Numbers(), codePage, zone).Write(file, [&text](std::string_view part) {
        text += part;
      });
  if (table.format == PlainFormat::kJsonLines) {
    const auto lines = Lines(text);
    Require(report.points == static_cast<std::int64_t>(lines.size()) - 1 && lines.back().empty());
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) Require(nlohmann::json::parse(lines[i]).size() == 5);
    return;
  }
  const auto counts = CellCounts(text, table.format == PlainFormat::kTabs ? '\t' : ',');
  Require(std::ranges::all_of(counts, [](int count) { return count == 5; }));
  Require(report.points == std::max(static_cast<std::int64_t>(counts.size()) - 1, std::int64_t{0}));
}

}  // namespace chartproject::fuzz
