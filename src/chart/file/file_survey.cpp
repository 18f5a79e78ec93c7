// Samples first, then line after line.
#include "chart/file/file_survey.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "chart/file/row_scan.h"

namespace chartproject {
namespace {

constexpr std::size_t kPieceSize = std::size_t{64} * 1024;
constexpr std::size_t kUnsampledSize = std::size_t{1024} * 1024;  ///< of files that are read in no time
constexpr std::size_t kSampleSize = 4096;
constexpr int kSamplesPerPiece = 4;  ///< each may be somewhere else on a disk

/// As many bytes as there are, up to the room.
std::size_t ReadFull(InputFile& file, std::uint64_t offset, std::span<char> room) {
  file.Seek(offset);
  std::size_t filled = 0;
  while (filled < room.size()) {
    const std::size_t count = file.Read(room.subspan(filled));
    if (count == 0) break;
    filled += count;
  }
  return filled;
}

const char* AfterLineFeed(const char* from, const char* end) {
  const void* const feed = std::memchr(from, '\n', static_cast<std::size_t>(end - from));
  return feed == nullptr ? nullptr : static_cast<const char*>(feed) + 1;
}

const char* AfterLastLineFeed(const char* from, const char* end) {
  while (end != from && end[-1] != '\n') --end;
  return end;
}

void TakeRow(const RowValues& values, int series, RowExtremes& extremes) noexcept {
  for (std::size_t s = 0; s < static_cast<std::size_t>(series); ++s) extremes[s].Take(values[s]);
}

}  // namespace

void FileSurvey::Restart(const LinePlace& first, int series) {
  first_ = next_ = first;
  envelope_.Restart(series);
  block_ = {};
  blockLines_ = 0;
  skipping_ = complete_ = false;
  samples_.clear();
  buffer_ = {};
}

bool FileSurvey::ReadOn(InputFile& file, LineIndex& index, const NumberFormat& format) {
  buffer_.resize(kPieceSize);
  if (samples_.size() < kSamples) {
    ReadSamples(file, format);
    return true;
  }
  if (envelope_.Full()) {
    envelope_.Halve();
  } else {
    ReadPiece(file, index, format);
  }
  if (complete_) buffer_ = {};
  return !complete_ || envelope_.Full();
}

void FileSurvey::ReadSamples(InputFile& file, const NumberFormat& format) {
  const std::uint64_t size = std::max(file.Identity().size, first_.offset) - first_.offset;
  if (size <= kUnsampledSize) {
    samples_.resize(kSamples);
    return;
  }
  const std::span room = std::span(buffer_).first(kSampleSize);
  for (int i = 0; i < kSamplesPerPiece; ++i) {
    RowExtremes extremes;
    RowValues values{};
    const std::uint64_t offset = first_.offset + size / kSamples * samples_.size();
    const char* const end = room.data() + ReadFull(file, offset, room);
    const char* at = AfterLineFeed(room.data(), end);
    const char* const last = at == nullptr ? nullptr : AfterLastLineFeed(at, end);
    while (at != last) {
      if (ScanRow(at, last, envelope_.SeriesCount(), format, values) == LineKind::kPoint) {
        TakeRow(values, envelope_.SeriesCount(), extremes);
      }
    }
    samples_.push_back(extremes);
  }
}

void FileSurvey::ReadPiece(InputFile& file, LineIndex& index, const NumberFormat& format) {
  const char* const begin = buffer_.data();
  complete_ = false;
  const std::size_t count = ReadFull(file, next_.offset, buffer_);
  const bool atEnd = count < buffer_.size();
  const char* const end = begin + count;
  const char* at = begin;
  if (skipping_) {
    at = AfterLineFeed(begin, end);
    skipping_ = at == nullptr;
    if (skipping_) {
      next_.offset += count;
    } else {
      LineEnded(next_.offset + static_cast<std::uint64_t>(at - begin), index);
    }
  }
  if (!skipping_) {
    const char* const last = AfterLastLineFeed(at, end);
    if (TakeLines(at, last, index, format) != last) return;
    // No line end in a whole piece: the line is not a point, however it goes on.
    skipping_ = last == at && at == begin && !atEnd;
    if (skipping_) next_.offset += count;
    at = last;
  }
  complete_ = atEnd;
  RowExtremes shown = block_;
  std::int64_t lines = blockLines_;
  if (atEnd && (skipping_ || at != end)) {
    // The last line has no end: it counts, but it may be written on.
    RowValues values{};
    ++lines;
    if (!skipping_ && ScanRow(at, end, envelope_.SeriesCount(), format, values) == LineKind::kPoint) {
      TakeRow(values, envelope_.SeriesCount(), shown);
    }
  }
  envelope_.SetLast(shown, lines);
}

const char* FileSurvey::TakeLines(const char* at, const char* end, LineIndex& index, const NumberFormat& format) {
  const int series = envelope_.SeriesCount();
  const std::uint64_t offset = next_.offset;
  const char* const begin = at;
  RowValues values{};
  while (at != end && !envelope_.Full()) {
    if (ScanRow(at, end, series, format, values) == LineKind::kPoint) TakeRow(values, series, block_);
    LineEnded(offset + static_cast<std::uint64_t>(at - begin), index);
  }
  return at;
}

/// @param next offset of the line after it
void FileSurvey::LineEnded(std::uint64_t next, LineIndex& index) {
  next_ = {next_.line + 1, next};
  if (++blockLines_ == envelope_.BlockLength()) {
    envelope_.Add(block_);
    block_ = {};
    blockLines_ = 0;
  }
  if ((next_.line - first_.line) % LineIndex::kSpacing == 0) index.Learn(next_);
}

SurveyState FileSurvey::JoinedState(std::int64_t blocks) const {
  const std::int64_t length = envelope_.BlockLength() * blocks;
  const std::int64_t begin = envelope_.WholeLines() / length * length;
  const std::int64_t rest = envelope_.WholeLines() - begin;
  SurveyState state{next_, length, block_, rest + blockLines_, {}, rest + envelope_.Lines() - envelope_.WholeLines()};
  for (int s = 0; s < envelope_.SeriesCount(); ++s) {
    Extremes& block = state.block[static_cast<std::size_t>(s)];
    for (const Extremes& each :
         envelope_.Blocks(s).subspan(static_cast<std::size_t>(begin / envelope_.BlockLength()))) {
      block.Take(each);
    }
    state.last[static_cast<std::size_t>(s)] = envelope_.Over(s, begin, envelope_.Lines() + 1);
  }
  return state;
}

void FileSurvey::Restore(const SurveyState& state, std::array<std::vector<Extremes>, kColumnCount> blocks) {
  envelope_.Restore(state.blockLength, std::move(blocks));
  envelope_.SetLast(state.last, state.lastLines);
  next_ = state.next;
  block_ = state.block;
  blockLines_ = state.blockLines;
  skipping_ = false;
  complete_ = true;
  samples_.resize(kSamples);
  buffer_ = {};
}

void FileSurvey::Shift(std::int64_t lines, std::uint64_t bytes) noexcept {
  for (LinePlace* place : {&first_, &next_}) {
    place->line += lines;
    place->offset += bytes;
  }
}

Extremes FileSurvey::Over(int series, std::int64_t first, std::int64_t end, std::int64_t lines) const {
  Extremes all = envelope_.Over(series, first, end);
  if (complete_ || samples_.size() < kSamples || lines <= 0 || end <= envelope_.Lines()) return all;
  const auto sampleAt = [lines](std::int64_t line) {
    return static_cast<std::size_t>(std::clamp<std::int64_t>(line * kSamples / lines, 0, kSamples - 1));
  };
  const std::size_t last = sampleAt(end - 1);
  for (std::size_t i = sampleAt(std::max(first, envelope_.Lines())); i <= last; ++i) {
    all.Take(samples_[i][static_cast<std::size_t>(series)]);
  }
  return all;
}

}  // namespace chartproject
