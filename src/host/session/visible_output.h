// The terminal's guard: control characters in anything that the program writes become visible.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>

namespace chartproject {

/// Passes text on to another stream, made visible as VisibleLines does, also across separate writes. Names and values
/// from files can so be written anywhere, and none of them can control the terminal.
class VisibleOutput : public std::ostream {
 public:
  /// @param target outlives this stream
  explicit VisibleOutput(std::ostream& target) : std::ostream(nullptr), buffer_(target) { rdbuf(&buffer_); }

 private:
  class Buffer : public std::streambuf {
   public:
    explicit Buffer(std::ostream& target) : target_(target) {}
    [[nodiscard]] std::ostream& Target() noexcept { return target_; }

   protected:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    int sync() override;

   private:
    std::ostream& target_;
    std::string pending_;  ///< a first byte (of CR LF, or of a character of two bytes) that waits for its second
  };
  friend void RestartLine(std::ostream& out);

  Buffer buffer_;
};

/// Writes a carriage return of the program's own: what follows goes over the line before.
void RestartLine(std::ostream& out);

}  // namespace chartproject
