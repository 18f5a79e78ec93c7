// Lines of a text file of any content in bounded memory.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace chartproject {

/// One line; the view holds until the next call of LineReader::Next.
struct TextLine {
  std::string_view text;     ///< the file's bytes, without LF or CR LF
  std::int64_t number = 0;   ///< counted from 1
  std::uint64_t offset = 0;  ///< byte offset of the line's first byte in the file
  bool cut = false;          ///< the line was longer than the limit; the text is its beginning
};

/// Refuses a file that is far larger than any real one of its kind: reading it would only fill the memory. Throws
/// RunTimeError 5 with both sizes. @param most in MB (2^20 bytes); @param size in bytes
void RefuseLargeFile(const std::string& fileName, std::uint64_t size, std::uint64_t most);

/// Reads from a file's current place. A line ends at LF, at CR LF, or at the end of the file (then only when it holds
/// anything). A line longer than the limit is cut; its rest is skipped.
class LineReader {
 public:
  static constexpr std::size_t kDefaultLimit = std::size_t{64} * 1024;

  /// @param file outlives the reader; its position must not be changed from outside
  /// @param limit longest line in bytes that is given whole
  /// @param firstNumber,firstOffset of the line that begins at the file's current place
  explicit LineReader(InputFile& file, std::size_t limit = kDefaultLimit, std::int64_t firstNumber = 1,
                      std::uint64_t firstOffset = 0);

  /// False at the end of the file. Throws RunTimeError 57 on a device error.
  [[nodiscard]] bool Next(TextLine& line);
  /// Byte offset in the file of the line that comes next.
  [[nodiscard]] std::uint64_t NextOffset() const noexcept { return offset_; }

 private:
  bool Fill();

  InputFile& file_;
  std::size_t limit_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  // of what is read, but not yet given
  std::size_t end_ = 0;
  std::int64_t number_;
  std::uint64_t offset_;
};

}  // namespace chartproject
