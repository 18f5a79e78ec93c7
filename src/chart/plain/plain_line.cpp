// Quotes, escapes, separators.
#include "chart/plain/plain_line.h"

#include <algorithm>

namespace chartproject {
namespace {

/// A text as a field: what a spreadsheet would take for a formula gets the apostrophe that makes it a text.
void AppendField(std::string& line, std::string_view text, char separator) {
  constexpr std::string_view kFormulaSigns = "=+-@\t\r";
  const bool formula = !text.empty() && kFormulaSigns.find(text[0]) != std::string_view::npos;
  const bool tabs = separator == '\t';
  // Readers of tables with tabs know quotes at most at a field's start.
  const bool quoted = tabs ? text.starts_with('"') : text.find_first_of(",\"\r\n") != std::string_view::npos;
  if (quoted) line += '"';
  if (formula) line += '\'';
  for (const char c : text) {
    if (quoted && c == '"') line += '"';
    // In a table with tabs a blank for what would part the line: many readers split it without a look at quotes.
    line += tabs && (c == '\t' || c == '\r' || c == '\n') ? ' ' : c;
  }
  if (quoted) line += '"';
}

/// A JSON string of UTF-8 text.
std::string JsonText(std::string_view text) {
  constexpr std::string_view kHex = "0123456789abcdef";
  constexpr unsigned char kFirstPrintable = 0x20;
  std::string json = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      json += '\\';
      json += c;
    } else if (byte < kFirstPrintable) {
      json.append("\\u00").append(1, kHex[byte >> 4U]).append(1, kHex[byte & 0xFU]);
    } else {
      json += c;
    }
  }
  return json += '"';
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
    keys_.push_back(json_ ? "," + JsonText(head) + ":" : std::string(1, separator_));
  }
}

void PlainLine::AppendHead(std::string& text, std::span<const std::string> heads) const {
  if (json_) return;
  text += "time";
  for (const std::string& head : heads) {
    text += separator_;
    AppendField(text, head, separator_);
  }
  text += '\n';
}

void PlainLine::Begin(std::string& text) {
  column_ = 0;
  if (json_) text += "{\"time\":";
}

void PlainLine::BeginTime(std::string& text) const {
  if (json_) text += '"';
}

void PlainLine::NextColumn(std::string& text) {
  text += keys_[column_++];
}

void PlainLine::AppendText(std::string& text, std::string_view value) const {
  if (json_) {
    text += JsonText(value);
  } else {
    AppendField(text, value, separator_);
  }
}

}  // namespace chartproject
