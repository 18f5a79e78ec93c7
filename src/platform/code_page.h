// Port: the system's 8-bit code page. Texts in memory are UTF-8; chart, spool, drive, driver and log files are not.
#pragma once

#include <string>
#include <string_view>

namespace chartproject {

class CodePage {
 public:
  virtual ~CodePage() = default;
  /// Bytes of a file as UTF-8. Every byte has a different character, so that Encode gives the same byte back.
  [[nodiscard]] virtual std::string Decode(std::string_view bytes) const = 0;
  /// UTF-8 as bytes of a file; a character that the code page lacks becomes "?".
  [[nodiscard]] virtual std::string Encode(std::string_view text) const = 0;
};

}  // namespace chartproject
