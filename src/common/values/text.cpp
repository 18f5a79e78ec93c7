// Small text routines and the joining of file names.
#include "common/values/text.h"

#include <algorithm>

namespace chartproject {

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

std::string JoinPath(std::string_view folder, std::string_view name) {
  const bool hasDriveLetter = folder.size() >= 2 && folder[1] == ':';
  const bool usesSlash =
      !hasDriveLetter && folder.find('\\') == std::string_view::npos && folder.find('/') != std::string_view::npos;
  std::string path(folder);
  // A root ("C:\", "/") ends with its separator already.
  if (path.empty() || (path.back() != '\\' && path.back() != '/')) path += usesSlash ? '/' : '\\';
  return path.append(name);
}

}  // namespace chartproject
