// Counting lines in large blocks, eight bytes at a time.
#include "chart/file/line_index.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "common/values/byte_words.h"

namespace chartproject {
namespace {

constexpr std::size_t kBlockSize = std::size_t{256} * 1024;
/// Blocks between two calls of the progress function: some milliseconds of reading.
constexpr int kBlocksPerReport = 16;
/// Few enough bytes that looking through them again for one line costs nothing.
constexpr std::size_t kPieceSize = 4096;

/// Sum of the eight bytes of a word.
constexpr std::int64_t SumOfBytes(std::uint64_t word) noexcept {
  constexpr std::uint64_t kEvenBytes = 0x00FF00FF00FF00FFU;
  const std::uint64_t pairs = (word & kEvenBytes) + ((word >> 8) & kEvenBytes);
  return static_cast<std::int64_t>((pairs * 0x0001000100010001U) >> 48);
}

}  // namespace

std::int64_t CountLineFeeds(const char* bytes, std::size_t count) noexcept {
  constexpr std::size_t kWordsPerSum = 255;  // as many as a byte can count
  std::int64_t total = 0;
  while (count >= kWordSize) {
    const std::size_t words = std::min(count / kWordSize, kWordsPerSum);
    std::uint64_t sums = 0;
    for (std::size_t i = 0; i < words; ++i) sums += BytesEqual(LoadWord(bytes + i * kWordSize), '\n');
    total += SumOfBytes(sums);
    bytes += words * kWordSize;
    count -= words * kWordSize;
  }
  return total + std::count(bytes, bytes + count, '\n');
}

void LineIndex::Restart(const LinePlace& first) {
  firstLine_ = first.line;
  offsets_.assign(1, first.offset);
  offsets_.shrink_to_fit();
  scanned_ = first.offset;
  line_ = first.line;
}

LinePlace LineIndex::NearestTo(std::int64_t line) const {
  const auto known = static_cast<std::int64_t>(offsets_.size()) - 1;
  const std::int64_t entry = std::clamp<std::int64_t>((line - firstLine_) / kSpacing, 0, known);
  return {firstLine_ + entry * kSpacing, offsets_[static_cast<std::size_t>(entry)]};
}

void LineIndex::Learn(const LinePlace& place) {
  if (place.line != firstLine_ + static_cast<std::int64_t>(offsets_.size()) * kSpacing) return;
  offsets_.push_back(place.offset);
  scanned_ = place.offset;
  line_ = place.line;
}

void LineIndex::Restore(std::vector<std::uint64_t> offsets) {
  if (offsets.size() <= offsets_.size()) return;
  offsets_ = std::move(offsets);
  scanned_ = offsets_.back();
  line_ = firstLine_ + (static_cast<std::int64_t>(offsets_.size()) - 1) * kSpacing;
}

void LineIndex::Shift(std::int64_t lines, std::uint64_t bytes) noexcept {
  firstLine_ += lines;
  line_ += lines;
  scanned_ += bytes;
  for (std::uint64_t& offset : offsets_) offset += bytes;
}

std::optional<std::int64_t> LineIndex::CountLines(InputFile& file, const ScanProgress& progress) {
  if (!ScanOn(file, std::numeric_limits<std::int64_t>::max(), progress)) return std::nullopt;
  return line_ - firstLine_;
}

LineSearch LineIndex::Find(InputFile& file, std::int64_t line, const ScanProgress& progress) {
  if (offsets_.empty()) Restart({firstLine_, 0});
  LineSearch search;
  if (line > line_ && !ScanOn(file, line, progress)) search.end = LineSearchEnd::kGivenUp;
  if (search.end == LineSearchEnd::kFound && line > line_) search.end = LineSearchEnd::kEndOfFile;
  search.place = NearestTo(std::min(line, line_));
  return search;
}

bool LineIndex::ScanOn(InputFile& file, std::int64_t line, const ScanProgress& progress) {
  std::vector<char> block(kBlockSize);
  const std::uint64_t from = scanned_;
  const double left = static_cast<double>(std::max(file.Identity().size, from + 1) - from);
  file.Seek(scanned_);
  for (int blocks = 1; line_ < line; ++blocks) {
    const std::size_t count = file.Read(block);
    if (count == 0) break;
    TakeBlock(block.data(), count);
    if (blocks % kBlocksPerReport != 0 || !progress) continue;
    if (!progress(std::min(1.0, static_cast<double>(scanned_ - from) / left))) return line_ >= line;
  }
  return true;
}

void LineIndex::TakeBlock(const char* bytes, std::size_t count) {
  const char* const end = bytes + count;
  while (bytes != end) {
    const std::size_t piece = std::min(kPieceSize, static_cast<std::size_t>(end - bytes));
    const std::int64_t feeds = CountLineFeeds(bytes, piece);
    std::int64_t next = firstLine_ + static_cast<std::int64_t>(offsets_.size()) * kSpacing;
    // The piece may begin lines that the index keeps: look for them one by one.
    std::size_t at = 0;
    std::int64_t line = line_;
    while (line_ + feeds >= next) {
      while (line < next) {
        at = static_cast<std::size_t>(static_cast<const char*>(std::memchr(bytes + at, '\n', piece - at)) - bytes) + 1;
        ++line;
      }
      offsets_.push_back(scanned_ + at);
      next += kSpacing;
    }
    line_ += feeds;
    scanned_ += piece;
    bytes += piece;
  }
}

}  // namespace chartproject
