// The chart file that a command was given, and the file that it is to write.
#pragma once

#include <string>

#include "platform/ports.h"
#include "recording/file/chart_header.h"

namespace chartproject {

/// Reads the header of a chart file. A key that the file lacks keeps its former value. Throws RunTimeError: 321 for a
/// file that is not a chart file, else what opening and reading throw.
void ReadHeaderOf(Ports& ports, const std::string& chartFile, ChartHeader& header);

/// Throws RefusedError when writing `output` would replace the chart file itself, under its own name or that of a
/// symbolic or hard link. Both are full names.
void RefuseOutputOnto(const std::string& chartFile, const std::string& output);
/// Throws RefusedError when the output is there and begins like a chart file, and NotARegularFile. Not for tables: a
/// plain text table begins so, too.
void RefuseOutputOntoRecording(Ports& ports, const std::string& output);

}  // namespace chartproject
