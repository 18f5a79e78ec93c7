// From a line number to the values of the points that begin there.
#include "chart/file/slice_reader.h"

#include "common/values/text.h"
#include "recording/field_value.h"

namespace chartproject {
namespace {

constexpr std::size_t kBlockSize = std::size_t{64} * 1024;

/// The lines of a file from an offset on, as views into a block that is read again and again.
class LineCursor {
 public:
  LineCursor(InputFile& file, const LinePlace& place) : file_(file), block_(kBlockSize), number_(place.line - 1) {
    file_.Seek(place.offset);
  }

  /// The next line without its line feed, cut when it is longer than a point's; false at the end of the file.
  bool Next(std::string_view& line) {
    ++number_;
    kept_.clear();
    for (bool begun = false;; begun = true) {
      if (at_ == filled_ && !ReadBlock()) {
        line = kept_;
        return begun;
      }
      std::string_view part(block_.data() + at_, filled_ - at_);
      const std::size_t feed = part.find('\n');
      const bool ends = feed != std::string_view::npos;
      if (ends) part = part.substr(0, feed);
      at_ += part.size() + (ends ? 1 : 0);
      part = part.substr(0, kLongestPointLine + 1 - kept_.size());
      if (ends && kept_.empty()) {
        line = part;
        return true;
      }
      kept_ += part;  // the line goes on in the next block
      if (ends) {
        line = kept_;
        return true;
      }
    }
  }
  /// Number of the line that Next gave last, or of the line behind the last one when it gave none.
  [[nodiscard]] std::int64_t Number() const noexcept { return number_; }

 private:
  bool ReadBlock() {
    at_ = 0;
    filled_ = file_.Read(block_);
    return filled_ > 0;
  }

  InputFile& file_;
  std::vector<char> block_;
  std::string kept_;
  std::size_t at_ = 0;
  std::size_t filled_ = 0;
  std::int64_t number_;
};

enum class LineKind : std::uint8_t { kSkipped, kPoint, kMalformed };

LineKind Classify(std::string_view& line, std::optional<ChartRow>& row) {
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  line = Trim(line);
  if (line.empty() || line.front() == '\'') return LineKind::kSkipped;
  if (line.size() <= kLongestPointLine) row = SplitRow(line);
  return row ? LineKind::kPoint : LineKind::kMalformed;
}

void TakeRow(const ChartRow& row, const NumberFormat& format, Slice& slice) {
  slice.times.emplace_back(row.time);
  for (int column = 0; column < slice.columnsRead; ++column) {
    const auto k = static_cast<std::size_t>(column);
    slice.values[k].push_back(FieldValue(row.values[k], format));
    if (!row.values[k].empty() && column >= slice.columnsInUse) slice.columnsInUse = column + 1;
  }
}

}  // namespace

SliceReading ReadSlice(InputFile& file, LineIndex& index, std::int32_t startLine, std::int32_t endLine, int columns,
                       const NumberFormat& format, const ScanProgress& progress) {
  SliceReading reading;
  Slice& slice = reading.slice;
  slice.startLine = startLine;
  slice.endLine = endLine;
  slice.columnsRead = columns;
  const LineSearch search = index.Find(file, startLine, progress);
  if (search.end == LineSearchEnd::kGivenUp) {
    reading.end = SliceEnd::kGivenUp;
    return reading;
  }
  const auto length = static_cast<std::size_t>(endLine - startLine);
  slice.times.reserve(length);
  for (int column = 0; column < columns; ++column) slice.values[static_cast<std::size_t>(column)].reserve(length);

  LineCursor lines(file, search.place);
  std::int64_t lastPoint = 0;
  std::string_view line;
  while (lines.Next(line)) {
    if (lines.Number() < startLine) continue;
    std::optional<ChartRow> row;
    const LineKind kind = Classify(line, row);
    if (lines.Number() == endLine) {
      slice.moreFollow = kind == LineKind::kPoint;
      return reading;
    }
    if (kind == LineKind::kPoint) {
      TakeRow(*row, format, slice);
      lastPoint = lines.Number();
    }
    if (kind != LineKind::kMalformed) continue;
    reading.end = SliceEnd::kMalformedLine;
    reading.malformedLine = lines.Number();
    reading.malformedText = line;
    return reading;
  }
  slice.endOfFile = lines.Number() < endLine;
  slice.lastLine = lastPoint > 0 ? lastPoint : lines.Number() - 1;
  return reading;
}

}  // namespace chartproject
