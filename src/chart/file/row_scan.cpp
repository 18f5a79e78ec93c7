// Rows as a recording writes them are read in one go; any other line goes the way of the point reader.
#include "chart/file/row_scan.h"

#include <cstring>

#include "common/values/text.h"
#include "recording/file/field_value.h"

namespace chartproject {
namespace {

constexpr std::ptrdiff_t kTimeLength = 8;  // "hh:mm:ss"

bool IsTime(const char* at) noexcept {
  const auto isDigit = [at](int place) { return static_cast<unsigned char>(at[place] - '0') <= 9; };
  return isDigit(0) && isDigit(1) && at[2] == ':' && isDigit(3) && isDigit(4) && at[5] == ':' && isDigit(6) &&
         isDigit(7) && at[kTimeLength] == '#';
}

/// The place after a row "hh:mm:ss#1#2.5#3##" CR LF with plain numbers or empty fields; null for any other line.
const char* ScanPlainRow(const char* at, const char* end, int columns, RowValues& values) noexcept {
  if (end - at <= kTimeLength || !IsTime(at)) return nullptr;
  at += kTimeLength + 1;
  for (int column = 0; column < kColumnCount; ++column) {
    double value = 0;
    if (at != end && *at != '#') at = ReadPlainDecimal(at, end, value);
    if (at == nullptr || at == end || *at != '#') return nullptr;
    ++at;
    if (column < columns) values[static_cast<std::size_t>(column)] = value;
  }
  constexpr std::size_t kTail = 3;
  const bool ends = static_cast<std::size_t>(end - at) >= kTail && std::memcmp(at, "#\r\n", kTail) == 0;
  return ends ? at + kTail : nullptr;
}

LineKind JudgeLine(std::string_view line, int columns, const NumberFormat& format, RowValues& values) {
  const bool cut = line.size() > kLongestPointLine;
  line = Trim(line.substr(0, kLongestPointLine));
  if (line.empty() || line.front() == '\'') return LineKind::kSkipped;
  const auto row = cut ? std::nullopt : SplitRow(line);
  if (!row) return LineKind::kMalformed;
  for (std::size_t k = 0; k < static_cast<std::size_t>(columns); ++k) values[k] = FieldValue(row->values[k], format);
  return LineKind::kPoint;
}

}  // namespace

LineKind ScanRow(const char*& at, const char* end, int columns, const NumberFormat& format, RowValues& values) {
  if (const char* const next = ScanPlainRow(at, end, columns, values)) {
    at = next;
    return LineKind::kPoint;
  }
  const char* const begin = at;
  const void* const feed = std::memchr(begin, '\n', static_cast<std::size_t>(end - begin));
  const char* lineEnd = feed == nullptr ? end : static_cast<const char*>(feed);
  at = feed == nullptr ? end : lineEnd + 1;
  const auto length = static_cast<std::size_t>(lineEnd - begin);
  // As LineReader: the carriage return of a line that is given whole does not belong to it.
  const bool ended = feed != nullptr && length > 0 && length <= kLongestPointLine && lineEnd[-1] == '\r';
  return JudgeLine({begin, ended ? length - 1 : length}, columns, format, values);
}

}  // namespace chartproject
