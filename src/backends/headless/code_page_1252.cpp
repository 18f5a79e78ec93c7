// Windows-1252 to UTF-8 and back.
#include "backends/headless/code_page_1252.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace chartproject {

namespace {

constexpr std::uint32_t kFirstOwn = 0x80;
constexpr std::uint32_t kFirstLatin = 0xA0;
constexpr std::uint32_t kBad = 0xFFFFFFFF;

/// Characters of the bytes 80 to 9F; from A0 on byte and character have the same number (as in Latin-1).
/// The numbers are those of the Unicode consortium's mapping table CP1252.TXT.
constexpr std::array<std::uint16_t, kFirstLatin - kFirstOwn> kOwn = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& text, std::uint32_t character) {
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0 | (character >> 6));
    text += static_cast<char>(0x80 | (character & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | (character >> 12));
    text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (character & 0x3F));
  }
}

/// Takes one character off the front; kBad (and one byte taken) where the text is not valid UTF-8.
std::uint32_t TakeUtf8(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC0 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF8 ? 4
                                           : 0;
  if (length == 0 || length > text.size()) {
    text.remove_prefix(1);
    return kBad;
  }
  std::uint32_t character = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t at = 1; at < length; ++at) {
    const auto next = static_cast<unsigned char>(text[at]);
    if ((next & 0xC0U) != 0x80U) {
      text.remove_prefix(1);
      return kBad;
    }
    character = (character << 6) | (next & 0x3FU);
  }
  text.remove_prefix(length);
  return character;
}

char ToByte(std::uint32_t character) {
  if (character < kFirstOwn || (character >= kFirstLatin && character <= 0xFF)) return static_cast<char>(character);
  const auto* const own = std::find(kOwn.begin(), kOwn.end(), character);
  return own == kOwn.end() ? '?' : static_cast<char>(kFirstOwn + static_cast<std::uint32_t>(own - kOwn.begin()));
}

}  // namespace

std::string CodePage1252::Decode(std::string_view bytes) const {
  const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < kFirstOwn; };
  if (std::all_of(bytes.begin(), bytes.end(), isAscii)) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const std::uint32_t number = static_cast<unsigned char>(byte);
    AppendUtf8(text, number >= kFirstOwn && number < kFirstLatin ? kOwn[number - kFirstOwn] : number);
  }
  return text;
}

std::string CodePage1252::Encode(std::string_view text) const {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) bytes += ToByte(TakeUtf8(text));
  return bytes;
}

}  // namespace chartproject
