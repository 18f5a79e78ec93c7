// Every frame of a line in hexadecimal digits, for whoever has to find out what really went over the wire.
#pragma once

#include <cstdint>
#include <fstream>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace chartproject {

/// Lines like "08:00:00.125 > 01 03 00 05 00 01 94 0B" (sent), "< ..." (received) and "! ..." (what happened). Used by
/// one thread.
class LineTrace {
 public:
  /// Appends to a trace, or makes one. Throws RunTimeError for a file that cannot be written, and for one that is there
  /// and is not a trace. @param name "-" for the standard error
  LineTrace(const std::string& name, Clock& clock);

  void Sent(std::span<const std::uint8_t> frame) { Frame('>', frame); }
  void Received(std::span<const std::uint8_t> frame) { Frame('<', frame); }
  void Note(std::string_view text);

 private:
  void Frame(char mark, std::span<const std::uint8_t> frame);
  std::ostream& Line(char mark);

  Clock& clock_;
  std::ofstream file_;
  std::ostream* out_;
};

}  // namespace chartproject
