// Bytes of a fuzz target as an input file, or as lines.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace chartproject {

/// Gives at most so many bytes a read, so that lines are cut at every place.
class BytesFile : public InputFile {
 public:
  explicit BytesFile(std::string_view bytes, std::size_t most = SIZE_MAX) : bytes_(bytes), most_(most) {}
  std::size_t Read(std::span<char> buffer) override {
    const std::size_t count = std::min({buffer.size(), bytes_.size() - at_, most_});
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(at_), count, buffer.begin());
    at_ += count;
    return count;
  }
  void Seek(std::uint64_t offset) override { at_ = std::min(static_cast<std::size_t>(offset), bytes_.size()); }
  FileIdentity Identity() override { return {1, 1, bytes_.size(), 0}; }

 private:
  std::string_view bytes_;
  std::size_t most_;
  std::size_t at_ = 0;
};

inline std::vector<std::string> Lines(std::string_view bytes) {
  std::vector<std::string> lines{""};
  for (const char byte : bytes) {
    if (byte == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += byte;
    }
  }
  return lines;
}

inline void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace chartproject
