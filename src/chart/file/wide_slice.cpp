// Pairs of rows out of blocks, or out of lines.
#include "chart/file/wide_slice.h"

#include <algorithm>
#include <span>

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
  const std::int64_t block = survey.Exact().BlockLength();
  for (int column = 0; column < columns; ++column) {
    std::vector<double>& values = slice.values[static_cast<std::size_t>(column)];
    values.reserve(slice.times.size());
    for (std::int64_t at = range.first; at < range.end; at += pair) {
      const std::int64_t from = pair < block ? at - at % block : at;  // the block that a short pair is in
      TakePair(survey.Over(column, from, std::min(at + pair, range.end), lines), slice.times.size(), values);
    }
  }
  return slice;
}

WideReading::WideReading(const WideRange& range, int columns, std::int64_t first)
    : range_(range), first_(first), slice_(Prepared(range, columns)), pairEnd_(range.first + 2 * range.pointsPerRow) {}

bool WideReading::ReadOn(InputFile& file, LineIndex& index, const NumberFormat& format) {
  constexpr std::size_t kPieceSize = std::size_t{64} * 1024;
  if (line_ < 0) {
    const LinePlace place = index.Find(file, first_ + range_.first).place;
    line_ = place.line - first_;
    offset_ = place.offset;
    buffer_.resize(kPieceSize);
  }
  file.Seek(offset_);
  std::size_t count = 0;
  for (std::size_t more = 1; more > 0 && count < buffer_.size(); count += more) {
    more = file.Read(std::span(buffer_).subspan(count));
  }
  const bool atEnd = count < buffer_.size();
  std::size_t whole = count;  // up to the end of the last line
  while (!atEnd && whole > 0 && buffer_[whole - 1] != '\n') --whole;
  if (whole == 0 && !atEnd) {
    buffer_.resize(2 * buffer_.size());  // a line longer than that
    return true;
  }
  offset_ += whole;
  TakeLines(buffer_.data(), buffer_.data() + whole, format);
  done_ = atEnd || line_ >= range_.end;
  if (!done_) return true;
  while (pairEnd_ - 2 * range_.pointsPerRow < range_.end) EndPair();
  buffer_ = {};
  return false;
}

void WideReading::TakeLines(const char* at, const char* end, const NumberFormat& format) {
  const int columns = slice_.columnsRead;
  RowValues values{};
  while (at != end && line_ < range_.end) {
    const LineKind kind = ScanRow(at, end, columns, format, values);
    if (line_ >= pairEnd_) EndPair();
    if (line_++ < range_.first || kind != LineKind::kPoint) continue;
    for (std::size_t k = 0; k < static_cast<std::size_t>(columns); ++k) extremes_[k].Take(values[k]);
  }
}

void WideReading::EndPair() {
  for (std::size_t k = 0; k < static_cast<std::size_t>(slice_.columnsRead); ++k) {
    TakePair(extremes_[k], slice_.times.size(), slice_.values[k]);
  }
  extremes_ = {};
  pairEnd_ += 2 * range_.pointsPerRow;
}

}  // namespace chartproject
