// Eight bytes at a time, by means that every processor has.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace chartproject {

/// Bytes of a word.
inline constexpr std::size_t kWordSize = sizeof(std::uint64_t);
inline constexpr unsigned kBitsOfByte = 8;

/// A word with `byte` in each of its bytes.
[[nodiscard]] constexpr std::uint64_t WordOf(char byte) noexcept {
  constexpr std::uint64_t kEachByte = 0x0101010101010101U;
  return kEachByte * static_cast<unsigned char>(byte);
}

/// Eight bytes, the first one lowest on every machine.
[[nodiscard]] inline std::uint64_t LoadWord(const char* at) noexcept {
  std::uint64_t word = 0;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(&word, at, kWordSize);
  } else {
    for (std::size_t i = kWordSize; i-- > 0;) word = word << kBitsOfByte | static_cast<unsigned char>(at[i]);
  }
  return word;
}

/// One in each byte of `word` that is `wanted`, zero in all others.
[[nodiscard]] constexpr std::uint64_t BytesEqual(std::uint64_t word, char wanted) noexcept {
  constexpr std::uint64_t kLowBits = 0x7F7F7F7F7F7F7F7FU;
  constexpr unsigned kHighBit = 7;
  const std::uint64_t different = word ^ WordOf(wanted);
  // A byte's high bit survives only where no bit differs; no carry leaves a byte.
  return (~(((different & kLowBits) + kLowBits) | different) & ~kLowBits) >> kHighBit;
}

/// The lowest bits of the eight bytes beside each other, that of the first byte lowest. @param word of zeros and ones
[[nodiscard]] constexpr std::uint64_t BitOfEachByte(std::uint64_t word) noexcept {
  constexpr std::uint64_t kOneAboveTheOther = 0x0102040810204080U;  // moves the bit of byte i to bit 56 + i
  constexpr unsigned kTopByte = 56;
  return (word * kOneAboveTheOther) >> kTopByte;
}

}  // namespace chartproject
