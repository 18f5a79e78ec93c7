// Measured by the printer's own text widths; UTF-8 characters are never cut apart.
#include "chart/output/page_text.h"

namespace chartproject {

namespace {

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Byte positions at which a character begins, and the end.
std::vector<std::size_t> CharacterStarts(std::string_view text) {
  std::vector<std::size_t> starts;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsContinuation(text[i])) starts.push_back(i);
  }
  starts.push_back(text.size());
  return starts;
}

/// Bytes of the longest beginning that fits, at least one character; preferably up to a blank or folder separator.
std::size_t FittingLength(const Printer& printer, std::string_view text, const PrintFont& font, double width) {
  const std::vector<std::size_t> starts = CharacterStarts(text);
  std::size_t low = 1;
  std::size_t high = starts.size() - 1;
  while (low < high) {
    const std::size_t middle = (low + high + 1) / 2;
    if (printer.TextWidth(text.substr(0, starts[middle]), font) <= width) {
      low = middle;
    } else {
      high = middle - 1;
    }
  }
  if (starts[low] == text.size()) return text.size();
  const std::size_t breakAt = text.substr(0, starts[low]).find_last_of(" /\\");
  return breakAt == std::string_view::npos ? starts[low] : breakAt + 1;
}

}  // namespace

std::string ShortenMiddle(const Printer& printer, std::string_view text, const PrintFont& font, double width) {
  if (printer.TextWidth(text, font) <= width) return std::string(text);
  const std::vector<std::size_t> starts = CharacterStarts(text);
  const std::size_t characters = starts.size() - 1;
  std::string shortened;
  for (std::size_t kept = characters - 1; kept > 0; --kept) {
    const std::size_t head = (kept + 1) / 2;
    const std::size_t tail = kept - head;
    shortened = std::string(text.substr(0, starts[head])) + "..." + std::string(text.substr(starts[characters - tail]));
    if (printer.TextWidth(shortened, font) <= width) break;
  }
  return shortened;
}

std::vector<std::string> WrapText(const Printer& printer, std::string_view text, const PrintFont& font, double width,
                                  int mostLines) {
  std::vector<std::string> lines;
  std::string_view rest = text;
  while (!rest.empty() && static_cast<int>(lines.size()) < mostLines) {
    const bool last = static_cast<int>(lines.size()) == mostLines - 1;
    if (last) {
      lines.push_back(ShortenMiddle(printer, rest, font, width));
      break;
    }
    const std::size_t length = FittingLength(printer, rest, font, width);
    lines.emplace_back(rest.substr(0, length));
    rest.remove_prefix(length);
  }
  if (lines.empty()) lines.emplace_back();
  return lines;
}

}  // namespace chartproject
