// A scripted plant: which text each parameter of each drive has from which moment on, and how its readings go wrong.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "drive/read_outcome.h"
#include "platform/file_system.h"

namespace chartproject {

/// The script's lines, where "#" begins a comment and times are milliseconds since the link was opened:
///   at 1500 01 P005 50.25     parameter 5 of drive 01 has this text from now on
///   at 1500 01 silent         drive 01 does not answer from now on
///   at 1500 01 fails 3 TEXT   its readings fail with this status: a ReadFailure up to kPortGone, else a link's own
///                             status, to 32767; with a text, which may be left out, as detail
///   at 1500 01 breaks TEXT    the link object fails when drive 01 is read, with this description
///   at 2600 01 answers        none of these any longer
///   at 3000 01 slow 300       a reading of drive 01 takes 300 ms from now on; 0 ends it
///   at 4000 01 late 900       the next reading of drive 01 takes 900 ms more, once
/// Lines may be in any order; of two lines for the same moment the later one holds.
class ScenarioScript {
 public:
  /// Reads a script file (UTF-8). Throws RunTimeError 53 when it is missing, 5 for a malformed line, naming file, line
  /// number and line.
  [[nodiscard]] static ScenarioScript Load(FileSystem& files, const std::string& fileName);

  /// What becomes of the drive's readings at a moment, as far as the drive is concerned. kBroken: the link object
  /// fails with the detail as description.
  [[nodiscard]] ReadOutcome OutcomeAt(int address, std::int64_t milliseconds) const;
  /// How long a reading that begins at a moment takes, in milliseconds.
  [[nodiscard]] std::int64_t DelayAt(int address, std::int64_t milliseconds) const;
  /// What a reading takes longer, once, when the one before it began at `after`: the lines "late" since then, up to
  /// and with `upTo`. Milliseconds.
  [[nodiscard]] std::int64_t LatenessBetween(int address, std::int64_t after, std::int64_t upTo) const;
  /// The parameter's text at a moment; null when it has none yet.
  [[nodiscard]] const std::string* TextAt(int address, int parameter, std::int64_t milliseconds) const;

 private:
  template <typename Value>
  using Timeline = std::vector<std::pair<std::int64_t, Value>>;

  [[nodiscard]] bool TakeLine(std::string_view line);
  [[nodiscard]] bool TakeConduct(int drive, std::int64_t time, std::string_view verb, std::string_view rest);
  void SortTimelines();

  std::unordered_map<int, Timeline<std::string>> texts_;     ///< by address x 1000 + parameter
  std::unordered_map<int, Timeline<ReadOutcome>> outcomes_;  ///< by address
  std::unordered_map<int, Timeline<std::int64_t>> delays_;   ///< by address
  std::unordered_map<int, Timeline<std::int64_t>> lates_;    ///< by address
};

}  // namespace chartproject
