// Bytes to characters one by one; bytes without a character take one of the private-use area.
#include "backends/win32/win32_code_page.h"

#include <algorithm>

#include "backends/win32/wide_text.h"
#include "backends/win32/windows_api.h"

namespace chartproject::win32 {

namespace {

/// Byte b is kept as kLoneByte + b: one character of the private-use area for each byte.
constexpr wchar_t kLoneByte = 0xF700;

std::string ToBytes(unsigned codePage, std::wstring_view wide) {
  char buffer[16];
  const int length = WideCharToMultiByte(codePage, 0, wide.data(), static_cast<int>(wide.size()), buffer,
                                         static_cast<int>(std::size(buffer)), nullptr, nullptr);
  return {buffer, static_cast<std::size_t>(std::max(length, 0))};
}

/// The character of some bytes; empty unless the way back gives the same bytes.
std::wstring Faithful(unsigned codePage, std::string_view bytes) {
  wchar_t buffer[4];
  const int length = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                                         buffer, static_cast<int>(std::size(buffer)));
  if (length <= 0) return {};
  std::wstring wide(buffer, static_cast<std::size_t>(length));
  return ToBytes(codePage, wide) == bytes ? wide : std::wstring();
}

}  // namespace

Win32CodePage::Win32CodePage(unsigned codePage) : codePage_(codePage == 0 ? GetACP() : codePage) {
  CPINFO info;
  if (GetCPInfo(codePage_, &info) != 0) longest_ = info.MaxCharSize;
  for (std::size_t byte = 0; byte < single_.size(); ++byte) {
    const char bytes[] = {static_cast<char>(byte)};
    const std::wstring wide = Faithful(codePage_, {bytes, 1});
    single_[byte] = wide.size() == 1 ? wide[0] : static_cast<wchar_t>(kLoneByte + byte);
  }
}

std::size_t Win32CodePage::CharacterAt(std::string_view bytes, std::wstring& wide) const {
  const bool ascii = static_cast<unsigned char>(bytes[0]) < 0x80;  // never begins a longer character
  for (std::size_t length = ascii ? 1 : std::min(longest_, bytes.size()); length > 1; --length) {
    // Only one character at a time: two characters of one byte each are not one of two bytes.
    const std::wstring found = Faithful(codePage_, bytes.substr(0, length));
    const bool one = found.size() == 1 || (found.size() == 2 && IS_HIGH_SURROGATE(found[0]));
    if (one) {
      wide += found;
      return length;
    }
  }
  wide += single_[static_cast<unsigned char>(bytes[0])];
  return 1;
}

std::string Win32CodePage::Decode(std::string_view bytes) const {
  std::wstring wide;
  wide.reserve(bytes.size());
  while (!bytes.empty()) bytes.remove_prefix(CharacterAt(bytes, wide));
  return ToUtf8(wide);
}

std::string Win32CodePage::Encode(std::string_view text) const {
  const std::wstring wide = ToWide(text);
  std::string bytes;
  bytes.reserve(wide.size());
  for (std::size_t at = 0; at < wide.size(); ++at) {
    const wchar_t character = wide[at];
    if (character < 0x80) {
      bytes += static_cast<char>(character);
      continue;
    }
    if (character >= kLoneByte && character <= kLoneByte + 0xFF) {
      bytes += static_cast<char>(character - kLoneByte);
      continue;
    }
    const std::size_t length = IS_HIGH_SURROGATE(character) && at + 1 < wide.size() ? 2 : 1;
    const std::wstring one = wide.substr(at, length);
    const std::string found = ToBytes(codePage_, one);
    // The system offers a look-alike for some characters that the code page lacks; a file shall not hold it.
    wchar_t back[4];
    const int backLength = MultiByteToWideChar(codePage_, 0, found.data(), static_cast<int>(found.size()), back,
                                               static_cast<int>(std::size(back)));
    const bool same = backLength > 0 && std::wstring_view(back, static_cast<std::size_t>(backLength)) == one;
    bytes += same ? found : "?";
    at += length - 1;
  }
  return bytes;
}

}  // namespace chartproject::win32
