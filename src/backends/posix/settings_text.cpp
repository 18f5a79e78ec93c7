// Line by line.
#include "backends/posix/settings_text.h"

#include <glib.h>

#include <algorithm>
#include <memory>

namespace chartproject {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsUtf8(std::string_view text) {
  return g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr) != FALSE;
}

bool IsSection(std::string_view line) {
  const std::size_t end = line.find(']');
  return line.front() == '[' && end != std::string_view::npos && end > 1 &&
         line.find_first_not_of(" \t", end + 1) == std::string_view::npos &&
         line.substr(1, end - 1).find('[') == std::string_view::npos;
}

bool IsKey(std::string_view line) {
  const std::size_t equals = line.find('=');
  const std::size_t last = line.substr(0, equals).find_last_not_of(" \t");
  return equals != std::string_view::npos && last != std::string_view::npos &&
         line.substr(0, last + 1).find_first_of("[] \t") == std::string_view::npos;
}

}  // namespace

std::string ReadableSettings(std::string_view bytes,
                             const std::function<void(std::int64_t line, std::string_view text)>& skipped) {
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  std::string readable;
  readable.reserve(bytes.size());
  bool inSection = false;
  for (std::int64_t number = 1; !bytes.empty(); ++number) {
    const std::size_t end = bytes.find('\n');
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    const std::string_view text = line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
    const bool section = !text.empty() && IsUtf8(text) && IsSection(text);
    const bool plain = text.empty() || (text.front() == '#' && IsUtf8(text)) || section ||
                       (inSection && IsUtf8(text) && text.find('\0') == std::string_view::npos && IsKey(text));
    inSection = inSection || section;
    if (plain) {
      readable.append(text);
    } else {
      skipped(number, line);
      const std::unique_ptr<gchar, decltype(&g_free)> valid(
          g_utf8_make_valid(line.data(), static_cast<gssize>(line.size())), g_free);
      readable.append("# ").append(valid.get());
    }
    readable += '\n';
  }
  return readable;
}

std::string WithoutGaps(std::string_view text) {
  std::string tidy;
  std::size_t emptyLines = 0;
  bool afterKey = false;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.empty()) {
      ++emptyLines;
      continue;
    }
    const bool key = line.front() != '#' && line.front() != '[';
    if (!key || !afterKey) tidy.append(emptyLines, '\n');
    emptyLines = 0;
    afterKey = key;
    tidy.append(line).append("\n");
  }
  return tidy;
}

bool IsTypedWindowsPath(std::string_view value) {
  const bool drive = value.size() >= 3 && g_ascii_isalpha(value[0]) != FALSE && value[1] == ':' && value[2] == '\\';
  if (!drive && !value.starts_with("\\\\")) return false;
  for (std::size_t at = value.find('\\'); at != std::string_view::npos; at = value.find('\\', at + 2)) {
    if (at + 1 >= value.size() || value[at + 1] != '\\') return true;
  }
  return false;
}

}  // namespace chartproject
