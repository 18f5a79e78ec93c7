// How a kept survey is laid out in its file: a head, the file that it belongs to, the line index, the envelope. The
// machine's own byte order and number format; each part is followed by its checksum.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "chart/file/file_survey.h"
#include "platform/locale.h"

namespace chartproject::kept {

inline constexpr std::string_view kEnding = ".overview";
inline constexpr std::uint64_t kMark = 0x3130'5459'4556'5255;  ///< "URVEYT01", also the order of the bytes
/// All kept surveys together.
inline constexpr std::uint64_t kMostBytes = std::uint64_t{64} * 1024 * 1024;
/// A shorter chart file is surveyed as fast as a kept survey is found.
inline constexpr std::uint64_t kLeastFile = std::uint64_t{16} * 1024 * 1024;
/// Lines of a block that is kept: shorter blocks are joined, since so few lines are read from the chart file in no
/// time.
inline constexpr std::int64_t kLeastBlock = 512;
inline constexpr std::uint64_t kLongestKey = 16'384;

/// The fixed part.
struct Head {
  std::uint64_t mark = kMark;
  std::uint64_t keyBytes = 0;  ///< of the text after the head
  std::uint64_t offsets = 0;   ///< of the line index
  std::uint64_t series = 0;
  std::uint64_t blocks = 0;  ///< of each series
  SurveyState state;
};
static_assert(sizeof(Head) % sizeof(std::uint64_t) == 0);

/// The bytes of values in memory.
template <typename T>
[[nodiscard]] std::string_view BytesOf(const T* values, std::size_t count = 1) noexcept {
  return {static_cast<const char*>(static_cast<const void*>(values)), count * sizeof(T)};
}

/// A sum of 64 bits over whole bytes, eight at a time.
class Checksum {
 public:
  void Add(std::string_view bytes) noexcept;
  [[nodiscard]] std::uint64_t Value() const noexcept { return value_; }

 private:
  std::uint64_t value_ = 0x9E37'79B9'7F4A'7C15;
};

/// What distinguishes this state of a chart file from every other one, as one text: name, size, time, a checksum of its
/// first and last 4 KB, how its numbers are read. Throws RunTimeError 57.
[[nodiscard]] std::string KeyOf(InputFile& chart, const std::string& fileName, const LinePlace& first, int series,
                                const NumberFormat& format);

/// The folder of kept surveys; empty where the user has none.
[[nodiscard]] std::string Folder(FileSystem& files);
/// The file of a chart file's survey, without its ending.
[[nodiscard]] std::string Stem(const std::string& folder, const std::string& chartFile);

}  // namespace chartproject::kept
