// Plain decimals are copied; every other number is read by the user's locale and written anew.
#include "chart/plain/plain_value.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

#include "common/values/byte_words.h"
#include "recording/file/field_value.h"

namespace chartproject {
namespace {

constexpr std::size_t kMostDigits = 15;  // with more FieldValue asks the locale

/// Zero in each byte of `word` that is a digit.
constexpr std::uint64_t OtherThanDigits(std::uint64_t word) noexcept {
  constexpr char kHighBit = '\x80';
  constexpr char kToHighBit = 0x80 - 10;  // lifts what is above 9
  const std::uint64_t values = word ^ WordOf('0');
  return (((values & ~WordOf(kHighBit)) + WordOf(kToHighBit)) | values) & WordOf(kHighBit);
}

/// One to seven bytes as a word, with the digit 0 after them. Put together without memory: a load of what was just
/// stored in smaller parts waits.
std::uint64_t LoadShort(const char* at, std::size_t size) noexcept {
  constexpr std::size_t kHalf = kWordSize / 2;
  const auto byte = [at](std::size_t place) {
    return std::uint64_t{static_cast<unsigned char>(at[place])} << (place * kBitsOfByte);
  };
  const auto half = [at](std::size_t place) {
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, at + place, kHalf);
    return std::uint64_t{bytes} << (place * kBitsOfByte);
  };
  const std::uint64_t word = size >= kHalf ? half(0) | half(size - kHalf) : byte(0) | byte(size / 2) | byte(size - 1);
  return word | WordOf('0') << (size * kBitsOfByte);
}

/// The bytes of a text that are not digits, a bit each.
std::uint64_t PlacesOfOthers(std::uint64_t word) noexcept {
  return BitOfEachByte(OtherThanDigits(word) >> (kBitsOfByte - 1));
}

/// Sign, digits, and digits after one comma or full stop: the decimal separator in every locale, as FieldValue has it.
/// False, with nothing appended, for anything else. Few branches, as values differ in length.
bool CopyPlainDecimal(GrowingText& text, std::string_view field) {
  if (field.size() > kMostDigits) return false;
  const char* at = field.data();
  std::size_t size = field.size();
  char* out = text.Room(1 + 2 * kWordSize);
  *out = '-';
  const std::size_t sign = *at == '-' ? 1 : 0;
  out += sign;
  at += sign;
  size -= sign;
  if (size == 0) return false;
  std::uint64_t others = 0;
  if (size < kWordSize) {
    const std::uint64_t word = LoadShort(at, size);
    others = PlacesOfOthers(word);
    std::memcpy(out, &word, kWordSize);
  } else {
    const std::size_t rest = size - kWordSize;
    others = PlacesOfOthers(LoadWord(at)) | PlacesOfOthers(LoadWord(at + rest)) << rest;
    std::memcpy(out, at, kWordSize);
    std::memcpy(out + rest, at + rest, kWordSize);
  }
  std::size_t point = size;
  if (others != 0) {
    point = static_cast<std::size_t>(std::countr_zero(others));
    const bool single = (others & (others - 1)) == 0;
    if (!single || point == 0 || point + 1 == size || (at[point] != '.' && at[point] != ',')) return false;
    out[point] = '.';
  }
  std::size_t zeros = 0;
  while (zeros + 1 < point && at[zeros] == '0') ++zeros;
  if (zeros > 0) std::memmove(out, out + zeros, size - zeros);
  text.EndAt(out + size - zeros);
  return true;
}

}  // namespace

bool IsOutOfRange(std::string_view field) noexcept {
  return std::all_of(field.begin(), field.end(), [](char c) { return c == '-' || c == ' '; });
}

PlainKind AppendPlainNumber(GrowingText& text, std::string_view field, const NumberFormat& format) {
  if (field.empty()) {
    text.Append('0');
    return PlainKind::kNumber;
  }
  if (CopyPlainDecimal(text, field)) return PlainKind::kNumber;
  const double value = FieldValue(field, format);
  if (std::isnan(value)) return IsOutOfRange(field) ? PlainKind::kNothing : PlainKind::kText;
  constexpr std::size_t kLongest = 32;
  char* const digits = text.Room(kLongest);
  text.EndAt(std::to_chars(digits, digits + kLongest, value).ptr);
  return PlainKind::kNumber;
}

}  // namespace chartproject
