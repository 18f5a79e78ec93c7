// Fuzz target: slices by line number agree with a plain reading of the lines, for every content of a file.
// The first two bytes choose the slice, the third how much one read gives.
#include "bytes_file.h"
#include "chart/file/slice_reader.h"
#include "recording/file/point_reader.h"

namespace chartproject {
namespace {

/// The lines startLine <= L < endLine, counted from 1, split at line feeds.
std::vector<std::string_view> PlainLines(std::string_view bytes, int startLine, int endLine) {
  std::vector<std::string_view> lines;
  for (int number = 1; !bytes.empty() && number < endLine; ++number) {
    const std::size_t feed = bytes.find('\n');
    if (number >= startLine) lines.push_back(bytes.substr(0, feed));
    bytes.remove_prefix(feed == std::string_view::npos ? bytes.size() : feed + 1);
  }
  return lines;
}

/// The slice that the first bytes choose, read and compared.
void CheckSlice(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return;
  const std::string bytes(data + 3, data + size);
  const int startLine = 1 + data[0];
  const int endLine = startLine + data[1];
  BytesFile file(bytes, 1 + std::size_t{data[2]} * 31);
  LineIndex index;
  index.Restart({1, 0});
  const SliceReading reading = ReadSlice(file, index, startLine, endLine, kColumnCount, {".", ","});
  const Slice& slice = reading.slice;

  const auto lines = PlainLines(bytes, startLine, endLine);
  Require(slice.RowCount() <= static_cast<int>(lines.size()));
  for (const auto& column : slice.values) Require(column.size() == slice.times.size());
  Require(slice.columnsInUse <= kColumnCount);
  if (reading.end == SliceEnd::kMalformedLine) {
    Require(reading.malformedLine >= startLine && reading.malformedLine <= endLine);
    return;
  }
  // Every line that splits into a row is a row of the slice, in the file's order.
  std::size_t row = 0;
  for (const std::string_view line : lines) {
    const auto split = SplitRow(line);
    if (!split || line.size() > kLongestPointLine || line[line.find_first_not_of(' ')] == '\'') continue;
    Require(row < slice.times.size() && slice.times[row] == split->time);
    ++row;
  }
  Require(row == slice.times.size());
}

}  // namespace
}  // namespace chartproject

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  chartproject::CheckSlice(data, size);
  return 0;
}
