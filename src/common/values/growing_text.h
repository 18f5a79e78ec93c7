// A text that is put together of many short pieces.
#pragma once

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

namespace chartproject {

/// Takes short pieces several times as fast as a string does: its writers put bytes after its end and say where they
/// stopped.
class GrowingText {
 public:
  /// The place after the text, with room for so many bytes at least; holds until the next call.
  [[nodiscard]] char* Room(std::size_t bytes) {
    if (bytes_.size() - size_ < bytes) bytes_.resize(std::max(2 * bytes_.size(), size_ + bytes));
    return bytes_.data() + size_;
  }
  /// The text now has what was written from Room to `end`.
  void EndAt(const char* end) noexcept { size_ = static_cast<std::size_t>(end - bytes_.data()); }

  void Append(std::string_view piece) {
    std::memcpy(Room(piece.size()), piece.data(), piece.size());
    size_ += piece.size();
  }
  void Append(char byte) {
    *Room(1) = byte;
    ++size_;
  }
  /// Leaves so many bytes, the whole text at most; without a number none. The room stays.
  void CutTo(std::size_t size = 0) noexcept { size_ = size; }

  [[nodiscard]] std::size_t Size() const noexcept { return size_; }
  [[nodiscard]] std::string_view View() const noexcept { return {bytes_.data(), size_}; }

 private:
  std::vector<char> bytes_;
  std::size_t size_ = 0;  ///< the rest is room
};

}  // namespace chartproject
