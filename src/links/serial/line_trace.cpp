// Writing the lines.
#include "links/serial/line_trace.h"

#include <filesystem>
#include <iostream>

#include "common/values/numbers.h"
#include "common/values/text.h"
#include "platform/run_time_error.h"

namespace chartproject {

namespace {

constexpr std::string_view kFirstLine = "ChartProject line trace";

/// True for a file that may be written: there is none, or it is a trace.
bool MayWrite(const std::string& name) {
  std::error_code none;
  const auto status = std::filesystem::status(name, none);
  if (!std::filesystem::exists(status)) return true;
  if (!std::filesystem::is_regular_file(status)) return false;
  std::string line;
  std::ifstream file(name);
  return !std::getline(file, line) ? file.eof() && line.empty() : line == kFirstLine;
}

}  // namespace

LineTrace::LineTrace(const std::string& name, Clock& clock) : clock_(clock), out_(&std::cerr) {
  if (name == "-") return;
  if (!MayWrite(name)) throw RunTimeError(error_number::kPathFileAccess, Text::kTraceOfOthers, {name});
  file_.open(name, std::ios::app);
  if (!file_) throw RunTimeError(error_number::kPathFileAccess, Text::kTraceNotWritten, {name});
  out_ = &file_;
  if (file_.tellp() == 0) file_ << kFirstLine << std::endl;
}

std::ostream& LineTrace::Line(char mark) {
  const DateTime now = clock_.LocalNow();
  return *out_ << FormatTimeOfDay(now.hour, now.minute, now.second) << "." << FormatDigits(now.millisecond, 3) << " "
               << mark;
}

void LineTrace::Frame(char mark, std::span<const std::uint8_t> frame) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::ostream& out = Line(mark);
  for (const std::uint8_t byte : frame) out << ' ' << kDigits[byte >> 4U] << kDigits[byte & 0xFU];
  out << std::endl;  // a trace of a program that hangs is wanted, too
}

void LineTrace::Note(std::string_view text) {
  Line('!') << ' ' << VisibleText(text) << std::endl;
}

}  // namespace chartproject
