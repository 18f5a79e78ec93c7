// Looked for before a command opens its file.
#include "host/arguments/interrupted_argument.h"

#include "platform/run_time_error.h"

namespace chartproject {

std::int64_t InterruptedArgument::Points() const noexcept {
  std::int64_t points = 0;
  for (const InterruptedRecording& recording : recordings) points += recording.rows.points;
  return points;
}

std::string InterruptedArgument::Command() const {
  return running ? std::string() : "chartproject recover \"" + chartFile + "\"";
}

std::string InterruptedArgument::Sentence() const {
  const std::string points = std::to_string(Points()) + " points";
  if (running) {
    return chartFile + " is being recorded; it has " + points +
           " so far; this command shows them: chartproject view --follow \"" + chartFile + "\"";
  }
  return chartFile + " is an interrupted recording of " + points + "; this command brings it back: " + Command();
}

InterruptedArgument LookForInterrupted(Ports& ports, const std::string& name) {
  InterruptedArgument argument;
  argument.chartFile = ChartFileOf(name);
  argument.noChartFile = IsJournalOrSpoolName(name) || !ports.files.FileExists(name);
  argument.recordings = FindBeside(ports.files, ports.codePage, argument.chartFile);
  if (argument.Found()) argument.running = IsBeingRecorded(ports.files, argument.chartFile);
  return argument;
}

void RefuseInterrupted(Ports& ports, const std::string& name) {
  if (!IsJournalOrSpoolName(name) && ports.files.FileExists(name)) return;
  const InterruptedArgument argument = LookForInterrupted(ports, name);
  if (argument.Found()) throw RunTimeError(error_number::kInvalidFileFormat, argument.Sentence());
}

}  // namespace chartproject
