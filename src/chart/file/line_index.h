// Where the lines of a long file begin: sparse, built only as far as it was needed, kept while the file only grows.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/file_system.h"

namespace chartproject {

/// A line and the byte offset at which it begins.
struct LinePlace {
  std::int64_t line = 0;
  std::uint64_t offset = 0;
};

/// Receives the progress of a long search now and then, as a part (0 to 1) of the rest of the file. Returning false
/// stops the search.
using ScanProgress = std::function<bool(double part)>;

enum class LineSearchEnd : std::uint8_t {
  kFound,
  kEndOfFile,  ///< the file has no such line
  kGivenUp
};

struct LineSearch {
  LineSearchEnd end = LineSearchEnd::kFound;
  LinePlace place;  ///< the nearest known line at or before the one that was looked for
};

/// One offset every kSpacing lines: 2,000,000,000 lines take 4 MiB. Lines end at a line feed. A cancelled
/// search loses nothing: the next one continues where it stopped.
class LineIndex {
 public:
  static constexpr std::int64_t kSpacing = 4096;

  /// Forgets everything; `first` is the first line that will be looked for.
  void Restart(const LinePlace& first);

  /// Finds the nearest indexed line at or before `line` (the first one or later), reading the file on when it is
  /// further than the index knows. Throws RunTimeError when the file cannot be read.
  LineSearch Find(InputFile& file, std::int64_t line, const ScanProgress& progress = {});
  /// Takes a place over from another reader of the same file; of use when it is the next one that the index keeps.
  void Learn(const LinePlace& place);
  /// One offset for each kSpacing lines, that of the first line first.
  [[nodiscard]] const std::vector<std::uint64_t>& Offsets() const noexcept { return offsets_; }
  /// Takes all the places over that were learned of the same file before, unless there are more by now.
  void Restore(std::vector<std::uint64_t> offsets);
  /// The same lines are in another file now, that many lines and bytes further on.
  void Shift(std::int64_t lines, std::uint64_t bytes) noexcept;
  /// The last line that is found without much reading.
  [[nodiscard]] std::int64_t Reach() const noexcept { return line_ + kSpacing; }
  /// Reads on to the end of the file, as it is now, and counts the lines that have an end. Throws RunTimeError 57.
  /// Nothing when the progress function stopped it.
  std::optional<std::int64_t> CountLines(InputFile& file, const ScanProgress& progress = {});

 private:
  [[nodiscard]] LinePlace NearestTo(std::int64_t line) const;
  bool ScanOn(InputFile& file, std::int64_t line, const ScanProgress& progress);
  void TakeBlock(const char* bytes, std::size_t count);

  std::int64_t firstLine_ = 1;
  std::vector<std::uint64_t> offsets_;  ///< of firstLine_, firstLine_ + kSpacing, ...
  std::uint64_t scanned_ = 0;
  std::int64_t line_ = 1;  ///< the line that holds, or begins at, the byte at scanned_
};

/// How many line feeds a block holds.
[[nodiscard]] std::int64_t CountLineFeeds(const char* bytes, std::size_t count) noexcept;

}  // namespace chartproject
