// Reads a whole chart file in small pieces for its envelope: coarse at once, exact when all is read.
#pragma once

#include <array>
#include <vector>

#include "chart/file/envelope.h"
#include "chart/file/line_index.h"
#include "platform/locale.h"

namespace chartproject {

/// Where a survey is, beside its whole blocks.
struct SurveyState {
  LinePlace next;                ///< the line that is read next
  std::int64_t blockLength = 1;  ///< lines of the whole blocks
  RowExtremes block{};           ///< of the lines since the last of them
  std::int64_t blockLines = 0;
  RowExtremes last{};  ///< the same with a last line that has no end
  std::int64_t lastLines = 0;
};

/// A piece takes a fraction of a millisecond, two where the envelope is halved: the caller reads as many as it has time
/// for. What is not read yet is known from samples at places all over the file.
class FileSurvey {
 public:
  static constexpr int kSamples = 512;

  /// Begins anew. @param first the first point's line; @param series 0 to 4
  void Restart(const LinePlace& first, int series);

  /// Reads the next piece; the line index learns the places of the lines on the way. True while something is left.
  /// A file that has grown is read on by the next call. Throws RunTimeError 57 on a device error.
  bool ReadOn(InputFile& file, LineIndex& index, const NumberFormat& format);

  /// Complete, and at the beginning of a line that may still come.
  [[nodiscard]] bool Settled() const noexcept { return complete_ && !skipping_; }
  /// The state as if so many of the whole blocks were one each; blocks that are too few for one are part of its rest.
  [[nodiscard]] SurveyState JoinedState(std::int64_t blocks) const;
  /// Goes on from where a survey of the same file was complete. @param blocks by series, finite or empty
  void Restore(const SurveyState& state, std::array<std::vector<Extremes>, kColumnCount> blocks);

  /// The same lines are in another file now, that many lines and bytes further on.
  void Shift(std::int64_t lines, std::uint64_t bytes) noexcept;

  /// Exact up to Envelope::Lines().
  [[nodiscard]] const Envelope& Exact() const noexcept { return envelope_; }
  /// Whether the whole file, as it was at the last call of ReadOn, is known.
  [[nodiscard]] bool Complete() const noexcept { return complete_; }
  /// The extremes of the lines [first, end), counted from 0: exact as far as the file is read, from samples beyond.
  /// @param lines of the whole file
  [[nodiscard]] Extremes Over(int series, std::int64_t first, std::int64_t end, std::int64_t lines) const;

 private:
  void ReadSamples(InputFile& file, const NumberFormat& format);
  void ReadPiece(InputFile& file, LineIndex& index, const NumberFormat& format);
  /// Up to the end, or to where the envelope is full. @return the line after those that were taken
  const char* TakeLines(const char* at, const char* end, LineIndex& index, const NumberFormat& format);
  void LineEnded(std::uint64_t next, LineIndex& index);

  LinePlace first_;
  LinePlace next_;  ///< the line that is read next
  Envelope envelope_;
  RowExtremes block_;  ///< of the lines since the last whole block
  std::int64_t blockLines_ = 0;
  bool skipping_ = false;  ///< in the midst of a line that is too long to be a point
  bool complete_ = false;
  std::vector<RowExtremes> samples_;
  std::vector<char> buffer_;
};

}  // namespace chartproject
