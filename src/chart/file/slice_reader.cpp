// From a line number to the values of the points that begin there.
#include "chart/file/slice_reader.h"

#include "recording/file/field_value.h"
#include "recording/file/point_reader.h"

namespace chartproject {
namespace {

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

  PointReader points(file, {search.place.line, search.place.offset});
  points.SkipTo(startLine);
  std::int64_t lastPoint = 0;
  for (PointLine line; points.Next(line);) {
    if (line.number == endLine) {
      slice.moreFollow = line.kind == LineKind::kPoint;
      return reading;
    }
    if (line.kind == LineKind::kPoint) {
      TakeRow(line.row, format, slice);
      lastPoint = line.number;
    }
    if (line.kind != LineKind::kMalformed) continue;
    reading.end = SliceEnd::kMalformedLine;
    reading.malformedLine = line.number;
    reading.malformedText = line.text;
    return reading;
  }
  slice.endOfFile = true;
  slice.lastLine = lastPoint > 0 ? lastPoint : points.NextNumber() - 1;
  return reading;
}

}  // namespace chartproject
