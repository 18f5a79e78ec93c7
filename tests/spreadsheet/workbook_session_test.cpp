// Every byte of small workbooks, held against texts that were read: readers of workbooks pass over much that is wrong.
#include <gsf/gsf.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

#include "backends/spreadsheet/biff8_writer.h"
#include "backends/spreadsheet/embedded_spreadsheet.h"
#include "backends/spreadsheet/xlsx_file.h"
#include "platform/temporary_folder.h"
#include "support/error_of.h"
#include "support/fake_ports.h"
#include "support/transcript.h"

namespace chartproject {
namespace {

using Object = std::unique_ptr<GsfInput, decltype(&g_object_unref)>;

std::string BytesOf(GsfInput* input) {
  std::string bytes(static_cast<std::size_t>(gsf_input_size(input)), '\0');
  EXPECT_NE(gsf_input_read(input, bytes.size(), reinterpret_cast<guint8*>(bytes.data())), nullptr);
  return bytes;
}

/// A part of a compound file or of a zip file, by its path.
std::string PartOf(const std::string& file, bool zip, const std::vector<std::string>& path) {
  const Object source(gsf_input_stdio_new(file.c_str(), nullptr), &g_object_unref);
  Object part(GSF_INPUT(zip ? gsf_infile_zip_new(source.get(), nullptr) : gsf_infile_msole_new(source.get(), nullptr)),
              &g_object_unref);
  for (const std::string& name : path) {
    part = Object(gsf_infile_child_by_name(GSF_INFILE(part.get()), name.c_str()), &g_object_unref);
    if (!part) return "none";
  }
  return BytesOf(part.get());
}

std::string Hex(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    char digits[4];
    std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    text.append(text.empty() || text.size() % 5 != 4 ? "" : " ").append(digits);
  }
  return text;
}

/// The records of the binary workbook, one a line; repeated ones are counted.
void AddRecords(Transcript& transcript, const std::string& bytes) {
  const auto number = [&bytes](std::size_t place) {
    return static_cast<std::size_t>(static_cast<unsigned char>(bytes.at(place))) +
           256 * static_cast<unsigned char>(bytes.at(place + 1));
  };
  std::string last;
  int times = 0;
  const auto flush = [&] {
    if (times > 0) transcript.Say(last, (times > 1 ? "  x" + std::to_string(times) : ""));
  };
  for (std::size_t at = 0, next = 0; at + 4 <= bytes.size() && number(at) + number(at + 2) != 0; at = next) {
    next = at + 4 + number(at + 2);
    char head[32];
    std::snprintf(head, sizeof head, "%03X %zu: ", static_cast<unsigned>(number(at)), number(at + 2));
    const bool sheet = number(at) == 0x809;
    const std::string line = (sheet ? "at " + std::to_string(at) + "\n" : "") + head +
                             Hex(bytes.substr(at + 4, std::min<std::size_t>(number(at + 2), 60)));
    if (line != last) flush(), times = 0;
    last = line;
    ++times;
  }
  flush();
}

struct WorkbookSession : ::testing::Test {
  std::unique_ptr<SpreadsheetApplication> Begin(const std::string& name) {
    auto application = applications.Create(folder / name, {});
    application->AddWorkbook();
    return application;
  }
  std::string Saved(SpreadsheetApplication& application, const std::string& name) {
    return WithoutFolder(ErrorTextOf([&] {
      application.SaveAs({folder / name, kNormalWorkbookFormat, "", "", false, false});
    }));
  }
  std::string WithoutFolder(std::string text) const {
    const std::string path = folder.Path();
    for (std::size_t at = 0; (at = text.find(path)) != std::string::npos;) text.replace(at, path.size(), "FOLDER");
    return text;
  }
  TemporaryFolder folder;
  FakeLocale locale;
  EmbeddedSpreadsheets applications{locale};
};

/// Texts of every length of a character, broken ones, numbers of every kind, empty cells, two blocks of rows.
void FillSheets(SpreadsheetApplication& book) {
  const char* const texts[] = {
      "a",    "\x7F", "\u00C1\u00FF", "\u0100", "\u07FF\u0800", "\uFFFD",       "\U00010000\U0010FFFF",
      "\x80", "\xBF", "\xC3",         "\xC3(",  "\xE2\x82",     "\xF0\x9F\x98", "b\xF4\x8F\xBF\xBFz",
      "=1+1"};
  const char* const numbers[] = {"0",          "-0",         "1",         "-1",        "0.5",        "50.25",
                                 "0.01",       "-0.07",      "536870911", "536870912", "-536870912", "-536870913",
                                 "5368709.11", "5368709.12", "1e300",     "3.14159",   "--",         "7"};
  for (int i = 0; i < 15; ++i) book.WriteText(1, 1, i + 1, texts[i]);
  for (int i = 0; i < 18; ++i) book.EnterValue(1, 2, i + 1, numbers[i]);
  book.EnterValue(1, 3, 3, "5");  // after empty cells, and between them
  book.EnterValue(1, 3, 5, "");
  for (int row = 4; row <= 35; ++row) book.EnterValue(1, row, 1, std::to_string(row));
  book.WriteText(1, kLabelRow + 15, 1, "not a label");
  for (int column = 1; column <= 256; ++column) book.EnterValue(1, 37, column, "1");
  book.WriteText(2, kLabelRow, 1, "later");
  book.WriteText(2, kLabelRow, 2, std::string(4000, 'x'));
}

TEST_F(WorkbookSession, EveryRecordOfABinaryWorkbook) {
  Transcript transcript("workbook_records");
  const auto book = Begin("a.xls");
  book->AddSheetAfter(1);
  book->SetSheetName(1, "Ch\u00E1rt \u03A9");
  FillSheets(*book);
  transcript.Step("the workbook");
  transcript.Add(Saved(*book, "a.xls"));
  AddRecords(transcript, PartOf(folder / "a.xls", false, {"Workbook"}));
  transcript.Step("labels alone");
  const auto labels = Begin("b.xls");
  for (const char* text : {"PXXX1", "\u00C1gua"}) labels->WriteText(1, kLabelRow, text[0] == 'P' ? 1 : 2, text);
  labels->WriteText(1, kLabelRow + 1, 1, "not bold");
  transcript.Add(Saved(*labels, "b.xls"));
  AddRecords(transcript, PartOf(folder / "b.xls", false, {"Workbook"}));
}

TEST_F(WorkbookSession, WhatIsRefused) {
  Transcript transcript("workbook_refusals");
  const auto tell = [&](const std::string& what, const std::function<void()>& action) {
    transcript.Say(what, ": ", WithoutFolder(ErrorTextOf(action)));
  };
  for (const std::string name : {"a.xls", "a.csv"}) {
    transcript.Step(name);
    const auto book = Begin(name);
    tell("a sheet after 1", [&] { book->AddSheetAfter(1); });
    transcript.Say(book->SheetCount(), " sheets");
    for (const int column : {256, 257})
      tell("column " + std::to_string(column), [&] { book->WriteText(1, 1, column, "x"); });
    tell("a long text", [&] { book->WriteText(1, 2, 1, std::string(4001, 'x')); });
    tell("a finished row", [&] { book->WriteText(1, 1, 1, "x"); });
    transcript.Say("saved: ", Saved(*book, name));
    transcript.Say("saved again: ", Saved(*book, name));
    tell("a missing folder", [&] { (void)applications.Create(folder / "missing/" + name, {}); });
  }
  transcript.Step("limits");
  for (const char* name : {"a.xls", "a.CSV", ".csv", "csv", "a.csv.xls", "a.bcsv", "a.Csv"}) {
    const WorkbookLimits limits = applications.Limits(name).value();
    transcript.Say(name, ": ", limits.bytes, " bytes, ", limits.sheets, " sheets, row ", limits.sizes.row, ", number ",
                   limits.sizes.number, ", text ", limits.sizes.text, ", letter ", limits.sizes.letter, ", growth ",
                   limits.sizes.mostGrowth, ", disk ", limits.sizes.diskPercent, " %");
  }
  transcript.Add(applications.AttachRunning() == nullptr ? "none runs" : "one runs");
}

/// Texts entered into a plain text's cells where numbers have a point, and where they have a comma.
TEST_F(WorkbookSession, WhatEnteredTextsBecome) {
  Transcript transcript("workbook_fields");
  std::istringstream texts(
      "1.50|1,50|--|-0.25|+7|+-7|+|1e3|-1.5E+3|1E|08:00:00||nan|inf|1 2|0x10|1,5,2|1.5.2|=1+1|@SUM(A1)|+A1|-1-1|"
      "-1,500.5|a;=1|a;b=1|\t=1|\r=1|\n|;|a=1|-e5|-5e|-5e+|-5e-3|+5e3x|;\"=1|\"=1|\"\"|a\"b|a\tb|12345678901234567890."
      "5");
  for (std::string text; std::getline(texts, text, '|');) {
    std::string line;
    for (const char* point : {".", ","}) {
      locale.numbers = {point, ""};
      const auto book = Begin("values.csv");
      book->WriteText(1, 2, 1, text);
      book->EnterValue(1, 2, 1, book->ReadValue(1, 2, 1));
      book->WriteText(1, 2, 2, "1.50");  // a written text stays one
      line += Saved(*book, "values.csv") + " ";
      line += FileBytes(folder / "values.csv").substr(2);
    }
    std::replace(line.begin(), line.end(), '\r', '$');
    std::erase(line, '\n');
    transcript.Say(text, ":", line);
  }
}

/// A part of a modern workbook, one element a line; what an earlier part of its kind has, too, is left out.
void AddPart(Transcript& transcript, const std::string& file, const std::vector<std::string>& path,
             std::set<std::string>& known) {
  transcript.Say("-- ", path.back());
  const std::string part = PartOf(file, true, path);
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < part.size();) {
    const std::size_t end = std::min(part.find("><", at), part.size() - 1) + 1;
    std::string line = part.substr(at, end - at);
    at = end;
    if (line.size() > 200) line.replace(100, line.size() - 120, "(" + std::to_string(line.size()) + " bytes)");
    const bool says = line.find('=') != std::string::npos || line.find("/") != std::string::npos;
    if (says && !line.starts_with("</") && !line.starts_with("<?") && line.find("xmlns") == std::string::npos)
      lines.push_back(line);
  }
  for (const std::string& line : lines)
    if (!known.contains(line)) transcript.Add(line);
  known.insert(lines.begin(), lines.end());
}

TEST_F(WorkbookSession, EveryPartOfAModernWorkbook) {
  Transcript transcript("workbook_modern");
  const double day = SerialDate(1'769'817'600'123);
  transcript.Say("2026-01-31 00:00:00.123 is ", std::to_string(day));
  const auto make = [&](const std::string& name, bool dated, double last, std::size_t heads) {
    XlsxPlan plan{"Press line 4",
                  {{"Drive", "01"}, {"Long", std::string(40'000, 'x')}, {"Unit", "ms"}},
                  {"P003 A", "P005 rpm", "P006", "P012"},
                  dated,
                  day,
                  last};
    plan.heads.resize(heads);
    XlsxFile book(folder / name, {}, plan);
    const XlsxValue values[] = {1.5, "--", std::monostate{}, -0.25};
    book.AddPoint(dated ? XlsxValue(day) : XlsxValue("08:00:00"), std::span(values).first(heads));
    book.AddPoint(dated ? XlsxValue(last) : XlsxValue("08:00:01"), std::span(values).first(1));
    const double drawn[] = {1.5, std::nan(""), 3, 4};
    if (dated)
      book.AddChartPoint(day, std::span(drawn).first(heads)), book.AddChartPoint(last, std::span(drawn).first(heads));
    book.Save();
  };
  std::map<std::string, std::set<std::string>> known;
  for (const auto& [name, dated, days, heads] : {std::tuple{"short.xlsx", true, 1.0, 4},
                                                 {"long.xlsx", true, 1.5, 1},
                                                 {"moment.xlsx", true, 0.0, 2},
                                                 {"times.xlsx", false, 0.0, 1}}) {
    transcript.Step(name);
    make(name, dated, day + days, static_cast<std::size_t>(heads));
    for (const std::string part : {"workbook.xml", "styles.xml"})
      AddPart(transcript, folder / name, {"xl", part}, known[part]);
    for (const std::string part : {"sheet1.xml", "sheet2.xml", "sheet3.xml", "sheet4.xml"})
      AddPart(transcript, folder / name, {"xl", "worksheets", part}, known[part + (dated ? "" : "of times")]);
    AddPart(transcript, folder / name, {"xl", "drawings", "drawing1.xml"}, known["drawing"]);
    for (int i = 1; dated && i <= heads; ++i)
      AddPart(transcript, folder / name, {"xl", "charts", "chart" + std::to_string(i) + ".xml"}, known["chart"]);
  }
  transcript.Step("refusals");
  const XlsxPlan plan{"t", {}, {"P003"}, false, 0, 0};
  transcript.Add(WithoutFolder(ErrorTextOf([&] { XlsxFile(folder / "missing/a.xlsx", {}, plan); })));
  transcript.Say("unsaved: ",
                 WithoutFolder(ErrorTextOf([&] { XlsxFile(folder / "unsaved.xlsx", {}, plan).AddPoint("1", {}); })));
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) names.insert(entry.path().filename());
  for (const std::string& name : names) transcript.Say("there is ", name);
}

}  // namespace
}  // namespace chartproject
