// Records of the legacy binary workbook (BIFF8) that a workbook of plain numbers and texts needs.
// Each appender adds one whole record (16-bit id, 16-bit length, data, all little-endian) to the bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "backends/spreadsheet/workbook_writer.h"

namespace chartproject::biff8 {

/// Longest text of a cell: the record holds 8,224 bytes at most, two to a character.
inline constexpr std::size_t kLongestText = 4000;

/// What a sheet spans; rows and columns from 0.
struct SheetExtent {
  std::uint32_t rowEnd = 0;     ///< last row + 1
  std::uint16_t columnEnd = 0;  ///< last column + 1
};

/// A number in 30 bits (whole, or in hundredths, or a short double), when it comes back exactly; else nothing.
[[nodiscard]] std::optional<std::uint32_t> EncodeRk(double value) noexcept;

/// The workbook's own records before the sheet list: begin, code page, window, fonts, cell formats, style.
void AppendGlobals(std::string& bytes, std::size_t sheetCount);
/// One entry of the sheet list. @param offset of the sheet's first byte in the stream
void AppendBoundSheet(std::string& bytes, std::uint32_t offset, std::string_view name);
[[nodiscard]] std::size_t BoundSheetSize(std::string_view name);
/// Begin, column widths and extent of a sheet; what follows are its rows, then AppendSheetEnd.
void AppendSheetBegin(std::string& bytes, const SheetExtent& extent);
/// The sheet's view and the end mark. @param first the sheet that is shown when the workbook opens; its rows up to the
/// labels stay in sight
void AppendSheetEnd(std::string& bytes, bool first);
/// The end mark alone.
void AppendEnd(std::string& bytes);

/// Describes a row before its cells. @param row from 0
void AppendRow(std::string& bytes, std::uint16_t row, std::uint16_t columnEnd);
/// The cells of a row; neighbouring short numbers share a record, empty cells have none. @param row from 0
/// @param bold of the texts
void AppendCells(std::string& bytes, std::uint16_t row, std::span<const SheetCell> cells, bool bold = false);

}  // namespace chartproject::biff8
