// Blocks that grow with the recording.
#include "chart/file/envelope.h"

#include <algorithm>
#include <utility>

namespace chartproject {

void Envelope::Restart(int series) {
  series_ = series;
  blockLength_ = kLeastBlock;
  for (auto& blocks : blocks_) {
    blocks.clear();
    blocks.shrink_to_fit();
  }
  SetLast({}, 0);
}

void Envelope::Restore(std::int64_t blockLength, std::array<std::vector<Extremes>, kColumnCount> blocks) {
  blockLength_ = blockLength;
  blocks_ = std::move(blocks);
  SetLast({}, 0);
}

void Envelope::Add(const RowExtremes& block) {
  const std::size_t kept = std::max<std::size_t>(1, static_cast<std::size_t>(series_));
  for (std::size_t s = 0; s < kept; ++s) blocks_[s].push_back(block[s]);
  SetLast({}, 0);
  if (blocks_[0].size() == kMostBlocks) HalveBlocks();
}

void Envelope::HalveBlocks() {
  for (auto& blocks : blocks_) {
    const std::size_t half = blocks.size() / 2;
    for (std::size_t i = 0; i < half; ++i) {
      blocks[i] = blocks[2 * i];
      blocks[i].Take(blocks[2 * i + 1]);
    }
    blocks.resize(half);
  }
  blockLength_ *= 2;
}

void Envelope::SetLast(const RowExtremes& block, std::int64_t lines) noexcept {
  last_ = block;
  lastLines_ = lines;
}

Extremes Envelope::Over(int series, std::int64_t first, std::int64_t end) const {
  const auto& blocks = blocks_[static_cast<std::size_t>(series)];
  const auto count = static_cast<std::int64_t>(blocks.size());
  const auto blockFrom = [&](std::int64_t line) {
    return std::clamp<std::int64_t>((line + blockLength_ - 1) / blockLength_, 0, count);
  };
  Extremes all;
  for (std::int64_t b = blockFrom(first); b < blockFrom(end); ++b) all.Take(blocks[static_cast<std::size_t>(b)]);
  if (lastLines_ > 0 && WholeLines() >= first && WholeLines() < end) all.Take(last_[static_cast<std::size_t>(series)]);
  return all;
}

}  // namespace chartproject
