// Takes a survey over that an earlier opening of the same file has kept.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "chart/file/kept_layout.h"

namespace chartproject {

/// Its file may be damaged, or come from anybody: what does not hold is thrown away, and the chart file is read
/// instead.
class KeptReader {
 public:
  /// @param files outlives the reader; @param chartFile full name; @param key see kept::KeyOf
  KeptReader(FileSystem& files, const std::string& chartFile, std::string key);

  /// The line index, at once; `index` is left alone when nothing is kept of this state of the chart file. True when
  /// something is.
  bool ReadIndex(const LinePlace& first, LineIndex& index);
  /// After ReadIndex: the next piece of the envelope. True while something is left.
  bool ReadOn();
  /// The survey takes over what was read whole. False when it does not hold.
  bool TakeOver(FileSurvey& survey);

 private:
  [[nodiscard]] bool ReadHead(const LinePlace& first, std::vector<std::uint64_t>& offsets);
  [[nodiscard]] bool ReadFully(void* bytes, std::size_t count);
  /// Damaged or out of date: it is of no use any more.
  void ThrowAway();

  FileSystem& files_;
  std::string name_;
  std::string key_;
  std::unique_ptr<InputFile> file_;
  kept::Head head_;
  kept::Checksum sum_;
  std::array<std::vector<Extremes>, kColumnCount> blocks_;
  std::size_t series_ = 0;  ///< that is read now
  bool whole_ = false;
};

}  // namespace chartproject
