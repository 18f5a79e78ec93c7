// Judging lines.
#include "recording/file/point_reader.h"

#include "common/values/text.h"

namespace chartproject {
namespace {

constexpr std::int64_t kLinesPerReport = 65536;

InputFile& Moved(InputFile& file, std::uint64_t offset) {
  file.Seek(offset);
  return file;
}

}  // namespace

PointReader::PointReader(InputFile& file, const RowStart& first)
    : lines_(Moved(file, first.offset), kLongestPointLine, first.line, first.offset), next_(first.line) {}

bool PointReader::Next(PointLine& line) {
  TextLine bytes;
  if (!lines_.Next(bytes)) return false;
  next_ = bytes.number + 1;
  line.number = bytes.number;
  line.offset = bytes.offset;
  line.text = Trim(bytes.text);
  if (line.text.empty() || line.text.front() == '\'') {
    line.kind = LineKind::kSkipped;
    return true;
  }
  const auto row = bytes.cut ? std::nullopt : SplitRow(line.text);
  line.kind = row ? LineKind::kPoint : LineKind::kMalformed;
  if (row) line.row = *row;
  return true;
}

bool PointReader::SkipTo(std::int64_t number, const CountProgress& progress) {
  TextLine passed;
  while (next_ < number && lines_.Next(passed)) {
    next_ = passed.number + 1;
    if (progress && next_ % kLinesPerReport == 0 && !progress(lines_.NextOffset())) return false;
  }
  return true;
}

std::optional<PointCount> CountPoints(InputFile& file, const RowStart& first, const CountProgress& progress) {
  PointCount count;
  PointReader points(file, first);
  for (PointLine line; points.Next(line);) {
    if (progress && line.number % kLinesPerReport == 0 && !progress(line.offset)) return std::nullopt;
    if (line.kind == LineKind::kMalformed) ++count.malformed;
    if (line.kind != LineKind::kPoint) continue;
    ++count.points;
    count.lastLine = line.number;
  }
  return count;
}

}  // namespace chartproject
