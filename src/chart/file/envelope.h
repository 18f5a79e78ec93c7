// The least and greatest values of a whole recording, block by block: what a picture of all of it is drawn from.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "recording/file/chart_file.h"

namespace chartproject {

/// The least and greatest of some values; none of them is known while the least is above the greatest.
struct Extremes {
  double least = std::numeric_limits<double>::infinity();
  double greatest = -std::numeric_limits<double>::infinity();

  /// Takes a value in; NaN is a gap and does not count.
  void Take(double value) noexcept {
    least = value < least ? value : least;
    greatest = value > greatest ? value : greatest;
  }
  void Take(const Extremes& other) noexcept {
    least = other.least < least ? other.least : least;
    greatest = other.greatest > greatest ? other.greatest : greatest;
  }
  [[nodiscard]] bool Empty() const noexcept { return least > greatest; }
  friend bool operator==(const Extremes&, const Extremes&) = default;
};

/// Those of all the series.
using RowExtremes = std::array<Extremes, kColumnCount>;

/// Blocks of equally many lines. When there would be too many, two become one: 2,000,000,000 lines of four series are
/// in blocks of 4,096 and take 32 MiB, 100,000,000 are in blocks of 256; of a short recording every line is one. That
/// is done series by series, since the blocks of all of them take as long as a key may wait.
class Envelope {
 public:
  static constexpr std::int64_t kLeastBlock = 1;
  static constexpr std::size_t kMostBlocks = std::size_t{1} << 19U;

  /// Forgets everything. @param series 0 to 4
  void Restart(int series);

  [[nodiscard]] int SeriesCount() const noexcept { return series_; }
  /// Lines of a block, while it is not full.
  [[nodiscard]] std::int64_t BlockLength() const noexcept { return lengths_[0]; }
  /// Lines of the whole blocks and of the last, shorter one.
  [[nodiscard]] std::int64_t Lines() const noexcept { return WholeLines() + lastLines_; }
  [[nodiscard]] std::int64_t WholeLines() const noexcept {
    return static_cast<std::int64_t>(blocks_[0].size()) * lengths_[0];
  }

  /// Takes whole blocks over for those so far. @param blocks by series, equally many, less than kMostBlocks
  void Restore(std::int64_t blockLength, std::array<std::vector<Extremes>, kColumnCount> blocks);
  /// Adds a whole block of BlockLength() lines after the others, unless it is full.
  void Add(const RowExtremes& block);
  /// No block can be added before Halve was called until it is not full any more.
  [[nodiscard]] bool Full() const noexcept { return blocks_[SeriesKept() - 1].size() == kMostBlocks; }
  /// Makes one block of each two of the next series; twice as many lines are in a block then.
  void Halve();
  /// What follows the whole blocks; fewer than BlockLength() lines.
  void SetLast(const RowExtremes& block, std::int64_t lines) noexcept;

  /// Over the blocks that begin among the lines [first, end), counted from 0.
  [[nodiscard]] Extremes Over(int series, std::int64_t first, std::int64_t end) const;
  [[nodiscard]] std::span<const Extremes> Blocks(int series) const { return blocks_[static_cast<std::size_t>(series)]; }

 private:
  /// One at least: its blocks count the lines.
  [[nodiscard]] std::size_t SeriesKept() const noexcept { return series_ > 1 ? static_cast<std::size_t>(series_) : 1; }

  int series_ = 0;
  std::array<std::int64_t, kColumnCount> lengths_{kLeastBlock, kLeastBlock, kLeastBlock, kLeastBlock};
  std::array<std::vector<Extremes>, kColumnCount> blocks_;  ///< by series; the first counts the blocks of all
  RowExtremes last_;
  std::int64_t lastLines_ = 0;
};

}  // namespace chartproject
