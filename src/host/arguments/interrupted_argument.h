// The name of an interrupted recording where a chart file is wanted.
#pragma once

#include <string>
#include <vector>

#include "platform/ports.h"
#include "recording/journal/interrupted.h"

namespace chartproject {

/// What a name means that is given as a chart file.
struct InterruptedArgument {
  std::string chartFile;                         ///< of the recording
  std::vector<InterruptedRecording> recordings;  ///< what is left beside the chart file; empty for a plain chart file
  bool running = false;                          ///< it is being recorded now
  bool noChartFile = false;  ///< the name is not that of a chart file: nothing has it, or it is a journal or spool file

  [[nodiscard]] bool Found() const noexcept { return !recordings.empty(); }
  [[nodiscard]] std::int64_t Points() const noexcept;
  /// The command that brings it back; empty while it runs.
  [[nodiscard]] std::string Command() const;
  /// What it is, and which command brings it back, in a sentence.
  [[nodiscard]] std::string Sentence() const;
};

/// Looks beside a full name. Never throws for a name that does not exist.
[[nodiscard]] InterruptedArgument LookForInterrupted(Ports& ports, const std::string& name);

/// Throws RunTimeError 321 with the sentence when the name is that of an interrupted recording without a chart file.
void RefuseInterrupted(Ports& ports, const std::string& name);

}  // namespace chartproject
