// What ends a name in the protocol is escaped; what has no escape is replaced.
#include "publish/line_protocol.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "chart/plain/plain_value.h"

namespace chartproject {
namespace {

constexpr std::size_t kLongestMeasurement = 100;

bool IsControl(char c) noexcept {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

/// Cut before a character of several bytes that would be cut itself.
std::string_view CutTo(std::string_view text, std::size_t most) noexcept {
  if (text.size() <= most) return text;
  std::size_t size = most;
  while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0U) == 0x80U) --size;
  return text.substr(0, size);
}

void AppendEscaped(std::string& key, std::string_view text, std::string_view escaped) {
  for (const char c : text) {
    const char shown = IsControl(c) ? ' ' : c == '\\' ? '/' : c;
    if (escaped.find(shown) != std::string_view::npos) key += '\\';
    key += shown;
  }
}

}  // namespace

bool IsMeasurement(std::string_view text) noexcept {
  return !text.empty() && text.size() <= kLongestMeasurement && text.front() != '_' &&
         text.find('\\') == std::string_view::npos && std::ranges::none_of(text, IsControl);
}

std::string SeriesKey(std::string_view measurement, LineTags tags) {
  std::string key;
  AppendEscaped(key, measurement, ", ");
  std::ranges::sort(tags);
  for (const auto& [name, value] : tags) {
    if (value.empty()) continue;
    std::string tag = ",";
    AppendEscaped(tag, name, ",= ");
    tag += '=';
    AppendEscaped(tag, CutTo(value, kLongestTagValue), ",= ");
    if (key.size() + tag.size() <= kLongestSeriesKey) key += tag;
  }
  return key;
}

bool IsSeriesKeyOf(std::string_view key, std::string_view measurement) noexcept {
  std::string begin;
  AppendEscaped(begin, measurement, ", ");
  if (key.size() > kLongestSeriesKey || !key.starts_with(begin)) return false;
  if (key.size() > begin.size() && key[begin.size()] != ',') return false;
  for (std::size_t at = 0; at < key.size(); ++at) {
    if (IsControl(key[at]) || key[at] == ' ') return false;
    if (key[at] != '\\') continue;
    if (++at == key.size() || std::string_view(",= ").find(key[at]) == std::string_view::npos) return false;
  }
  return true;
}

PointLines::PointLines(std::string seriesKey, const std::vector<std::string>& fields, const NumberFormat& numbers)
    : key_(std::move(seriesKey)), numbers_(numbers) {
  key_ += ' ';
  for (const std::string& field : fields) names_.push_back(field + "=");
}

void PointLines::Begin(std::string& lines) {
  begin_ = lines.size();
  any_ = false;
  lines += key_;
}

bool PointLines::Value(std::string& lines, std::size_t column, std::string_view field) {
  number_.CutTo();
  const bool isNumber = AppendPlainNumber(number_, field, numbers_) == PlainKind::kNumber;
  // An overflow is written "inf", which databases do not take.
  if (!isNumber || number_.View().find_first_of("in") != std::string_view::npos) return false;
  if (any_) lines += ',';
  lines += names_[column];
  lines += number_.View();
  any_ = true;
  return true;
}

bool PointLines::End(std::string& lines, std::int64_t milliseconds) const {
  if (!any_) {
    lines.resize(begin_);
    return false;
  }
  char digits[std::numeric_limits<std::int64_t>::digits10 + 3];
  lines += ' ';
  lines.append(digits, std::to_chars(digits, digits + sizeof digits, milliseconds).ptr);
  lines += '\n';
  return true;
}

}  // namespace chartproject
