// Blocks that grow with the recording.
#include "chart/file/envelope.h"

#include <algorithm>
#include <utility>

namespace chartproject {
namespace {

/// From here on there is room for all: to move more blocks into a larger room takes as long as a key may wait.
constexpr std::size_t kFewBlocks = std::size_t{1} << 15U;

}  // namespace

void Envelope::Restart(int series) {
  series_ = series;
  lengths_.fill(kLeastBlock);
  for (auto& blocks : blocks_) {
    blocks.clear();
    blocks.shrink_to_fit();
  }
  SetLast({}, 0);
}

void Envelope::Restore(std::int64_t blockLength, std::array<std::vector<Extremes>, kColumnCount> blocks) {
  lengths_.fill(blockLength);
  blocks_ = std::move(blocks);
  SetLast({}, 0);
}

void Envelope::Add(const RowExtremes& block) {
  for (std::size_t s = 0; s < SeriesKept(); ++s) {
    if (blocks_[s].size() == kFewBlocks) blocks_[s].reserve(kMostBlocks);
    blocks_[s].push_back(block[s]);
  }
  SetLast({}, 0);
}

void Envelope::Halve() {
  const auto full = std::ranges::find_if(blocks_, [](const auto& each) { return each.size() == kMostBlocks; });
  if (full == blocks_.end()) return;
  std::vector<Extremes>& blocks = *full;
  const std::size_t half = blocks.size() / 2;
  for (std::size_t i = 0; i < half; ++i) {
    blocks[i] = blocks[2 * i];
    blocks[i].Take(blocks[2 * i + 1]);
  }
  blocks.resize(half);
  lengths_[static_cast<std::size_t>(full - blocks_.begin())] *= 2;
}

void Envelope::SetLast(const RowExtremes& block, std::int64_t lines) noexcept {
  last_ = block;
  lastLines_ = lines;
}

Extremes Envelope::Over(int series, std::int64_t first, std::int64_t end) const {
  const auto& blocks = blocks_[static_cast<std::size_t>(series)];
  const std::int64_t length = lengths_[static_cast<std::size_t>(series)];
  const auto count = static_cast<std::int64_t>(blocks.size());
  const auto blockFrom = [&](std::int64_t line) {
    return std::clamp<std::int64_t>((line + length - 1) / length, 0, count);
  };
  Extremes all;
  // Two at a time: each of them waits for the one before it only.
  Extremes others;
  auto b = static_cast<std::size_t>(blockFrom(first));
  const auto last = static_cast<std::size_t>(blockFrom(end));
  for (; b + 1 < last; b += 2) {
    all.Take(blocks[b]);
    others.Take(blocks[b + 1]);
  }
  if (b < last) all.Take(blocks[b]);
  all.Take(others);
  if (lastLines_ > 0 && WholeLines() >= first && WholeLines() < end) all.Take(last_[static_cast<std::size_t>(series)]);
  return all;
}

}  // namespace chartproject
