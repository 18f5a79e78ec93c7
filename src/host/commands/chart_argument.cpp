// Chart files are hours of a plant's life: a command never writes over the one it reads.
#include "host/commands/chart_argument.h"

#include <filesystem>

#include "host/commands/command.h"
#include "platform/run_time_error.h"
#include "recording/chart_file.h"

namespace chartproject {

void ReadHeaderOf(Ports& ports, const std::string& chartFile, ChartHeader& header) {
  const auto file = ports.files.OpenForReading(chartFile);
  if (ReadChartHeader(*file, ports.codePage, header).keys == 0) {
    throw RunTimeError(error_number::kInvalidFileFormat, Text::kNotAChartFile, {chartFile});
  }
}

void RefuseOutputOnto(const std::string& chartFile, const std::string& output) {
  for (const char* const ending : {"", ".part"}) {  // outputs are written beside their name first
    std::error_code missing;                        // a name without a file is no other file's
    if (chartFile == output + ending || std::filesystem::equivalent(chartFile, output + ending, missing)) {
      throw RefusedError("--output: " + output + ending + " is the chart file itself; nothing was written");
    }
  }
}

}  // namespace chartproject
