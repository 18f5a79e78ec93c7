// acquire --rows -: every point as one JSON line on standard output, the moment it is taken.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "acquire/run/acquisition_run.h"
#include "chart/plain/moment_text.h"
#include "chart/plain/plain_line.h"
#include "recording/file/component.h"

namespace chartproject {

/// The lines have the shape of "export --plain --format jsonl"; their times are those of the readings. A reader that
/// goes away ends the stream, not the recording.
class RowStream {
 public:
  /// @param plan of the recording, whose drive's parameters name the columns; all outlive the stream
  RowStream(std::ostream& out, Component& component, const RunPlan& plan, const TimeZone& zone);

  /// Writes the last point of a run.
  void Write(const AcquisitionRun& run);

 private:
  std::ostream& out_;
  Component& component_;
  const TimeZone& zone_;
  std::vector<std::string> heads_;
  PlainLine line_;
  MomentText moments_;
  GrowingText text_;
};

}  // namespace chartproject
