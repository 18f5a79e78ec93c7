// A scripted plant: which text each parameter of each drive has from which moment on, and when a drive is silent.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/file_system.h"

namespace chartproject {

/// The script's lines, where "#" begins a comment and times are milliseconds since the link was opened:
///   at 1500 01 P005 50.25     parameter 5 of drive 01 has this text from now on
///   at 1500 01 silent         every read of drive 01 fails from now on
///   at 2600 01 answers        and no longer
/// Lines may be in any order; of two lines for the same moment the later one holds.
class ScenarioScript {
 public:
  /// Reads a script file (UTF-8). Throws RunTimeError 53 when it is missing, 5 for a malformed line, naming file, line
  /// number and line.
  [[nodiscard]] static ScenarioScript Load(FileSystem& files, const std::string& fileName);

  /// True when the drive is silent at a moment.
  [[nodiscard]] bool IsSilent(int address, std::int64_t milliseconds) const;
  /// The parameter's text at a moment; null when it has none yet.
  [[nodiscard]] const std::string* TextAt(int address, int parameter, std::int64_t milliseconds) const;

 private:
  template <typename Value>
  using Timeline = std::vector<std::pair<std::int64_t, Value>>;

  [[nodiscard]] bool TakeLine(std::string_view line);
  void SortTimelines();

  std::unordered_map<int, Timeline<std::string>> texts_;  ///< by address x 1000 + parameter
  std::unordered_map<int, Timeline<bool>> silences_;      ///< by address
};

}  // namespace chartproject
