// Reading chart files: the header, the place of the rows, one row, and the user's words for the header's codes.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/file_system.h"
#include "recording/file/chart_header.h"

namespace chartproject {

struct Component;
struct Environment;

/// Value columns of a chart file.
inline constexpr int kColumnCount = 4;
/// The line after which the rows begin.
inline constexpr std::string_view kRowsMark = "[TIME/CONTENT]";

/// What a header reading found.
struct HeaderReading {
  int keys = 0;             ///< lines that held a key; 0 means that this is not a chart file
  bool rowsFollow = false;  ///< the rows' mark was reached
};

/// Reads the header of the current chart file (strChartFileName) into the component's chartHeader. A key that the file
/// lacks keeps its former value. Throws RunTimeError when the file cannot be opened or read.
HeaderReading ReadChartHeader(Component& component);

/// Reads a header from the start of an open file. Reading ends at the rows' mark, at the end of the file, or after
/// kHeaderLimit bytes: a header is some hundred bytes, and a file without the mark may be as large as the disk.
HeaderReading ReadChartHeader(InputFile& file, const CodePage& codePage, ChartHeader& header);
inline constexpr std::uint64_t kHeaderLimit = 1'048'576;

/// Takes one header line (UTF-8) into the header: the first key that occurs anywhere in the line wins, its value is
/// everything to the right of the line's first "=". False when the line holds no key.
bool TakeHeaderLine(std::string_view line, ChartHeader& header);

/// Where the rows of a chart file begin.
struct RowStart {
  std::int64_t line = 0;     ///< number of the first row's line, counted from 1
  std::uint64_t offset = 0;  ///< its byte offset in the file
};

/// Finds the first line that contains the rows' mark; nothing when the file ends before it. Throws RunTimeError.
[[nodiscard]] std::optional<RowStart> LocateRows(FileSystem& files, const std::string& fileName);
[[nodiscard]] std::optional<RowStart> LocateRows(InputFile& file);

/// One row as views into its line, in the file's own bytes.
struct ChartRow {
  std::string_view time;
  std::array<std::string_view, kColumnCount> values;
};

/// Splits a point's line (without or with its line end) into its texts. Nothing when the line, blanks and line end
/// trimmed, does not hold exactly six "#": then it is not a point. Allocates nothing.
[[nodiscard]] std::optional<ChartRow> SplitRow(std::string_view line) noexcept;

/// The user's word for a header's trigger mode ("Event", "Manual"); empty for any other code.
[[nodiscard]] std::string TriggerModeText(const Environment& environment, std::string_view code);
/// The user's words for a header's event code, see EventCode; empty for any other code.
[[nodiscard]] std::string EventText(const Environment& environment, std::string_view code);

}  // namespace chartproject
