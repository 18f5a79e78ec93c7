// Quotes, escapes, separators.
#include "chart/plain/plain_line.h"

#include <algorithm>

namespace chartproject {
namespace {

/// A text as a field: what a spreadsheet would take for a formula gets the apostrophe that makes it a text.
void AppendField(GrowingText& line, std::string_view text, char separator) {
  constexpr std::string_view kFormulaSigns = "=+-@\t\r";
  const auto isSpecial = [](char c) { return c == ',' || c == '"' || c == '\t' || c == '\r' || c == '\n'; };
  const bool formula = !text.empty() && kFormulaSigns.find(text[0]) != std::string_view::npos;
  if (std::none_of(text.begin(), text.end(), isSpecial)) {
    if (formula) line.Append('\'');
    line.Append(text);
    return;
  }
  const bool tabs = separator == '\t';
  // Readers of tables with tabs know quotes at most at a field's start.
  const bool quoted = tabs ? text.starts_with('"') : text.find_first_of(",\"\r\n") != std::string_view::npos;
  if (quoted) line.Append('"');
  if (formula) line.Append('\'');
  for (const char c : text) {
    if (quoted && c == '"') line.Append('"');
    // In a table with tabs a blank for what would part the line: many readers split it without a look at quotes.
    line.Append(tabs && (c == '\t' || c == '\r' || c == '\n') ? ' ' : c);
  }
  if (quoted) line.Append('"');
}

/// A JSON string of UTF-8 text.
void AppendJsonText(GrowingText& line, std::string_view text) {
  constexpr std::string_view kHex = "0123456789abcdef";
  constexpr unsigned char kFirstPrintable = 0x20;
  constexpr std::size_t kLongestCharacter = std::string_view("\\u0000").size();
  char* at = line.Room(kLongestCharacter * text.size() + 2);
  *at++ = '"';
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < kFirstPrintable) {
      for (const char piece : {'\\', 'u', '0', '0', kHex[byte >> 4U], kHex[byte & 0xFU]}) *at++ = piece;
      continue;
    }
    if (c == '"' || c == '\\') *at++ = '\\';
    *at++ = c;
  }
  *at++ = '"';
  line.EndAt(at);
}

}  // namespace

std::string PlainHead(std::string number, const std::string& name, const std::string& unit) {
  if (!name.empty()) number += " " + name;
  if (!unit.empty()) number += " [" + unit + "]";
  return number;
}

void MakeHeadsUnique(std::vector<std::string>& heads) {
  const std::vector<std::string> given = heads;
  for (auto head = heads.begin(); head != heads.end(); ++head) {
    const auto before = std::count(given.begin(), given.begin() + (head - heads.begin()), *head);
    if (before > 0) *head += " (" + std::to_string(before + 1) + ")";
  }
}

PlainLine::PlainLine(PlainFormat format, const std::vector<std::string>& heads)
    : json_(format == PlainFormat::kJsonLines), separator_(format == PlainFormat::kTabs ? '\t' : ',') {
  for (const std::string& head : heads) {
    if (!json_) continue;
    GrowingText key;
    key.Append(',');
    AppendJsonText(key, head);
    key.Append(':');
    keys_.emplace_back(key.View());
  }
}

void PlainLine::AppendHead(GrowingText& text, std::span<const std::string> heads) const {
  if (json_) return;
  text.Append("time");
  for (const std::string& head : heads) {
    text.Append(separator_);
    AppendField(text, head, separator_);
  }
  text.Append('\n');
}

void PlainLine::Begin(GrowingText& text) {
  column_ = 0;
  if (json_) text.Append("{\"time\":");
}

void PlainLine::BeginTime(GrowingText& text) const {
  if (json_) text.Append('"');
}

void PlainLine::NextColumn(GrowingText& text) {
  if (json_) {
    text.Append(keys_[column_++]);
  } else {
    text.Append(separator_);
  }
}

void PlainLine::AppendText(GrowingText& text, std::string_view value) const {
  if (json_) {
    AppendJsonText(text, value);
  } else {
    AppendField(text, value, separator_);
  }
}

}  // namespace chartproject
