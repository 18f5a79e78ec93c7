// Pairs of rows out of blocks, or out of lines.
#include "chart/file/wide_slice.h"

#include <algorithm>
#include <cstring>

#include "chart/file/row_scan.h"

namespace chartproject {
namespace {

constexpr std::int64_t kMostRows = 1310;  // of a division, as a slice has at most

/// The slice without its values.
Slice Prepared(const WideRange& range, int columns) {
  Slice slice;
  slice.pointsPerRow = range.pointsPerRow;
  slice.columnsRead = slice.columnsInUse = columns;
  const std::int64_t rows = (range.end - range.first + range.pointsPerRow - 1) / range.pointsPerRow;
  slice.times.resize(static_cast<std::size_t>(rows));
  return slice;
}

void TakePair(const Extremes& extremes, std::size_t rows, std::vector<double>& values) {
  constexpr double kGap = std::numeric_limits<double>::quiet_NaN();
  for (const double value : {extremes.least, extremes.greatest}) {
    if (values.size() < rows) values.push_back(extremes.Empty() ? kGap : value);
  }
}

}  // namespace

WideDivision ChooseWideDivision(std::int64_t points) {
  std::int64_t unit = 10;  // three digits, and zeros after them
  while ((points + unit - 1) / unit > 1000) unit *= 10;
  const std::int64_t count = (points + unit - 1) / unit;
  const std::int64_t parts = count * 5 <= kMostRows ? 5 : count * 2 <= kMostRows ? 2 : 1;
  return {count * unit, unit / parts};
}

std::int64_t LinesToRead(const FileSurvey& survey) {
  constexpr std::int64_t kEnoughBlocks = 2048;  // more than a screen has columns
  return survey.Exact().BlockLength() * kEnoughBlocks;
}

Slice WideSlice(const FileSurvey& survey, const WideRange& range, int columns, std::int64_t lines) {
  Slice slice = Prepared(range, columns);
  const std::int64_t pair = 2 * range.pointsPerRow;
  for (int column = 0; column < columns; ++column) {
    std::vector<double>& values = slice.values[static_cast<std::size_t>(column)];
    values.reserve(slice.times.size());
    for (std::int64_t at = range.first; at < range.end; at += pair) {
      TakePair(survey.Over(column, at, std::min(at + pair, range.end), lines), slice.times.size(), values);
    }
  }
  return slice;
}

Slice ReadWideSlice(InputFile& file, LineIndex& index, std::int64_t first, const WideRange& range, int columns,
                    const NumberFormat& format) {
  constexpr std::size_t kPieceSize = std::size_t{256} * 1024;
  Slice slice = Prepared(range, columns);
  const LinePlace place = index.Find(file, first + range.first).place;
  std::int64_t line = place.line - first;
  std::int64_t pairEnd = range.first + 2 * range.pointsPerRow;
  RowExtremes extremes;
  const auto endPair = [&] {
    for (std::size_t k = 0; k < static_cast<std::size_t>(columns); ++k) {
      TakePair(extremes[k], slice.times.size(), slice.values[k]);
    }
    extremes = {};
    pairEnd += 2 * range.pointsPerRow;
  };
  std::vector<char> buffer(kPieceSize);
  RowValues values{};
  std::size_t kept = 0;
  bool atEnd = false;
  file.Seek(place.offset);
  while (!atEnd && line < range.end) {
    const std::size_t count = file.Read(std::span(buffer).subspan(kept));
    atEnd = count == 0;
    const char* at = buffer.data();
    const char* end = at + kept + count;
    while (!atEnd && end != at && end[-1] != '\n') --end;
    while (at != end && line < range.end) {
      const LineKind kind = ScanRow(at, end, columns, format, values);
      if (line >= pairEnd) endPair();
      if (line++ < range.first || kind != LineKind::kPoint) continue;
      for (std::size_t k = 0; k < static_cast<std::size_t>(columns); ++k) extremes[k].Take(values[k]);
    }
    kept += count;
    kept -= static_cast<std::size_t>(end - buffer.data());
    std::memmove(buffer.data(), end, kept);
    if (kept == buffer.size()) buffer.resize(2 * buffer.size());  // a line longer than that
  }
  while (pairEnd - 2 * range.pointsPerRow < range.end) endPair();
  return slice;
}

}  // namespace chartproject
