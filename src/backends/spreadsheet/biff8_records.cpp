// The record layouts. Field values that are the same in every workbook are those that readers expect of a new one:
// 10-point Arial, 15 style formats and one cell format, one window.
#include "backends/spreadsheet/biff8_records.h"

#include <bit>
#include <cmath>

#include "platform/run_time_error.h"

namespace chartproject::biff8 {

namespace {

constexpr std::uint16_t kBegin = 0x0809;
constexpr std::uint16_t kEnd = 0x000A;
constexpr std::uint16_t kCodePage = 0x0042;
constexpr std::uint16_t kWindow1 = 0x003D;
constexpr std::uint16_t kFont = 0x0031;
constexpr std::uint16_t kFormat = 0x00E0;
constexpr std::uint16_t kStyle = 0x0293;
constexpr std::uint16_t kBoundSheet = 0x0085;
constexpr std::uint16_t kColumnInfo = 0x007D;
constexpr std::uint16_t kDimensions = 0x0200;
constexpr std::uint16_t kWindow2 = 0x023E;
constexpr std::uint16_t kPane = 0x0041;
constexpr std::uint16_t kRow = 0x0208;
constexpr std::uint16_t kNumber = 0x0203;
constexpr std::uint16_t kLabel = 0x0204;
constexpr std::uint16_t kRk = 0x027E;
constexpr std::uint16_t kMultipleRk = 0x00BD;

constexpr std::uint16_t kCellFormat = 15;  // the one after the 15 style formats
constexpr std::uint16_t kBoldFormat = 16;
constexpr int kStyleFormatCount = 15;
constexpr int kFontCount = 4;

void Put16(std::string& bytes, std::uint16_t value) {
  const char pair[] = {static_cast<char>(value), static_cast<char>(value >> 8)};
  bytes.append(pair, sizeof pair);
}

void Put32(std::string& bytes, std::uint32_t value) {
  Put16(bytes, static_cast<std::uint16_t>(value));
  Put16(bytes, static_cast<std::uint16_t>(value >> 16));
}

void PutHead(std::string& bytes, std::uint16_t id, std::size_t length) {
  Put16(bytes, id);
  Put16(bytes, static_cast<std::uint16_t>(length));
}

/// A record of numbers of known size, gathered before it is appended: the rows of a workbook are mostly these.
template <std::size_t kLargest>
class NumberRecord {
 public:
  NumberRecord(std::uint16_t id, std::size_t length) {
    Add16(id);
    Add16(static_cast<std::uint16_t>(length));
  }
  void Add16(std::uint16_t value) {
    data_[size_++] = static_cast<char>(value);
    data_[size_++] = static_cast<char>(value >> 8);
  }
  void Add32(std::uint32_t value) {
    Add16(static_cast<std::uint16_t>(value));
    Add16(static_cast<std::uint16_t>(value >> 16));
  }
  void AppendTo(std::string& bytes) const { bytes.append(data_, size_); }

 private:
  char data_[kLargest];
  std::size_t size_ = 0;
};

/// UTF-16 code units of a UTF-8 text; a broken sequence becomes U+FFFD.
std::u16string ToUtf16(std::string_view text) {
  std::u16string units;
  units.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i++]);
    int more = 0;
    std::uint32_t code = lead;
    if (lead >= 0xF0) {
      more = 3;
      code = lead & 0x07U;
    } else if (lead >= 0xE0) {
      more = 2;
      code = lead & 0x0FU;
    } else if (lead >= 0xC0) {
      more = 1;
      code = lead & 0x1FU;
    } else if (lead >= 0x80) {
      code = 0xFFFD;
    }
    for (; more > 0; --more) {
      if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U) {
        code = 0xFFFD;
        break;
      }
      code = (code << 6) | (static_cast<unsigned char>(text[i++]) & 0x3FU);
    }
    if (code >= 0x10000) {
      units.push_back(static_cast<char16_t>(0xD7C0 + (code >> 10)));
      units.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
    } else {
      units.push_back(static_cast<char16_t>(code));
    }
  }
  return units;
}

bool IsAscii(std::string_view text) {
  for (const char character : text) {
    if (static_cast<unsigned char>(character) >= 0x80) return false;
  }
  return true;
}

/// Flag byte and characters: one byte each while they fit in Latin-1, else two.
void PutCharacters(std::string& bytes, std::u16string_view units) {
  bool wide = false;
  for (const char16_t unit : units) wide = wide || unit > 0xFF;
  bytes.push_back(wide ? '\1' : '\0');
  for (const char16_t unit : units) {
    if (wide) {
      Put16(bytes, unit);
    } else {
      bytes.push_back(static_cast<char>(unit));
    }
  }
}

void PutBegin(std::string& bytes, std::uint16_t kind) {
  PutHead(bytes, kBegin, 16);
  Put16(bytes, 0x0600);  // BIFF8
  Put16(bytes, kind);
  Put16(bytes, 0x0DBB);  // build and year that readers know
  Put16(bytes, 0x07CC);
  Put32(bytes, 0);
  Put32(bytes, 0x0600);
}

void PutFont(std::string& bytes, bool bold) {
  constexpr std::string_view kName = "Arial";
  PutHead(bytes, kFont, 16 + kName.size());
  Put16(bytes, 200);               // height in twips: 10 points
  Put16(bytes, 0);                 // no attributes
  Put16(bytes, 0x7FFF);            // automatic colour
  Put16(bytes, bold ? 700 : 400);  // weight
  Put16(bytes, 0);                 // no escapement
  Put32(bytes, 0);                 // underline, family, character set, reserved
  bytes.push_back(static_cast<char>(kName.size()));
  bytes.push_back('\0');
  bytes += kName;
}

void PutFormat(std::string& bytes, bool style, bool first, bool bold = false) {
  constexpr std::uint16_t kBoldFont = kFontCount + 1;  // readers count from 0 and leave the number 4 out
  PutHead(bytes, kFormat, 20);
  Put16(bytes, bold ? kBoldFont : 0);     // font
  Put16(bytes, 0);                        // number format "General"
  Put16(bytes, style ? 0xFFF5 : 0x0001);  // style without a parent, or locked cell of style 0
  Put16(bytes, 0x0020);                   // bottom aligned
  bytes.push_back('\0');                  // indentation
  bytes.push_back(style && !first ? '\xF4' : bold ? '\x08' : '\0');  // its own attributes: the font
  Put32(bytes, 0);                                                   // borders
  Put32(bytes, 0);
  Put16(bytes, 0x20C0);  // automatic pattern colours
}

void PutLabel(std::string& bytes, std::uint16_t row, std::uint16_t column, std::string_view text,
              std::uint16_t format) {
  if (IsAscii(text)) {
    NumberRecord<12> head(kLabel, 9 + text.size());
    head.Add16(row);
    head.Add16(column);
    head.Add16(format);
    head.Add16(static_cast<std::uint16_t>(text.size()));
    head.AppendTo(bytes);
    bytes.push_back('\0');
    bytes += text;
    return;
  }
  const std::u16string units = ToUtf16(text);
  std::string characters;
  PutCharacters(characters, units);
  PutHead(bytes, kLabel, 8 + characters.size());
  Put16(bytes, row);
  Put16(bytes, column);
  Put16(bytes, format);
  Put16(bytes, static_cast<std::uint16_t>(units.size()));
  bytes += characters;
}

void PutNumber(std::string& bytes, std::uint16_t row, std::uint16_t column, double value) {
  NumberRecord<18> record(kNumber, 14);
  record.Add16(row);
  record.Add16(column);
  record.Add16(kCellFormat);
  const auto bits = std::bit_cast<std::uint64_t>(value);
  record.Add32(static_cast<std::uint32_t>(bits));
  record.Add32(static_cast<std::uint32_t>(bits >> 32));
  record.AppendTo(bytes);
}

constexpr std::size_t kLongestRun = 256;  // as many as a sheet has columns

/// One short number, or a run of them.
void PutRkRun(std::string& bytes, std::uint16_t row, std::uint16_t column, std::span<const std::uint32_t> values) {
  const bool multiple = values.size() > 1;
  NumberRecord<10 + 6 * kLongestRun> record(multiple ? kMultipleRk : kRk, multiple ? 6 + 6 * values.size() : 10);
  record.Add16(row);
  record.Add16(column);
  for (const std::uint32_t value : values) {
    record.Add16(kCellFormat);
    record.Add32(value);
  }
  if (multiple) record.Add16(static_cast<std::uint16_t>(column + values.size() - 1));
  record.AppendTo(bytes);
}

}  // namespace

std::optional<std::uint32_t> EncodeRk(double value) noexcept {
  constexpr std::uint32_t kHundredths = 1;
  constexpr std::uint32_t kWhole = 2;
  const auto asWhole = [](double number) -> std::optional<std::uint32_t> {
    if (!(number >= -536870912.0 && number <= 536870911.0) || number != std::trunc(number)) return std::nullopt;
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(number)) << 2;
  };
  const auto bits = std::bit_cast<std::uint64_t>(value);
  if ((bits & 0x3FFFFFFFFULL) == 0) return static_cast<std::uint32_t>(bits >> 32);
  if (const auto whole = asWhole(value)) return *whole | kWhole;
  const double hundredths = std::nearbyint(value * 100.0);
  if (hundredths / 100.0 == value) {
    if (const auto whole = asWhole(hundredths)) return *whole | kWhole | kHundredths;
  }
  return std::nullopt;
}

void AppendGlobals(std::string& bytes, std::size_t sheetCount) {
  constexpr std::uint16_t kWorkbookGlobals = 0x0005;
  PutBegin(bytes, kWorkbookGlobals);
  PutHead(bytes, kCodePage, 2);
  Put16(bytes, 1200);  // UTF-16
  PutHead(bytes, kWindow1, 18);
  Put16(bytes, 0x0168);  // place and size in twips
  Put16(bytes, 0x010E);
  Put16(bytes, 0x5C3A);
  Put16(bytes, 0x23BE);
  Put16(bytes, 0x0038);  // scroll bars and sheet tabs are shown
  Put16(bytes, 0);       // first sheet is active
  Put16(bytes, 0);
  Put16(bytes, sheetCount > 0 ? 1 : 0);
  Put16(bytes, 0x0258);  // width of the sheet tabs
  for (int i = 0; i < kFontCount; ++i) PutFont(bytes, false);
  PutFont(bytes, true);
  for (int i = 0; i < kStyleFormatCount; ++i) PutFormat(bytes, true, i == 0);
  PutFormat(bytes, false, false);
  PutFormat(bytes, false, false, true);
  PutHead(bytes, kStyle, 4);
  Put16(bytes, 0x8000);  // built-in style of format 0
  Put16(bytes, 0xFF00);  // "Normal"
}

std::size_t BoundSheetSize(std::string_view name) {
  std::string bytes;
  AppendBoundSheet(bytes, 0, name);
  return bytes.size();
}

void AppendBoundSheet(std::string& bytes, std::uint32_t offset, std::string_view name) {
  const std::u16string units = ToUtf16(name);
  std::string characters;
  PutCharacters(characters, units);
  PutHead(bytes, kBoundSheet, 7 + characters.size());
  Put32(bytes, offset);
  Put16(bytes, 0);  // a visible sheet of cells
  bytes.push_back(static_cast<char>(units.size()));
  bytes += characters;
}

void AppendSheetBegin(std::string& bytes, const SheetExtent& extent) {
  constexpr std::uint16_t kSheet = 0x0010;
  PutBegin(bytes, kSheet);
  for (std::size_t column = 0; column < kColumnWidths.size(); ++column) {
    constexpr int kUnits = 256;  // a character
    PutHead(bytes, kColumnInfo, 12);
    Put16(bytes, static_cast<std::uint16_t>(column));  // first and last column
    Put16(bytes, static_cast<std::uint16_t>(column));
    Put16(bytes, static_cast<std::uint16_t>(kColumnWidths.at(column) * kUnits));
    Put16(bytes, kCellFormat);
    Put16(bytes, 0x0002);  // has its own width
    Put16(bytes, 0);
  }
  PutHead(bytes, kDimensions, 14);
  Put32(bytes, 0);
  Put32(bytes, extent.rowEnd);
  Put16(bytes, 0);
  Put16(bytes, extent.columnEnd);
  Put16(bytes, 0);
}

void AppendSheetEnd(std::string& bytes, bool first) {
  PutHead(bytes, kWindow2, 18);
  Put16(bytes, first ? 0x07BE : 0x00B6);  // grid lines, headings, zeros; the first sheet is selected, shown and frozen
  Put32(bytes, 0);                        // top row and left column
  Put32(bytes, 0x40);                     // automatic grid colour
  Put32(bytes, 0);
  Put32(bytes, 0);
  if (first) {
    PutHead(bytes, kPane, 10);
    Put16(bytes, 0);          // no columns
    Put16(bytes, kLabelRow);  // so many rows
    Put16(bytes, kLabelRow);  // the first row below them
    Put16(bytes, 0);
    Put16(bytes, 2);  // the lower part has the cursor
  }
  AppendEnd(bytes);
}

void AppendEnd(std::string& bytes) {
  PutHead(bytes, kEnd, 0);
}

void AppendRow(std::string& bytes, std::uint16_t row, std::uint16_t columnEnd) {
  NumberRecord<20> record(kRow, 16);
  record.Add16(row);
  record.Add16(0);
  record.Add16(columnEnd);
  record.Add16(0x00FF);  // default height
  record.Add32(0);
  record.Add32(0x000F0100);  // without its own format
  record.AppendTo(bytes);
}

void AppendCells(std::string& bytes, std::uint16_t row, std::span<const SheetCell> cells, bool bold) {
  std::uint32_t run[kLongestRun];
  for (std::size_t column = 0; column < cells.size(); ++column) {
    const SheetCell& cell = cells[column];
    if (cell.kind == SheetCell::Kind::kText) {
      PutLabel(bytes, row, static_cast<std::uint16_t>(column), cell.text, bold ? kBoldFormat : kCellFormat);
    } else if (cell.kind == SheetCell::Kind::kNumber) {
      std::size_t length = 0;
      while (length < std::size(run) && column + length < cells.size()) {
        const SheetCell& next = cells[column + length];
        const auto encoded = next.kind == SheetCell::Kind::kNumber ? EncodeRk(next.number) : std::nullopt;
        if (!encoded) break;
        run[length++] = *encoded;
      }
      if (length == 0) {
        PutNumber(bytes, row, static_cast<std::uint16_t>(column), cell.number);
      } else {
        PutRkRun(bytes, row, static_cast<std::uint16_t>(column), std::span(run, length));
        column += length - 1;
      }
    }
  }
}

}  // namespace chartproject::biff8
