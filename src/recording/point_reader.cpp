// Judging lines.
#include "recording/point_reader.h"

#include "common/values/text.h"

namespace chartproject {
namespace {

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

void PointReader::SkipTo(std::int64_t number) {
  TextLine passed;
  while (next_ < number && lines_.Next(passed)) next_ = passed.number + 1;
}

}  // namespace chartproject
