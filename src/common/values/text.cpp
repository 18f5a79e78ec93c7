// Small text routines and the joining of file names.
#include "common/values/text.h"

#include <algorithm>

namespace chartproject {

namespace {

/// Bytes of the control character that a UTF-8 text begins with; 0 for any other character.
std::size_t ControlLength(std::string_view text) noexcept {
  const auto first = static_cast<unsigned char>(text[0]);
  if (first < 0x20 || first == 0x7F) return 1;
  if (first != 0xC2 || text.size() < 2) return 0;
  const auto second = static_cast<unsigned char>(text[1]);
  return second >= 0x80 && second < 0xA0 ? 2 : 0;  // U+0080 to U+009F
}

template <typename Keep>
std::string MakeVisible(std::string_view text, Keep keep) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string visible;
  visible.reserve(text.size());
  while (!text.empty()) {
    const std::size_t control = keep(text) ? 0 : ControlLength(text);
    if (control == 0) {
      visible += text[0];
    } else {
      const auto code = static_cast<unsigned char>(text[control - 1]);
      visible.append("\\x") += kDigits[code >> 4U];
      visible += kDigits[code & 0xFU];
    }
    text.remove_prefix(std::max<std::size_t>(control, 1));
  }
  return visible;
}

}  // namespace

std::string_view TrimStart(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string_view Trim(std::string_view text) {
  const std::string_view tail = TrimStart(text);
  return tail.substr(0, tail.find_last_not_of(' ') + 1);
}

std::string_view AfterEquals(std::string_view line) {
  const std::size_t at = line.find('=');
  return at == std::string_view::npos ? std::string_view() : line.substr(at + 1);
}

std::string ToUpperAscii(std::string_view text) {
  std::string upper(text);
  std::ranges::transform(upper, upper.begin(),
                         [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
  return upper;
}

std::string VisibleText(std::string_view value) {
  return MakeVisible(value, [](std::string_view) { return false; });
}

std::string VisibleLines(std::string_view text) {
  return MakeVisible(
      text, [](std::string_view rest) { return rest[0] == '\n' || rest[0] == '\t' || rest.starts_with("\r\n"); });
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  const bool hasDriveLetter = folder.size() >= 2 && folder[1] == ':';
  const bool usesSlash =
      !hasDriveLetter && folder.find('\\') == std::string_view::npos && folder.find('/') != std::string_view::npos;
  std::string path(folder);
  // A root ("C:\", "/") ends with its separator already.
  if (path.empty() || (path.back() != '\\' && path.back() != '/')) path += usesSlash ? '/' : '\\';
  return path.append(name);
}

std::string_view BaseName(std::string_view path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

}  // namespace chartproject
