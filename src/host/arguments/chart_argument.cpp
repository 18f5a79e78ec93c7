// Chart files are hours of a plant's life: a command never writes over the one it reads.
#include "host/arguments/chart_argument.h"

#include <array>
#include <filesystem>
#include <span>
#include <string_view>

#include "host/arguments/command.h"
#include "platform/run_time_error.h"
#include "recording/file/chart_file.h"

namespace chartproject {

namespace {
constexpr std::string_view kBegin = "[INFO]";  // of every chart file
}

void ReadHeaderOf(Ports& ports, const std::string& chartFile, ChartHeader& header) {
  const auto file = ports.files.OpenForReading(chartFile);
  if (ReadChartHeader(*file, ports.codePage, header).keys == 0) {
    throw RunTimeError(error_number::kInvalidFileFormat, Text::kNotAChartFile, {chartFile});
  }
}

void RefuseOutputOnto(const std::string& chartFile, const std::string& output) {
  std::error_code missing;  // a name without a file is not another name of the chart file
  if (chartFile == output || std::filesystem::equivalent(chartFile, output, missing)) {
    throw RefusedError("--output: " + output + " is the chart file itself; nothing was written");
  }
}

void RefuseOutputOntoRecording(Ports& ports, const std::string& output) {
  if (!ports.files.FileExists(output)) return;
  const auto file = ports.files.OpenForReading(output);
  std::array<char, kBegin.size()> begin{};
  std::size_t count = 0;
  while (count < begin.size()) {
    const std::size_t more = file->Read(std::span(begin).subspan(count));
    if (more == 0) break;
    count += more;
  }
  if (std::string_view(begin.data(), count) == kBegin) {
    throw RefusedError("--output: " + output + " is a recording; nothing was written");
  }
}

}  // namespace chartproject
