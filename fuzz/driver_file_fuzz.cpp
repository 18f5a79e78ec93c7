// Any bytes as a driver file: lines are taken or refused, and nothing else happens.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "backends/headless/code_page_1252.h"
#include "drive/driver_file.h"
#include "drive/unit_codes.h"
#include "platform/run_time_error.h"

using namespace chartproject;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const CodePage1252 codePage;
  const NumberFormat numbers{",", "."};
  ParameterTable table;
  DriverFileParser parser(table, numbers, [](std::string_view keyword, int) { return FindUnitCode(keyword); });
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\n');
    const std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    try {
      const bool taken = parser.TakeLine(codePage.Decode(line));
      // A line of another shape must never pass for a parameter.
      if (taken && line.starts_with('#') && CountChar(line, '#') != 14 && line.find('=') == std::string_view::npos) {
        __builtin_trap();
      }
    } catch (const RunTimeError&) {
      continue;  // a number that is none: the loading ends there, the parser itself stays sound
    }
  }
  return 0;
}
